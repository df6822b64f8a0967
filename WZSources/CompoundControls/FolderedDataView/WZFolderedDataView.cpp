// The data view's selection handling, with the selection-change guard that belongs to it.
#define NK_SOURCE_PATH "WZSources\\CompoundControls\\FolderedDataView\\WZFolderedDataView"
#include "WZSources/CompoundControls/FolderedDataView/WZFolderedDataView.hpp"

#include "NK/NKAssert.hpp"
#include "WZSources/CompoundControls/FolderedDataView/WZFolderedDataViewObserver.hpp"
#include "WZSources/WZLoggedAssert.hpp"

namespace WZ::Folderable {

namespace {

constexpr const char* LogFile = "WZFolderedDataView";

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

// ---- the data view -----------------------------------------------------------------------

FolderedDataView::FolderedDataView() = default;

FolderedDataView::~FolderedDataView()
{
    // A guard outliving its data view would release into freed memory.
    if (!NK_ASSERT_TEXT(activeGuard == nullptr, "activeGuard == nullptr"))
        LogAssertError(LogFile, __LINE__);
}

void FolderedDataView::RegisterView(ViewMode mode, NK::Owner<Views::View> view)
{
    view->SetCurrentItems(&items);
    view->SetDelegate(this);
    views.Put(mode, std::move(view));
}

Views::View* FolderedDataView::GetView(ViewMode mode) const
{
    const NK::Owner<Views::View>* view = views.GetPtr(mode);
    return view != nullptr ? view->Get() : nullptr;
}

void FolderedDataView::SetItems(NK::Array<NK::Owner<ModelItem>> newItems)
{
    items = std::move(newItems);
    if (!views.IsEmpty())
        Refresh();
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
    observers.NotifyAll<FolderedDataViewObserver>(
        [&selection](FolderedDataViewObserver& observer) { observer.SelectionChanged(selection); });
}

void FolderedDataView::AttachFolderedDataViewObserver(FolderedDataViewObserver& observer)
{
    observers.Attach(observer);
}

void FolderedDataView::DetachFolderedDataViewObserver(FolderedDataViewObserver& observer)
{
    observers.Detach(observer);
}

}  // namespace WZ::Folderable
