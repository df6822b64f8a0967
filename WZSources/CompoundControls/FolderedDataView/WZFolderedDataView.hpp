// WZ::Folderable::FolderedDataView: the compound control that shows a forest of model items in
// one of several interchangeable views, and sends its observers one selection-changed event per
// change, however many intermediate reports its views make.
//
// Controls: built over a panel and a rectangle, the data view makes the toolkit controls its
// views share (search field, hierarchical table, folder tree with splitter, list box, pop-up of
// parent folders, up button) and gives them to views and layouts as their resource; the views'
// layouts place them inside the data view's rectangle (InitRect, Move, Resize). Built without a
// panel it has no controls, for views that bring their own.
//
// Items and views: the data view owns the forest (SetItems takes it by value; every view borrows
// this one array) and the registered views, keyed by ViewMode; the current view is the one
// registered under the current mode. SetViewMode hides the shown view, keeps its state and shows
// the new one with the same selection and its own last state. ShowCurrentView shows the current
// view the first time (or again after ReadState).
//
// Selection: GetSelection asks the current view (empty without one); SetSelection, Refresh,
// SetItems and SetViewMode run under a selection-change guard, so each sends at most one event,
// and none when the selection ends where it started. Views report through ViewSelectionChanged,
// which notifies at once unless a guard is alive.
//
// State: CreateDefaultState (once, after the views are registered) makes the state that
// GetState returns; WriteState stores the shown view's state into it and writes it; ReadState
// reads a channel into a fresh copy and only on success takes it over and shows its mode, so a
// truncated or corrupted stream returns its error and leaves the data view as it was.
#pragma once

#include "NK/NKArray.hpp"
#include "NK/NKChannel.hpp"
#include "NK/NKEvents.hpp"
#include "NK/NKHashTable.hpp"
#include "NK/NKPointers.hpp"
#include "NK/NKTypes.hpp"
#include "QM/QMGeometry.hpp"
#include "WZSources/CompoundControls/FolderedDataView/Views/WZFDVLayoutResource.hpp"
#include "WZSources/CompoundControls/FolderedDataView/Views/WZFDVView.hpp"
#include "WZSources/CompoundControls/FolderedDataView/Views/WZFDVViewResource.hpp"
#include "WZSources/CompoundControls/FolderedDataView/WZFDVSelection.hpp"
#include "WZSources/CompoundControls/FolderedDataView/WZFDVSelectionChangeGuard.hpp"
#include "WZSources/CompoundControls/FolderedDataView/WZFolderableModelItem.hpp"

namespace QM {
class Panel;
}

