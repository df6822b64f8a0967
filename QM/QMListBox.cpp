#include "QM/QMListBox.hpp"

#define NK_SOURCE_PATH "QM\\QMListBox"
#include "NK/NKAssert.hpp"

#include <algorithm>

namespace QM {

ListBox::ListBox(const Panel& panel, const Rect& rect, SelectionType selectionType)
    : ListBoxColumns(panel, rect, ItemType::ListBox), selectionType(selectionType)
{
}

short ListBox::InsertItem(int row)
{
    Record(Op::InsertItem);
    return InsertRow(row, false);
}

short ListBox::InsertSeparator(int row)
{
    Record(Op::InsertSeparator);
    return InsertRow(row, true);
}

short ListBox::InsertRow(int row, bool separator)
{
    int count = GetItemCount();
    int position = row == FirstPosition ? 1 : row == LastPosition ? count + 1 : row;
    if (!NK_PRECOND(position >= 1 && position <= count + 1) || !NK_PRECOND(count < MaxRowCount))
        return 0;
    Row newRow;
    newRow.separator = separator;
    rows.insert(static_cast<std::size_t>(position - 1), std::move(newRow));
    return static_cast<short>(position);
}

void ListBox::DeleteItem(short row)
{
    Record(Op::DeleteItem);
    if (!NK_PRECOND(IsValidRow(row)))
        return;
    bool wasSelected = GetRow(row).selected;
    rows.erase(static_cast<std::size_t>(row - 1));
    if (scrollPosition > 0 && scrollPosition >= GetItemCount())
        scrollPosition = static_cast<short>(std::max(0, GetItemCount() - 1));
    if (wasSelected) {
        --selectedCount;
        NotifySelectionChanged(Origin::Program);
    }
}

void ListBox::DeleteAllItems()
{
    Record(Op::DeleteAllItems);
    bool hadSelection = selectedCount > 0;
    rows.clear();
    selectedCount = 0;
    scrollPosition = 0;
    if (hadSelection)
        NotifySelectionChanged(Origin::Program);
}

bool ListBox::IsSeparator(short row) const
{
    const Row* r = ReadableRow(row);
    return r != nullptr && r->separator;
}

ListBox::Row* ListBox::WritableRow(short row)
{
    if (!NK_PRECOND(IsValidRow(row)))
        return nullptr;
    return &rows[static_cast<std::size_t>(row) - 1];
}

const ListBox::Row* ListBox::ReadableRow(short row) const
{
    if (!NK_PRECOND(IsValidRow(row)))
        return nullptr;
    return &GetRow(row);
}

ListBox::TabCell* ListBox::WritableCell(short row, short tab)
{
    Row* r = WritableRow(row);
    if (r == nullptr || !NK_PRECOND(tab >= 1 && tab <= tabFieldCount))
        return nullptr;
    if (r->cells.size() < static_cast<std::size_t>(tab))
        r->cells.resize(static_cast<std::size_t>(tab));
    return &r->cells[static_cast<std::size_t>(tab) - 1];
}

const ListBox::TabCell* ListBox::ReadableCell(short row, short tab) const
{
    static const TabCell emptyCell;
    const Row* r = ReadableRow(row);
    if (r == nullptr || !NK_PRECOND(tab >= 1 && tab <= tabFieldCount))
        return nullptr;
    return static_cast<std::size_t>(tab) <= r->cells.size() ? &r->cells[static_cast<std::size_t>(tab) - 1] : &emptyCell;
}

void ListBox::SetItemObjectData(short row, NK::Ref<NK::Object> data)
{
    Record(Op::SetItemObjectData);
    if (Row* r = WritableRow(row))
        r->objectData = std::move(data);
}

NK::Ref<NK::Object> ListBox::GetItemObjectData(short row) const
{
    const Row* r = ReadableRow(row);
    return r != nullptr ? r->objectData : NK::Ref<NK::Object>();
}

void ListBox::SetItemValue(short row, NK::Int64 value)
{
    Record(Op::SetValue);
    if (Row* r = WritableRow(row))
        r->value = value;
}

NK::Int64 ListBox::GetItemValue(short row) const
{
    const Row* r = ReadableRow(row);
    return r != nullptr ? r->value : 0;
}

void ListBox::SetTabFieldCount(short count)
{
    Record(Op::SetStyle);
    if (!NK_PRECOND(count >= 0) || count == tabFieldCount)
        return;
    short oldCount = tabFieldCount;
    tabFieldCount = count;
    if (count < oldCount) {
        rows.ForEach([count](Row& r) {
            if (r.cells.size() > static_cast<std::size_t>(count))
                r.cells.resize(static_cast<std::size_t>(count));
        });
    }
    TabFieldCountChanged(oldCount, count);
}

void ListBox::TabFieldCountChanged(short oldCount, short newCount)
{
    ListBoxColumns::TabFieldCountChanged(oldCount, newCount);
}

void ListBox::SetTabItemText(short row, short tab, const NK::UniString& text)
{
    Record(Op::SetText);
    if (TabCell* cell = WritableCell(row, tab))
        cell->text = text;
}

NK::UniString ListBox::GetTabItemText(short row, short tab) const
{
    const TabCell* cell = ReadableCell(row, tab);
    return cell != nullptr ? cell->text : NK::UniString();
}

void ListBox::SetTabItemDescription(short row, short tab, const NK::UniString& text)
{
    Record(Op::SetText);
    if (TabCell* cell = WritableCell(row, tab))
        cell->description = text;
}

NK::UniString ListBox::GetTabItemDescription(short row, short tab) const
{
    const TabCell* cell = ReadableCell(row, tab);
    return cell != nullptr ? cell->description : NK::UniString();
}

void ListBox::SetTabItemIcon(short row, short tab, const Icon& icon)
{
    Record(Op::SetIcon);
    if (TabCell* cell = WritableCell(row, tab))
        cell->icon = icon;
}

Icon ListBox::GetTabItemIcon(short row, short tab) const
{
    const TabCell* cell = ReadableCell(row, tab);
    return cell != nullptr ? cell->icon : Icon();
}

void ListBox::SetTabItemColor(short row, short tab, const Color& color)
{
    Record(Op::SetStyle);
    if (TabCell* cell = WritableCell(row, tab))
        cell->color = color;
}

void ListBox::ResetTabItemColor(short row, short tab)
{
    Record(Op::SetStyle);
    if (TabCell* cell = WritableCell(row, tab))
        cell->color.reset();
}

std::optional<Color> ListBox::GetTabItemColor(short row, short tab) const
{
    const TabCell* cell = ReadableCell(row, tab);
    return cell != nullptr ? cell->color : std::nullopt;
}

void ListBox::SetTabItemBackgroundColor(short row, short tab, const Color& color)
{
    Record(Op::SetStyle);
    if (TabCell* cell = WritableCell(row, tab))
        cell->background = color;
}

void ListBox::ResetTabItemBackgroundColor(short row, short tab)
{
    Record(Op::SetStyle);
    if (TabCell* cell = WritableCell(row, tab))
        cell->background.reset();
}

std::optional<Color> ListBox::GetTabItemBackgroundColor(short row, short tab) const
{
    const TabCell* cell = ReadableCell(row, tab);
    return cell != nullptr ? cell->background : std::nullopt;
}

void ListBox::SetTabItemFontStyle(short row, short tab, Font::Style style)
{
    Record(Op::SetStyle);
    if (TabCell* cell = WritableCell(row, tab))
        cell->style = style;
}

Font::Style ListBox::GetTabItemFontStyle(short row, short tab) const
{
    const TabCell* cell = ReadableCell(row, tab);
    return cell != nullptr ? cell->style : Font::Plain;
}

void ListBox::SetItemColor(short row, const Color& color)
{
    Record(Op::SetStyle);
    if (Row* r = WritableRow(row))
        r->color = color;
}

void ListBox::ResetItemColor(short row)
{
    Record(Op::SetStyle);
    if (Row* r = WritableRow(row))
        r->color.reset();
}

std::optional<Color> ListBox::GetItemColor(short row) const
{
    const Row* r = ReadableRow(row);
    return r != nullptr ? r->color : std::nullopt;
}

void ListBox::SetItemBackgroundColor(short row, const Color& color)
{
    Record(Op::SetStyle);
    if (Row* r = WritableRow(row))
        r->background = color;
}

void ListBox::ResetItemBackgroundColor(short row)
{
    Record(Op::SetStyle);
    if (Row* r = WritableRow(row))
        r->background.reset();
}

std::optional<Color> ListBox::GetItemBackgroundColor(short row) const
{
    const Row* r = ReadableRow(row);
    return r != nullptr ? r->background : std::nullopt;
}

void ListBox::SetItemFontStyle(short row, Font::Style style)
{
    Record(Op::SetStyle);
    if (Row* r = WritableRow(row))
        r->style = style;
}

Font::Style ListBox::GetItemFontStyle(short row) const
{
    const Row* r = ReadableRow(row);
    return r != nullptr ? r->style : Font::Plain;
}

void ListBox::SetItemStatus(short row, ItemStatus status)
{
    Record(Op::Enable);
    if (Row* r = WritableRow(row))
        r->status = status;
}

ListBox::ItemStatus ListBox::GetItemStatus(short row) const
{
    const Row* r = ReadableRow(row);
    return r != nullptr ? r->status : ItemStatus::Enabled;
}

void ListBox::SetItemOwnerDrawFlag(short row, bool ownerDraw)
{
    Record(Op::SetStyle);
    if (Row* r = WritableRow(row))
        r->ownerDraw = ownerDraw;
}

bool ListBox::GetItemOwnerDrawFlag(short row) const
{
    const Row* r = ReadableRow(row);
    return r != nullptr && r->ownerDraw;
}

void ListBox::DisableDraw()
{
    Record(Op::DisableDraw);
    ++drawDisabledDepth;
}

void ListBox::EnableDraw()
{
    Record(Op::EnableDraw);
    if (NK_PRECOND(drawDisabledDepth > 0))
        --drawDisabledDepth;
}

void ListBox::RedrawItem(short row) const
{
    Record(Op::RedrawItem);
    NK_PRECOND(IsValidRow(row));
}

void ListBox::RedrawTabItem(short row, short tab) const
{
    Record(Op::RedrawItem);
    NK_PRECOND(IsValidRow(row) && tab >= 1 && tab <= tabFieldCount);
}

void ListBox::SetScrollPosition(short position)
{
    Record(Op::Scroll);
    if (!NK_PRECOND(position >= 0))
        return;
    scrollPosition = std::min<short>(position, static_cast<short>(std::max(0, GetItemCount() - 1)));
}

void ListBox::SetRowHeight(short height)
{
    Record(Op::SetStyle);
    if (NK_PRECOND(height > 0))
        rowHeight = height;
}

}  // namespace QM
