// Selection of QM::ListBox: programmatic calls and simulated user clicks, one notification per
// change of the set of selected rows.
#include "QM/QMListBox.hpp"

#define NK_SOURCE_PATH "QM\\QMListBoxSelection"
#include "NK/NKAssert.hpp"

#include <algorithm>
#include <vector>

namespace QM {

bool ListBox::SetSelected(short row, bool selected)
{
    Row& r = rows[static_cast<std::size_t>(row) - 1];
    if (r.selected == selected || (selected && r.separator))
        return false;
    if (selected && selectionType == SelectionType::Single)
        DeselectAll();
    r.selected = selected;
    selectedCount = static_cast<short>(selectedCount + (selected ? 1 : -1));
    return true;
}

bool ListBox::DeselectAll()
{
    if (selectedCount == 0)
        return false;
    rows.ForEach([](Row& r) { r.selected = false; });
    selectedCount = 0;
    return true;
}

void ListBox::NotifySelectionChanged(Origin origin)
{
    ListBoxSelectionEvent event {*this, origin};
    NotifyAll<ListBoxObserver>([&](ListBoxObserver& o) { o.SelectionChanged(event); });
}

void ListBox::ScrollIntoView(short row)
{
    int visibleRows = std::max(1, GetRect().GetHeight() / rowHeight);
    if (row - 1 < scrollPosition)
        scrollPosition = static_cast<short>(row - 1);
    else if (row - 1 >= scrollPosition + visibleRows)
        scrollPosition = static_cast<short>(row - visibleRows);
}

void ListBox::SelectItem(short row)
{
    Record(Op::Select);
    if (!NK_PRECOND(IsValidRow(row)))
        return;
    bool changed = SetSelected(row, true);
    ScrollIntoView(row);
    if (changed)
        NotifySelectionChanged(Origin::Program);
}

void ListBox::SelectItems(const NK::Array<short>& rowsToSelect)
{
    Record(Op::Select);
    bool allValid = std::all_of(rowsToSelect.begin(), rowsToSelect.end(), [this](short row) { return IsValidRow(row); });
    if (!NK_PRECOND(allValid))
        return;
    bool changed = false;
    for (short row : rowsToSelect)
        changed = SetSelected(row, true) || changed;
    if (!rowsToSelect.IsEmpty())
        ScrollIntoView(rowsToSelect.GetLast());
    if (changed)
        NotifySelectionChanged(Origin::Program);
}

void ListBox::DeselectItem(short row)
{
    Record(Op::Deselect);
    bool changed = false;
    if (row == 0)
        changed = DeselectAll();
    else if (NK_PRECOND(IsValidRow(row)))
        changed = SetSelected(row, false);
    if (changed)
        NotifySelectionChanged(Origin::Program);
}

bool ListBox::IsItemSelected(short row) const
{
    return NK_PRECOND(IsValidRow(row)) && GetRow(row).selected;
}

NK::Array<short> ListBox::GetSelectedItems() const
{
    NK::Array<short> selected;
    if (selectedCount == 0)
        return selected;
    selected.SetCapacity(static_cast<NK::UIndex>(selectedCount));
    for (std::size_t i = 0; i < rows.size() && selected.GetSize() < static_cast<NK::UIndex>(selectedCount); ++i) {
        if (rows[i].selected)
            selected.Push(static_cast<short>(i + 1));
    }
    return selected;
}

short ListBox::GetSelectedItem() const
{
    if (selectedCount == 0)
        return 0;
    for (std::size_t i = 0; i < rows.size(); ++i) {
        if (rows[i].selected)
            return static_cast<short>(i + 1);
    }
    return 0;
}

void ListBox::ReplaceSelection(const NK::Array<short>& wanted, Origin origin)
{
    bool allValid = std::all_of(wanted.begin(), wanted.end(), [this](short row) { return IsValidRow(row); });
    if (!NK_PRECOND(allValid) || !NK_PRECOND(selectionType == SelectionType::Multi || wanted.GetSize() <= 1))
        return;
    std::vector<bool> isWanted(rows.size(), false);
    for (short row : wanted)
        isWanted[static_cast<std::size_t>(row) - 1] = true;
    bool changed = false;
    for (std::size_t i = 0; i < rows.size(); ++i) {
        bool shouldBeSelected = !rows[i].separator && isWanted[i];
        if (rows[i].selected != shouldBeSelected) {
            rows[i].selected = shouldBeSelected;
            selectedCount = static_cast<short>(selectedCount + (shouldBeSelected ? 1 : -1));
            changed = true;
        }
    }
    if (!wanted.IsEmpty())
        ScrollIntoView(wanted.GetLast());
    if (changed)
        NotifySelectionChanged(origin);
}

void ListBox::SimulateUserClickRow(short row)
{
    if (!NK_PRECOND(IsValidRow(row)) || GetRow(row).separator || GetRow(row).status == ItemStatus::Disabled)
        return;
    ReplaceSelection({row}, Origin::User);
}

void ListBox::SimulateUserSelectRows(const NK::Array<short>& rowsToSelect)
{
    ReplaceSelection(rowsToSelect, Origin::User);
}

void ListBox::SimulateUserDoubleClickRow(short row)
{
    if (!NK_PRECOND(IsValidRow(row)) || GetRow(row).separator || GetRow(row).status == ItemStatus::Disabled)
        return;
    ReplaceSelection({row}, Origin::User);
    ListBoxClickEvent event {*this, row};
    NotifyAll<ListBoxObserver>([&](ListBoxObserver& o) { o.ItemDoubleClicked(event); });
}

}  // namespace QM
