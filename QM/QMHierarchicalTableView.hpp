// QM::HierarchicalTableView<Key, IdComparator, ContentComparator>: a table whose rows form a
// tree, filled from a data provider and described by a delegate (QMTableViewDataProvider.hpp).
//
// Keys and comparators: IdComparator(a, b) says whether two keys name the same row;
// ContentComparator(a, b) whether the row shows the same content. Keys are hashed with
// NK::GenerateHashValue, and the hash must agree with the id comparator (keys with the same id
// hash alike). Rows can be named by any probe the id comparator accepts as its second argument
// (the key itself, or, say, a bare NK::Guid) provided the probe hashes like the keys it names.
//
// Reload: every reload starts at the provider's virtual root and loads all rows, open or not,
// so that every row can be found, selected and opened by id without being shown first. Each
// parent's new children are matched with its old children by the id comparator (in order where
// possible, by hash otherwise). A matched row whose content compares equal is unchanged: it
// keeps its expansion, selection and place in the editor. A matched row whose content differs
// is rewritten: it keeps its place and its children are matched in their own right, but its
// own expansion and selection are reset as for a new row. Old children that are not matched
// are dropped with their subtrees. A selection that lost rows is notified once, at the end.
// A child whose id is that of its parent or of one of its ancestors (the virtual root included)
// is left out with a precondition report, so that a cyclic provider cannot make a reload endless.
//
// Rows named by an id that the provider gave more than once: operations apply to each such row
// and queries answer for any of them. An id that names no row is a precondition report with
// nothing changed for operations, and a plain "no" for queries. What a user does through
// SimulateUser* is refused (returns false) on rows that are not displayed, and on a disabled or
// hidden table. A user's click gives the table the focus first.
#pragma once

#include "NK/NKHash.hpp"
#include "QM/QMTableViewDataProvider.hpp"
#include "QM/QMUntypedHierarchicalTableView.hpp"

#include <optional>
#include <type_traits>
#include <unordered_map>
#include <utility>
#include <vector>

// Reports through the base, so that this header leaves the includer's assertion source path alone.
#define QM_TABLE_PRECOND(cond) ((cond) ? true : (ReportPrecondition(__func__, __LINE__, #cond), false))

namespace QM {

template <typename Key, typename IdComparator, typename ContentComparator>
class HierarchicalTableView : public UntypedHierarchicalTableView {
    static_assert(std::is_default_constructible_v<Key> && std::is_copy_assignable_v<Key>,
                  "row keys are stored by value");

public:
    using KeyType = Key;
    using DataProvider = TableView::Hierarchical::DataProvider<Key>;
    using Delegate = TableView::Hierarchical::Delegate<Key>;

    HierarchicalTableView(const Panel& panel, const Rect& rect, SelectionType selectionType = SelectionType::Multi)
        : UntypedHierarchicalTableView(panel, rect, selectionType), keys(1)
    {
    }

    // Both are borrowed and may be null (no rows can be loaded without a provider; without a
    // delegate cells are empty and nobody hears of changes).
    void SetDataProvider(DataProvider* newProvider) noexcept { provider = newProvider; }
    DataProvider* GetDataProvider() const noexcept { return provider; }
    void SetDelegate(Delegate* newDelegate) noexcept { delegate = newDelegate; }
    Delegate* GetDelegate() const noexcept { return delegate; }

    // Reloads every row from the virtual root (see the header comment).
    void Reload()
    {
        if (!QM_TABLE_PRECOND(provider != nullptr) || !QM_TABLE_PRECOND(!IsReloading()))
            return;
        NK::UInt32 mark = BeginReload();
        keys[0] = provider->GetVirtualRoot();
        EndReload(ReloadSubtree(RootRow, mark));
        if (IsDrawEnabled())
            Redraw();
    }

