// QM::TreeView: a forest of nodes named by int handles. 0 is the invisible root (the parent of
// the top-level nodes; not an item itself), -1 means no node. Handles count up from 1 and are
// never reused within a control's life, so a handle kept by a component never names another
// node. Insertion, deletion of a leaf, navigation to parent, children and siblings, and every
// per-node read or write take constant time; deleting a node deletes its subtree.
//
// Insertion: InsertItem(parent, after) puts a new empty node under `parent` right after its
// child `after`; after = QM::TreeView::FirstPosition (-65535) puts it first, LastPosition
// (-65534) last. A parent that does not exist, or an `after` that is not its child, is a
// precondition report and the call returns -1 with nothing changed.
//
// Expansion is a node's own flag: it may be set before the node has children (lazily filled
// trees), and the text form shows [+]/[-] only for nodes with children.
//
// Events: every change of the selected set notifies QM::TreeViewObserver::SelectionChanged once,
// and every change of a node's expanded flag notifies ItemExpanded/ItemCollapsed, synchronously,
// also when a program caused it (the event's origin tells program from user). Calls that change
// nothing notify nothing. Every mutating call is counted in the journal.
#pragma once

#include "NK/NKArray.hpp"
#include "NK/NKPointers.hpp"
#include "NK/NKUniString.hpp"
#include "QM/QMColor.hpp"
#include "QM/QMFont.hpp"
#include "QM/QMIcon.hpp"
#include "QM/QMItem.hpp"

#include <memory>
#include <optional>
#include <unordered_set>
#include <vector>

namespace QM {

class TreeView;

struct TreeViewSelectionEvent {
    const TreeView& source;
    Origin origin;
};

struct TreeViewItemEvent {
    const TreeView& source;
    int item;
    Origin origin;
};

struct TreeViewEditEvent {
    const TreeView& source;
    int item;
    NK::UniString oldText;
    NK::UniString newText;
};

class TreeViewObserver : public virtual NK::EventObserver {
public:
    virtual void SelectionChanged(const TreeViewSelectionEvent&) {}
    virtual void ItemExpanded(const TreeViewItemEvent&) {}
    virtual void ItemCollapsed(const TreeViewItemEvent&) {}
    virtual void ItemDoubleClicked(const TreeViewItemEvent&) {}
    // A user finished editing a node's text and accepted it; the text is already written.
    virtual void ItemTextEdited(const TreeViewEditEvent&) {}
};

class TreeView : public Item {
public:
    enum class SelectionType : NK::UInt8 { Single, Multi };
    enum class ItemStatus : NK::UInt8 { Enabled, Disabled, Grayed };
    // Relations for GetItem. NextVisible/PreviousVisible walk the displayed nodes (those whose
    // ancestors are all expanded) in display order.
    enum GetItemFlag : NK::UInt8 { FirstChild, LastChild, NextSibling, PreviousSibling, Parent, NextVisible, PreviousVisible };

    static constexpr int RootItem = 0;
    static constexpr int NoItem = -1;
    static constexpr int FirstPosition = -65535;
    static constexpr int LastPosition = -65534;

    TreeView(const Panel& panel, const Rect& rect, SelectionType selectionType = SelectionType::Single);
    ~TreeView() override;

    SelectionType GetSelectionType() const noexcept { return selectionType; }

    // Structure.
    int InsertItem(int parent, int after);
    int AppendItem(int parent) { return InsertItem(parent, LastPosition); }
    void DeleteItem(int item);
    void DeleteAllItems();
    bool IsExistingItem(int item) const noexcept;
    // The number of nodes (the root not counted).
    int GetItemCount() const noexcept { return itemCount; }
    int GetItem(int item, GetItemFlag relation) const;
    int GetChildCount(int item) const;
    bool HasAncestor(int item, int ancestor) const;

    // The look and data of a node.
    void SetItemText(int item, const NK::UniString& text);
    NK::UniString GetItemText(int item) const;
    void SetItemNormalIcon(int item, const Icon& icon);
    Icon GetItemNormalIcon(int item) const;
    void SetItemStateIcon(int item, const Icon& icon);
    Icon GetItemStateIcon(int item) const;
    void SetItemOverlayIcon(int item, const Icon& icon);
    Icon GetItemOverlayIcon(int item) const;
    void SetItemFontStyle(int item, Font::Style style);
    Font::Style GetItemFontStyle(int item) const;
    // The text colour; reset returns to the control's default (no colour of the node's own).
    void SetItemColor(int item, const Color& color);
    void ResetItemColor(int item);
    std::optional<Color> GetItemColor(int item) const;
    void SetItemBackgroundColor(int item, const Color& color);
    void ResetItemBackgroundColor(int item);
    std::optional<Color> GetItemBackgroundColor(int item) const;
    void SetItemStatus(int item, ItemStatus status);
    ItemStatus GetItemStatus(int item) const;
    void SetItemValue(int item, NK::Int64 value);
    NK::Int64 GetItemValue(int item) const;
    void SetItemObjectData(int item, NK::Ref<NK::Object> data);
    NK::Ref<NK::Object> GetItemObjectData(int item) const;

