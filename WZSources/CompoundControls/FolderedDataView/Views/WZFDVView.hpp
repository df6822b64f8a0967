// WZ::Folderable::Views::View: the base of the interchangeable views of a foldered data view.
// A view presents the data view's forest (which it borrows through SetCurrentItems) in the
// controls of its view resource, placed by its layout, and reports selection changes to its
// delegate (the data view) through SendSelectionChangedEvent.
//
// The slots the data view uses:
// - CreateDefaultState / GetState / ApplyState: the persistent view state (by default the
//   layout's state; views add their own, e.g. columns);
// - GetInMemoryViewState / UpdateInMemoryViewState: what a view keeps while another view is
//   shown (open folders); none by default;
// - EnableSelectionHandling / DisableSelectionHandling: connect to or disconnect from the
//   controls' selection callbacks (a view switches them off while it rebuilds; the outermost
//   selection-change guard switches them on again);
// - GetSelection / SetSelection / Refresh;
// - WillAppear / WillDisappear: the view is shown with a selection and a view state to apply,
//   or is left. The base attaches the view to the search field while it is shown (its search
//   callbacks come from there) and, when it is left, first keeps its in-memory state;
// - GetItemsForCurrentControl: the items of the control that has the focus (by default the
//   selection);
// - ForgetItems: the data view is about to delete the forest and will not refresh this view:
//   the view lets go of every pointer into it (rows, chosen folder, entries) and builds from the
//   new forest when it is refreshed or shown again. A view never holds a pointer into a forest
//   that it was not given last.
#pragma once

#include "NK/NKArray.hpp"
#include "NK/NKChannel.hpp"
#include "NK/NKPointers.hpp"
#include "NK/NKUniString.hpp"
#include "QM/QMSearchEdit.hpp"
#include "WZSources/CompoundControls/FolderedDataView/Views/WZFDVLayout.hpp"
#include "WZSources/CompoundControls/FolderedDataView/Views/WZFDVViewResource.hpp"
#include "WZSources/CompoundControls/FolderedDataView/WZFDVSelection.hpp"

namespace WZ::Folderable {

class ModelItem;

namespace Views {

class View : protected QM::SearchEditObserver {
public:
    // What a view reports to: the foldered data view.
    class Delegate {
    public:
        virtual void ViewSelectionChanged() = 0;
        virtual ~Delegate();
    };

    // The persistent part of a view: its layout's state (null for a view without layout),
    // written and read in that order. Views add their own parts after it.
    class ViewState {
    public:
        explicit ViewState(NK::Owner<Layout::LayoutState> layoutState);
        ViewState(const ViewState&) = delete;
        ViewState& operator=(const ViewState&) = delete;
        virtual ~ViewState();

        virtual NK::ErrCode Write(NK::OChannel& channel) const;
        virtual NK::ErrCode Read(NK::IChannel& channel);

        const Layout::LayoutState* GetLayoutState() const noexcept { return layoutState.Get(); }
        Layout::LayoutState* GetLayoutState() noexcept { return layoutState.Get(); }

    protected:
        // For readers that read the layout part into a copy and keep it only when their own part
        // was read whole.
        void SetLayoutState(NK::Owner<Layout::LayoutState> state) noexcept { layoutState = std::move(state); }
        // Reads the layout part into a copy of this state's (null when it has none, after
        // checking the channel), leaving this state as it is.
        NK::ErrCode ReadLayoutStateCopy(NK::IChannel& channel, NK::Owner<Layout::LayoutState>& copy) const;

    private:
        NK::Owner<Layout::LayoutState> layoutState;
    };

    // What a view keeps only while the program runs (open folders while another view is shown).
    class InMemoryViewState {
    public:
        InMemoryViewState() = default;
        InMemoryViewState(const InMemoryViewState&) = delete;
        InMemoryViewState& operator=(const InMemoryViewState&) = delete;
        virtual ~InMemoryViewState();
        // Fills a state seen for the first time from the forest; nothing by default.
        virtual void InitStateIfNeeded(const NK::Array<NK::Owner<ModelItem>>& items);
    };

    // What a view gets when it is shown.
    struct OpenData {
        Selection selection;
        const ViewState* viewState = nullptr;  // borrowed; may be null
    };

    // A view without layout and without controls.
    View();
    View(NK::Owner<Layout> layout, ViewResource& resource);
    View(const View&) = delete;
    View& operator=(const View&) = delete;
    ~View() override;

    virtual NK::Owner<ViewState> CreateDefaultState() const;
    virtual void ApplyState(const ViewState& state);
    virtual NK::Owner<ViewState> GetState() const;
    virtual InMemoryViewState* GetInMemoryViewState();
    virtual void UpdateInMemoryViewState();
    virtual void EnableSelectionHandling() = 0;
    virtual void DisableSelectionHandling() = 0;
    virtual Selection GetSelection() const = 0;
    virtual void SetSelection(const Selection& selection) = 0;
    virtual void Refresh() = 0;
    virtual void WillAppear(const OpenData& openData);
    virtual void WillDisappear();
    virtual NK::Array<const ModelItem*> GetItemsForCurrentControl() const;
    // Nothing by default: a view without controls holds nothing of the forest.
    virtual void ForgetItems();

    // The search field's text; empty (no value) when the resource has no search field.
    NK::Optional<NK::UniString> GetSearchText() const;
    // True when the search field holds a text.
    bool IsSearchMode() const;
    // Clears the search field, if there is one, and when the view is shown ends its search as a
    // user's clearing would (the rows and selection from before the search come back).
    void LeaveSearchMode();
    // Hands the state to the layout (nothing without a layout).
    void ApplyLayoutState(const Layout::LayoutState& layoutState);
    // Places the controls again in the resource's rectangle; reported ("!rect.IsEmpty ()") while
    // that rectangle is still empty.
    void ReLayoutNeeded();

    // Set by the data view when the view is registered.
    void SetDelegate(Delegate* newDelegate) noexcept { delegate = newDelegate; }
    void SetCurrentItems(const NK::Array<NK::Owner<ModelItem>>* items) noexcept { currentItems = items; }

    Layout* GetLayout() const noexcept { return layout.Get(); }
    ViewResource& GetResource() const noexcept { return resource; }
    // True between WillAppear and WillDisappear.
    bool IsShown() const noexcept { return shown; }

protected:
    // The forest of the data view; null until the view is registered.
    const NK::Array<NK::Owner<ModelItem>>* GetCurrentItems() const noexcept { return currentItems; }
    // Tells the delegate that the view's selection changed; nothing without a delegate.
    void SendSelectionChangedEvent();

private:
    NK::Owner<Layout> layout;
    Delegate* delegate = nullptr;
    ViewResource& resource;
    const NK::Array<NK::Owner<ModelItem>>* currentItems = nullptr;
    QM::SearchEdit* observedSearchField = nullptr;  // the field this view is attached to
    bool shown = false;
};

}  // namespace Views
}  // namespace WZ::Folderable
