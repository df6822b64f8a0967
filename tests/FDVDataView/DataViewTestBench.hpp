// A test bench for the whole foldered data view: a dialog with one data view whose controls are
// shared by a hierarchical view (mode 1), a flat list view (mode 2) and a tree-and-list view
// (mode 3), each with its layout; row and folder factories named after the model items, search
// filters over the items' names, an observer that records the selection events, and an output
// channel that fails after a number of bytes.
#pragma once

#include "FolderedDataView/FDVTestModel.hpp"

#include "NK/NKMemoryChannel.hpp"
#include "QM/QMButton.hpp"
#include "QM/QMDialog.hpp"
#include "QM/QMListBox.hpp"
#include "QM/QMPopUpControl.hpp"
#include "QM/QMSearchEdit.hpp"
#include "QM/QMSplitter.hpp"
#include "QM/QMTreeView.hpp"
#include "WZSources/ColumnModel/WZColumn.hpp"
#include "WZSources/CompoundControls/FolderedDataView/Views/WZFDVHierarchicalView.hpp"
#include "WZSources/CompoundControls/FolderedDataView/Views/WZFDVLayouts.hpp"
#include "WZSources/CompoundControls/FolderedDataView/Views/WZFDVListBoxBaseView.hpp"
#include "WZSources/CompoundControls/FolderedDataView/Views/WZFDVTreeAndListLayout.hpp"
#include "WZSources/CompoundControls/FolderedDataView/Views/WZFDVTreeAndListView.hpp"
#include "WZSources/CompoundControls/FolderedDataView/WZFolderableHierarchicalTreeItem.hpp"
#include "WZSources/CompoundControls/FolderedDataView/WZFolderableHierarchicalView.hpp"
#include "WZSources/CompoundControls/FolderedDataView/WZFolderableListBox.hpp"
#include "WZSources/CompoundControls/FolderedDataView/WZFolderableTreeView.hpp"
#include "WZSources/CompoundControls/FolderedDataView/WZFolderedDataView.hpp"
#include "WZSources/CompoundControls/FolderedDataView/WZFolderedDataViewObserver.hpp"
#include "WZSources/CompoundControls/FolderedDataView/WZFolderedDataViewState.hpp"
#include "WZSources/CompoundControls/FolderedDataView/WZTreeItemFactory.hpp"

#include <stdexcept>
#include <string>
#include <vector>

namespace FDVDataViewTest {

using namespace FDVTest;
using WZ::Folderable::FlatListLayout;
using WZ::Folderable::FolderedDataView;
using WZ::Folderable::HierarchicalLayout;
using WZ::Folderable::ListBoxItem;
using WZ::Folderable::ListItemFactory;
using WZ::Folderable::Selection;
using WZ::Folderable::TreeAndListLayout;
using WZ::Folderable::TreeItem;
using WZ::Folderable::TreeItemFactory;
using WZ::Folderable::Views::FlatListView;
using WZ::Folderable::Views::HierarchicalView;
using WZ::Folderable::Views::TreeAndListView;
using ViewMode = FolderedDataView::ViewMode;

inline NK::Array<NK::UniString> NameTexts(const ModelItem& item)
{
    return {NK::UniString(AsNamed(item).GetName())};
}

class TableRow : public WZ::Folderable::HierarchicalTreeItem {
public:
    TableRow(const ModelItem& model, const std::string& name)
        : HierarchicalTreeItem(model, NK::UniString(name), NK::Optional<QM::Icon>(), QM::Font::Plain,
                               NK::Optional<QM::Color>(), NK::Optional<QM::Color>(), NK::Optional<NK::UniString>())
    {
    }
};

class TableRowFactory : public TreeItemFactory {
public:
    NK::Owner<TreeItem> CreateItem(const ModelItem& item) override
    {
        return NK::NewOwned<TableRow>(item, AsNamed(item).GetName());
    }
};

class TreeNameSearch : public TreeItemFactory::SearchFilter {
public:
    NK::Array<NK::UniString> GetSearchTexts(const ModelItem& item) const override { return NameTexts(item); }
};

class ListRow : public ListBoxItem {
public:
    ListRow(const ModelItem& model, std::string name) : ListBoxItem(model.GetId()), name(std::move(name)) {}
    bool IsEqual(const WZ::Diffable& other) const override
    {
        auto* row = dynamic_cast<const ListRow*>(&other);
        return row != nullptr && row->name == name;
    }
    std::string name;
};

class ListRowFactory : public ListItemFactory {
public:
    ListRowFactory()
    {
        SetComparator([](const ListBoxItem* a, const ListBoxItem* b) {
            return static_cast<const ListRow*>(a)->name < static_cast<const ListRow*>(b)->name;
        });
    }
    const ListBoxItem* CreateItem(const ModelItem& item) override { return new ListRow(item, AsNamed(item).GetName()); }
};

class ListNameSearch : public ListItemFactory::SearchFilter {
public:
    NK::Array<NK::UniString> GetSearchTexts(const ModelItem& item) const override { return NameTexts(item); }
};

// Folders only: the tree of the tree-and-list view.
class FolderFactory : public TreeItemFactory {
public:
    class FoldersOnly : public Filter {
    public:
        Status GetStatus(const ModelItem& item) const override
        {
            return item.GetChildren().IsEmpty() ? Status::Excluded : Status::Included;
        }
    };
    FolderFactory() { SetItemFilter(NK::Owner<Filter>(NK::NewOwned<FoldersOnly>())); }
    NK::Owner<TreeItem> CreateItem(const ModelItem& item) override
    {
        return NK::NewOwned<TreeItem>(item, NK::UniString(AsNamed(item).GetName()), NK::Optional<QM::Icon>(),
                                      QM::Font::Plain, NK::Optional<QM::Color>(), NK::Optional<QM::Color>(),
                                      NK::Optional<NK::UniString>());
    }
};

class EventRecorder : public WZ::Folderable::FolderedDataViewObserver {
public:
    explicit EventRecorder(FolderedDataView& dataView) : FolderedDataViewObserver(dataView) {}
    void SelectionChanged(const Selection& selection) override { events.push_back(Names(selection.GetItems())); }
    std::vector<std::string> events;
};

// A recipe collection: Recipes(Vegetables(Peppers, Spinach(Dumplings)), Stews), Nibbles(Muffins)
inline std::vector<Node> SampleForest()
{
    return {Node("Recipes", {Node("Vegetables", {Node("Peppers"), Node("Spinach", {Node("Dumplings")})}), Node("Stews")}),
            Node("Nibbles", {Node("Muffins")})};
}

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
                                                           NK::NewOwned<TableRowFactory>());
        hierarchical->SetSearchFilter(NK::NewOwned<TreeNameSearch>());
        dataView.RegisterView(ViewMode::Hierarchical, std::move(hierarchical));

        auto flat = NK::NewOwned<FlatListView>(NK::NewOwned<FlatListLayout>(dataView), dataView);
        flat->SetListItemFactory(NK::NewOwned<ListRowFactory>());
        flat->SetListItemSearchFilter(NK::NewOwned<ListNameSearch>());
        dataView.RegisterView(ViewMode::FlatList, std::move(flat));

        auto treeAndList = NK::NewOwned<TreeAndListView>(NK::NewOwned<TreeAndListLayout>(dataView), dataView,
                                                         NK::NewOwned<FolderFactory>());
        treeAndList->SetListItemFactory(NK::NewOwned<ListRowFactory>());
        treeAndList->SetListItemSearchFilter(NK::NewOwned<ListNameSearch>());
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