    // Reloads the children of the rows with this id (or of the virtual root), recursively.
    template <typename Probe>
    void ReloadChildren(const Probe& node)
    {
        if (!QM_TABLE_PRECOND(provider != nullptr) || !QM_TABLE_PRECOND(!IsReloading()))
            return;
        std::vector<int> parents = IdComparator {}(keys[0], node) ? std::vector<int> {RootRow} : RowsOf(node);
        if (!QM_TABLE_PRECOND(!parents.empty()))
            return;
        NK::UInt32 mark = BeginReload();
        bool selectionLost = false;
        for (int parent : parents)
            selectionLost = ReloadSubtree(parent, mark) || selectionLost;
        EndReload(selectionLost);
        if (IsDrawEnabled())
            Redraw();
    }

    // Reading the rows. The virtual root is the key the provider gave at the last reload.
    const Key& GetVirtualRoot() const noexcept { return keys[0]; }
    template <typename Probe>
    bool ContainsNode(const Probe& node) const
    {
        return FirstRowOf(node) != NoRow;
    }
    // More than one only when the provider repeats an id.
    template <typename Probe>
    int CountNodes(const Probe& node) const
    {
        return static_cast<int>(RowsOf(node).size());
    }
    NK::Array<Key> GetTopLevelNodes() const { return ChildKeys(RootRow); }
    // The children of the row with this id (of the first such row), or of the virtual root.
    template <typename Probe>
    NK::Array<Key> GetChildNodes(const Probe& node) const
    {
        if (IdComparator {}(keys[0], node))
            return ChildKeys(RootRow);
        int row = FirstRowOf(node);
        return row == NoRow ? NK::Array<Key> {} : ChildKeys(row);
    }
    // The parent of the row with this id; empty for a top-level row and for an unknown id.
    template <typename Probe>
    std::optional<Key> GetParentNode(const Probe& node) const
    {
        int row = FirstRowOf(node);
        if (row == NoRow || RowAt(row).parent == RootRow)
            return std::nullopt;
        return keys[Slot(RowAt(row).parent)];
    }
    // Every row in display order as if all were open; the rows on display; the open rows.
    NK::Array<Key> GetAllNodes() const { return KeysOf(GetAllRowsInOrder()); }
    NK::Array<Key> GetDisplayedNodes() const { return KeysOf(GetDisplayedRows()); }
    NK::Array<Key> GetExpandedNodes() const
    {
        std::vector<int> expanded;
        for (int row : GetAllRowsInOrder()) {
            if (RowAt(row).expanded)
                expanded.push_back(row);
        }
        return KeysOf(expanded);
    }

    // Expansion.
    template <typename Probe>
    bool IsNodeExpanded(const Probe& node) const
    {
        for (int row : RowsOf(node)) {
            if (RowAt(row).expanded)
                return true;
        }
        return false;
    }
    template <typename Probe>
    void ExpandNode(const Probe& node)
    {
        Record(Op::Expand);
        for (int row : RowsToChange(node))
            ChangeExpansion(row, true, Origin::Program);
    }
    template <typename Probe>
    void CollapseNode(const Probe& node)
    {
        Record(Op::Collapse);
        for (int row : RowsToChange(node))
            ChangeExpansion(row, false, Origin::Program);
    }

    // Selection. SelectNode and SelectNodes add to the selection in a multi-selection table and
    // replace it in a single-selection one (where more than one row is refused).
    template <typename Probe>
    void SelectNode(const Probe& node)
    {
        std::vector<int> rows = RowsToChange(node);
        if (!rows.empty())
            SelectRows(rows, false, Origin::Program);
        else
            Record(Op::Select);
    }
    template <typename Probe>
    void SelectNodes(const NK::Array<Probe>& nodes)
    {
        std::optional<std::vector<int>> rows = RowsOfAll(nodes);
        if (QM_TABLE_PRECOND(rows.has_value()))
            SelectRows(*rows, false, Origin::Program);
        else
            Record(Op::Select);
    }
    template <typename Probe>
    void DeselectNode(const Probe& node)
    {
        DeselectRows(RowsToChange(node));
    }
    template <typename Probe>
    bool IsNodeSelected(const Probe& node) const
    {
        for (int row : RowsOf(node)) {
            if (RowAt(row).selected)
                return true;
        }
        return false;
    }
    // The selected rows in display order (parents before children, siblings in order), rows in
    // closed folders included.
    NK::Array<Key> GetSelectedNodes() const { return KeysOf(GetSelectedRows()); }

