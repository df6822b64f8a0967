// Structure and navigation of QM::TreeView: nodes linked to parent, first and last child and
// both siblings, so that every structural step is constant time.
#include "QM/QMTreeView.hpp"

#define NK_SOURCE_PATH "QM\\QMTreeView"
#include "NK/NKAssert.hpp"

#include <limits>

namespace QM {

TreeView::TreeView(const Panel& panel, const Rect& rect, SelectionType selectionType)
    : Item(panel, rect, ItemType::TreeView), selectionType(selectionType)
{
    nodes.push_back(std::make_unique<Node>());
    nodes[0]->parent = NoItem;
}

TreeView::~TreeView() = default;

bool TreeView::Exists(int item) const noexcept
{
    return item >= 0 && static_cast<std::size_t>(item) < nodes.size() && nodes[static_cast<std::size_t>(item)] != nullptr;
}

bool TreeView::IsExistingItem(int item) const noexcept
{
    return item != RootItem && Exists(item);
}

TreeView::Node* TreeView::WritableNode(int item)
{
    if (!NK_PRECOND(IsExistingItem(item)))
        return nullptr;
    return &NodeOf(item);
}

const TreeView::Node* TreeView::ReadableNode(int item) const
{
    if (!NK_PRECOND(IsExistingItem(item)))
        return nullptr;
    return &NodeOf(item);
}

int TreeView::InsertItem(int parent, int after)
{
    Record(Op::InsertItem);
    if (!NK_PRECOND(Exists(parent)))
        return NoItem;
    bool afterIsChild = after == FirstPosition || after == LastPosition || (IsExistingItem(after) && NodeOf(after).parent == parent);
    if (!NK_PRECOND(afterIsChild) || !NK_PRECOND(nodes.size() < static_cast<std::size_t>(std::numeric_limits<int>::max())))
        return NoItem;

    int handle = static_cast<int>(nodes.size());
    nodes.push_back(std::make_unique<Node>());
    Node& node = NodeOf(handle);
    Node& parentNode = NodeOf(parent);
    node.parent = parent;
    int previous = after == FirstPosition ? NoItem : after == LastPosition ? parentNode.lastChild : after;
    int next = previous == NoItem ? parentNode.firstChild : NodeOf(previous).next;
    node.previous = previous;
    node.next = next;
    if (previous == NoItem)
        parentNode.firstChild = handle;
    else
        NodeOf(previous).next = handle;
    if (next == NoItem)
        parentNode.lastChild = handle;
    else
        NodeOf(next).previous = handle;
    ++parentNode.childCount;
    ++itemCount;
    return handle;
}

void TreeView::Unlink(int item)
{
    Node& node = NodeOf(item);
    Node& parentNode = NodeOf(node.parent);
    if (node.previous == NoItem)
        parentNode.firstChild = node.next;
    else
        NodeOf(node.previous).next = node.next;
    if (node.next == NoItem)
        parentNode.lastChild = node.previous;
    else
        NodeOf(node.next).previous = node.previous;
    --parentNode.childCount;
}

bool TreeView::FreeSubtree(int item)
{
    // Iterative, so that deep trees cannot exhaust the stack.
    bool selectionLost = false;
    std::vector<int> pending {item};
    while (!pending.empty()) {
        int current = pending.back();
        pending.pop_back();
        for (int child = NodeOf(current).firstChild; child != NoItem; child = NodeOf(child).next)
            pending.push_back(child);
        if (NodeOf(current).isSelected) {
            selected.erase(current);
            selectionLost = true;
        }
        if (editedItem == current)
            editedItem = NoItem;
        nodes[static_cast<std::size_t>(current)].reset();
        --itemCount;
    }
    return selectionLost;
}

void TreeView::DeleteItem(int item)
{
    Record(Op::DeleteItem);
    if (!NK_PRECOND(IsExistingItem(item)))
        return;
    Unlink(item);
    if (FreeSubtree(item))
        NotifySelectionChanged(Origin::Program);
}

void TreeView::DeleteAllItems()
{
    Record(Op::DeleteAllItems);
    bool hadSelection = !selected.empty();
    // The slots stay, so that the next node still gets a handle never handed out before.
    for (std::size_t i = 1; i < nodes.size(); ++i)
        nodes[i].reset();
    Node& root = NodeOf(RootItem);
    root.firstChild = root.lastChild = NoItem;
    root.childCount = 0;
    selected.clear();
    itemCount = 0;
    editedItem = NoItem;
    if (hadSelection)
        NotifySelectionChanged(Origin::Program);
}

int TreeView::GetChildCount(int item) const
{
    if (!NK_PRECOND(Exists(item)))
        return 0;
    return NodeOf(item).childCount;
}

bool TreeView::HasAncestor(int item, int ancestor) const
{
    if (!NK_PRECOND(IsExistingItem(item)))
        return false;
    for (int current = NodeOf(item).parent; current != NoItem; current = NodeOf(current).parent) {
        if (current == ancestor)
            return true;
    }
    return false;
}

int TreeView::GetItem(int item, GetItemFlag relation) const
{
    if (!NK_PRECOND(Exists(item)))
        return NoItem;
    const Node& node = NodeOf(item);
    switch (relation) {
    case FirstChild:
        return node.firstChild;
    case LastChild:
        return node.lastChild;
    case NextSibling:
        return node.next;
    case PreviousSibling:
        return node.previous;
    case Parent:
        return node.parent;
    case NextVisible:
        return NextVisibleOf(item);
    case PreviousVisible:
        return PreviousVisibleOf(item);
    }
    return NoItem;
}

int TreeView::NextVisibleOf(int item) const
{
    const Node& node = NodeOf(item);
    if ((item == RootItem || node.expanded) && node.firstChild != NoItem)
        return node.firstChild;
    for (int current = item; current != RootItem && current != NoItem; current = NodeOf(current).parent) {
        if (NodeOf(current).next != NoItem)
            return NodeOf(current).next;
    }
    return NoItem;
}

int TreeView::PreviousVisibleOf(int item) const
{
    if (item == RootItem)
        return NoItem;
    const Node& node = NodeOf(item);
    if (node.previous == NoItem)
        return node.parent == RootItem ? NoItem : node.parent;
    int current = node.previous;
    while (NodeOf(current).expanded && NodeOf(current).lastChild != NoItem)
        current = NodeOf(current).lastChild;
    return current;
}

}  // namespace QM
