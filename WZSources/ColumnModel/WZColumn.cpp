#include "WZSources/ColumnModel/WZColumn.hpp"

namespace WZ {

IColumn::~IColumn() = default;

}  // namespace WZ
