// NK::DestroyOwnedTree: deletes nodes that own their children through NK::Owner from a work list,
// so that a chain of any depth is deleted without one nested destructor call per level. A node's
// destructor that calls it on its own children deletes the whole subtree this way.
#pragma once

#include "NK/NKArray.hpp"
#include "NK/NKPointers.hpp"

namespace NK {

// `takeChildren(node, pending)` moves the node's owned children onto `pending` and leaves the
// node with none, so that each node is destroyed with nothing left below it.
template <typename Node, typename TakeChildren>
void DestroyOwnedTree(Array<Owner<Node>> pending, TakeChildren takeChildren)
{
    while (!pending.IsEmpty()) {
        Owner<Node> node = pending.Pop();
        if (node != nullptr)
            takeChildren(*node, pending);
    }
}

}  // namespace NK
