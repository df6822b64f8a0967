// The data view's views, items, selection and state, with the selection-change guard that
// belongs to it. Its controls and geometry are in WZFolderedDataViewControls.cpp.
#define NK_SOURCE_PATH "WZSources\\CompoundControls\\FolderedDataView\\WZFolderedDataView"
#include "WZSources/CompoundControls/FolderedDataView/WZFolderedDataView.hpp"

#include "NK/NKAssert.hpp"
#include "WZSources/CompoundControls/FolderedDataView/Views/WZFDVTreeAndListView.hpp"
#include "WZSources/CompoundControls/FolderedDataView/WZFolderedDataViewObserver.hpp"
#include "WZSources/CompoundControls/FolderedDataView/WZFolderedDataViewState.hpp"
#include "WZSources/WZLoggedAssert.hpp"

#include <exception>
#include <string>

namespace WZ::Folderable {

namespace {

constexpr const char* LogFile = "WZFolderedDataView";

// What a view or an observer threw while the data view told of a selection change: reported,
// and the data view goes on as if the call had returned.
void ReportCallbackFailure(const char* what, NK::UInt32 line)
{
    (void)NK_ASSERT_TEXT(false, std::string("selection callback threw: ") + what);
    LogAssertError(LogFile, line);
}

}  // namespace

// ---- the guard ---------------------------------------------------------------------------

SelectionChangeGuard::GuardImpl::~GuardImpl() = default;

SelectionChangeGuard::FirstGuardImpl::FirstGuardImpl(FolderedDataView& dataView, SelectionChangeGuard& owner)
    : dataView(dataView), owner(owner), selectionBefore(dataView.GetSelection())
{
    dataView.activeGuard = &owner;
}

SelectionChangeGuard::FirstGuardImpl::~FirstGuardImpl()
{
    // Guards are released innermost first; anything else leaves a guard pointing at a dead one.
    if (dataView.activeGuard != &owner)
        NK_UNREACHABLE_TEXT("dataView.activeGuard == &owner");
    if (!nestedGuards.IsEmpty())
        NK_UNREACHABLE_TEXT("nestedGuards.IsEmpty ()");
    // The view's and the observers' code runs from here; nothing it throws may leave a
    // destructor, and the data view must come out without an active guard whatever happens.
    try {
        Views::View* view = dataView.GetCurrentView();
        if (view == nullptr) {
            dataView.activeGuard = nullptr;
            return;
        }
        // Views switch selection handling off while they rebuild; the outermost guard switches it
        // back on once every rebuild under it is over.
        view->EnableSelectionHandling();
        const Selection selectionAfter = view->GetSelection();
        dataView.activeGuard = nullptr;
        if (selectionAfter != selectionBefore)
            dataView.ViewSelectionChanged();
    } catch (const std::exception& error) {
        dataView.activeGuard = nullptr;
        ReportCallbackFailure(error.what(), __LINE__);
    } catch (...) {
        dataView.activeGuard = nullptr;
        ReportCallbackFailure("an exception that is no std::exception", __LINE__);
    }
}

void SelectionChangeGuard::FirstGuardImpl::RegisterNested(GuardImpl* impl)
{
    if (!NK_ASSERT_TEXT(nestedGuards.Add(impl), "nestedGuards.Add (impl)"))
        LogAssertError(LogFile, __LINE__);
}

void SelectionChangeGuard::FirstGuardImpl::UnregisterNested(GuardImpl* impl)
{
    if (!NK_ASSERT_TEXT(nestedGuards.Delete(impl), "nestedGuards.Delete (impl)"))
        LogAssertError(LogFile, __LINE__);
}

SelectionChangeGuard::NestedGuardImpl::NestedGuardImpl(GuardImpl& first) : first(&first)
{
    first.RegisterNested(this);
}

SelectionChangeGuard::NestedGuardImpl::~NestedGuardImpl()
{
    first->UnregisterNested(this);
}

void SelectionChangeGuard::NestedGuardImpl::RegisterNested(GuardImpl* impl)
{
    first->RegisterNested(impl);
}

void SelectionChangeGuard::NestedGuardImpl::UnregisterNested(GuardImpl* impl)
{
    first->UnregisterNested(impl);
}

SelectionChangeGuard::SelectionChangeGuard(FolderedDataView& dataView)
{
    if (dataView.activeGuard != nullptr)
        impl = NK::NewOwned<NestedGuardImpl>(dataView.activeGuard->GetImpl());
    else
        impl = NK::NewOwned<FirstGuardImpl>(dataView, *this);
}

SelectionChangeGuard::~SelectionChangeGuard() = default;

bool SelectionChangeGuard::IsFirst() const noexcept
{
    return dynamic_cast<const FirstGuardImpl*>(impl.Get()) != nullptr;
}

// ---- views ------------------------------------------------------------------------------

void FolderedDataView::RegisterView(ViewMode mode, NK::Owner<Views::View> view)
{
    if (mode == viewMode && currentViewShown)
        HideShownView(false);
    view->SetCurrentItems(&items);
    view->SetDelegate(this);
    if (view->GetLayout() != nullptr)
        view->GetLayout()->Hide();
    views.Put(mode, std::move(view));
}

Views::View* FolderedDataView::GetView(ViewMode mode) const
{
    const NK::Owner<Views::View>* view = views.GetPtr(mode);
    return view != nullptr ? view->Get() : nullptr;
}

void FolderedDataView::SetViewMode(ViewMode mode)
{
    if (mode == viewMode && currentViewShown)
        return;
    SwitchView(mode, true);
}

void FolderedDataView::ShowCurrentView()
{
    if (!currentViewShown)
        SwitchView(viewMode, true);
}

void FolderedDataView::SwitchView(ViewMode newMode, bool keepOldState)
{
    NK::Owner<SelectionChangeGuard> guard = CreateSelectionGuard();
    const Selection selection = currentViewShown ? GetSelection() : Selection();
    if (currentViewShown)
        HideShownView(keepOldState);
    viewMode = newMode;
    if (state != nullptr)
        state->SetViewMode(newMode);
    ShowView(newMode, selection);
}

void FolderedDataView::HideShownView(bool keepState)
{
    Views::View* view = GetCurrentView();
    currentViewShown = false;
    if (view == nullptr)
        return;
    view->WillDisappear();
    if (view->GetLayout() != nullptr)
        view->GetLayout()->Hide();
    if (keepState && state != nullptr)
        state->PutViewState(viewMode, view->GetState());
}

void FolderedDataView::ShowView(ViewMode mode, const Selection& selection)
{
    Views::View* view = GetView(mode);
    if (view == nullptr)
        return;
    const Views::View::ViewState* viewState = GetStoredViewState(mode);
    if (viewState != nullptr && viewState->GetLayoutState() != nullptr)
        view->ApplyLayoutState(*viewState->GetLayoutState());
    if (Views::View::InMemoryViewState* inMemory = view->GetInMemoryViewState())
        inMemory->InitStateIfNeeded(items);
    if (view->GetLayout() != nullptr)
        view->GetLayout()->Show();
    currentViewShown = true;
    view->WillAppear(Views::View::OpenData {selection, viewState});
    if (!rect.IsEmpty())
        view->ReLayoutNeeded();
}

const Views::View::ViewState* FolderedDataView::GetStoredViewState(ViewMode mode) const
{
    return state != nullptr ? state->GetViewState(mode) : nullptr;
}

// ---- items and selection ----------------------------------------------------------------

void FolderedDataView::SetItems(NK::Array<NK::Owner<ModelItem>> newItems)
{
    NK::Array<NK::Owner<ModelItem>> forest;
    forest.SetCapacity(newItems.GetSize());
    for (NK::Owner<ModelItem>& item : newItems) {
        if (NK_PRECOND_TEXT(item != nullptr, "newItems[i] != nullptr"))
            forest.Push(std::move(item));
        else
            LogAssertError(LogFile, __LINE__);
    }
    // The old forest lives until the guard below has compared the selections and every view has
    // let go of it, so that nothing read on the way points into freed items.
    NK::Array<NK::Owner<ModelItem>> oldItems = std::move(items);
    NK::Owner<SelectionChangeGuard> guard = CreateSelectionGuard();
    KeepTreeAndListFolder(forest);
    items = std::move(forest);
    CreateDefaultInMemoryViewStateIfNeeded();
    // The views that are not refreshed forget the old forest before the current one is rebuilt:
    // controls they share with it are then filled from the new forest last.
    const Views::View* current = GetCurrentView();
    for (const auto& entry : views)
        if (entry.second.Get() != current)
            entry.second->ForgetItems();
    if (current != nullptr)
        Refresh();
}

void FolderedDataView::KeepTreeAndListFolder(const NK::Array<NK::Owner<ModelItem>>& newItems)
{
    auto* treeAndList = dynamic_cast<Views::TreeAndListView*>(GetView(ViewMode::TreeAndList));
    if (treeAndList == nullptr || treeAndList->GetTreeSelection() == nullptr)
        return;
    treeAndList->SetTreeSelection(FindModelItemById(newItems, treeAndList->GetTreeSelection()->GetId()));
}

void FolderedDataView::Refresh()
{
    NK::Owner<SelectionChangeGuard> guard = CreateSelectionGuard();
    if (Views::View* view = GetCurrentView())
        view->Refresh();
}

void FolderedDataView::SetSelection(const Selection& selection)
{
    NK::Owner<SelectionChangeGuard> guard = CreateSelectionGuard();
    if (Views::View* view = GetCurrentView())
        view->SetSelection(selection);
}

Selection FolderedDataView::GetSelection() const
{
    const Views::View* view = GetCurrentView();
    return view != nullptr ? view->GetSelection() : Selection();
}

Selection FolderedDataView::GetSelectionOfCurrentControl() const
{
    const Views::View* view = GetCurrentView();
    return view != nullptr ? Selection(view->GetItemsForCurrentControl()) : Selection();
}

bool FolderedDataView::IsSearchModeOnCurrentView() const
{
    const Views::View* view = GetCurrentView();
    if (!NK_PRECOND_TEXT(view != nullptr, "GetCurrentView () != nullptr")) {
        LogAssertError(LogFile, __LINE__);
        return false;
    }
    return view->IsSearchMode();
}

NK::Owner<SelectionChangeGuard> FolderedDataView::CreateSelectionGuard()
{
    // The guard's constructor is private to the data view; NewOwned could not reach it.
    return NK::Owner<SelectionChangeGuard>(new SelectionChangeGuard(*this));
}

void FolderedDataView::ViewSelectionChanged()
{
    if (activeGuard != nullptr)
        return;
    const Selection selection = GetSelection();
    // One observer's failure is its own: the others still hear of the change.
    observers.NotifyAll<FolderedDataViewObserver>([&selection](FolderedDataViewObserver& observer) {
        try {
            observer.SelectionChanged(selection);
        } catch (const std::exception& error) {
            ReportCallbackFailure(error.what(), __LINE__);
        } catch (...) {
            ReportCallbackFailure("an exception that is no std::exception", __LINE__);
        }
    });
}

void FolderedDataView::AttachFolderedDataViewObserver(FolderedDataViewObserver& observer)
{
    observers.Attach(observer);
}

void FolderedDataView::DetachFolderedDataViewObserver(FolderedDataViewObserver& observer)
{
    observers.Detach(observer);
}

// ---- state ------------------------------------------------------------------------------

void FolderedDataView::CreateDefaultState()
{
    if (!NK_ASSERT_TEXT(state == nullptr, "state == nullptr"))
        LogAssertError(LogFile, __LINE__);
    auto newState = NK::NewOwned<State>();
    newState->SetViewMode(viewMode);
    for (const auto& entry : views)
        newState->PutViewState(entry.first, entry.second->CreateDefaultState());
    state = std::move(newState);
}

FolderedDataView::State* FolderedDataView::GetState() const
{
    if (!NK_ASSERT_TEXT(state != nullptr, "state != nullptr"))
        LogAssertError(LogFile, __LINE__);
    return state.Get();
}

void FolderedDataView::CreateDefaultInMemoryViewStateIfNeeded()
{
    for (const auto& entry : views)
        if (Views::View::InMemoryViewState* inMemory = entry.second->GetInMemoryViewState())
            inMemory->InitStateIfNeeded(items);
}

NK::ErrCode FolderedDataView::WriteState(NK::OChannel& channel)
{
    if (GetState() == nullptr)
        return NK::ErrNullChannelOrElement;
    if (Views::View* view = GetCurrentView(); view != nullptr && currentViewShown)
        state->PutViewState(viewMode, view->GetState());
    state->SetViewMode(viewMode);
    return state->Write(channel);
}

NK::ErrCode FolderedDataView::ReadState(NK::IChannel& channel)
{
    if (GetState() == nullptr)
        return NK::ErrNullChannelOrElement;
    // A copy of the same shape: each view's default state under the modes the state holds.
    auto readState = NK::NewOwned<State>();
    readState->SetViewMode(state->GetViewMode());
    for (const auto& entry : state->GetViewStates())
        if (const Views::View* view = GetView(entry.first))
            readState->PutViewState(entry.first, view->CreateDefaultState());
    if (NK::ErrCode error = readState->Read(channel); error != NK::NoError)
        return error;

    NK::Owner<SelectionChangeGuard> guard = CreateSelectionGuard();
    const bool wasShown = currentViewShown;
    const Selection selection = wasShown ? GetSelection() : Selection();
    // The shown view's state is not kept: the read one replaces it.
    if (wasShown)
        HideShownView(false);
    state = std::move(readState);
    viewMode = state->GetViewMode();
    if (wasShown)
        ShowView(viewMode, selection);
    return NK::NoError;
}

}  // namespace WZ::Folderable
