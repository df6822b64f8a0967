#define NK_SOURCE_PATH "WZSources\\CompoundControls\\FolderedDataView\\Views\\WZFDVHierarchicalView"
#include "WZSources/CompoundControls/FolderedDataView/Views/WZFDVHierarchicalView.hpp"

#include "NK/NKAssert.hpp"
#include "WZSources/CompoundControls/FolderedDataView/Views/WZCombinedTreeItemFilter.hpp"
#include "WZSources/CompoundControls/FolderedDataView/WZFolderableModelItem.hpp"
#include "WZSources/WZLoggedAssert.hpp"

#include <utility>
#include <vector>

namespace WZ::Folderable::Views {

namespace {

constexpr const char* LogFile = "WZFDVHierarchicalView";

using RowArray = NK::Array<NK::Owner<HierarchicalTreeItem>>;

// Whether every row of the subtree is a hierarchical row (the table narrows children to them).
// Walked with a stack of its own: the forest may be of any depth.
bool IsHierarchicalSubtree(const TreeItem& top)
{
    std::vector<const TreeItem*> pending {&top};
    while (!pending.empty()) {
        const TreeItem* item = pending.back();
        pending.pop_back();
        if (dynamic_cast<const HierarchicalTreeItem*>(item) == nullptr)
            return false;
        for (const NK::Owner<TreeItem>& child : item->GetChildren())
            pending.push_back(child.Get());
    }
    return true;
}

// The factory's forest as table rows. A tree that holds a row of another type is reported and
// left out, since the table could not show it.
RowArray ToRows(NK::Array<NK::Owner<TreeItem>> forest)
{
    RowArray rows;
    rows.SetCapacity(forest.GetSize());
    for (NK::Owner<TreeItem>& item : forest) {
        if (!NK_PRECOND_TEXT(IsHierarchicalSubtree(*item), "dynamic_cast<HierarchicalTreeItem*> (item) != nullptr")) {
            LogAssertError(LogFile, __LINE__);
            continue;
        }
        rows.Push(NK::Owner<HierarchicalTreeItem>(static_cast<HierarchicalTreeItem*>(item.Release())));
    }
    return rows;
}

void RestoreExpansion(const HierarchicalTableView::UpdateResult& result)
{
    if (result.expandRestorer != nullptr)
        result.expandRestorer->Restore();
}

void RestoreSelection(const HierarchicalTableView::UpdateResult& result)
{
    if (result.selectionRestorer != nullptr)
        result.selectionRestorer->Restore();
}

}  // namespace

// ---- states ------------------------------------------------------------------------------

HierarchicalView::ViewState::ViewState(NK::Owner<Layout::LayoutState> layoutState, QM::TableView::ColumnLayout columnLayout)
    : View::ViewState(std::move(layoutState)), columnLayout(std::move(columnLayout))
{
}

HierarchicalView::ViewState::~ViewState() = default;

NK::ErrCode HierarchicalView::ViewState::Write(NK::OChannel& channel) const
{
    const NK::ErrCode error = View::ViewState::Write(channel);
    if (error != NK::NoError)
        return error;
    return columnLayout.Write(channel);
}

NK::ErrCode HierarchicalView::ViewState::Read(NK::IChannel& channel)
{
    // The layout part is read into a copy and taken over only when the column layout was read
    // too (which itself changes nothing on a failure), so a failure leaves this state as it was.
    NK::Owner<Layout::LayoutState> layoutPart;
    if (const NK::ErrCode error = ReadLayoutStateCopy(channel, layoutPart); error != NK::NoError)
        return error;
    if (const NK::ErrCode error = columnLayout.Read(channel); error != NK::NoError)
        return error;
    SetLayoutState(std::move(layoutPart));
    return NK::NoError;
}

HierarchicalView::InMemoryViewState::InMemoryViewState() = default;

HierarchicalView::InMemoryViewState::~InMemoryViewState() = default;

void HierarchicalView::InMemoryViewState::InitStateIfNeeded(const NK::Array<NK::Owner<ModelItem>>& items)
{
    if (initialised || items.IsEmpty())
        return;
    initialised = true;
    if (!expandedIds.IsEmpty())
        return;
    for (const NK::Owner<ModelItem>& item : items)
        expandedIds.Add(item->GetId());
}

// ---- construction and settings -----------------------------------------------------------

HierarchicalView::HierarchicalView(NK::Owner<Layout> layout, ViewResource& resource)
    : HierarchicalView(std::move(layout), resource, nullptr)
{
}

HierarchicalView::HierarchicalView(NK::Owner<Layout> layout, ViewResource& resource, NK::Owner<TreeItemFactory> itemFactory)
    : View(std::move(layout), resource), itemFactory(std::move(itemFactory))
{
}

HierarchicalView::~HierarchicalView()
{
    // The table outlives the view; it must not call a destroyed user delegate.
    if (HierarchicalTableView* table = GetResource().GetHierarchicalDataView()) {
        if (table->GetUserDelegate() == this)
            table->SetUserDelegate(nullptr);
    }
}

void HierarchicalView::SetItemFilter(NK::Owner<TreeItemFactory::Filter> filter)
{
    itemFilter = std::move(filter);
}

void HierarchicalView::SetSearchFilter(NK::Owner<TreeItemFactory::SearchFilter> filter)
{
    searchFilter = std::move(filter);
    if (searchFilter != nullptr)
        searchFilter->SetSearchText(GetSearchText().value_or(NK::UniString()));
}

void HierarchicalView::SetItemFactory(NK::Owner<TreeItemFactory> factory)
{
    itemFactory = std::move(factory);
}

void HierarchicalView::SetItemComparator(const TreeItemFactory::ItemComparator& comparator)
{
    if (itemFactory != nullptr)
        itemFactory->SetItemComparator(comparator);
}

const ModelItem* HierarchicalView::GetFirstNonSelectedItemAfterSelection() const
{
    const HierarchicalTableView* table = GetTable();
    return table != nullptr ? table->GetFirstNonSelectedItemAfterSelection() : nullptr;
}

bool HierarchicalView::ActivateTextEditModeOnSelectedNode(const NK::UniString& columnId)
{
    HierarchicalTableView* table = GetTable();
    return table != nullptr && table->ActivateTextEditModeOnSelectedNode(columnId);
}

HierarchicalTableView* HierarchicalView::GetTable() const
{
    HierarchicalTableView* table = GetResource().GetHierarchicalDataView();
    if (!NK_PRECOND(table != nullptr))
        LogAssertError(LogFile, __LINE__);
    return table;
}

// ---- states of the view ------------------------------------------------------------------

NK::Owner<View::ViewState> HierarchicalView::CreateDefaultState() const
{
    const HierarchicalTableView* table = GetTable();
    return NK::NewOwned<ViewState>(GetLayout() != nullptr ? GetLayout()->CreateDefaultState() : nullptr,
                                   table != nullptr ? table->GetColumnLayout() : QM::TableView::ColumnLayout());
}

NK::Owner<View::ViewState> HierarchicalView::GetState() const
{
    const HierarchicalTableView* table = GetTable();
    return NK::NewOwned<ViewState>(GetLayout() != nullptr ? GetLayout()->GetState() : nullptr,
                                   table != nullptr ? table->GetColumnLayout() : QM::TableView::ColumnLayout());
}

void HierarchicalView::ApplyState(const View::ViewState& state)
{
    if (const Layout::LayoutState* layoutState = state.GetLayoutState())
        ApplyLayoutState(*layoutState);
    ApplyColumnLayoutIfChanged(state);
}

void HierarchicalView::ApplyColumnLayoutIfChanged(const View::ViewState& state)
{
    const auto* own = dynamic_cast<const ViewState*>(&state);
    HierarchicalTableView* table = GetTable();
    if (own == nullptr || table == nullptr || own->GetColumnLayout() == table->GetColumnLayout())
        return;
    table->ApplyColumnLayout(own->GetColumnLayout());
}

void HierarchicalView::UpdateInMemoryViewState()
{
    // During a search every match is open; what the user had open is the expansion from before.
    if (expandStatesBeforeSearch != nullptr) {
        inMemoryState.SetExpandedIds(expandStatesBeforeSearch->GetExpandedIds());
        return;
    }
    if (const HierarchicalTableView* table = GetTable())
        inMemoryState.SetExpandedIds(table->GetExpandedItemIds());
}

// ---- selection ---------------------------------------------------------------------------

void HierarchicalView::EnableSelectionHandling()
{
    if (HierarchicalTableView* table = GetTable())
        table->SetUserDelegate(this);
}

void HierarchicalView::DisableSelectionHandling()
{
    if (HierarchicalTableView* table = GetTable())
        table->SetUserDelegate(nullptr);
}

Selection HierarchicalView::GetSelection() const
{
    const HierarchicalTableView* table = GetTable();
    return table != nullptr ? Selection(table->GetSelectedModelItems()) : Selection();
}

void HierarchicalView::SetSelection(const Selection& selection)
{
    HierarchicalTableView* table = GetTable();
    if (table == nullptr)
        return;
    NK::Array<NK::Guid> ids;
    HierarchicalTableView::GuidSet ancestorIds;
    for (const ModelItem* item : selection.GetItems()) {
        ids.Push(item->GetId());
        for (const ModelItem* parent = item->GetParent(); parent != nullptr; parent = parent->GetParent()) {
            if (!ancestorIds.Add(parent->GetId()))
                break;  // the rest of the path is in already
        }
    }
    table->SelectItems(ids, ancestorIds);
}

void HierarchicalView::SelectionChanged()
{
    SendSelectionChangedEvent();
}

// ---- rebuilding --------------------------------------------------------------------------

HierarchicalTableView::UpdateResult HierarchicalView::RefreshHierarchicalTableView()
{
    HierarchicalTableView* table = GetTable();
    if (!NK_ASSERT_TEXT(itemFactory != nullptr, "itemFactory != nullptr")) {
        LogAssertError(LogFile, __LINE__);
        // Rows left from an earlier forest would point at items that are deleted with it.
        return table != nullptr ? table->SetItems({}) : HierarchicalTableView::UpdateResult {};
    }
    if (table == nullptr)
        return {};

    const bool searching = searchFilter != nullptr && !searchFilter->GetSearchText().IsEmpty();
    if (searching && itemFilter != nullptr)
        itemFactory->SetItemFilter(NK::Owner<TreeItemFactory::Filter>(NK::NewOwned<CombinedTreeItemFilter>(*itemFilter, *searchFilter)));
    else if (searchFilter == nullptr || itemFilter != nullptr)
        itemFactory->SetItemFilter(static_cast<const TreeItemFactory::Filter*>(itemFilter.Get()));
    else
        itemFactory->SetItemFilter(static_cast<const TreeItemFactory::Filter*>(searchFilter.Get()));

    const NK::Array<NK::Owner<ModelItem>>* items = GetCurrentItems();
    NK::Array<NK::Owner<TreeItem>> forest =
        itemFactory->CreateTree(items != nullptr ? ModelItem::ToPtrArray(*items) : NK::Array<const ModelItem*>());
    return table->SetItems(ToRows(std::move(forest)));
}

template <typename Change>
void HierarchicalView::ChangeReportingOnce(Change&& change)
{
    const Selection before = GetSelection();
    DisableSelectionHandling();
    change();
    EnableSelectionHandling();
    if (GetSelection() != before)
        SendSelectionChangedEvent();
}

void HierarchicalView::Refresh()
{
    ChangeReportingOnce([this] {
        const HierarchicalTableView::UpdateResult result = RefreshHierarchicalTableView();
        RestoreExpansion(result);
        RestoreSelection(result);
    });
}

void HierarchicalView::ForgetItems()
{
    if (HierarchicalTableView* table = GetResource().GetHierarchicalDataView())
        table->SetItems({});
}

// ---- search ------------------------------------------------------------------------------

void HierarchicalView::SearchStarted(const QM::SearchEditChangeEvent&)
{
    HierarchicalTableView* table = GetTable();
    if (table == nullptr)
        return;
    if (!NK_ASSERT_TEXT(expandStatesBeforeSearch == nullptr, "expandStatesBeforeSearch == nullptr"))
        LogAssertError(LogFile, __LINE__);
    expandStatesBeforeSearch = NK::NewOwned<HierarchicalTableView::ExpandRestorer>(*table, table->GetExpandedItemIds());
    NK::Array<NK::Guid> selectedIds;
    for (const HierarchicalItemId& node : table->GetSelectedNodes())
        selectedIds.Push(node.id);
    HierarchicalTableView::GuidSet ancestorIds = table->GetHierarchicalDataProvider().GetAllAncestorsOfItems(selectedIds);
    selectionBeforeSearch =
        NK::NewOwned<HierarchicalTableView::SelectionRestorer>(*table, std::move(selectedIds), std::move(ancestorIds));
}

void HierarchicalView::SearchTextChanged(const QM::SearchEditChangeEvent& event)
{
    if (searchFilter != nullptr)
        searchFilter->SetSearchText(event.GetText());
    ChangeReportingOnce([this] {
        RefreshHierarchicalTableView();
        // Every match is shown with the path to it opened; what was open is kept for the end.
        if (HierarchicalTableView* table = GetTable())
            table->ExpandAllNodes();
    });
}

void HierarchicalView::SearchEnded(const QM::SearchEditChangeEvent&)
{
    if (searchFilter != nullptr)
        searchFilter->SetSearchText(NK::UniString());
    // The rebuild clears the selection before the kept one comes back: one event at most.
    ChangeReportingOnce([this] { EndSearch(); });
}

void HierarchicalView::EndSearch()
{
    const HierarchicalTableView::UpdateResult result = RefreshHierarchicalTableView();
    HierarchicalTableView* table = GetTable();
    if (table == nullptr)
        return;
    if (expandStatesBeforeSearch != nullptr) {
        expandStatesBeforeSearch->Restore();
        expandStatesBeforeSearch.Clear();
    } else {
        table->CollapseAllNodes();
        if (const NK::Array<NK::Owner<ModelItem>>* items = GetCurrentItems()) {
            for (const NK::Owner<ModelItem>& item : *items)
                table->ExpandItem(item->GetId());
        }
    }
    // A row picked during the search stays selected; a search left without picking one gives
    // back the selection from before it.
    const bool pickedDuringSearch =
        result.selectionRestorer != nullptr && !result.selectionRestorer->GetSelectedIds().IsEmpty();
    if (pickedDuringSearch || selectionBeforeSearch == nullptr)
        RestoreSelection(result);
    else
        selectionBeforeSearch->Restore();
    selectionBeforeSearch.Clear();
}

// ---- appearing ---------------------------------------------------------------------------

void HierarchicalView::WillAppear(const OpenData& openData)
{
    if (searchFilter != nullptr)
        searchFilter->SetSearchText(GetSearchText().value_or(NK::UniString()));
    View::WillAppear(openData);
    if (HierarchicalTableView* table = GetTable())
        table->WillAppear();
    Refresh();
    if (openData.viewState != nullptr)
        ApplyColumnLayoutIfChanged(*openData.viewState);
    if (HierarchicalTableView* table = GetTable()) {
        if (!IsSearchMode()) {
            if (const NK::Array<NK::Owner<ModelItem>>* items = GetCurrentItems())
                inMemoryState.InitStateIfNeeded(*items);
            table->RestoreExpandedItemsByIds(inMemoryState.GetExpandedIds());
        } else {
            // Shown in the middle of a search: every match opened, as while typing.
            table->ExpandAllNodes();
        }
    }
    SetSelection(openData.selection);
}

void HierarchicalView::WillDisappear()
{
    DisableSelectionHandling();
    View::WillDisappear();
    if (HierarchicalTableView* table = GetTable())
        table->WillDisappear();
    expandStatesBeforeSearch.Clear();
    selectionBeforeSearch.Clear();
}

}  // namespace WZ::Folderable::Views
