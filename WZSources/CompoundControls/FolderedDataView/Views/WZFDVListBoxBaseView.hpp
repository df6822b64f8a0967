// WZ::Folderable::Views::ListBoxBaseView: what the list-based views of a foldered data view
// share: the list item factory and list search filter, rebuilding the list box of the view
// resource through its smart updater, the selection read from and written to the list, the
// search field's callbacks, and a view state of the layout's state followed by the list's
// columns. FlatListView, the flat view, shows every item of the forest, folders and leaves alike,
// in one list sorted by the factory's comparator.
//
// What the views promise:
// - A rebuild changes only the rows that differ and keeps the selection by id. The list's
//   selection callbacks are not passed on while the view rebuilds or selects by itself; instead
//   the view sends one selection event afterwards, and only when the selected ids changed.
// - A search filters the rows by the search filter (no filter: the rows stay unfiltered). Its end
//   brings back the rows; the selection is then the row picked during the search or, when none
//   was, the selection from before the search.
// - ListRefreshResult keeps drawing of the list switched off while it lives; its end switches
//   drawing on again and redraws the list once.
#pragma once

#include "NK/NKArray.hpp"
#include "NK/NKGuid.hpp"
#include "NK/NKPointers.hpp"
#include "QM/QMListBox.hpp"
#include "WZSources/CompoundControls/FolderedDataView/Views/WZFDVView.hpp"
#include "WZSources/CompoundControls/FolderedDataView/WZFolderableListBox.hpp"

namespace WZ::Folderable::Views {

class ListBoxBaseView : public View, protected QM::ListBoxObserver {
public:
    using SelectionKeeper = SmartListBoxUpdater::SelectionKeeper;
    using ColumnState = UntypedListBox::ColumnState;

    class ListRefreshResult {
    public:
        // Nothing to keep: the view has no list.
        ListRefreshResult() = default;
        ListRefreshResult(UntypedListBoxView::DrawSuspender drawGuard, SelectionKeeper keeper);
        ListRefreshResult(ListRefreshResult&&) noexcept = default;

        // Null when the view has no list.
        SelectionKeeper* GetSelectionKeeper() noexcept { return keeper ? &*keeper : nullptr; }

    private:
        // Declared first so that drawing comes back on after everything else is gone.
        NK::Optional<UntypedListBoxView::DrawSuspender> drawGuard;
        NK::Optional<SelectionKeeper> keeper;
    };

    // The layout's state, then the list's columns: a 16-bit count, then for every column its id
    // (16-bit), its visibility and its width (the 32 bits of the float), in column order.
    class ViewState : public View::ViewState {
    public:
        ViewState(NK::Owner<Layout::LayoutState> layoutState, ColumnState columns);
        ~ViewState() override;

        // A failing layout part returns its error, a column part that cannot be read whole the
        // channel's, a count past any real list or a width that is no pixel length (NaN,
        // infinite, negative, past 32767) -7003; on any failure the state is left as it was.
        NK::ErrCode Write(NK::OChannel& channel) const override;
        NK::ErrCode Read(NK::IChannel& channel) override;

        const ColumnState& GetColumnState() const noexcept { return columns; }

    private:
        ColumnState columns;
    };

    ListBoxBaseView(NK::Owner<Layout> layout, ViewResource& resource);
    ~ListBoxBaseView() override;

    void SetListItemFactory(NK::Owner<ListItemFactory> factory);
    ListItemFactory* GetListItemFactory() const noexcept { return listItemFactory.Get(); }
    // A new filter at once gets the search field's current text.
    void SetListItemSearchFilter(NK::Owner<ListItemFactory::SearchFilter> filter);
    ListItemFactory::SearchFilter* GetListItemSearchFilter() const noexcept { return searchFilter.Get(); }

    // The rows for these model items: in search mode narrowed by the search filter first, then
    // filtered, made and sorted by the factory. The caller owns them. Without a factory:
    // reported ("listItemFactory != nullptr"), no rows.
    NK::Array<const ListBoxItem*> CreateListBoxItems(const NK::Array<const ModelItem*>& items) const;
    // Shows the rows of these model items (reported, and the list emptied, without a factory;
    // nothing without a list).
    ListRefreshResult RefreshListBox(const NK::Array<const ModelItem*>& items);
    // Selects the kept ids that are still shown; true when the selection is not what was kept.
    bool RestoreSelection(SelectionKeeper& keeper);

