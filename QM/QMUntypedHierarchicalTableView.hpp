// QM::UntypedHierarchicalTableView: the work of a hierarchical table view that does not depend
// on the row key type: the loaded rows and their links, expansion, selection, display order,
// scrolling, in-place editing, columns, drawing brackets and the text form. The typed
// QM::HierarchicalTableView<Key, ...> (QMHierarchicalTableView.hpp) adds the keys, the data
// provider and the delegate, and addresses rows by key.
//
// Rows live in one array and are numbered internally; the numbers never leave the toolkit (a
// reload may reuse the number of a row it dropped), so clients always name rows by key. Every
// loaded row belongs to the table whether or not its parent is open: selection and expansion
// are per row, and a row in a closed folder stays selected.
//
// Events go to the typed part's delegate: one selection notification per change of the selected
// set, one expansion notification per row whose flag changed, one column notification per
// change of the arrangement; calls that change nothing notify nothing. Every mutating call is
// counted in the journal once; a reload also counts each row it inserted (InsertItem), each
// dropped subtree (DeleteItem) and each row whose content changed (RedrawItem).
#pragma once

#include "QM/QMItem.hpp"
#include "QM/QMTableViewColumns.hpp"

#include <optional>
#include <vector>

namespace QM {

class UntypedHierarchicalTableView : public Item {
public:
    enum class SelectionType : NK::UInt8 { Single, Multi };

    static constexpr short RowHeight = 18;
    static constexpr short HeaderHeight = 20;

    ~UntypedHierarchicalTableView() override;

    SelectionType GetSelectionType() const noexcept { return selectionType; }

    // The loaded rows (the virtual root not counted) and those on display (all ancestors open).
    int GetNodeCount() const noexcept { return liveCount; }
    int GetDisplayedRowCount() const;

    // Expansion of every row that has children, or of every row. One notification per row
    // whose flag changed.
    void ExpandAllNodes();
    void CollapseAllNodes();

    void ClearSelection();
    int GetSelectedNodeCount() const noexcept { return selectedCount; }

    // Columns. SetColumns refuses (precondition report, nothing changed) duplicate ids and
    // negative widths. Applying a layout: the columns it names take its order, widths and shown
    // flags; columns it does not name follow in their present order; names of columns the
    // table does not have are ignored. An invalid layout is refused.
    void SetColumns(const NK::Array<TableView::Column>& newColumns);
    const NK::Array<TableView::Column>& GetColumns() const noexcept { return columns; }
    TableView::ColumnLayout GetColumnLayout() const;
    void ApplyColumnLayout(const TableView::ColumnLayout& layout);
    // The user drags a column's right divider to the width (not below 0), or drags the column's
    // header to a place (0 for first). Return whether the arrangement changed.
    bool SimulateUserResizeColumn(const NK::UniString& columnId, short width);
    bool SimulateUserMoveColumn(const NK::UniString& columnId, NK::UIndex position);

    // Scrolling: the display row (from 0) shown at the top; kept within the displayed rows.
    int GetScrollPosition() const noexcept { return scrollPosition; }
    void SetScrollPosition(int position);
    // How many rows the rectangle shows below the header (at least one).
    int GetVisibleRowCount() const noexcept;

    // Drawing brackets nest; a redraw is counted when the outermost one ends.
    void DisableDraw();
    void EnableDraw();
    bool IsDrawEnabled() const noexcept { return drawDisabledDepth == 0; }

protected:
    static constexpr int NoRow = -1;
    static constexpr int RootRow = 0;

    struct Row {
        int parent = NoRow;
        int firstChild = NoRow;
        int lastChild = NoRow;
        int previous = NoRow;
        int next = NoRow;
        int childCount = 0;
        int depth = -1;
        NK::UInt32 mark = 0;  // the reload that last met the row
        NK::UInt64 hash = 0;  // of the row's key, as the id comparator sees it
        bool alive = false;
        bool expanded = false;
        bool selected = false;
    };

