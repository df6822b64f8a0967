#include "WZSources/Diff/WZTreeViewAccessor.hpp"

namespace WZ {

TreeViewAccessor::TreeViewAccessor(QM::TreeView& treeView) : treeView(treeView) {}

TreeViewAccessor::~TreeViewAccessor() = default;

NK::Array<int> TreeViewAccessor::GetChildren(int parent) const
{
    NK::Array<int> children;
    for (int child = GetFirstChildItem(parent); child != QM::TreeView::NoItem; child = GetNextSiblingItem(child))
        children.Push(child);
    return children;
}

NK::Array<int> TreeViewAccessor::GetAllChildren(int item) const
{
    // Pre-order from an explicit stack: the next node is the first child, else the next sibling
    // of the nearest node on the way back up that has one.
    NK::Array<int> nodes;
    nodes.Push(item);
    int current = GetFirstChildItem(item);
    while (current != QM::TreeView::NoItem) {
        nodes.Push(current);
        int next = GetFirstChildItem(current);
        while (next == QM::TreeView::NoItem && current != item) {
            next = GetNextSiblingItem(current);
            if (next == QM::TreeView::NoItem)
                current = GetParentItem(current);
        }
        current = next;
    }
    return nodes;
}

NK::Array<int> TreeViewAccessor::GetSiblings(int item) const
{
    return GetChildren(GetParentItem(item));
}

int TreeViewAccessor::GetInsertItem(int parent, unsigned position)
{
    if (position == 0)
        return InsertChild(parent, position, 0, QM::TreeView::NoItem);
    NK::Array<int> children = GetChildren(parent);
    const int previous = position <= children.GetSize() ? children[position - 1] : QM::TreeView::NoItem;
    return InsertChild(parent, position, children.GetSize(), previous);
}

int TreeViewAccessor::InsertChild(int parent, unsigned position, NK::UIndex childCount, int previous)
{
    if (position == 0)
        return InsertItem(parent, QM::TreeView::FirstPosition);
    if (position >= childCount)
        return InsertItem(parent, QM::TreeView::LastPosition);
    return InsertItem(parent, previous);
}

int TreeViewAccessor::InsertItem(int parent, int after)
{
    return treeView.InsertItem(parent, after);
}

int TreeViewAccessor::GetFirstChildItem(int item) const
{
    return treeView.GetItem(item, QM::TreeView::FirstChild);
}

int TreeViewAccessor::GetNextSiblingItem(int item) const
{
    return treeView.GetItem(item, QM::TreeView::NextSibling);
}

int TreeViewAccessor::GetPreviousSiblingItem(int item) const
{
    return treeView.GetItem(item, QM::TreeView::PreviousSibling);
}

int TreeViewAccessor::GetParentItem(int item) const
{
    return treeView.GetItem(item, QM::TreeView::Parent);
}

bool TreeViewAccessor::IsExistingItem(int item) const
{
    return treeView.IsExistingItem(item);
}

}  // namespace WZ
