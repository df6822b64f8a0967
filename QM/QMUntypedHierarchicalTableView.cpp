// Rows, reload support, the hash index, expansion, selection and display order of the
// hierarchical table view.
#include "QM/QMUntypedHierarchicalTableView.hpp"

#define NK_SOURCE_PATH "QM\\QMUntypedHierarchicalTableView"
#include "NK/NKAssert.hpp"

#include <algorithm>
#include <bit>
#include <limits>

namespace QM {

namespace {

std::size_t BucketOf(NK::UInt64 hash, std::size_t bucketCount)
{
    return static_cast<std::size_t>(hash) & (bucketCount - 1);
}

}  // namespace

UntypedHierarchicalTableView::UntypedHierarchicalTableView(const Panel& panel, const Rect& rect, SelectionType selectionType)
    : Item(panel, rect, ItemType::TableView), selectionType(selectionType)
{
    rows.emplace_back();
    rows[0].alive = true;
    rows[0].expanded = true;
    hashNext.push_back(NoRow);
}

UntypedHierarchicalTableView::~UntypedHierarchicalTableView() = default;

void UntypedHierarchicalTableView::ReportPrecondition(const char* function, int line, const char* expression)
{
    NK::SourceLocation location {"QM\\QMHierarchicalTableView", std::string("QM::HierarchicalTableView::") + function, line};
    NK::AssertImpl::AssertFailed(location, NK::AssertImpl::GetPrecondData(), expression);
}

NK::UInt32 UntypedHierarchicalTableView::BeginReload()
{
    EnsureIndex();
    reloading = true;
    return ++reloadMark;
}

int UntypedHierarchicalTableView::AllocateRow(NK::UInt64 hash, NK::UInt32 mark)
{
    int row;
    if (!freeRows.empty()) {
        row = freeRows.back();
        freeRows.pop_back();
        rows[static_cast<std::size_t>(row)] = Row {};
    } else {
        NK_ASSERT(rows.size() < static_cast<std::size_t>(std::numeric_limits<int>::max()));
        row = static_cast<int>(rows.size());
        rows.emplace_back();
        hashNext.push_back(NoRow);
    }
    Row& created = RowAt(row);
    created.alive = true;
    created.hash = hash;
    created.mark = mark;
    ++liveCount;
    indexValid = false;
    return row;
}

void UntypedHierarchicalTableView::LinkChildren(int parent, const std::vector<int>& order)
{
    Row& parentRow = RowAt(parent);
    int previous = NoRow;
    for (int child : order) {
        Row& childRow = RowAt(child);
        childRow.parent = parent;
        childRow.depth = parentRow.depth + 1;
        childRow.previous = previous;
        childRow.next = NoRow;
        if (previous != NoRow)
            RowAt(previous).next = child;
        previous = child;
    }
    parentRow.firstChild = order.empty() ? NoRow : order.front();
    parentRow.lastChild = order.empty() ? NoRow : order.back();
    parentRow.childCount = static_cast<int>(order.size());
}

bool UntypedHierarchicalTableView::DropSubtree(int row)
{
    // Iterative, so that deep trees cannot exhaust the stack.
    bool selectionLost = false;
    std::vector<int> pending {row};
    while (!pending.empty()) {
        int current = pending.back();
        pending.pop_back();
        Row& dropped = RowAt(current);
        for (int child = dropped.firstChild; child != NoRow; child = RowAt(child).next)
            pending.push_back(child);
        if (dropped.selected) {
            --selectedCount;
            selectionLost = true;
        }
        if (editedRow == current)
            editedRow = NoRow;
        dropped.alive = false;
        dropped.selected = false;
        --liveCount;
        droppedRows.push_back(current);
    }
    indexValid = false;
    return selectionLost;
}

bool UntypedHierarchicalTableView::ResetRowState(int row)
{
    Row& changed = RowAt(row);
    changed.expanded = false;
    if (editedRow == row)
        editedRow = NoRow;
    if (!changed.selected)
        return false;
    changed.selected = false;
    --selectedCount;
    return true;
}

void UntypedHierarchicalTableView::EndReload(bool selectionLost)
{
    for (int row : droppedRows) {
        ReleaseRow(row);
        freeRows.push_back(row);
    }
    droppedRows.clear();
    reloading = false;
    ClampScrollPosition();
    if (selectionLost)
        NotifySelectionChanged(Origin::Program);
}

void UntypedHierarchicalTableView::EnsureIndex() const
{
    if (indexValid)
        return;
    std::size_t wanted = std::bit_ceil(static_cast<std::size_t>(liveCount) * 2 + 16);
    buckets.assign(wanted, NoRow);
    for (std::size_t i = 1; i < rows.size(); ++i) {
        if (!rows[i].alive)
            continue;
        std::size_t bucket = BucketOf(rows[i].hash, wanted);
        hashNext[i] = buckets[bucket];
        buckets[bucket] = static_cast<int>(i);
    }
    indexValid = true;
}

int UntypedHierarchicalTableView::FirstRowWithHash(NK::UInt64 hash) const
{
    // Rebuilding in the middle of a reload would make it quadratic; the chains built when it
    // began still hold every row it may match (dropped rows are not reused before it ends).
    if (!reloading)
        EnsureIndex();
    return buckets[BucketOf(hash, buckets.size())];
}

bool UntypedHierarchicalTableView::ChangeExpansion(int row, bool expand, Origin origin)
{
    Row& changed = RowAt(row);
    if (changed.expanded == expand)
        return false;
    changed.expanded = expand;
    NotifyExpansion(row, expand, origin);
    return true;
}

void UntypedHierarchicalTableView::ExpandAllNodes()
{
    Record(Op::Expand);
    for (std::size_t i = 1; i < rows.size(); ++i) {
        // The bound is read again every step: a notified delegate may reload the rows.
        if (rows[i].alive && rows[i].childCount > 0)
            ChangeExpansion(static_cast<int>(i), true, Origin::Program);
    }
}

void UntypedHierarchicalTableView::CollapseAllNodes()
{
    Record(Op::Collapse);
    for (std::size_t i = 1; i < rows.size(); ++i) {
        if (rows[i].alive)
            ChangeExpansion(static_cast<int>(i), false, Origin::Program);
    }
    ClampScrollPosition();
}

bool UntypedHierarchicalTableView::SetSelected(int row, bool select)
{
    Row& target = RowAt(row);
    if (target.selected == select)
        return false;
    if (select && selectionType == SelectionType::Single)
        DeselectAll();
    target.selected = select;
    selectedCount += select ? 1 : -1;
    return true;
}

bool UntypedHierarchicalTableView::DeselectAll()
{
    if (selectedCount == 0)
        return false;
    for (Row& row : rows)
        row.selected = false;
    selectedCount = 0;
    return true;
}

void UntypedHierarchicalTableView::ClearSelection()
{
    Record(Op::Deselect);
    if (DeselectAll())
        NotifySelectionChanged(Origin::Program);
}

void UntypedHierarchicalTableView::SelectRows(const std::vector<int>& selection, bool replace, Origin origin)
{
    Record(Op::Select);
    if (!NK_PRECOND(selectionType == SelectionType::Multi || selection.size() <= 1))
        return;
    bool changed = false;
    if (replace) {
        std::vector<int> wanted = selection;
        std::sort(wanted.begin(), wanted.end());
        for (std::size_t i = 1; i < rows.size(); ++i) {
            if (rows[i].selected && !std::binary_search(wanted.begin(), wanted.end(), static_cast<int>(i)))
                changed = SetSelected(static_cast<int>(i), false) || changed;
        }
    }
    for (int row : selection)
        changed = SetSelected(row, true) || changed;
    if (changed)
        NotifySelectionChanged(origin);
}

void UntypedHierarchicalTableView::DeselectRows(const std::vector<int>& selection)
{
    Record(Op::Deselect);
    bool changed = false;
    for (int row : selection)
        changed = SetSelected(row, false) || changed;
    if (changed)
        NotifySelectionChanged(Origin::Program);
}

std::vector<int> UntypedHierarchicalTableView::GetSelectedRows() const
{
    std::vector<int> result;
    if (selectedCount == 0)
        return result;
    result.reserve(static_cast<std::size_t>(selectedCount));
    std::vector<int> pending;
    for (int child = RowAt(RootRow).lastChild; child != NoRow; child = RowAt(child).previous)
        pending.push_back(child);
    while (!pending.empty() && result.size() < static_cast<std::size_t>(selectedCount)) {
        int current = pending.back();
        pending.pop_back();
        if (RowAt(current).selected)
            result.push_back(current);
        for (int child = RowAt(current).lastChild; child != NoRow; child = RowAt(child).previous)
            pending.push_back(child);
    }
    return result;
}

std::vector<int> UntypedHierarchicalTableView::GetDisplayedRows() const
{
    std::vector<int> result;
    std::vector<int> pending;
    for (int child = RowAt(RootRow).lastChild; child != NoRow; child = RowAt(child).previous)
        pending.push_back(child);
    while (!pending.empty()) {
        int current = pending.back();
        pending.pop_back();
        result.push_back(current);
        if (RowAt(current).expanded) {
            for (int child = RowAt(current).lastChild; child != NoRow; child = RowAt(child).previous)
                pending.push_back(child);
        }
    }
    return result;
}

std::vector<int> UntypedHierarchicalTableView::GetAllRowsInOrder() const
{
    std::vector<int> result;
    result.reserve(static_cast<std::size_t>(liveCount));
    std::vector<int> pending;
    for (int child = RowAt(RootRow).lastChild; child != NoRow; child = RowAt(child).previous)
        pending.push_back(child);
    while (!pending.empty()) {
        int current = pending.back();
        pending.pop_back();
        result.push_back(current);
        for (int child = RowAt(current).lastChild; child != NoRow; child = RowAt(child).previous)
            pending.push_back(child);
    }
    return result;
}

int UntypedHierarchicalTableView::GetDisplayedRowCount() const
{
    return static_cast<int>(GetDisplayedRows().size());
}

std::optional<int> UntypedHierarchicalTableView::GetDisplayIndex(int row) const
{
    for (int ancestor = RowAt(row).parent; ancestor != RootRow; ancestor = RowAt(ancestor).parent) {
        if (!RowAt(ancestor).expanded)
            return std::nullopt;
    }
    std::vector<int> displayed = GetDisplayedRows();
    auto it = std::find(displayed.begin(), displayed.end(), row);
    if (!NK_ASSERT(it != displayed.end()))
        return std::nullopt;
    return static_cast<int>(it - displayed.begin());
}

void UntypedHierarchicalTableView::RevealRow(int row)
{
    Record(Op::Scroll);
    std::vector<int> closed;
    for (int ancestor = RowAt(row).parent; ancestor != RootRow; ancestor = RowAt(ancestor).parent) {
        if (!RowAt(ancestor).expanded)
            closed.push_back(ancestor);
    }
    // Outermost first, as a user would open them.
    for (auto it = closed.rbegin(); it != closed.rend(); ++it)
        ChangeExpansion(*it, true, Origin::Program);
    std::optional<int> index = GetDisplayIndex(row);
    if (!index)
        return;
    int visible = GetVisibleRowCount();
    if (*index < scrollPosition)
        scrollPosition = *index;
    else if (*index >= scrollPosition + visible)
        scrollPosition = *index - visible + 1;
}

void UntypedHierarchicalTableView::BeginEditRow(int row)
{
    Record(Op::BeginItemEdit);
    editedRow = row;
}

int UntypedHierarchicalTableView::EndEditRow()
{
    int row = editedRow;
    editedRow = NoRow;
    return row;
}

}  // namespace QM
