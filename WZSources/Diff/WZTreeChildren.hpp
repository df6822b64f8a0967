// Null-free item arrays for the tree comparison and the tree updater. A null entry in a forest
// (among the roots or in an item's children) is a client error: it is reported as a failed
// precondition and left out, so that the comparison and the updater see the same items.
#pragma once

#include "NK/NKArray.hpp"
#include "WZSources/Diff/WZDiffable.hpp"

namespace WZ::Diff {

// Removes the null entries of `items`, reporting each; the others keep their order.
void DropNullItems(NK::Array<const TreeDiffable*>& items);

// The item's children, null entries reported and left out.
inline NK::Array<const TreeDiffable*> ChildrenOf(const TreeDiffable& item)
{
    NK::Array<const TreeDiffable*> children = item.GetDiffableChildren();
    DropNullItems(children);
    return children;
}

}  // namespace WZ::Diff
