// WZ::TreeViewAccessor: structural queries on a tree view, and insertion of an empty node at a
// given child position. Node 0 is the invisible root; -1 means no node.
#pragma once

#include "NK/NKArray.hpp"
#include "QM/QMTreeView.hpp"

namespace WZ {

class TreeViewAccessor {
public:
    explicit TreeViewAccessor(QM::TreeView& treeView);
    virtual ~TreeViewAccessor();

    // The children of `parent` in order; empty when it has none.
    NK::Array<int> GetChildren(int parent) const;
    // The item followed by the subtree below it, pre-order.
    NK::Array<int> GetAllChildren(int item) const;
    // The children of the item's parent, the item included.
    NK::Array<int> GetSiblings(int item) const;
    // Inserts an empty node so that it becomes child number `position` (from 0) of `parent`:
    // first with the insert-as-first marker, at the end with the insert-as-last marker, else
    // after child `position` - 1. Returns the node.
    int GetInsertItem(int parent, unsigned position);
    // The same for a caller that keeps the level in step itself: `childCount` is the number of
    // children `parent` has now and `previous` its child number `position` - 1 (unused at 0 and
    // at the end), so nothing is walked.
    int InsertChild(int parent, unsigned position, NK::UIndex childCount, int previous);

    int GetFirstChildItem(int item) const;
    int GetNextSiblingItem(int item) const;
    int GetPreviousSiblingItem(int item) const;
    int GetParentItem(int item) const;
    bool IsExistingItem(int item) const;

protected:
    // The one call through which nodes are inserted: the tree view's InsertItem.
    virtual int InsertItem(int parent, int after);

private:
    QM::TreeView& treeView;
};

}  // namespace WZ
