// Columns, scrolling, drawing brackets and the text form of the hierarchical table view.
#include "QM/QMUntypedHierarchicalTableView.hpp"

#define NK_SOURCE_PATH "QM\\QMUntypedHierarchicalTableViewColumns"
#include "NK/NKAssert.hpp"

#include <algorithm>
#include <unordered_set>

namespace QM {

namespace {

bool HasValidColumns(const NK::Array<TableView::Column>& columns)
{
    std::unordered_set<std::u16string> ids;
    for (const TableView::Column& column : columns) {
        if (column.width < 0 || !ids.insert(column.id.GetUtf16()).second)
            return false;
    }
    return true;
}

NK::UIndex FindColumn(const NK::Array<TableView::Column>& columns, const NK::UniString& id)
{
    return columns.FindFirst([&](const TableView::Column& column) { return column.id == id; });
}

}  // namespace

void UntypedHierarchicalTableView::SetColumns(const NK::Array<TableView::Column>& newColumns)
{
    Record(Op::SetValue);
    if (NK_PRECOND(HasValidColumns(newColumns)))
        columns = newColumns;
}

TableView::ColumnLayout UntypedHierarchicalTableView::GetColumnLayout() const
{
    NK::Array<TableView::ColumnLayout::Entry> entries;
    for (const TableView::Column& column : columns)
        entries.Push({column.id, column.width, column.visible});
    return TableView::ColumnLayout(std::move(entries));
}

void UntypedHierarchicalTableView::ApplyColumnLayout(const TableView::ColumnLayout& layout)
{
    Record(Op::SetValue);
    if (!NK_PRECOND(layout.IsValid()))
        return;
    NK::Array<TableView::Column> arranged;
    std::vector<bool> placed(columns.GetSize(), false);
    for (const TableView::ColumnLayout::Entry& entry : layout.GetEntries()) {
        NK::UIndex index = FindColumn(columns, entry.id);
        if (index == NK::MaxUIndex)
            continue;
        TableView::Column column = columns[index];
        column.width = entry.width;
        column.visible = entry.visible;
        arranged.Push(column);
        placed[index] = true;
    }
    for (NK::UIndex i = 0; i < columns.GetSize(); ++i) {
        if (!placed[i])
            arranged.Push(columns[i]);
    }
    SetArrangement(std::move(arranged), Origin::Program);
}

bool UntypedHierarchicalTableView::SimulateUserResizeColumn(const NK::UniString& columnId, short width)
{
    NK::UIndex index = FindColumn(columns, columnId);
    if (!NK_PRECOND(index != NK::MaxUIndex) || !IsEnabled() || !IsVisible())
        return false;
    NK::Array<TableView::Column> arranged = columns;
    arranged[index].width = std::max<short>(width, 0);
    bool changed = arranged != columns;
    SetArrangement(std::move(arranged), Origin::User);
    return changed;
}

bool UntypedHierarchicalTableView::SimulateUserMoveColumn(const NK::UniString& columnId, NK::UIndex position)
{
    NK::UIndex index = FindColumn(columns, columnId);
    if (!NK_PRECOND(index != NK::MaxUIndex) || !NK_PRECOND(position < columns.GetSize()) || !IsEnabled() || !IsVisible())
        return false;
    NK::Array<TableView::Column> arranged = columns;
    TableView::Column moved = arranged[index];
    arranged.Delete(index);
    arranged.Insert(position, moved);
    bool changed = arranged != columns;
    SetArrangement(std::move(arranged), Origin::User);
    return changed;
}

void UntypedHierarchicalTableView::SetArrangement(NK::Array<TableView::Column> arrangement, Origin origin)
{
    if (arrangement == columns)
        return;
    columns = std::move(arrangement);
    NotifyColumnLayoutChanged(origin);
}

int UntypedHierarchicalTableView::GetVisibleRowCount() const noexcept
{
    return std::max(1, (GetRect().GetHeight() - HeaderHeight) / RowHeight);
}

void UntypedHierarchicalTableView::SetScrollPosition(int position)
{
    Record(Op::Scroll);
    if (!NK_PRECOND(position >= 0))
        return;
    scrollPosition = position;
    ClampScrollPosition();
}

void UntypedHierarchicalTableView::ClampScrollPosition()
{
    int last = std::max(0, GetDisplayedRowCount() - GetVisibleRowCount());
    scrollPosition = std::clamp(scrollPosition, 0, last);
}

void UntypedHierarchicalTableView::DisableDraw()
{
    Record(Op::DisableDraw);
    ++drawDisabledDepth;
}

void UntypedHierarchicalTableView::EnableDraw()
{
    Record(Op::EnableDraw);
    if (!NK_PRECOND(drawDisabledDepth > 0))
        return;
    if (--drawDisabledDepth == 0)
        Redraw();
}

void UntypedHierarchicalTableView::RenderContent(NK::Array<std::string>& lines, const std::string& indent) const
{
    NK::Array<NK::UniString> shownIds;
    std::string header;
    for (const TableView::Column& column : columns) {
        if (!column.visible)
            continue;
        shownIds.Push(column.id);
        header += (header.empty() ? "" : " | ") + column.title.ToUtf8() + " (" + std::to_string(column.width) + ")";
    }
    if (columns.IsEmpty())
        shownIds.Push({});  // a table without columns shows its tree in one unnamed column
    else
        lines.Push(indent + "columns: " + header);
    for (int row : GetDisplayedRows()) {
        const Row& shown = RowAt(row);
        std::string line = indent + (shown.selected ? "* " : "  ") + std::string(static_cast<std::size_t>(shown.depth) * 2, ' ');
        if (shown.firstChild == NoRow)
            line += "    ";
        else
            line += shown.expanded ? "[-] " : "[+] ";
        line += RenderRowCells(row, shownIds);
        if (row == editedRow)
            line += " (editing)";
        lines.Push(line);
    }
}

}  // namespace QM
