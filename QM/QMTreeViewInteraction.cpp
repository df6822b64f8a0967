// Selection, expansion and in-place editing of QM::TreeView, from code and from a simulated
// user, with one notification per change.
#include "QM/QMTreeView.hpp"

#define NK_SOURCE_PATH "QM\\QMTreeViewInteraction"
#include "NK/NKAssert.hpp"

#include <algorithm>
#include <unordered_set>

namespace QM {

bool TreeView::SetSelected(int item, bool select)
{
    Node& node = NodeOf(item);
    if (node.isSelected == select)
        return false;
    if (select && selectionType == SelectionType::Single)
        DeselectAll();
    node.isSelected = select;
    if (select)
        selected.insert(item);
    else
        selected.erase(item);
    return true;
}

bool TreeView::DeselectAll()
{
    if (selected.empty())
        return false;
    for (int item : selected)
        NodeOf(item).isSelected = false;
    selected.clear();
    return true;
}

void TreeView::NotifySelectionChanged(Origin origin)
{
    TreeViewSelectionEvent event {*this, origin};
    NotifyAll<TreeViewObserver>([&](TreeViewObserver& o) { o.SelectionChanged(event); });
}

void TreeView::SelectItem(int item)
{
    Record(Op::Select);
    if (NK_PRECOND(IsExistingItem(item)) && SetSelected(item, true))
        NotifySelectionChanged(Origin::Program);
}

void TreeView::SelectItems(const NK::Array<int>& items)
{
    Record(Op::Select);
    bool allExist = std::all_of(items.begin(), items.end(), [this](int item) { return IsExistingItem(item); });
    if (!NK_PRECOND(allExist))
        return;
    bool changed = false;
    for (int item : items)
        changed = SetSelected(item, true) || changed;
    if (changed)
        NotifySelectionChanged(Origin::Program);
}

void TreeView::DeselectItem(int item)
{
    Record(Op::Deselect);
    bool changed = false;
    if (item == RootItem)
        changed = DeselectAll();
    else if (NK_PRECOND(IsExistingItem(item)))
        changed = SetSelected(item, false);
    if (changed)
        NotifySelectionChanged(Origin::Program);
}

bool TreeView::IsItemSelected(int item) const
{
    const Node* node = ReadableNode(item);
    return node != nullptr && node->isSelected;
}

NK::Array<int> TreeView::GetSelectedItems() const
{
    NK::Array<int> result;
    if (selected.size() == 1)
        result.Push(*selected.begin());
    if (selected.size() <= 1)
        return result;
    // Several: walk the tree in display order until all are found.
    result.SetCapacity(selected.size());
    std::vector<int> pending;
    for (int child = NodeOf(RootItem).lastChild; child != NoItem; child = NodeOf(child).previous)
        pending.push_back(child);
    while (!pending.empty() && result.GetSize() < selected.size()) {
        int current = pending.back();
        pending.pop_back();
        if (NodeOf(current).isSelected)
            result.Push(current);
        for (int child = NodeOf(current).lastChild; child != NoItem; child = NodeOf(child).previous)
            pending.push_back(child);
    }
    return result;
}

int TreeView::GetSelectedItem(int index) const
{
    if (index < 1 || static_cast<std::size_t>(index) > selected.size())
        return NoItem;
    return GetSelectedItems()[static_cast<NK::UIndex>(index) - 1];
}

void TreeView::ReplaceSelection(const NK::Array<int>& items, Origin origin)
{
    bool allExist = std::all_of(items.begin(), items.end(), [this](int item) { return IsExistingItem(item); });
    if (!NK_PRECOND(allExist) || !NK_PRECOND(selectionType == SelectionType::Multi || items.GetSize() <= 1))
        return;
    std::unordered_set<int> wanted(items.begin(), items.end());
    bool changed = false;
    std::vector<int> toDeselect;
    for (int item : selected) {
        if (wanted.count(item) == 0)
            toDeselect.push_back(item);
    }
    for (int item : toDeselect)
        changed = SetSelected(item, false) || changed;
    for (int item : items)
        changed = SetSelected(item, true) || changed;
    if (changed)
        NotifySelectionChanged(origin);
}

void TreeView::SimulateUserSelectNode(int item)
{
    if (!NK_PRECOND(IsExistingItem(item)) || NodeOf(item).status == ItemStatus::Disabled)
        return;
    ReplaceSelection({item}, Origin::User);
}

void TreeView::SimulateUserSelectNodes(const NK::Array<int>& items)
{
    ReplaceSelection(items, Origin::User);
}

void TreeView::SimulateUserDoubleClickNode(int item)
{
    if (!NK_PRECOND(IsExistingItem(item)) || NodeOf(item).status == ItemStatus::Disabled)
        return;
    ReplaceSelection({item}, Origin::User);
    TreeViewItemEvent event {*this, item, Origin::User};
    NotifyAll<TreeViewObserver>([&](TreeViewObserver& o) { o.ItemDoubleClicked(event); });
}

bool TreeView::IsItemExpanded(int item) const
{
    const Node* node = ReadableNode(item);
    return node != nullptr && node->expanded;
}

void TreeView::ChangeExpansion(int item, bool expand, Origin origin)
{
    Record(expand ? Op::Expand : Op::Collapse);
    Node* node = WritableNode(item);
    if (node == nullptr || node->expanded == expand)
        return;
    node->expanded = expand;
    TreeViewItemEvent event {*this, item, origin};
    if (expand)
        NotifyAll<TreeViewObserver>([&](TreeViewObserver& o) { o.ItemExpanded(event); });
    else
        NotifyAll<TreeViewObserver>([&](TreeViewObserver& o) { o.ItemCollapsed(event); });
}

void TreeView::BeginItemEdit(int item)
{
    Record(Op::BeginItemEdit);
    if (NK_PRECOND(IsExistingItem(item)))
        editedItem = item;
}

void TreeView::SimulateUserEndItemEdit(const NK::UniString& text, bool accepted)
{
    int item = editedItem;
    editedItem = NoItem;
    if (item == NoItem || !accepted)
        return;
    TreeViewEditEvent event {*this, item, NodeOf(item).text, text};
    NodeOf(item).text = text;
    NotifyAll<TreeViewObserver>([&](TreeViewObserver& o) { o.ItemTextEdited(event); });
}

}  // namespace QM
