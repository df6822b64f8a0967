#define NK_SOURCE_PATH "WZSources\\CompoundControls\\FolderedDataView\\Views\\WZFDVTreeAndListView"
#include "WZSources/CompoundControls/FolderedDataView/Views/WZFDVTreeAndListView.hpp"

#include "NK/NKAssert.hpp"
#include "WZSources/CompoundControls/FolderedDataView/WZFolderableModelItem.hpp"
#include "WZSources/WZLoggedAssert.hpp"

namespace WZ::Folderable::Views {

namespace {

constexpr const char* LogFile = "WZFDVTreeAndListView";

// Draws the tree again only once the rebuild is done.
class TreeDrawSuspender {
public:
    explicit TreeDrawSuspender(QM::TreeView& tree) : tree(tree) { tree.DisableDraw(); }
    ~TreeDrawSuspender()
    {
        tree.EnableDraw();
        tree.Redraw();
    }
    TreeDrawSuspender(const TreeDrawSuspender&) = delete;
    TreeDrawSuspender& operator=(const TreeDrawSuspender&) = delete;

private:
    QM::TreeView& tree;
};

}  // namespace

// ---- focus tracking ---------------------------------------------------------------------

ListAndTreeFocusDelegate::~ListAndTreeFocusDelegate() = default;

ListAndTreeFocus::~ListAndTreeFocus()
{
    Disable();
}

void ListAndTreeFocus::SetControls(QM::Item* newTree, QM::Item* newList)
{
    const bool wasEnabled = enabled;
    Disable();
    tree = newTree;
    list = newList;
    if (wasEnabled)
        Enable();
}

void ListAndTreeFocus::Enable()
{
    if (enabled)
        return;
    enabled = true;
    if (tree != nullptr)
        tree->Attach(*this);
    if (list != nullptr && list != tree)
        list->Attach(*this);
}

void ListAndTreeFocus::Disable()
{
    if (!enabled)
        return;
    enabled = false;
    if (tree != nullptr)
        tree->Detach(*this);
    if (list != nullptr && list != tree)
        list->Detach(*this);
}

void ListAndTreeFocus::NotifyFocusChanged()
{
    if (delegate != nullptr)
        delegate->ListAndTreeFocusChanged();
}

void ListAndTreeFocus::ItemFocusChanged(const QM::FocusChangeEventArg& event)
{
    if (event.hasFocus)
        ItemFocusGained(event.source);
}

void ListAndTreeFocus::ItemFocusGained(const QM::Item& item)
{
    if (!NK_PRECOND_TEXT(enabled, "enabled")) {
        LogAssertError(LogFile, __LINE__);
        return;
    }
    if (&item != tree && &item != list)
        return;
    previousFocus = lastFocus;
    lastFocus = &item == tree ? Status::Tree : Status::List;
    NotifyFocusChanged();
}

// ---- pop-up item factory ----------------------------------------------------------------

TreeAndListView::PopUpViewItemFactory::~PopUpViewItemFactory() = default;

NK::Owner<PopUpItem> TreeAndListView::PopUpViewItemFactory::CreateItem(const ModelItem& item)
{
    if (names == nullptr)
        return NK::NewOwned<PopUpItem>(item, NK::UniString(item.GetId().ToString().c_str()), QM::Icon());
    const NK::Owner<TreeItem> named = names->CreateItem(item);
    return NK::NewOwned<PopUpItem>(item, named->GetDisplayName(), named->GetIcon().value_or(QM::Icon()));
}

NK::Array<NK::Owner<PopUpItem>> TreeAndListView::PopUpViewItemFactory::CreateItems(const NK::Array<const ModelItem*>& items)
{
    NK::Array<NK::Owner<PopUpItem>> entries;
    entries.SetCapacity(items.GetSize());
    for (const ModelItem* item : items)
        entries.Push(CreateItem(*item));
    return entries;
}

// ---- in-memory state --------------------------------------------------------------------

TreeAndListView::InMemoryViewState::~InMemoryViewState() = default;

void TreeAndListView::InMemoryViewState::InitStateIfNeeded(const NK::Array<NK::Owner<ModelItem>>& items)
{
    if (initialised || items.IsEmpty())
        return;
    initialised = true;
    if (!expandedIds.IsEmpty())
        return;
    for (const NK::Owner<ModelItem>& item : items)
        expandedIds.Add(item->GetId());
}

// ---- construction and factories ---------------------------------------------------------

TreeAndListView::TreeAndListView(NK::Owner<Layout> layout, ViewResource& resource)
    : ListBoxBaseView(std::move(layout), resource)
{
    focus.SetDelegate(this);
}

TreeAndListView::TreeAndListView(NK::Owner<Layout> layout, ViewResource& resource,
                                 NK::Owner<TreeItemFactory> treeItemFactory)
    : TreeAndListView(std::move(layout), resource)
{
    SetTreeItemFactory(std::move(treeItemFactory));
}

TreeAndListView::~TreeAndListView()
{
    DetachControls();
    StopObservingTree();
}

void TreeAndListView::StopObservingTree()
{
    if (observedTree != nullptr)
        observedTree->Detach(static_cast<QM::TreeViewObserver&>(*this));
    observedTree = nullptr;
}

void TreeAndListView::SetTreeItemFactory(NK::Owner<TreeItemFactory> factory)
{
    treeItemFactory = std::move(factory);
    // The default pop-up factory borrows the names of the tree factory it was made with.
    if (popUpItemFactoryIsDefault) {
        popUpItemFactory.Clear();
        popUpItemFactoryIsDefault = false;
    }
}

void TreeAndListView::SetPopUpItemFactory(NK::Owner<PopUpViewItemFactory> factory)
{
    popUpItemFactory = std::move(factory);
    popUpItemFactoryIsDefault = false;
}

// ---- rebuilding -------------------------------------------------------------------------

const ModelItem* TreeAndListView::GetFirstTopLevelItem() const
{
    if (const TreeView* tree = GetTree()) {
        const NK::Array<const TreeItem*> roots = tree->GetRootItems();
        if (!roots.IsEmpty())
            return &roots[0]->GetModel();
    }
    const NK::Array<NK::Owner<ModelItem>>* items = GetCurrentItems();
    return items != nullptr && !items->IsEmpty() ? (*items)[0].Get() : nullptr;
}

void TreeAndListView::ShowFolderInTree(const ModelItem& folder)
{
    TreeView* tree = GetTree();
    if (tree == nullptr)
        return;
    const int node = tree->GetNode(folder.GetId());
    if (node == QM::TreeView::NoItem)
        return;
    QM::TreeView& control = tree->GetControl();
    for (int parent = control.GetItem(node, QM::TreeView::Parent); parent > QM::TreeView::RootItem;
         parent = control.GetItem(parent, QM::TreeView::Parent))
        control.ExpandItem(parent);
    control.SelectItem(node);
}

void TreeAndListView::RefreshTreeAndPopup()
{
    TreeView* tree = GetTree();
    const NK::Array<NK::Owner<ModelItem>>* items = GetCurrentItems();
    if (tree == nullptr || items == nullptr)
        return;
    if (!NK_PRECOND_TEXT(treeItemFactory != nullptr, "treeItemFactory != nullptr")) {
        LogAssertError(LogFile, __LINE__);
        // No node or entry may be left pointing into a forest that goes away.
        tree->SetItems({});
        if (PopUpView* popUp = GetResource().GetPopUpView())
            popUp->SetItems({});
        return;
    }
    {
        TreeDrawSuspender drawing(tree->GetControl());
        SmartTreeViewUpdater::UpdateResult result = tree->SetItems(treeItemFactory->CreateTree(ModelItem::ToPtrArray(*items)));
        result.RestoreExpandeds();
        // The node the tree had selected comes first; only when it is gone (the updater may
        // then have selected an ancestor) does the remembered folder count, and without that
        // the first top-level folder is chosen.
        using RestoreResult = SmartTreeViewUpdater::UpdateResult::SelectionRestoreResult;
        if (result.RestoreSelection() != RestoreResult::SameItem) {
            if (treeSelection != nullptr && tree->HasItem(treeSelection->GetId())) {
                ShowFolderInTree(*treeSelection);
            } else {
                if (!NK_PRECOND_TEXT(items->GetSize() > 0, "currentItems->GetSize () > 0"))
                    LogAssertWarning(LogFile, __LINE__);
                if (const ModelItem* first = GetFirstTopLevelItem())
                    ShowFolderInTree(*first);
            }
        }
        const NK::Array<const ModelItem*> selectedTreeItems = tree->GetSelectedModelItems();
        if (!NK_ASSERT_TEXT(selectedTreeItems.GetSize() == 1, "selectedTreeItems.GetSize () == 1")) {
            LogAssertWarning(LogFile, __LINE__);
            treeSelection = selectedTreeItems.IsEmpty() ? nullptr : selectedTreeItems[0];
        } else {
            treeSelection = selectedTreeItems[0];
        }
    }
    RefreshParentItemsInPopUp();
    RefreshUpButtonStatus();
}

void TreeAndListView::RefreshListBox()
{
    const NK::Array<NK::Owner<ModelItem>>* items = GetCurrentItems();
    NK::Array<const ModelItem*> shown;
    if (IsSearchMode())
        shown = items != nullptr ? ModelItem::ToPtrArrayRecursive(*items) : NK::Array<const ModelItem*>();
    else if (treeSelection != nullptr)
        shown = treeSelection->GetChildrenPtr();
    ListRefreshResult result = ListBoxBaseView::RefreshListBox(shown);
    if (SelectionKeeper* keeper = result.GetSelectionKeeper())
        RestoreSelection(*keeper);
}

void TreeAndListView::RefreshParentItemsInPopUp()
{
    PopUpView* popUp = GetResource().GetPopUpView();
    if (popUp == nullptr)
        return;
    if (!NK_PRECOND_TEXT(treeSelection != nullptr, "treeSelection != nullptr")) {
        LogAssertWarning(LogFile, __LINE__);
        popUp->SetItems({});
        return;
    }
    if (!NK_PRECOND_TEXT(popUpItemFactory != nullptr, "popUpItemFactory != nullptr") || popUpItemFactoryIsDefault) {
        popUpItemFactory = NK::NewOwned<PopUpViewItemFactory>(treeItemFactory.Get());
        popUpItemFactoryIsDefault = true;
    }
    NK::Array<const ModelItem*> path;
    for (const ModelItem* folder = treeSelection; folder != nullptr; folder = folder->GetParent())
        path.Insert(0, folder);
    popUp->SetItems(popUpItemFactory->CreateItems(path));
}

void TreeAndListView::RefreshUpButtonStatus()
{
    if (QM::Button* up = GetResource().GetUpButton())
        up->SetStatus(treeSelection != nullptr && treeSelection->GetParent() != nullptr);
}

void TreeAndListView::ForgetItems()
{
    ListBoxBaseView::ForgetItems();
    // Called while the old forest still exists and the new one is current: the chosen folder is
    // found again by its id (the data view already did so for the view under mode 3).
    if (treeSelection != nullptr) {
        const NK::Array<NK::Owner<ModelItem>>* items = GetCurrentItems();
        treeSelection = items != nullptr ? FindModelItemById(*items, treeSelection->GetId()) : nullptr;
    }
    if (TreeView* tree = GetTree())
        tree->SetItems({});
    if (PopUpView* popUp = GetResource().GetPopUpView())
        popUp->SetItems({});
}

void TreeAndListView::Refresh()
{
    const NK::Array<NK::Guid> before = GetSelectedIds();
    {
        SelectionHandlingPause pause(*this);
        RefreshTreeAndPopup();
        RefreshListBox();
    }
    SendSelectionChangedEventIfChanged(before);
}

// ---- selection --------------------------------------------------------------------------

NK::Array<NK::Guid> TreeAndListView::GetSelectedIds() const
{
    NK::Array<NK::Guid> ids = ListBoxBaseView::GetSelectedIds();
    if (ids.IsEmpty() && !IsSearchMode() && treeSelection != nullptr)
        ids.Push(treeSelection->GetId());
    return ids;
}

Selection TreeAndListView::GetSelection() const
{
    Selection selection = ListBoxBaseView::GetSelection();
    if (selection.IsEmpty() && !IsSearchMode() && treeSelection != nullptr)
        return Selection {treeSelection};
    return selection;
}

NK::Array<const ModelItem*> TreeAndListView::GetItemsForCurrentControl() const
{
    if (focus.GetLastFocus() == ListAndTreeFocus::Status::Tree)
        return treeSelection != nullptr ? NK::Array<const ModelItem*> {treeSelection} : NK::Array<const ModelItem*>();
    return ListBoxBaseView::GetSelection().GetItems();
}

TreeAndListView::FolderAndSelection TreeAndListView::CalculateSelection(const Selection& selection) const
{
    if (selection.IsEmpty())
        return {GetFirstTopLevelItem(), Selection()};
    const ModelItem* first = selection.GetItems()[0];
    if (first->GetParent() != nullptr)
        return {first->GetParent(), selection};
    // A top-level item has no folder that lists it: it is left out, whether it is selected
    // alone or with others, and the first top-level folder is shown.
    NK::Array<const ModelItem*> rest = selection.GetItems();
    rest.Delete(0);
    return {GetFirstTopLevelItem(), Selection(std::move(rest))};
}

void TreeAndListView::ShowFolderAndSelection(const ModelItem* folder, const Selection& selection)
{
    FolderAndSelection shown = folder != nullptr ? FolderAndSelection {folder, selection} : CalculateSelection(selection);
    treeSelection = shown.first;
    if (treeSelection != nullptr) {
        ShowFolderInTree(*treeSelection);
        RefreshParentItemsInPopUp();
    } else if (PopUpView* popUp = GetResource().GetPopUpView()) {
        popUp->SetItems({});
    }
    RefreshUpButtonStatus();
    UntypedListBox* list = GetList();
    if (list == nullptr)
        return;
    UntypedListBoxView::DrawSuspender drawing(list->GetListBox());
    RefreshListBox();
    list->SelectItems(shown.second.GetItems());
}

void TreeAndListView::SetSelection(const ModelItem* folder, const Selection& selection)
{
    const NK::Array<NK::Guid> before = GetSelectedIds();
    {
        SelectionHandlingPause pause(*this);
        ShowFolderAndSelection(folder, selection);
    }
    SendSelectionChangedEventIfChanged(before);
}

void TreeAndListView::SetSelection(const Selection& selection)
{
    SetSelection(nullptr, selection);
}

void TreeAndListView::ChooseFolder(const ModelItem& folder)
{
    SetSelection(&folder, Selection());
}

// ---- controls and their events ----------------------------------------------------------

void TreeAndListView::EnableSelectionHandling()
{
    ListBoxBaseView::EnableSelectionHandling();
    QM::TreeView* control = GetTree() != nullptr ? &GetTree()->GetControl() : nullptr;
    if (control == observedTree)
        return;
    if (observedTree != nullptr)
        observedTree->Detach(static_cast<QM::TreeViewObserver&>(*this));
    if (control != nullptr)
        control->Attach(static_cast<QM::TreeViewObserver&>(*this));
    observedTree = control;
}

void TreeAndListView::DisableSelectionHandling()
{
    ListBoxBaseView::DisableSelectionHandling();
}

void TreeAndListView::AttachControls()
{
    focus.SetControls(GetTree() != nullptr ? &GetTree()->GetControl() : nullptr,
                      GetList() != nullptr ? &GetList()->GetListBox() : nullptr);
    focus.Enable();
    if (PopUpView* popUp = GetResource().GetPopUpView())
        popUp->SetDelegate(this);
    QM::Button* up = GetResource().GetUpButton();
    if (up != nullptr && up != observedUpButton) {
        up->Attach(static_cast<QM::ButtonObserver&>(*this));
        observedUpButton = up;
    }
}

void TreeAndListView::DetachControls()
{
    focus.Disable();
    if (PopUpView* popUp = GetResource().GetPopUpView())
        popUp->SetDelegate(nullptr);
    if (observedUpButton != nullptr)
        observedUpButton->Detach(static_cast<QM::ButtonObserver&>(*this));
    observedUpButton = nullptr;
}

void TreeAndListView::SelectionChanged(const QM::TreeViewSelectionEvent& event)
{
    if (!IsHearingSelection())
        return;
    TreeView* tree = GetTree();
    if (!NK_PRECOND_TEXT(tree != nullptr && tree->GetTreeView() == &event.source,
                         "resource.GetTreeDataView ()->GetTreeView () == ev.GetSource ()")) {
        LogAssertError(LogFile, __LINE__);
        return;
    }
    const NK::Array<NK::Guid> before = GetSelectedIds();
    const NK::Array<const ModelItem*> treeItems = tree->GetSelectedModelItems();
    SelectionHandlingPause pause(*this);
    if (!treeItems.IsEmpty()) {
        if (!NK_ASSERT_TEXT(treeItems.GetSize() == 1, "treeItems.GetSize () == 1"))
            LogAssertWarning(LogFile, __LINE__);
        treeSelection = treeItems[0];
        RefreshParentItemsInPopUp();
        RefreshUpButtonStatus();
        RefreshListBox();
    }
    // Working in the tree takes the focus from the list, whose selection then no longer counts.
    if (focus.GetLastFocus() == ListAndTreeFocus::Status::List && focus.IsEnabled()) {
        focus.SetLastFocus(ListAndTreeFocus::Status::Tree);
        if (UntypedListBox* list = GetList())
            list->GetListBox().DeselectItem(0);
    }
    SendSelectionChangedEventIfChanged(before);
}

void TreeAndListView::ButtonClicked(const QM::ButtonClickEvent& event)
{
    if (!NK_PRECOND_TEXT(GetResource().GetUpButton() == event.GetSource(), "resource.GetUpButton () == ev.GetSource ()")) {
        LogAssertError(LogFile, __LINE__);
        return;
    }
    const ModelItem* parentFolder = treeSelection != nullptr ? treeSelection->GetParent() : nullptr;
    if (!NK_PRECOND_TEXT(parentFolder != nullptr, "parentFolder != nullptr")) {
        LogAssertWarning(LogFile, __LINE__);
        return;
    }
    ChooseFolder(*parentFolder);
}

void TreeAndListView::PopUpViewSelectionChanged(const PopUpItem& item)
{
    // The entry's item belongs to the path that is about to be replaced.
    const ModelItem& folder = item.GetModel();
    ChooseFolder(folder);
}

void TreeAndListView::ListAndTreeFocusChanged()
{
    const NK::Array<NK::Guid> before = GetSelectedIds();
    if (focus.GetLastFocus() == ListAndTreeFocus::Status::Tree) {
        if (UntypedListBox* list = GetList()) {
            SelectionHandlingPause pause(*this);
            list->GetListBox().DeselectItem(0);
        }
    }
    // Focus moving between the two controls changes what the current control's selection is
    // (the folder or the rows), so it is reported even when the rows stay selected.
    if (focus.GetPreviousFocus() != focus.GetLastFocus())
        SendSelectionChangedEvent();
    else
        SendSelectionChangedEventIfChanged(before);
}

void TreeAndListView::ListSelectionChanged(QM::Origin origin)
{
    // A user working in the list has it in hand, even where clicks do not move the focus.
    if (origin == QM::Origin::User && focus.IsEnabled())
        focus.SetLastFocus(ListAndTreeFocus::Status::List);
    ListBoxBaseView::ListSelectionChanged(origin);
}

// ---- search -----------------------------------------------------------------------------

void TreeAndListView::RefreshForSearch()
{
    const NK::Array<NK::Guid> before = GetSelectedIds();
    {
        SelectionHandlingPause pause(*this);
        RefreshListBox();
    }
    SendSelectionChangedEventIfChanged(before);
}

void TreeAndListView::SearchEnded(const QM::SearchEditChangeEvent&)
{
    // The item picked during the search is shown in its own folder afterwards.
    const Selection picked = IsSelectionPickedDuringSearch() ? ListBoxBaseView::GetSelection() : Selection();
    if (ListItemFactory::SearchFilter* filter = GetListItemSearchFilter())
        filter->SetSearchText({});
    const NK::Array<NK::Guid> before = GetSelectedIds();
    {
        SelectionHandlingPause pause(*this);
        if (!picked.IsEmpty()) {
            ShowFolderAndSelection(nullptr, picked);
        } else {
            RefreshListBox();
            if (UntypedListBox* list = GetList())
                list->SelectItems(GetSelectionBeforeSearch());
        }
    }
    ForgetSearch();
    SendSelectionChangedEventIfChanged(before);
}

// ---- appearing --------------------------------------------------------------------------

void TreeAndListView::UpdateInMemoryViewState()
{
    if (const TreeView* tree = GetTree())
        inMemoryState.SetExpandedIds(tree->GetExpandedItemIds());
}

void TreeAndListView::WillAppear(const OpenData& openData)
{
    ListBoxBaseView::WillAppear(openData);
    ApplyColumnsIfChanged(openData.viewState);
    AttachControls();
    {
        SelectionHandlingPause pause(*this);
        EnableSelectionHandling();
        if (const NK::Array<NK::Owner<ModelItem>>* items = GetCurrentItems())
            inMemoryState.InitStateIfNeeded(*items);
        RefreshTreeAndPopup();
        if (TreeView* tree = GetTree())
            tree->RestoreExpandedItemsByIds(inMemoryState.GetExpandedIds());
        // With nothing to show, the folder chosen when the view was last seen stays chosen.
        ShowFolderAndSelection(openData.selection.IsEmpty() ? treeSelection : nullptr, openData.selection);
        if (UntypedListBox* list = GetList())
            list->WillAppear();
    }
}

void TreeAndListView::WillDisappear()
{
    DisableSelectionHandling();
    DetachControls();
    StopObservingTree();
    ListBoxBaseView::WillDisappear();
    if (UntypedListBox* list = GetList())
        list->WillDisappear();
}

}  // namespace WZ::Folderable::Views
