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
    NK::Array<int> nodes;
    AppendSubtree(item, nodes);
    return nodes;
}

void TreeViewAccessor::AppendSubtree(int item, NK::Array<int>& nodes) const
{
    nodes.Push(item);
    for (int child = GetFirstChildItem(item); child != QM::TreeView::NoItem; child = GetNextSiblingItem(child))
        AppendSubtree(child, nodes);
}

NK::Array<int> TreeViewAccessor::GetSiblings(int item) const
{
    return GetChildren(GetParentItem(item));
}

int TreeViewAccessor::GetInsertItem(int parent, unsigned position)
{
    if (position == 0)
        return treeView.InsertItem(parent, QM::TreeView::FirstPosition);
    NK::Array<int> children = GetChildren(parent);
    if (position >= children.GetSize())
        return treeView.InsertItem(parent, QM::TreeView::LastPosition);
    return treeView.InsertItem(parent, children[position - 1]);
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