    // Expansion.
    bool IsItemExpanded(int item) const;
    void ExpandItem(int item) { ChangeExpansion(item, true, Origin::Program); }
    void CollapseItem(int item) { ChangeExpansion(item, false, Origin::Program); }

    // Selection. In a single-selection tree, selecting a node deselects the others.
    void SelectItem(int item);
    void SelectItems(const NK::Array<int>& items);
    // Deselects the node; 0 deselects every node.
    void DeselectItem(int item);
    bool IsItemSelected(int item) const;
    // The selected nodes in display order (parents before children, siblings in order).
    NK::Array<int> GetSelectedItems() const;
    int GetSelectedCount() const noexcept { return static_cast<int>(selected.size()); }
    // The index-th selected node (from 1) in display order; -1 when there are fewer.
    int GetSelectedItem(int index = 1) const;

    // What a user does.
    // Clicks a node: it becomes the only selected one. Clicks on disabled nodes do nothing.
    void SimulateUserSelectNode(int item);
    // Selects exactly these nodes (ctrl- and shift-clicks); one at most in a single-selection tree.
    void SimulateUserSelectNodes(const NK::Array<int>& items);
    void SimulateUserExpand(int item) { ChangeExpansion(item, true, Origin::User); }
    void SimulateUserCollapse(int item) { ChangeExpansion(item, false, Origin::User); }
    void SimulateUserDoubleClickNode(int item);
    // Ends the edit that BeginItemEdit started: accepted, the text is written and observers hear
    // of it; cancelled, nothing changes. Does nothing when no edit is open.
    void SimulateUserEndItemEdit(const NK::UniString& text, bool accepted);

    // Opens the in-place editor on the node's text; -1 from GetEditedItem when none is open.
    void BeginItemEdit(int item);
    int GetEditedItem() const noexcept { return editedItem; }

    // Drawing and scrolling.
    void DisableDraw();
    void EnableDraw();
    bool IsDrawEnabled() const noexcept { return drawDisabledDepth == 0; }
    void RedrawItem(int item) const;
    int GetScrollPosition() const noexcept { return scrollPosition; }
    void SetScrollPosition(int position);

protected:
    void RenderContent(NK::Array<std::string>& lines, const std::string& indent) const override;

private:
    struct Node {
        int parent = RootItem;
        int firstChild = NoItem;
        int lastChild = NoItem;
        int previous = NoItem;
        int next = NoItem;
        int childCount = 0;
        bool expanded = false;
        bool isSelected = false;
        ItemStatus status = ItemStatus::Enabled;
        Font::Style style = Font::Plain;
        NK::UniString text;
        Icon normalIcon;
        Icon stateIcon;
        Icon overlayIcon;
        std::optional<Color> color;
        std::optional<Color> background;
        NK::Int64 value = 0;
        NK::Ref<NK::Object> objectData;
    };

    // The node of a handle, the root included; null (and a report) when there is none.
    Node* WritableNode(int item);
    const Node* ReadableNode(int item) const;
    const Node& NodeOf(int item) const { return *nodes[static_cast<std::size_t>(item)]; }
    Node& NodeOf(int item) { return *nodes[static_cast<std::size_t>(item)]; }
    bool Exists(int item) const noexcept;  // the root included
    void Unlink(int item);
    // Frees the subtree's nodes; returns whether a selected node was among them.
    bool FreeSubtree(int item);
    int NextVisibleOf(int item) const;
    int PreviousVisibleOf(int item) const;

    bool SetSelected(int item, bool select);
    bool DeselectAll();
    void ReplaceSelection(const NK::Array<int>& items, Origin origin);
    void NotifySelectionChanged(Origin origin);
    void ChangeExpansion(int item, bool expand, Origin origin);

    std::vector<std::unique_ptr<Node>> nodes;  // handle -> node; null once deleted; [0] is the root
    std::unordered_set<int> selected;
    SelectionType selectionType;
    int itemCount = 0;
    int editedItem = NoItem;
    int scrollPosition = 0;
    int drawDisabledDepth = 0;
};

}  // namespace QM
