#define NK_SOURCE_PATH "WZSources\\CompoundControls\\FolderedDataView\\Views\\WZFDVListBoxBaseView"
#include "WZSources/CompoundControls/FolderedDataView/Views/WZFDVListBoxBaseView.hpp"

#include "NK/NKAssert.hpp"
#include "WZSources/ColumnModel/WZPixels.hpp"
#include "WZSources/CompoundControls/FolderedDataView/WZFolderableModelItem.hpp"
#include "WZSources/WZLoggedAssert.hpp"

#include <bit>

namespace WZ::Folderable::Views {

namespace {

constexpr const char* LogFile = "WZFDVListBoxBaseView";
constexpr NK::ErrCode UnknownValue = -7003;
// More columns than any list box can show: a count past it is a corrupted stream.
constexpr NK::UInt16 MaxColumnCount = 1024;

}  // namespace

// ---- refresh result ---------------------------------------------------------------------

ListBoxBaseView::ListRefreshResult::ListRefreshResult(UntypedListBoxView::DrawSuspender drawGuard,
                                                      SelectionKeeper keeper)
    : drawGuard(std::move(drawGuard)), keeper(std::move(keeper))
{
}

// ---- view state -------------------------------------------------------------------------

ListBoxBaseView::ViewState::ViewState(NK::Owner<Layout::LayoutState> layoutState, ColumnState columns)
    : View::ViewState(std::move(layoutState)), columns(std::move(columns))
{
}

ListBoxBaseView::ViewState::~ViewState() = default;

NK::ErrCode ListBoxBaseView::ViewState::Write(NK::OChannel& channel) const
{
    if (const NK::ErrCode error = View::ViewState::Write(channel); error != NK::NoError)
        return error;
    channel.Write(static_cast<NK::UInt16>(columns.columns.GetSize()));
    for (const auto& column : columns.columns) {
        channel.Write(static_cast<NK::Int16>(column.first));
        channel.Write(column.second.visible);
        channel.Write(std::bit_cast<NK::Int32>(column.second.width));
    }
    return channel.GetStatus();
}

NK::ErrCode ListBoxBaseView::ViewState::Read(NK::IChannel& channel)
{
    // Both parts are read into copies and taken over only when the whole state was read, so a
    // failure leaves this state as it was.
    NK::Owner<Layout::LayoutState> layoutPart;
    if (const NK::ErrCode error = ReadLayoutStateCopy(channel, layoutPart); error != NK::NoError)
        return error;
    NK::UInt16 count = 0;
    if (const NK::ErrCode error = channel.Read(count); error != NK::NoError)
        return error;
    if (count > MaxColumnCount)
        return UnknownValue;
    ColumnState read;
    for (NK::UInt16 i = 0; i < count; ++i) {
        NK::Int16 id = 0;
        bool visible = true;
        NK::Int32 widthBits = 0;
        channel.Read(id);
        channel.Read(visible);
        if (const NK::ErrCode error = channel.Read(widthBits); error != NK::NoError)
            return error;
        // A width that is no pixel length (NaN, infinite, negative, past the 16-bit range) is a
        // damaged stream, not a width to lay columns out with.
        const float width = std::bit_cast<float>(widthBits);
        if (!Pixels::IsValidLength(width))
            return UnknownValue;
        read.columns.Put(id, UntypedListBox::Manager::ColumnState {visible, width});
    }
    if (channel.GetStatus() != NK::NoError)
        return channel.GetStatus();
    columns = std::move(read);
    SetLayoutState(std::move(layoutPart));
    return NK::NoError;
}

// ---- list box base view -----------------------------------------------------------------

ListBoxBaseView::ListBoxBaseView(NK::Owner<Layout> layout, ViewResource& resource)
    : View(std::move(layout), resource)
{
}

ListBoxBaseView::~ListBoxBaseView()
{
    StopObservingList();
}

void ListBoxBaseView::StopObservingList()
{
    selectionHandlingEnabled = false;
    if (observedListBox != nullptr)
        observedListBox->Detach(static_cast<QM::ListBoxObserver&>(*this));
    observedListBox = nullptr;
}

void ListBoxBaseView::SetListItemFactory(NK::Owner<ListItemFactory> factory)
{
    listItemFactory = std::move(factory);
}

void ListBoxBaseView::SetListItemSearchFilter(NK::Owner<ListItemFactory::SearchFilter> filter)
{
    searchFilter = std::move(filter);
    GiveSearchFilterTheFieldText();
}

void ListBoxBaseView::GiveSearchFilterTheFieldText()
{
    if (searchFilter != nullptr)
        searchFilter->SetSearchText(GetSearchText().value_or(NK::UniString()));
}

NK::Array<const ListBoxItem*> ListBoxBaseView::CreateListBoxItems(const NK::Array<const ModelItem*>& items) const
{
    if (!NK_PRECOND_TEXT(listItemFactory != nullptr, "listItemFactory != nullptr")) {
        LogAssertError(LogFile, __LINE__);
        return {};
    }
    if (IsSearchMode() && searchFilter != nullptr)
        return listItemFactory->CreateItems(searchFilter->FilterItems(items));
    return listItemFactory->CreateItems(items);
}

ListBoxBaseView::ListRefreshResult ListBoxBaseView::RefreshListBox(const NK::Array<const ModelItem*>& items)
{
    UntypedListBox* list = GetList();
    if (list == nullptr)
        return ListRefreshResult();
    UntypedListBoxView::DrawSuspender drawGuard(list->GetListBox());
    if (!NK_PRECOND_TEXT(listItemFactory != nullptr, "listItemFactory != nullptr")) {
        LogAssertError(LogFile, __LINE__);
        // Rows left from an earlier forest would lead to items that are deleted with it.
        return ListRefreshResult(std::move(drawGuard), list->SetItems({}, {}));
    }
    return ListRefreshResult(std::move(drawGuard), list->SetItems(CreateListBoxItems(items), items));
}

bool ListBoxBaseView::RestoreSelection(SelectionKeeper& keeper)
{
    const bool anythingKept = !keeper.GetSelectedItemIds().IsEmpty();
    return keeper.RestoreByItemIds() != SelectionKeeper::Restored::All && anythingKept;
}

NK::Owner<View::ViewState> ListBoxBaseView::CreateDefaultState() const
{
    const UntypedListBox* list = GetList();
    return NK::NewOwned<ViewState>(GetLayout() != nullptr ? GetLayout()->CreateDefaultState() : nullptr,
                                   list != nullptr ? list->GetColumnState() : ColumnState());
}

NK::Owner<View::ViewState> ListBoxBaseView::GetState() const
{
    const UntypedListBox* list = GetList();
    return NK::NewOwned<ViewState>(GetLayout() != nullptr ? GetLayout()->GetState() : nullptr,
                                   list != nullptr ? list->GetColumnState() : ColumnState());
}

void ListBoxBaseView::ApplyState(const View::ViewState& state)
{
    if (const Layout::LayoutState* layoutState = state.GetLayoutState())
        ApplyLayoutState(*layoutState);
    ApplyColumnsIfChanged(&state);
}

void ListBoxBaseView::ApplyColumnsIfChanged(const View::ViewState* state)
{
    const auto* own = dynamic_cast<const ViewState*>(state);
    UntypedListBox* list = GetList();
    if (own == nullptr || list == nullptr || own->GetColumnState() == list->GetColumnState())
        return;
    list->ApplyColumnState(own->GetColumnState());
}

void ListBoxBaseView::EnableSelectionHandling()
{
    selectionHandlingEnabled = true;
    UntypedListBox* list = GetList();
    QM::ListBox* listBox = list != nullptr ? &list->GetListBox() : nullptr;
    if (listBox == observedListBox)
        return;
    if (observedListBox != nullptr)
        observedListBox->Detach(static_cast<QM::ListBoxObserver&>(*this));
    if (listBox != nullptr)
        listBox->Attach(static_cast<QM::ListBoxObserver&>(*this));
    observedListBox = listBox;
}

void ListBoxBaseView::DisableSelectionHandling()
{
    selectionHandlingEnabled = false;
}

Selection ListBoxBaseView::GetSelection() const
{
    const UntypedListBox* list = GetList();
    return list != nullptr ? Selection(list->GetSelectedModelItems()) : Selection();
}

NK::Array<NK::Guid> ListBoxBaseView::GetSelectedIds() const
{
    const UntypedListBox* list = GetList();
    return list != nullptr ? list->GetSelectedItemIds() : NK::Array<NK::Guid>();
}

void ListBoxBaseView::SendSelectionChangedEventIfChanged(const NK::Array<NK::Guid>& before)
{
    const NK::Array<NK::Guid> after = GetSelectedIds();
    bool same = after.GetSize() == before.GetSize();
    for (NK::UIndex i = 0; same && i < after.GetSize(); ++i)
        same = after[i] == before[i];
    if (!same)
        SendSelectionChangedEvent();
}

void ListBoxBaseView::SelectInList(const NK::Array<const ModelItem*>& items)
{
    UntypedListBox* list = GetList();
    if (list == nullptr)
        return;
    const NK::Array<NK::Guid> before = GetSelectedIds();
    {
        SelectionHandlingPause pause(*this);
        list->SelectItems(items);
    }
    SendSelectionChangedEventIfChanged(before);
}

void ListBoxBaseView::WillAppear(const OpenData& openData)
{
    GiveSearchFilterTheFieldText();
    View::WillAppear(openData);
}

void ListBoxBaseView::WillDisappear()
{
    View::WillDisappear();
    StopObservingList();
    ForgetSearch();
    // Items placed over the columns (in-place edits) belong to the view that is left.
    if (UntypedListBox* list = GetList()) {
        QM::ListBox& listBox = list->GetListBox();
        for (short tab = 2; tab <= listBox.GetTabFieldCount(); ++tab)
            if (QM::Item* onTab = listBox.GetOnTabItem(tab))
                onTab->Hide();
    }
}

void ListBoxBaseView::ForgetItems()
{
    // The list box is shared by the list-based views. On display it belongs to the view that is
    // shown, which the data view rebuilds from the new forest next; hidden, its rows are this
    // view's or another hidden one's, and go.
    UntypedListBox* list = GetList();
    if (list != nullptr && !list->IsVisible())
        list->SetItems({}, {});
}

void ListBoxBaseView::RefreshForSearch()
{
    Refresh();
}

void ListBoxBaseView::ListSelectionChanged(QM::Origin)
{
    if (IsSearchMode())
        selectionPickedDuringSearch = true;
    SendSelectionChangedEvent();
}

void ListBoxBaseView::SearchStarted(const QM::SearchEditChangeEvent&)
{
    selectionBeforeSearch = GetSelectedIds();
    selectionPickedDuringSearch = false;
}

void ListBoxBaseView::SearchTextChanged(const QM::SearchEditChangeEvent& event)
{
    if (searchFilter != nullptr)
        searchFilter->SetSearchText(event.GetText());
    RefreshForSearch();
}

void ListBoxBaseView::SearchEnded(const QM::SearchEditChangeEvent&)
{
    if (searchFilter != nullptr)
        searchFilter->SetSearchText({});
    const NK::Array<NK::Guid> before = GetSelectedIds();
    {
        SelectionHandlingPause pause(*this);
        RefreshForSearch();
        if (!selectionPickedDuringSearch && GetList() != nullptr)
            GetList()->SelectItems(selectionBeforeSearch);
    }
    ForgetSearch();
    SendSelectionChangedEventIfChanged(before);
}

void ListBoxBaseView::SelectionChanged(const QM::ListBoxSelectionEvent& event)
{
    if (IsHearingSelection())
        ListSelectionChanged(event.origin);
}

void ListBoxBaseView::ForgetSearch()
{
    selectionBeforeSearch.Clear();
    selectionPickedDuringSearch = false;
}

// ---- flat list view ---------------------------------------------------------------------

FlatListView::FlatListView(NK::Owner<Layout> layout, ViewResource& resource)
    : ListBoxBaseView(std::move(layout), resource)
{
}

FlatListView::~FlatListView() = default;

ListBoxBaseView::ListRefreshResult FlatListView::RefreshListBox()
{
    const NK::Array<NK::Owner<ModelItem>>* items = GetCurrentItems();
    return RefreshListBox(items != nullptr ? ModelItem::ToPtrArrayRecursive(*items) : NK::Array<const ModelItem*>());
}

void FlatListView::Refresh()
{
    // The kept ids decide, not the rows' order: rows that were only sorted anew are no change.
    bool changed = false;
    {
        SelectionHandlingPause pause(*this);
        ListRefreshResult result = RefreshListBox();
        if (SelectionKeeper* keeper = result.GetSelectionKeeper())
            changed = RestoreSelection(*keeper);
    }
    if (changed)
        SendSelectionChangedEvent();
}

void FlatListView::SetSelection(const Selection& selection)
{
    SelectInList(selection.GetItems());
}

void FlatListView::WillAppear(const OpenData& openData)
{
    ListBoxBaseView::WillAppear(openData);
    ApplyColumnsIfChanged(openData.viewState);
    {
        SelectionHandlingPause pause(*this);
        EnableSelectionHandling();
        ListRefreshResult result = RefreshListBox();
        if (UntypedListBox* list = GetList()) {
            list->WillAppear();
            list->SelectItems(openData.selection.GetItems());
        }
    }
}

void FlatListView::WillDisappear()
{
    DisableSelectionHandling();
    ListBoxBaseView::WillDisappear();
    if (UntypedListBox* list = GetList())
        list->WillDisappear();
}

}  // namespace WZ::Folderable::Views
