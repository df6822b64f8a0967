// WZ::Folderable::FolderedDataView: the compound control that shows a forest of model items in
// one of several interchangeable views, and sends its observers one selection-changed event per
// change, however many intermediate reports its views make.
//
// The data view owns the forest (SetItems takes it by value; every view borrows this one array)
// and the registered views, keyed by ViewMode; the current view is the one registered under the
// current mode. Selection: GetSelection asks the current view (empty without one); SetSelection
// and Refresh run the current view's operation under a selection-change guard, so each sends at
// most one event, and none when the selection ends where it started. Views report through
// ViewSelectionChanged, which notifies at once unless a guard is alive.
#pragma once

#include "NK/NKArray.hpp"
#include "NK/NKEvents.hpp"
#include "NK/NKHashTable.hpp"
#include "NK/NKPointers.hpp"
#include "NK/NKTypes.hpp"
#include "WZSources/CompoundControls/FolderedDataView/Views/WZFDVView.hpp"
#include "WZSources/CompoundControls/FolderedDataView/WZFDVSelection.hpp"
#include "WZSources/CompoundControls/FolderedDataView/WZFDVSelectionChangeGuard.hpp"
#include "WZSources/CompoundControls/FolderedDataView/WZFolderableModelItem.hpp"

namespace WZ::Folderable {

class FolderedDataViewObserver;

class FolderedDataView : private Views::View::Delegate {
public:
    // The key of a registered view. A new data view starts in mode 1; the tree-and-list view is
    // registered under mode 3. Which view goes under which other value is the client's choice.
    enum class ViewMode : NK::Int16 {
        Initial = 1,
        TreeAndList = 3,
    };
    using ViewTable = NK::HashTable<ViewMode, NK::Owner<Views::View>>;

    FolderedDataView();
    FolderedDataView(const FolderedDataView&) = delete;
    FolderedDataView& operator=(const FolderedDataView&) = delete;
    ~FolderedDataView() override;

    // Gives the view this data view's forest and this data view as its delegate, and keeps it
    // under the mode (a view registered there before is deleted).
    void RegisterView(ViewMode mode, NK::Owner<Views::View> view);
    bool HasView(ViewMode mode) const { return views.ContainsKey(mode); }
    Views::View* GetView(ViewMode mode) const;
    const ViewTable& GetViews() const noexcept { return views; }
    // The view registered under the current mode; null when there is none.
    Views::View* GetCurrentView() const { return GetView(viewMode); }

    // Replaces the forest (the old one is deleted with all its items) and, when any view is
    // registered, refreshes under a selection-change guard.
    void SetItems(NK::Array<NK::Owner<ModelItem>> newItems);
    const NK::Array<NK::Owner<ModelItem>>& GetItems() const noexcept { return items; }

    void Refresh();
    void SetSelection(const Selection& selection);
    Selection GetSelection() const;
    // The items of the control that has the focus within the current view.
    Selection GetSelectionOfCurrentControl() const;

    NK::Owner<SelectionChangeGuard> CreateSelectionGuard();
    bool IsSelectionGuardActive() const noexcept { return activeGuard != nullptr; }
    // What the current view calls when its selection changed: notifies every observer with the
    // current selection, unless a guard is alive (then the first guard decides at its release).
    void ViewSelectionChanged() override;

    void AttachFolderedDataViewObserver(FolderedDataViewObserver& observer);
    void DetachFolderedDataViewObserver(FolderedDataViewObserver& observer);

protected:
    // Only sets the current mode; the views are not told.
    void SetViewModeNoRebuild(ViewMode mode) noexcept { viewMode = mode; }
    ViewMode GetViewMode() const noexcept { return viewMode; }

private:
    friend class SelectionChangeGuard;
    friend class SelectionChangeGuard::FirstGuardImpl;

    NK::EventSource observers;
    NK::Array<NK::Owner<ModelItem>> items;  // declared before the views, which borrow it
    ViewTable views;
    ViewMode viewMode = ViewMode::Initial;
    SelectionChangeGuard* activeGuard = nullptr;  // the guard whose implementation is the first
};

}  // namespace WZ::Folderable
