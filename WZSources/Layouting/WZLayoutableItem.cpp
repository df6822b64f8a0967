#include "WZSources/Layouting/WZLayoutableItem.hpp"

namespace WZ::Layouting {

ILayoutableItem::~ILayoutableItem() = default;

}  // namespace WZ::Layouting
