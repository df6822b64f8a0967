#include "WZSources/Diff/WZListBoxDecorator.hpp"

namespace WZ {

ListBoxDecorator::~ListBoxDecorator() = default;

}  // namespace WZ