    // The row's number among the displayed rows (from 0); empty when it is not displayed.
    template <typename Probe>
    std::optional<int> GetRowIndex(const Probe& node) const
    {
        int row = FirstRowOf(node);
        return row == NoRow ? std::nullopt : GetDisplayIndex(row);
    }
    // Opens the closed folders above the row and scrolls it on screen.
    template <typename Probe>
    void ScrollToNode(const Probe& node)
    {
        int row = FirstRowOf(node);
        if (QM_TABLE_PRECOND(row != NoRow))
            RevealRow(row);
        else
            Record(Op::Scroll);
    }

    // In-place editing of a row's text: the program opens the editor, the user ends it.
    template <typename Probe>
    void BeginNodeTextEdit(const Probe& node)
    {
        int row = FirstRowOf(node);
        if (QM_TABLE_PRECOND(row != NoRow))
            BeginEditRow(row);
        else
            Record(Op::BeginItemEdit);
    }
    std::optional<Key> GetEditedNode() const
    {
        return GetEditedRow() == NoRow ? std::nullopt : std::optional<Key>(keys[Slot(GetEditedRow())]);
    }
    // Accepted, the delegate hears of the new text (the table keeps none); cancelled, nothing
    // happens. Returns whether an editor was open.
    bool SimulateUserEndNodeTextEdit(const NK::UniString& text, bool accepted)
    {
        int row = EndEditRow();
        if (row == NoRow)
            return false;
        if (accepted && delegate != nullptr)
            delegate->NodeTextEdited(Key(keys[Slot(row)]), text);
        return true;
    }

    // What a user does (see the header comment).
    template <typename Probe>
    bool SimulateUserSelectNode(const Probe& node)
    {
        int row = DisplayedRowOf(node);
        if (row == NoRow)
            return false;
        SimulateUserFocus();
        SelectRows({row}, true, Origin::User);
        return true;
    }
    // Ctrl- and shift-clicks that leave exactly these rows selected.
    template <typename Probe>
    bool SimulateUserSelectNodes(const NK::Array<Probe>& nodes)
    {
        std::vector<int> rows;
        for (const Probe& node : nodes) {
            int row = DisplayedRowOf(node);
            if (row == NoRow)
                return false;
            rows.push_back(row);
        }
        if (!QM_TABLE_PRECOND(GetSelectionType() == SelectionType::Multi || rows.size() <= 1))
            return false;
        SimulateUserFocus();
        SelectRows(rows, true, Origin::User);
        return true;
    }
    template <typename Probe>
    bool SimulateUserExpand(const Probe& node)
    {
        return UserToggle(node, true);
    }
    template <typename Probe>
    bool SimulateUserCollapse(const Probe& node)
    {
        return UserToggle(node, false);
    }
    template <typename Probe>
    bool SimulateUserDoubleClickNode(const Probe& node)
    {
        int row = DisplayedRowOf(node);
        if (row == NoRow)
            return false;
        SimulateUserFocus();
        SelectRows({row}, true, Origin::User);
        if (delegate != nullptr && RowAt(row).alive)
            delegate->NodeDoubleClicked(Key(keys[Slot(row)]));
        return true;
    }

protected:
    void NotifySelectionChanged(Origin origin) override
    {
        if (delegate != nullptr)
            delegate->SelectionChanged(origin);
    }
    void NotifyExpansion(int row, bool expanded, Origin origin) override
    {
        if (delegate == nullptr)
            return;
        Key node = keys[Slot(row)];  // the delegate may reload and reuse the slot
        if (expanded)
            delegate->NodeExpanded(node, origin);
        else
            delegate->NodeCollapsed(node, origin);
    }
    void NotifyColumnLayoutChanged(Origin origin) override
    {
        if (delegate != nullptr)
            delegate->ColumnLayoutChanged(origin);
    }
    void ReleaseRow(int row) override { keys[Slot(row)] = Key {}; }
    std::string RenderRowCells(int row, const NK::Array<NK::UniString>& columnIds) const override
    {
        std::string cells;
        if (delegate == nullptr)
            return cells;
        const Key& node = keys[Slot(row)];
        for (NK::UIndex i = 0; i < columnIds.GetSize(); ++i) {
            if (i > 0)
                cells += " | ";
            if (i == 0) {
                for (const Icon& icon : delegate->GetCellIcons(node, columnIds[i]))
                    cells += "[" + icon.ToString() + "] ";
            }
            cells += delegate->GetCellText(node, columnIds[i]).ToUtf8();
        }
        return cells;
    }

private:
    static std::size_t Slot(int row) noexcept { return static_cast<std::size_t>(row); }

