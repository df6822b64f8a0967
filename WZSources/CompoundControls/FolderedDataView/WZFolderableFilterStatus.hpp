// The verdict of a foldered data view's filter on one model item, stored as a number.
// In a tree: Excluded drops the item with its whole subtree; Included shows it and filters its
// children in their own right; IncludedIfAnyChild shows it only when at least one child
// survives (a folder kept for its descendants). A flat list shows only Included items.
#pragma once

#include "NK/NKTypes.hpp"

namespace WZ::Folderable {

enum class FilterStatus : NK::Int32 {
    Excluded = 0,
    Included = 1,
    IncludedIfAnyChild = 2,
};

}  // namespace WZ::Folderable