    NK::Owner<View::ViewState> CreateDefaultState() const override;
    NK::Owner<View::ViewState> GetState() const override;
    void ApplyState(const View::ViewState& state) override;

    void EnableSelectionHandling() override;
    void DisableSelectionHandling() override;
    Selection GetSelection() const override;
    void WillAppear(const OpenData& openData) override;
    void WillDisappear() override;
    // Empties the list unless it is on display (then it is the shown view's to rebuild).
    void ForgetItems() override;

protected:
    // Makes the view deaf to its controls' selection callbacks while alive (pauses nest); the
    // owner compares the selection itself. Pausing never detaches, so it is safe inside a
    // control's own notification.
    class SelectionHandlingPause {
    public:
        explicit SelectionHandlingPause(ListBoxBaseView& view) : view(view) { ++view.pauseDepth; }
        ~SelectionHandlingPause() { --view.pauseDepth; }
        SelectionHandlingPause(const SelectionHandlingPause&) = delete;
        SelectionHandlingPause& operator=(const SelectionHandlingPause&) = delete;

    private:
        ListBoxBaseView& view;
    };

    UntypedListBox* GetList() const { return GetResource().GetListBoxDataView(); }
    // The ids of what GetSelection reports, read without touching model items, so that it is
    // safe while the forest is being replaced.
    virtual NK::Array<NK::Guid> GetSelectedIds() const;
    // Sends the selection event when the selected ids are no longer `before`.
    void SendSelectionChangedEventIfChanged(const NK::Array<NK::Guid>& before);
    // Selects the items in the list; one event at most.
    void SelectInList(const NK::Array<const ModelItem*>& items);
    // Takes the columns of the view state when they differ from the list's.
    void ApplyColumnsIfChanged(const View::ViewState* state);

    // Rebuilds what the view shows for the search field's current text.
    virtual void RefreshForSearch();
    // The list's selection changed by a user or another program.
    virtual void ListSelectionChanged(QM::Origin origin);

    void SearchStarted(const QM::SearchEditChangeEvent& event) override;
    void SearchTextChanged(const QM::SearchEditChangeEvent& event) override;
    void SearchEnded(const QM::SearchEditChangeEvent& event) override;

    // What the search remembered: the selected ids when it started, and whether a row was picked
    // while it ran. ForgetSearch clears both.
    const NK::Array<NK::Guid>& GetSelectionBeforeSearch() const noexcept { return selectionBeforeSearch; }
    bool IsSelectionPickedDuringSearch() const noexcept { return selectionPickedDuringSearch; }
    void ForgetSearch();
    // Whether the controls' selection callbacks reach the view now.
    bool IsHearingSelection() const noexcept { return selectionHandlingEnabled && pauseDepth == 0; }
    // Stops listening to the list box altogether (the view is left or destroyed).
    void StopObservingList();

private:
    void SelectionChanged(const QM::ListBoxSelectionEvent& event) override;
    void GiveSearchFilterTheFieldText();

    NK::Owner<ListItemFactory> listItemFactory;
    NK::Owner<ListItemFactory::SearchFilter> searchFilter;
    // Enabling attaches to the list box; disabling only stops hearing it, since it may happen
    // inside the list box's own notification.
    bool selectionHandlingEnabled = false;
    int pauseDepth = 0;
    QM::ListBox* observedListBox = nullptr;
    NK::Array<NK::Guid> selectionBeforeSearch;
    bool selectionPickedDuringSearch = false;
};

class FlatListView : public ListBoxBaseView {
public:
    FlatListView(NK::Owner<Layout> layout, ViewResource& resource);
    ~FlatListView() override;

    using ListBoxBaseView::RefreshListBox;
    // Shows the whole forest, flattened in pre-order and then sorted by the factory.
    ListRefreshResult RefreshListBox();

    void Refresh() override;
    void SetSelection(const Selection& selection) override;
    void WillAppear(const OpenData& openData) override;
    void WillDisappear() override;
};

}  // namespace WZ::Folderable::Views