    // The live rows with the probe's id, in no particular order.
    template <typename Probe>
    std::vector<int> RowsOf(const Probe& node) const
    {
        std::vector<int> found;
        NK::UInt64 hash = NK::GenerateHashValue(node);
        for (int row = FirstRowWithHash(hash); row != NoRow; row = NextRowWithHash(row)) {
            if (RowAt(row).alive && RowAt(row).hash == hash && IdComparator {}(keys[Slot(row)], node))
                found.push_back(row);
        }
        return found;
    }
    template <typename Probe>
    int FirstRowOf(const Probe& node) const
    {
        std::vector<int> found = RowsOf(node);
        return found.empty() ? NoRow : found.front();
    }
    // For operations: the rows, or a precondition report when there are none.
    template <typename Probe>
    std::vector<int> RowsToChange(const Probe& node) const
    {
        std::vector<int> found = RowsOf(node);
        QM_TABLE_PRECOND(!found.empty());
        return found;
    }
    // The rows of every probe; empty when one of them names no row.
    template <typename Probe>
    std::optional<std::vector<int>> RowsOfAll(const NK::Array<Probe>& nodes) const
    {
        std::vector<int> all;
        for (const Probe& node : nodes) {
            std::vector<int> found = RowsOf(node);
            if (found.empty())
                return std::nullopt;
            all.insert(all.end(), found.begin(), found.end());
        }
        return all;
    }
    // A row a user can reach: displayed, in an enabled, visible table.
    template <typename Probe>
    int DisplayedRowOf(const Probe& node) const
    {
        if (!IsEnabled() || !IsVisible())
            return NoRow;
        for (int row : RowsOf(node)) {
            if (GetDisplayIndex(row).has_value())
                return row;
        }
        return NoRow;
    }
    template <typename Probe>
    bool UserToggle(const Probe& node, bool expand)
    {
        int row = DisplayedRowOf(node);
        if (row == NoRow || RowAt(row).childCount == 0)
            return false;
        SimulateUserFocus();
        ChangeExpansion(row, expand, Origin::User);
        if (!expand)
            ClampScrollPosition();
        return true;
    }

    NK::Array<Key> ChildKeys(int parent) const
    {
        NK::Array<Key> children;
        children.SetCapacity(static_cast<NK::UIndex>(RowAt(parent).childCount));
        for (int child = RowAt(parent).firstChild; child != NoRow; child = RowAt(child).next)
            children.Push(keys[Slot(child)]);
        return children;
    }
    NK::Array<Key> KeysOf(const std::vector<int>& rows) const
    {
        NK::Array<Key> result;
        result.SetCapacity(rows.size());
        for (int row : rows)
            result.Push(keys[Slot(row)]);
        return result;
    }

    // The rows on the path from the virtual root to the row being loaded, by the hash of their
    // keys: a child is compared only with the ancestors that hash alike, so a deep tree does not
    // cost a walk to the root per row.
    using PathHashes = std::unordered_map<NK::UInt64, std::vector<int>>;

