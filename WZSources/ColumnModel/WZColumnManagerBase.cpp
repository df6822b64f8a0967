#define NK_SOURCE_PATH "WZSources\\ColumnModel\\WZColumnManagerBase"
#include "WZSources/ColumnModel/WZColumnManagerBase.hpp"

#include "NK/NKHashTable.hpp"
#include "NK/NKResources.hpp"
#include "QM/QMListBox.hpp"
#include "WZSources/ColumnModel/WZPixels.hpp"
#include "WZSources/ColumnModel/WZResizeColumns.hpp"

#include "NK/NKAssert.hpp"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <vector>

namespace WZ {

namespace {

constexpr NK::Int32 headerButtonDefaultIconId = 17;

}  // namespace

ColumnManagerBase::ColumnManagerBase() = default;

ColumnManagerBase::~ColumnManagerBase() = default;

void ColumnManagerBase::SetHeaderButtonIconToDefault()
{
    headerButtonIcon = QM::Icon(NK::SharedResourceModule, headerButtonDefaultIconId);
}

QM::Point ColumnManagerBase::GetHeaderButtonPosition(const QM::ListBox& listBox) const
{
    QM::Rect rect = listBox.GetRect();
    return QM::Point {static_cast<short>(rect.GetRight() - QM::ListBox::HeaderButtonWidth), rect.GetTop()};
}

NK::Array<HeaderDescriptorBase*> ColumnManagerBase::GetAllBaseHeaders() const
{
    NK::Array<HeaderDescriptorBase*> all;
    for (const auto& header : headers)
        all.Push(header.Get());
    return all;
}

NK::Array<ColumnDescriptorBase*> ColumnManagerBase::GetAllBaseColumns() const
{
    NK::Array<ColumnDescriptorBase*> all;
    for (const auto& column : columns)
        all.Push(column.Get());
    return all;
}

NK::Array<HeaderDescriptorBase*> ColumnManagerBase::GetVisibleBaseHeaders() const
{
    NK::Array<HeaderDescriptorBase*> visible;
    for (const auto& header : headers)
        if (header->IsVisible())
            visible.Push(header.Get());
    return visible;
}

NK::Array<ColumnDescriptorBase*> ColumnManagerBase::GetVisibleBaseColumns() const
{
    NK::Array<ColumnDescriptorBase*> visible;
    for (const auto& column : columns)
        if (column->IsVisible())
            visible.Push(column.Get());
    return visible;
}

HeaderDescriptorBase& ColumnManagerBase::AddBaseHeader(NK::Owner<HeaderDescriptorBase> header)
{
    HeaderDescriptorBase& added = *header;
    headers.Push(std::move(header));
    return added;
}

ColumnDescriptorBase& ColumnManagerBase::AddBaseColumn(NK::Owner<ColumnDescriptorBase> column, HeaderDescriptorBase* header)
{
    ColumnDescriptorBase& added = *column;
    if (header == nullptr) {
        columns.Push(std::move(column));
        return added;
    }
    // The column goes after the last column of this header or of any header before it, so that
    // the columns stay in header order.
    NK::HashSet<const HeaderDescriptorBase*> upToHeader;
    for (const auto& candidate : headers) {
        upToHeader.Add(candidate.Get());
        if (candidate.Get() == header)
            break;
    }
    NK_PRECOND_TEXT(upToHeader.Contains(header), "header belongs to this manager");
    NK::UIndex position = 0;
    for (NK::UIndex i = columns.GetSize(); i > 0; --i) {
        const HeaderDescriptorBase* owner = columns[i - 1]->GetHeader();
        if (owner != nullptr && upToHeader.Contains(owner)) {
            position = i;
            break;
        }
    }
    header->AddBaseColumn(added);
    columns.Insert(position, std::move(column));
    return added;
}

bool ColumnManagerBase::IdIsNew(bool isNew, const char* text)
{
    return NK_PRECOND_TEXT(isNew, text);
}

bool ColumnManagerBase::IsValidWidth(float width)
{
    return NK_PRECOND_TEXT(Pixels::IsValidLength(width), "width is a pixel length");
}

void ColumnManagerBase::SortColumnsByHeader()
{
    NK::HashTable<const ColumnDescriptorBase*, NK::UIndex> indexOf;
    for (NK::UIndex i = 0; i < columns.GetSize(); ++i)
        indexOf.Add(columns[i].Get(), i);
    NK::Array<NK::Owner<ColumnDescriptorBase>> sorted;
    sorted.SetCapacity(columns.GetSize());
    for (const auto& header : headers)
        for (ColumnDescriptorBase* column : header->GetAllBaseColumns())
            sorted.Push(std::move(columns[indexOf.Get(column)]));
    for (auto& column : columns)
        if (column != nullptr)
            sorted.Push(std::move(column));
    columns = std::move(sorted);
}

void ColumnManagerBase::Setup(QM::ListBox& listBox) const
{
    listBox.EnableSeparatorLines(separatorLines);
    if (listBox.HasHeader()) {
        listBox.SetHeaderSynchronState(false);
        listBox.SetHeaderPushableButtons(pushableHeaderButtons);
        listBox.SetHeaderDragableButtons(draggableHeaderButtons);
        listBox.SetHeaderItemCount(static_cast<short>(GetVisibleBaseHeaders().GetSize()));
    }

    for (short tab = 1; tab <= listBox.GetTabFieldCount(); ++tab)
        listBox.RemoveOnTabItem(tab);
    NK::Array<ColumnDescriptorBase*> visibleColumns = GetVisibleBaseColumns();
    listBox.SetTabFieldCount(Pixels::Saturated(static_cast<std::int64_t>(visibleColumns.GetSize())));

    SetupHeaderItems(listBox);

    for (NK::UIndex i = 0; i < visibleColumns.GetSize(); ++i) {
        short tab = static_cast<short>(i + 1);
        listBox.SetTabFieldJustification(tab, visibleColumns[i]->GetJustification());
        listBox.SetTabFieldTruncation(tab, visibleColumns[i]->GetTruncation());
        listBox.SetTabFieldOwnerDrawFlag(tab, visibleColumns[i]->IsOwnerDraw());
    }

    if (headerButtonIcon.has_value()) {
        listBox.EnableHeaderButton();
        if (listBox.GetHeaderButtonIcon() != *headerButtonIcon)
            listBox.SetHeaderButtonIcon(*headerButtonIcon);
    }
}

void ColumnManagerBase::UpdateHeaders(QM::ListBox& listBox) const
{
    SetupHeaderItems(listBox);
}

void ColumnManagerBase::SetupHeaderItems(QM::ListBox& listBox) const
{
    if (!listBox.HasHeader())
        return;
    NK::Array<HeaderDescriptorBase*> visibleHeaders = GetVisibleBaseHeaders();
    for (NK::UIndex i = 0; i < visibleHeaders.GetSize(); ++i) {
        const HeaderDescriptorBase& header = *visibleHeaders[i];
        short item = static_cast<short>(i + 1);
        listBox.SetHeaderItemText(item, header.GetText());
        listBox.SetHeaderItemIcon(item, header.GetIcon());
        listBox.SetHeaderItemArrowType(item, header.GetArrowType());
        listBox.SetHeaderItemStyle(item, header.GetStyle());
        listBox.SetHeaderItemSizeableFlag(item, header.IsSizeable());
        listBox.SetHeaderItemMinSize(item, header.GetMinWidth());
    }
}

void ColumnManagerBase::Resize(QM::ListBox& listBox, bool loadCurrentSizes)
{
    if (loadCurrentSizes)
        LoadListBoxColumnSizes(listBox, {});
    ResizeToListBox(listBox);
}

void ColumnManagerBase::Resize(QM::ListBox& listBox, const std::set<short>& keptTabs)
{
    LoadListBoxColumnSizes(listBox, keptTabs);
    ResizeToListBox(listBox);
}

void ColumnManagerBase::ResizeToListBox(QM::ListBox& listBox) const
{
    NK::Array<ColumnDescriptorBase*> visibleColumns = GetVisibleBaseColumns();
    ResizeColumns([&visibleColumns](size_t i) { return &visibleColumns[i]->GetColumn(); }, visibleColumns.GetSize(),
                  listBox.GetItemWidth(), true);
    NK::Array<short> headerWidths = LayOutTabFields(listBox);
    if (listBox.HasHeader())
        for (NK::UIndex i = 0; i < headerWidths.GetSize(); ++i)
            listBox.SetHeaderItemSize(static_cast<short>(i + 1), headerWidths[i]);
}

NK::Array<short> ColumnManagerBase::LayOutTabFields(QM::ListBox& listBox) const
{
    NK::Array<short> headerWidths;
    short position = 0;
    short tab = 1;
    auto place = [&](const ColumnDescriptorBase& column) {
        short end = Pixels::Add(position, Pixels::Truncated(column.GetWidth()));
        listBox.SetTabFieldBeginEndPosition(tab++, position, end);
        position = end;
    };
    for (const HeaderDescriptorBase* header : GetVisibleBaseHeaders()) {
        short start = position;
        for (const ColumnDescriptorBase* column : header->GetVisibleBaseColumns())
            place(*column);
        headerWidths.Push(Pixels::Saturated(position - start));
    }
    for (const auto& column : columns)
        if (column->GetHeader() == nullptr && column->IsVisible())
            place(*column);
    return headerWidths;
}

void ColumnManagerBase::HeaderResized(QM::ListBox& listBox, short headerItem, short) const
{
    // Every header item's current size counts, not only the dragged one's: a toolkit may move
    // several dividers at once.
    NK::Array<HeaderDescriptorBase*> visibleHeaders = GetVisibleBaseHeaders();
    if (visibleHeaders.IsEmpty())
        return;
    std::vector<short> sizes;
    std::int64_t total = 0;
    for (NK::UIndex i = 0; i < visibleHeaders.GetSize(); ++i) {
        sizes.push_back(listBox.GetHeaderItemSize(static_cast<short>(i + 1)));
        total += sizes.back();
    }
    // A divider dragged outward may push the header items past the list box. The excess comes off
    // the items right of the dragged one, nearest first, then off the dragged one, each down to
    // its minimum, so the tab fields stay inside the list box; those items get their new sizes.
    std::int64_t excess = total - listBox.GetItemWidth();
    const std::size_t dragged = static_cast<std::size_t>(std::clamp<int>(headerItem - 1, 0, static_cast<int>(sizes.size()) - 1));
    auto giveBack = [&](std::size_t i) {
        const std::int64_t spare = sizes[i] - std::max<short>(0, visibleHeaders[i]->GetMinWidth());
        const std::int64_t taken = std::clamp<std::int64_t>(excess, 0, std::max<std::int64_t>(0, spare));
        if (taken == 0)
            return;
        sizes[i] = Pixels::Saturated(sizes[i] - taken);
        excess -= taken;
        listBox.SetHeaderItemSize(static_cast<short>(i + 1), sizes[i]);
    };
    for (std::size_t i = dragged + 1; i < sizes.size(); ++i)
        giveBack(i);
    giveBack(dragged);

    for (NK::UIndex i = 0; i < visibleHeaders.GetSize(); ++i)
        visibleHeaders[i]->Resize(sizes[i]);
    LayOutTabFields(listBox);
}

void ColumnManagerBase::HeaderDragged(QM::ListBox& listBox, short fromItem, short toItem)
{
    NK::Array<HeaderDescriptorBase*> visibleHeaders = GetVisibleBaseHeaders();
    auto inRange = [&](short item) { return item >= 1 && static_cast<NK::UIndex>(item) <= visibleHeaders.GetSize(); };
    if (!NK_PRECOND(inRange(fromItem) && inRange(toItem)) || fromItem == toItem)
        return;
    LoadListBoxColumnSizes(listBox, {});

    auto indexOf = [&](const HeaderDescriptorBase* header) {
        return headers.FindFirst([header](const NK::Owner<HeaderDescriptorBase>& h) { return h.Get() == header; });
    };
    NK::UIndex from = indexOf(visibleHeaders[static_cast<NK::UIndex>(fromItem) - 1]);
    NK::UIndex to = indexOf(visibleHeaders[static_cast<NK::UIndex>(toItem) - 1]);
    NK::Owner<HeaderDescriptorBase> moved = std::move(headers[from]);
    headers.Delete(from);
    headers.Insert(to, std::move(moved));
    SortColumnsByHeader();

    Setup(listBox);
    ResizeToListBox(listBox);
}

void ColumnManagerBase::LoadListBoxColumnSizes(const QM::ListBox& listBox, const std::set<short>& keptTabs)
{
    NK::Array<ColumnDescriptorBase*> visibleColumns = GetVisibleBaseColumns();
    if (visibleColumns.IsEmpty() || static_cast<NK::UIndex>(listBox.GetTabFieldCount()) != visibleColumns.GetSize())
        return;
    int laidOut = 0;
    for (short tab = 1; tab <= listBox.GetTabFieldCount(); ++tab)
        laidOut += listBox.GetTabFieldWidth(tab);
    if (laidOut <= 0)
        return;
    for (NK::UIndex i = 0; i < visibleColumns.GetSize(); ++i) {
        short tab = static_cast<short>(i + 1);
        if (keptTabs.count(tab) > 0)
            continue;
        float width = listBox.GetTabFieldWidth(tab);
        if (visibleColumns[i]->GetWidth() != width)
            visibleColumns[i]->SetWidth(width);
    }
}

}  // namespace WZ
