// A test bench for the whole foldered data view: a dialog with one data view whose controls are
// shared by a hierarchical view (mode 1), a flat list view (mode 2) and a tree-and-list view
// (mode 3), each with its layout and with the row factories and search filters of the views' own
// benches; an observer that records the selection events, and an output channel that fails after
// a number of bytes.
#pragma once

#include "FDVHierarchical/HierarchicalTestBench.hpp"
#include "FDVLists/ListsTestBench.hpp"

#include "NK/NKMemoryChannel.hpp"
#include "QM/QMSplitter.hpp"
#include "WZSources/CompoundControls/FolderedDataView/Views/WZFDVLayouts.hpp"
#include "WZSources/CompoundControls/FolderedDataView/Views/WZFDVTreeAndListLayout.hpp"
#include "WZSources/CompoundControls/FolderedDataView/WZFolderedDataView.hpp"
#include "WZSources/CompoundControls/FolderedDataView/WZFolderedDataViewObserver.hpp"
#include "WZSources/CompoundControls/FolderedDataView/WZFolderedDataViewState.hpp"

#include <stdexcept>
#include <string>
#include <vector>

namespace FDVDataViewTest {

using namespace FDVTest;
using FDVListsTest::SampleForest;
using WZ::Folderable::FlatListLayout;
using WZ::Folderable::FolderedDataView;
using WZ::Folderable::HierarchicalLayout;
using WZ::Folderable::ListBoxItem;
using WZ::Folderable::Selection;
using WZ::Folderable::TreeAndListLayout;
using WZ::Folderable::Views::FlatListView;
using WZ::Folderable::Views::HierarchicalView;
using WZ::Folderable::Views::TreeAndListView;
using ViewMode = FolderedDataView::ViewMode;
using ListRow = FDVListsTest::NamedRow;

class EventRecorder : public WZ::Folderable::FolderedDataViewObserver {
public:
    explicit EventRecorder(FolderedDataView& dataView) : FolderedDataViewObserver(dataView) {}
    void SelectionChanged(const Selection& selection) override { events.push_back(Names(selection.GetItems())); }
    std::vector<std::string> events;
};

// A channel that takes `capacity` bytes and fails every write past them with WriteFailure.
class FailingOChannel : public NK::OChannel {
public:
    static constexpr NK::ErrCode WriteFailure = -4711;
    explicit FailingOChannel(std::size_t capacity) : capacity(capacity) {}

protected:
    NK::ErrCode WriteRaw(const void*, NK::UIndex count) override
    {
        if (written + count > capacity)
            return Fail(WriteFailure);
        written += count;
        return NK::NoError;
    }

private:
    std::size_t capacity;
    std::size_t written = 0;
};

// A dialog with a data view of all three views.
struct Bench {
    explicit Bench(bool withViews = true)
    {
        WZ::Folderable::UntypedListBox& list = *dataView.GetListBoxDataView();
        list.AddTextColumn(1, "Name", NK::NewOwned<WZ::ProportionalColumn>(1.0f, 100),
                           [](const ListBoxItem& row) { return NK::UniString(static_cast<const ListRow&>(row).name); });
        list.SetupColumns();
        if (withViews)
            RegisterViews();
    }

    void RegisterViews()
    {
        auto hierarchical = NK::NewOwned<HierarchicalView>(NK::NewOwned<HierarchicalLayout>(dataView), dataView,
                                                           NK::NewOwned<FDVHierarchicalTest::RowFactory>());
        hierarchical->SetSearchFilter(NK::NewOwned<FDVHierarchicalTest::NameSearchFilter>());
        dataView.RegisterView(ViewMode::Hierarchical, std::move(hierarchical));

        auto flat = NK::NewOwned<FlatListView>(NK::NewOwned<FlatListLayout>(dataView), dataView);
        flat->SetListItemFactory(NK::NewOwned<FDVListsTest::RowFactory>());
        flat->SetListItemSearchFilter(NK::NewOwned<FDVListsTest::TextSearchFilter>());
        dataView.RegisterView(ViewMode::FlatList, std::move(flat));

        auto treeAndList = NK::NewOwned<TreeAndListView>(NK::NewOwned<TreeAndListLayout>(dataView), dataView,
                                                         NK::NewOwned<FDVListsTest::FolderFactory>());
        treeAndList->SetListItemFactory(NK::NewOwned<FDVListsTest::RowFactory>());
        treeAndList->SetListItemSearchFilter(NK::NewOwned<FDVListsTest::TextSearchFilter>());
        treeAndList->SetPopUpItemFactory(
            NK::NewOwned<TreeAndListView::PopUpViewItemFactory>(treeAndList->GetTreeItemFactory()));
        dataView.RegisterView(ViewMode::TreeAndList, std::move(treeAndList));
    }

    HierarchicalView& Hierarchical() { return static_cast<HierarchicalView&>(*dataView.GetView(ViewMode::Hierarchical)); }
    TreeAndListView& TreeAndList() { return static_cast<TreeAndListView&>(*dataView.GetView(ViewMode::TreeAndList)); }
    WZ::Folderable::HierarchicalTableView& Table() { return *dataView.GetHierarchicalDataView(); }
    QM::ListBox& ListBox() { return *dataView.GetListBox(); }
    QM::SearchEdit& SearchField() { return *dataView.GetSearchField(); }
    QM::TreeView& Tree() { return *dataView.GetTreeView(); }

    const ModelItem* Find(const std::string& name) const
    {
        const ModelItem* found = WZ::Folderable::FindModelItemById(dataView.GetItems(), IdOf(name));
        if (found == nullptr)
            throw std::runtime_error("no item " + name);
        return found;
    }
    Selection SelectionOf(const std::vector<std::string>& names) const
    {
        NK::Array<const ModelItem*> selected;
        for (const std::string& name : names)
            selected.Push(Find(name));
        return Selection(selected);
    }
    std::string Selected() const { return Names(dataView.GetSelection().GetItems()); }
    // The list's rows, in row order.
    std::string ListRows() { return Names(dataView.GetListBoxDataView()->GetModelItems()); }
    // Whether the current view shows a row for the item.
    bool Shows(const std::string& name)
    {
        if (dataView.GetCurrentView() == dataView.GetView(ViewMode::Hierarchical))
            return Table().ContainsNode(IdOf(name));
        return dataView.GetListBoxDataView()->GetRow(IdOf(name)) > 0;
    }

    QM::Dialog dialog {"Recipes", 640, 420};
    FolderedDataView dataView {dialog, QM::Rect(10, 10, 630, 410)};
};

}  // namespace FDVDataViewTest