    UntypedHierarchicalTableView(const Panel& panel, const Rect& rect, SelectionType selectionType);

    const Row& RowAt(int row) const { return rows[static_cast<std::size_t>(row)]; }
    Row& RowAt(int row) { return rows[static_cast<std::size_t>(row)]; }
    // The size that per-row arrays of the typed part must have.
    std::size_t GetRowCapacity() const noexcept { return rows.size(); }

    // Reloading: rows are allocated unlinked, each parent's children are relinked in their new
    // order, and dropped subtrees are freed when the reload ends (so that no number is reused
    // while the old rows are still being compared).
    NK::UInt32 BeginReload();
    int AllocateRow(NK::UInt64 hash, NK::UInt32 mark);
    void LinkChildren(int parent, const std::vector<int>& order);
    // Marks the subtree dropped; returns whether a selected row was in it.
    bool DropSubtree(int row);
    // Resets a row whose content changed to the state of a new row; returns whether it was selected.
    bool ResetRowState(int row);
    void EndReload(bool selectionLost);

    bool IsReloading() const noexcept { return reloading; }
    // Rows by hash: the chain of rows with the hash (the typed part checks liveness and ids).
    // During a reload the chains are those of the rows loaded when it began.
    int FirstRowWithHash(NK::UInt64 hash) const;
    int NextRowWithHash(int row) const { return hashNext[static_cast<std::size_t>(row)]; }

    bool ChangeExpansion(int row, bool expand, Origin origin);
    // Selects the rows (adding to the selection, or replacing it); one notification if changed.
    void SelectRows(const std::vector<int>& selection, bool replace, Origin origin);
    void DeselectRows(const std::vector<int>& selection);
    // Selected rows in display order (parents before children, siblings in order), closed
    // folders included.
    std::vector<int> GetSelectedRows() const;
    std::vector<int> GetDisplayedRows() const;
    // Rows in display order as if every row were open.
    std::vector<int> GetAllRowsInOrder() const;
    std::optional<int> GetDisplayIndex(int row) const;
    // Opens the closed ancestors of the row, then scrolls so that it is on screen.
    void RevealRow(int row);

    // Keeps the scroll position within the displayed rows (after rows were hidden).
    void ClampScrollPosition();

    void BeginEditRow(int row);
    int GetEditedRow() const noexcept { return editedRow; }
    // Closes the editor; returns the row that was edited (NoRow when none).
    int EndEditRow();

    // A failed precondition of the typed part, reported as QM::HierarchicalTableView::function.
    static void ReportPrecondition(const char* function, int line, const char* expression);

    // What the typed part does for the untyped one.
    virtual void NotifySelectionChanged(Origin origin) = 0;
    virtual void NotifyExpansion(int row, bool expanded, Origin origin) = 0;
    virtual void NotifyColumnLayoutChanged(Origin origin) = 0;
    // Releases what the typed part keeps for a freed row.
    virtual void ReleaseRow(int row) = 0;
    // The row's cells as one line (icons and texts of the shown columns).
    virtual std::string RenderRowCells(int row, const NK::Array<NK::UniString>& columnIds) const = 0;

    void RenderContent(NK::Array<std::string>& lines, const std::string& indent) const override;

private:
    void EnsureIndex() const;
    bool SetSelected(int row, bool select);
    bool DeselectAll();
    void SetArrangement(NK::Array<TableView::Column> arrangement, Origin origin);

    std::vector<Row> rows;  // [0] is the virtual root
    std::vector<int> freeRows;
    std::vector<int> droppedRows;  // freed when the reload ends
    mutable std::vector<int> buckets;
    mutable std::vector<int> hashNext;
    mutable bool indexValid = false;
    bool reloading = false;
    NK::Array<TableView::Column> columns;
    SelectionType selectionType;
    NK::UInt32 reloadMark = 0;
    int liveCount = 0;
    int selectedCount = 0;
    int editedRow = NoRow;
    int scrollPosition = 0;
    int drawDisabledDepth = 0;
};

}  // namespace QM
