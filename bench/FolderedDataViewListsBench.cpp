// The list-based views of the foldered data view over a document archive of 100 cabinets x 10
// drawers x 30 documents (33,100 items; a list box holds at most 32,767 rows, so the flat view
// shows the 30,000 documents and the tree-and-list view a folder at a time).
// - Flat view: a refresh of an unchanged archive (diff only, nothing written), a search keystroke
//   that narrows the list to about a third and back, and beside both the clear-and-refill of the
//   same rows, made by the same factory (what a view without the smart updater would do).
// - Tree-and-list view: a user's click on another sub-folder (pop-up, up button and a 30-row
//   list rebuilt) and a full refresh (tree of 1,100 folders and the list).
// The counters: rows shown after the operation.
#include "QM/QMDialog.hpp"
#include "QM/QMListBox.hpp"
#include "QM/QMPopUpControl.hpp"
#include "QM/QMSearchEdit.hpp"
#include "QM/QMTreeView.hpp"
#include "WZSources/ColumnModel/WZColumn.hpp"
#include "WZSources/CompoundControls/FolderedDataView/Views/WZFDVListBoxBaseView.hpp"
#include "WZSources/CompoundControls/FolderedDataView/Views/WZFDVTreeAndListView.hpp"
#include "WZSources/CompoundControls/FolderedDataView/WZFolderableModelItem.hpp"

#include <benchmark/benchmark.h>

#include <string>

namespace {

using namespace WZ::Folderable;
using Views::FlatListView;
using Views::TreeAndListView;
using Views::View;

const char* const Kinds[] = {"Invoice", "Letter", "Receipt", "Contract", "Report", "Memo", "Statement", "Certificate", "Manual", "Notice"};

class ArchiveItem : public ModelItem {
public:
    ArchiveItem(NK::UInt64 number, const std::string& name) : id(NK::Guid::FromNumber(0xFDC, number)), name(name) {}
    NK::Guid GetId() const override { return id; }
    const NK::UniString& GetName() const { return name; }

private:
    NK::Guid id;
    NK::UniString name;  // kept as the rows show it, as a client of the toolkit would
};

const ArchiveItem& AsArchived(const ModelItem& item)
{
    return static_cast<const ArchiveItem&>(item);
}

class Row : public ListBoxItem {
public:
    Row(const ModelItem& model) : ListBoxItem(model.GetId()), name(AsArchived(model).GetName()) {}
    bool IsEqual(const WZ::Diffable& other) const override { return static_cast<const Row&>(other).name == name; }
    NK::UniString name;
};

class RowFactory : public ListItemFactory {
public:
    RowFactory()
    {
        SetComparator([](const ListBoxItem* a, const ListBoxItem* b) {
            return static_cast<const Row*>(a)->name < static_cast<const Row*>(b)->name;
        });
    }
    const ListBoxItem* CreateItem(const ModelItem& item) override { return new Row(item); }
};

// Leaves only: the flat view lists the items, not their folders.
class LeavesOnly : public ListItemFactory::Filter {
public:
    Status GetStatus(const ModelItem& item) const override
    {
        return item.GetChildren().IsEmpty() ? Status::Included : Status::Excluded;
    }
};

class NameSearch : public ListItemFactory::SearchFilter {
public:
    NK::Array<NK::UniString> GetSearchTexts(const ModelItem& item) const override
    {
        return {AsArchived(item).GetName()};
    }
};

class FolderFactory : public TreeItemFactory {
public:
    class Folders : public Filter {
    public:
        Status GetStatus(const ModelItem& item) const override
        {
            return item.GetChildren().IsEmpty() ? Status::Excluded : Status::Included;
        }
    };
    FolderFactory() { SetItemFilter(NK::Owner<Filter>(NK::NewOwned<Folders>())); }
    NK::Owner<TreeItem> CreateItem(const ModelItem& item) override
    {
        return NK::NewOwned<TreeItem>(item, AsArchived(item).GetName(), NK::Optional<QM::Icon>(),
                                      QM::Font::Plain, NK::Optional<QM::Color>(), NK::Optional<QM::Color>(),
                                      NK::Optional<NK::UniString>());
    }
};

NK::Array<NK::Owner<ModelItem>> MakeForest()
{
    NK::Array<NK::Owner<ModelItem>> forest;
    NK::UInt64 number = 0;
    for (int f = 0; f < 100; ++f) {
        auto folder = NK::NewOwned<ArchiveItem>(++number, "Cabinet " + std::to_string(f));
        for (int s = 0; s < 10; ++s) {
            auto sub = NK::NewOwned<ArchiveItem>(++number, "Drawer " + std::to_string(f) + "." + std::to_string(s));
            for (int i = 0; i < 30; ++i)
                sub->AddChild(NK::NewOwned<ArchiveItem>(
                    ++number, std::string(Kinds[i % 10]) + " " + std::to_string(f) + "-" + std::to_string(s) + "-" + std::to_string(i)));
            folder->AddChild(std::move(sub));
        }
        forest.Push(std::move(folder));
    }
    return forest;
}

class Resource : public Views::ViewResource {
public:
    Resource()
    {
        list.AddTextColumn(1, "Name", NK::NewOwned<WZ::ProportionalColumn>(1.0f, 100),
                           [](const ListBoxItem& row) { return static_cast<const Row&>(row).name; });
        list.SetupColumns();
    }
    HierarchicalTableView* GetHierarchicalDataView() const override { return nullptr; }
    WZ::Folderable::TreeView* GetTreeDataView() const override { return &tree; }
    UntypedListBox* GetListBoxDataView() const override { return &list; }
    PopUpView* GetPopUpView() const override { return &popUp; }
    QM::SearchEdit* GetSearchField() const override { return &searchField; }
    QM::ListBox* GetListBox() const override { return &listBox; }
    QM::Button* GetUpButton() const override { return &upButton; }
    QM::Rect GetRect() const override { return QM::Rect(0, 0, 600, 400); }