    // Loads the subtree below `top` from the provider; returns whether selected rows were lost.
    // Depth first with a stack of its own, keeping the path to the row being loaded.
    bool ReloadSubtree(int top, NK::UInt32 mark)
    {
        bool selectionLost = false;
        std::vector<int> path;
        PathHashes& pathHashes = reloadPathHashes;
        pathHashes.clear();
        std::vector<int> above;
        for (int row = RowAt(top).parent; row != NoRow; row = RowAt(row).parent)
            above.push_back(row);
        for (auto it = above.rbegin(); it != above.rend(); ++it) {
            path.push_back(*it);
            pathHashes[PathHash(*it)].push_back(*it);
        }
        std::vector<int> pending {top};
        std::vector<int> order;
        while (!pending.empty()) {
            int parent = pending.back();
            pending.pop_back();
            // Rows above the parent's parent belong to subtrees that are done.
            while (!path.empty() && path.back() != RowAt(parent).parent) {
                auto rows = pathHashes.find(PathHash(path.back()));
                rows->second.pop_back();
                if (rows->second.empty())
                    pathHashes.erase(rows);
                path.pop_back();
            }
            path.push_back(parent);
            pathHashes[PathHash(parent)].push_back(parent);
            NK::Array<Key> children = provider->GetChildren(keys[Slot(parent)]);
            selectionLost = MatchChildren(parent, children, mark, order) || selectionLost;
            for (auto it = order.rbegin(); it != order.rend(); ++it)
                pending.push_back(*it);
        }
        return selectionLost;
    }

    NK::UInt64 PathHash(int row) const { return row == RootRow ? NK::GenerateHashValue(keys[0]) : RowAt(row).hash; }

    bool MatchChildren(int parent, NK::Array<Key>& children, NK::UInt32 mark, std::vector<int>& order)
    {
        bool selectionLost = false;
        order.clear();
        order.reserve(children.GetSize());
        int cursor = RowAt(parent).firstChild;
        for (Key& child : children) {
            const NK::UInt64 hash = NK::GenerateHashValue(child);
            // A provider whose rows contain themselves would make the reload endless.
            if (!QM_TABLE_PRECOND(!IsOwnAncestor(child, hash)))
                continue;
            while (cursor != NoRow && RowAt(cursor).mark == mark)
                cursor = RowAt(cursor).next;
            int row = NoRow;
            if (cursor != NoRow && IdComparator {}(keys[Slot(cursor)], child)) {
                row = cursor;
                cursor = RowAt(cursor).next;
            } else {
                row = FindUnmatchedChild(parent, child, hash, mark);
                // Old rows were dropped or moved: go on comparing in place after the match.
                if (row != NoRow)
                    cursor = RowAt(row).next;
            }
            if (row == NoRow) {
                row = AllocateRow(hash, mark);
                if (keys.size() < GetRowCapacity())
                    keys.resize(GetRowCapacity());
                Record(Op::InsertItem);
            } else {
                RowAt(row).mark = mark;
                if (!ContentComparator {}(keys[Slot(row)], child)) {
                    selectionLost = ResetRowState(row) || selectionLost;
                    Record(Op::RedrawItem);
                }
            }
            keys[Slot(row)] = std::move(child);
            order.push_back(row);
        }
        for (int old = RowAt(parent).firstChild; old != NoRow; old = RowAt(old).next) {
            if (RowAt(old).mark != mark) {
                selectionLost = DropSubtree(old) || selectionLost;
                Record(Op::DeleteItem);
            }
        }
        LinkChildren(parent, order);
        return selectionLost;
    }

    // Whether the child's id is that of the parent or of a row above it (the path kept by the
    // reload ends at the parent).
    bool IsOwnAncestor(const Key& child, NK::UInt64 hash) const
    {
        auto rows = reloadPathHashes.find(hash);
        if (rows == reloadPathHashes.end())
            return false;
        for (int row : rows->second) {
            if (IdComparator {}(keys[Slot(row)], child))
                return true;
        }
        return false;
    }

    int FindUnmatchedChild(int parent, const Key& child, NK::UInt64 hash, NK::UInt32 mark) const
    {
        for (int row = FirstRowWithHash(hash); row != NoRow; row = NextRowWithHash(row)) {
            const Row& candidate = RowAt(row);
            if (candidate.alive && candidate.hash == hash && candidate.parent == parent && candidate.mark != mark &&
                IdComparator {}(keys[Slot(row)], child))
                return row;
        }
        return NoRow;
    }

    std::vector<Key> keys;  // by row; [0] is the virtual root
    PathHashes reloadPathHashes;  // during a reload: the path to the row being loaded
    DataProvider* provider = nullptr;
    Delegate* delegate = nullptr;
};

}  // namespace QM

#undef QM_TABLE_PRECOND
