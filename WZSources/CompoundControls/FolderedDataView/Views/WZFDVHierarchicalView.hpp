// WZ::Folderable::Views::HierarchicalView: the view that shows the whole forest in the
// hierarchical table of its view resource, folders opening and closing, filtered by an optional
// item filter and by the search field.
//
// What it promises:
// - Refresh rebuilds the rows from the forest with the item factory and keeps the open folders
//   and the selection by id; it sends one selection event, and only when the selection differs
//   afterwards. Selection callbacks of the table are not passed on while it rebuilds.
// - A search keeps the expansion from before it, shows every match with the path to it opened,
//   and its end brings back the rows and the folders open before the search. The selection at the
//   end is the row picked during the search, or, when none was, the selection from before it.
//   Each change of the search text rebuilds the rows and leaves nothing selected. A view shown
//   in the middle of a search opens every match; ending that search (nothing was kept) opens the
//   first level only. Every search step sends one selection event at most, and none when the
//   selection ends where it started.
// - While another view is shown the open folders are kept in the in-memory state (the first time
//   the view is seen with items, the first level opens) and come back when the view appears again.
// - The view state is the layout's state followed by the table's column layout.
// - Without an item factory a rebuild is reported ("itemFactory != nullptr") and empties the
//   table, so that no row is left pointing into a forest that goes away.
#pragma once

#include "NK/NKPointers.hpp"
#include "QM/QMTableViewColumns.hpp"
#include "WZSources/CompoundControls/FolderedDataView/Views/WZFDVView.hpp"
#include "WZSources/CompoundControls/FolderedDataView/WZFolderableHierarchicalView.hpp"
#include "WZSources/CompoundControls/FolderedDataView/WZTreeItemFactory.hpp"

namespace WZ::Folderable::Views {

class HierarchicalView : public View, public HierarchicalTableView::UserDelegate {
public:
    class ViewState : public View::ViewState {
    public:
        ViewState(NK::Owner<Layout::LayoutState> layoutState, QM::TableView::ColumnLayout columnLayout);
        ~ViewState() override;

        // The base part, then the column layout. A failing base part returns the channel's error
        // and leaves the column layout untouched; so does a column layout that cannot be read.
        NK::ErrCode Write(NK::OChannel& channel) const override;
        NK::ErrCode Read(NK::IChannel& channel) override;

        const QM::TableView::ColumnLayout& GetColumnLayout() const noexcept { return columnLayout; }

    private:
        QM::TableView::ColumnLayout columnLayout;
    };

    // The ids of the open rows, kept while another view is shown.
    class InMemoryViewState : public View::InMemoryViewState {
    public:
        InMemoryViewState();
        ~InMemoryViewState() override;

        // The first time there are items (and no open ids were kept yet), the top-level items
        // are opened. Made once: folders the user closed later stay closed, even all of them.
        void InitStateIfNeeded(const NK::Array<NK::Owner<ModelItem>>& items) override;

        const HierarchicalTableView::GuidSet& GetExpandedIds() const noexcept { return expandedIds; }
        void SetExpandedIds(HierarchicalTableView::GuidSet ids) { expandedIds = std::move(ids); }

    private:
        HierarchicalTableView::GuidSet expandedIds;
        bool initialised = false;
    };

    HierarchicalView(NK::Owner<Layout> layout, ViewResource& resource);
    HierarchicalView(NK::Owner<Layout> layout, ViewResource& resource, NK::Owner<TreeItemFactory> itemFactory);
    ~HierarchicalView() override;

    // Takes effect at the next rebuild.
    void SetItemFilter(NK::Owner<TreeItemFactory::Filter> filter);
    // A new filter at once gets the search field's current text.
    void SetSearchFilter(NK::Owner<TreeItemFactory::SearchFilter> filter);
    void SetItemFactory(NK::Owner<TreeItemFactory> factory);
    // Handed to the item factory; takes effect at the next rebuild.
    void SetItemComparator(const TreeItemFactory::ItemComparator& comparator);

    const ModelItem* GetFirstNonSelectedItemAfterSelection() const;
    bool ActivateTextEditModeOnSelectedNode(const NK::UniString& columnId);

    // The view slots.
    NK::Owner<View::ViewState> CreateDefaultState() const override;
    // The layout's part and, when it differs from the table's, the column layout.
    void ApplyState(const View::ViewState& state) override;
    NK::Owner<View::ViewState> GetState() const override;
    View::InMemoryViewState* GetInMemoryViewState() override { return &inMemoryState; }
    void UpdateInMemoryViewState() override;
    void EnableSelectionHandling() override;
    void DisableSelectionHandling() override;
    Selection GetSelection() const override;
    void SetSelection(const Selection& selection) override;
    void Refresh() override;
    void WillAppear(const OpenData& openData) override;
    void WillDisappear() override;
    // Empties the table; the open folders stay in the in-memory state.
    void ForgetItems() override;

    // The table's selection changed (while selection handling is on).
    void SelectionChanged() override;

    // Whether a search is running in this view (the expansion before it is kept).
    bool HasExpandStatesBeforeSearch() const noexcept { return expandStatesBeforeSearch != nullptr; }

private:
    void SearchStarted(const QM::SearchEditChangeEvent& event) override;
    void SearchTextChanged(const QM::SearchEditChangeEvent& event) override;
    void SearchEnded(const QM::SearchEditChangeEvent& event) override;

    // The resource's table; reported when the resource has none.
    HierarchicalTableView* GetTable() const;
    // Builds the rows from the forest and gives them to the table; the result is empty (null
    // restorers) when nothing could be built.
    HierarchicalTableView::UpdateResult RefreshHierarchicalTableView();
    void ApplyColumnLayoutIfChanged(const View::ViewState& state);
    // Runs the change with the table's selection callbacks off, then sends one selection event
    // when the selection differs from the one before.
    template <typename Change>
    void ChangeReportingOnce(Change&& change);
    // Rebuilds without the search text and brings back the expansion and selection.
    void EndSearch();

    NK::Owner<TreeItemFactory::SearchFilter> searchFilter;
    NK::Owner<TreeItemFactory::Filter> itemFilter;
    NK::Owner<TreeItemFactory> itemFactory;
    NK::Owner<HierarchicalTableView::ExpandRestorer> expandStatesBeforeSearch;
    NK::Owner<HierarchicalTableView::SelectionRestorer> selectionBeforeSearch;
    InMemoryViewState inMemoryState;
};

}  // namespace WZ::Folderable::Views