namespace WZ::Folderable {

class FolderedDataViewObserver;

class FolderedDataView : public virtual LayoutResource,
                         public virtual Views::ViewResource,
                         private Views::View::Delegate {
public:
    // The key of a registered view. A new data view and a new state start in mode 1; the
    // tree-and-list view is registered under mode 3 (SetItems keeps its chosen folder). Which view
    // goes under which other value is the client's choice; the names are suggestions.
    enum class ViewMode : NK::Int16 {
        Initial = 1,
        Hierarchical = 1,
        FlatList = 2,
        TreeAndList = 3,
    };
    using ViewTable = NK::HashTable<ViewMode, NK::Owner<Views::View>>;
    class State;

    // A data view without toolkit controls.
    FolderedDataView();
    // Makes the controls inside the panel, all in rect and hidden until a view shows them.
    FolderedDataView(const QM::Panel& panel, const QM::Rect& rect);
    FolderedDataView(const FolderedDataView&) = delete;
    FolderedDataView& operator=(const FolderedDataView&) = delete;
    ~FolderedDataView() override;

    // Gives the view this data view's forest and this data view as its delegate, and keeps it
    // under the mode (a view registered there before is deleted; a shown one is hidden first).
    void RegisterView(ViewMode mode, NK::Owner<Views::View> view);
    bool HasView(ViewMode mode) const { return views.ContainsKey(mode); }
    Views::View* GetView(ViewMode mode) const;
    const ViewTable& GetViews() const noexcept { return views; }
    // The view registered under the current mode; null when there is none.
    Views::View* GetCurrentView() const { return GetView(viewMode); }

    // Switches to the view of the mode, carrying the selection and each view's state. Switching
    // to the mode that is shown does nothing.
    void SetViewMode(ViewMode mode);
    // Shows the current view if it is not shown yet.
    void ShowCurrentView();
    // True while the current view is shown.
    bool IsCurrentViewShown() const noexcept { return currentViewShown; }

    // Replaces the forest, under one selection-change guard: null entries are reported
    // ("newItems[i] != nullptr") and left out; the tree-and-list view's chosen folder is found
    // again in the new forest by its id; every other registered view forgets the old forest
    // (ForgetItems) and then the current view is refreshed. The old forest is deleted last, when
    // no view holds a pointer into it any more.
    void SetItems(NK::Array<NK::Owner<ModelItem>> newItems);
    const NK::Array<NK::Owner<ModelItem>>& GetItems() const noexcept { return items; }

    void Refresh();
    void SetSelection(const Selection& selection);
    Selection GetSelection() const;
    // The items of the control that has the focus within the current view.
    Selection GetSelectionOfCurrentControl() const;
    // Whether the current view is searching; needs a current view (false without one).
    bool IsSearchModeOnCurrentView() const;

    NK::Owner<SelectionChangeGuard> CreateSelectionGuard();
    bool IsSelectionGuardActive() const noexcept { return activeGuard != nullptr; }
    // What the current view calls when its selection changed: notifies every observer with the
    // current selection, unless a guard is alive (then the first guard decides at its release).
    // An exception from an observer is reported and goes no further; the other observers are
    // still notified.
    void ViewSelectionChanged() override;

    void AttachFolderedDataViewObserver(FolderedDataViewObserver& observer);
    void DetachFolderedDataViewObserver(FolderedDataViewObserver& observer);

    // The state: made once ("state == nullptr" is reported when there is one, which is then
    // replaced), holding every registered view's default state under its mode.
    void CreateDefaultState();
    // Null, reported ("state != nullptr"), before CreateDefaultState.
    State* GetState() const;
    // For each registered view with an in-memory state, InitStateIfNeeded with the forest.
    void CreateDefaultInMemoryViewStateIfNeeded();
    // Stores the shown view's state into the state, then writes the state. Without a state:
    // reported, -7001.
    NK::ErrCode WriteState(NK::OChannel& channel);
    // Reads into a copy of the state; on success takes it over and shows its mode (when a view
    // is shown) with its view state. On an error nothing changes. Without a state: reported,
    // -7001.
    NK::ErrCode ReadState(NK::IChannel& channel);

    // Geometry. InitRect takes the rectangle from the top-left of the data view's own item to
    // the bottom-right of the list box; it must be empty before ("rect.IsEmpty ()").
    void InitRect();
    void Move(short left, short top);
    void Resize(short width, short height);
    // The current view places its controls again.
    void ReLayoutNeeded();

    // The controls, for views and layouts (null for a data view without controls).
    HierarchicalTableView* GetHierarchicalDataView() const override;
    TreeView* GetTreeDataView() const override;
    UntypedListBox* GetListBoxDataView() const override;
    PopUpView* GetPopUpView() const override;
    QM::SearchEdit* GetSearchField() const override;
    QM::ListBox* GetListBox() const override;
    UntypedListBoxView* GetListBoxView() const override;
    QM::Button* GetUpButton() const override;
    QM::Rect GetRect() const override { return rect; }
    QM::Item* GetHierarchicalTable() const override;
    QM::TreeView* GetTreeView() const override;
    QM::PopUpControl* GetPopUpControl() const override;
    QM::Splitter* GetSplitter() const override;
    // The data view's own item: the frame that InitRect starts from.
    QM::Item* GetOwnItem() const noexcept { return controls != nullptr ? ownItem() : nullptr; }

protected:
    // Only sets the current mode; the views are not told.
    void SetViewModeNoRebuild(ViewMode mode) noexcept { viewMode = mode; }
    ViewMode GetViewMode() const noexcept { return viewMode; }
    // Makes the toolkit controls inside the panel (once).
    void RegisterQMItems(const QM::Panel& panel, const QM::Rect& initialRect);

private:
    friend class SelectionChangeGuard;
    friend class SelectionChangeGuard::FirstGuardImpl;
    struct Controls;

    QM::Item* ownItem() const;
    // Hides the shown view (keeping its state when asked) and shows the view of the mode.
    void SwitchView(ViewMode newMode, bool keepOldState);
    void HideShownView(bool keepState);
    void ShowView(ViewMode mode, const Selection& selection);
    // The state kept under the mode for the view, if there is a state.
    const Views::View::ViewState* GetStoredViewState(ViewMode mode) const;
    void KeepTreeAndListFolder(const NK::Array<NK::Owner<ModelItem>>& newItems);

    NK::Owner<Controls> controls;  // declared first: the views borrow them
    NK::EventSource observers;
    NK::Array<NK::Owner<ModelItem>> items;  // declared before the views, which borrow it
    ViewTable views;
    NK::Owner<State> state;
    ViewMode viewMode = ViewMode::Initial;
    bool currentViewShown = false;
    QM::Rect rect;
    SelectionChangeGuard* activeGuard = nullptr;  // the guard whose implementation is the first
};

}  // namespace WZ::Folderable