    QM::Dialog dialog {"Archive", 600, 400};
    mutable QM::SearchEdit searchField {dialog, QM::Rect(0, 0, 600, 20)};
    mutable QM::TreeView treeView {dialog, QM::Rect(0, 24, 200, 376)};
    mutable QM::PopUpControl popUpControl {dialog, QM::Rect(204, 24, 350, 20)};
    mutable QM::Button upButton {dialog, QM::Rect(558, 24, 42, 20), "Up"};
    mutable QM::ListBox listBox {dialog, QM::Rect(204, 48, 396, 352), QM::ListBox::SelectionType::Multi};
    mutable WZ::Folderable::TreeView tree {treeView};
    mutable PopUpView popUp {popUpControl};
    mutable UntypedListBox list {listBox};
};

struct FlatBench {
    FlatBench() : forest(MakeForest()), view(nullptr, resource)
    {
        view.SetCurrentItems(&forest);
        auto factory = NK::NewOwned<RowFactory>();
        factory->SetFilter(NK::NewOwned<LeavesOnly>());
        view.SetListItemFactory(std::move(factory));
        view.SetListItemSearchFilter(NK::NewOwned<NameSearch>());
        view.WillAppear(View::OpenData {});
    }
    Resource resource;
    NK::Array<NK::Owner<ModelItem>> forest;
    FlatListView view;
};

void BM_FlatRefreshUnchanged(benchmark::State& state)
{
    FlatBench bench;
    for (auto _ : state)
        bench.view.Refresh();
    state.counters["rows"] = bench.resource.listBox.GetItemCount();
}
BENCHMARK(BM_FlatRefreshUnchanged)->Unit(benchmark::kMillisecond);

void BM_FlatClearAndRefill(benchmark::State& state)
{
    FlatBench bench;
    RowFactory factory;
    factory.SetFilter(NK::NewOwned<LeavesOnly>());
    NK::Array<const ListBoxItem*> shown;
    for (auto _ : state) {
        NK::Array<const ListBoxItem*> rows = factory.CreateItems(ModelItem::ToPtrArrayRecursive(bench.forest));
        QM::ListBox& listBox = bench.resource.listBox;
        listBox.DisableDraw();
        listBox.DeleteAllItems();
        for (const ListBoxItem* row : rows)
            listBox.SetTabItemText(listBox.AppendItem(), 1, static_cast<const Row*>(row)->name);
        listBox.EnableDraw();
        for (const ListBoxItem* row : shown)
            delete row;
        shown = std::move(rows);
    }
    for (const ListBoxItem* row : shown)
        delete row;
    state.counters["rows"] = bench.resource.listBox.GetItemCount();
}
BENCHMARK(BM_FlatClearAndRefill)->Unit(benchmark::kMillisecond);

void BM_FlatSearchKeystroke(benchmark::State& state)
{
    FlatBench bench;
    for (auto _ : state) {
        bench.resource.searchField.SimulateUserType("3");  // one keystroke narrows to the numbers with a 3
        bench.resource.searchField.SimulateUserBackspace();
    }
    state.counters["rows"] = bench.resource.listBox.GetItemCount();
}
BENCHMARK(BM_FlatSearchKeystroke)->Unit(benchmark::kMillisecond);

struct TreeAndListBench {
    TreeAndListBench() : forest(MakeForest()), view(nullptr, resource, NK::NewOwned<FolderFactory>())
    {
        view.SetCurrentItems(&forest);
        view.SetListItemFactory(NK::NewOwned<RowFactory>());
        view.SetPopUpItemFactory(NK::NewOwned<TreeAndListView::PopUpViewItemFactory>(view.GetTreeItemFactory()));
        view.WillAppear(View::OpenData {});
    }
    Resource resource;
    NK::Array<NK::Owner<ModelItem>> forest;
    TreeAndListView view;
};

void BM_TreeAndListClickFolder(benchmark::State& state)
{
    TreeAndListBench bench;
    const int first = bench.resource.tree.GetNode(bench.forest[0]->GetChildren()[0]->GetId());
    const int second = bench.resource.tree.GetNode(bench.forest[0]->GetChildren()[1]->GetId());
    bool toggle = false;
    for (auto _ : state) {
        bench.resource.treeView.SimulateUserSelectNode(toggle ? first : second);
        toggle = !toggle;
    }
    state.counters["rows"] = bench.resource.listBox.GetItemCount();
}
BENCHMARK(BM_TreeAndListClickFolder)->Unit(benchmark::kMicrosecond);

void BM_TreeAndListRefresh(benchmark::State& state)
{
    TreeAndListBench bench;
    for (auto _ : state)
        bench.view.Refresh();
    state.counters["rows"] = bench.resource.listBox.GetItemCount();
}
BENCHMARK(BM_TreeAndListRefresh)->Unit(benchmark::kMillisecond);

}  // namespace
