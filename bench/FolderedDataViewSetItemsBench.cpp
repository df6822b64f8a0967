// The whole foldered data view over a forest of 100 folders x 10 sub-folders x 99 items
// (100,100 model items), on the headless toolkit.
// - SetItems with the hierarchical view current (first level open): a new forest of the same
//   ids replaces the shown one, so the table reloads and restores open rows and selection by id.
//   Beside it a first SetItems into an empty data view. (The flat list cannot be a peer here: a
//   toolkit list box numbers its rows in 16 bits, so 100k rows do not fit in one.)
// - A search keystroke in the hierarchical view: alternately typing "7" after "Receipt 1" and
//   deleting it again, each a rebuild of the filtered forest with every row expanded.
// Building the forest is not timed. Counters: model items, rows shown after the operation.
#include "QM/QMDialog.hpp"
#include "QM/QMSearchEdit.hpp"
#include "WZSources/ColumnModel/WZColumn.hpp"
#include "WZSources/CompoundControls/FolderedDataView/Views/WZFDVHierarchicalView.hpp"
#include "WZSources/CompoundControls/FolderedDataView/Views/WZFDVLayouts.hpp"
#include "WZSources/CompoundControls/FolderedDataView/Views/WZFDVListBoxBaseView.hpp"
#include "WZSources/CompoundControls/FolderedDataView/WZFolderableHierarchicalTreeItem.hpp"
#include "WZSources/CompoundControls/FolderedDataView/WZFolderableHierarchicalView.hpp"
#include "WZSources/CompoundControls/FolderedDataView/WZFolderableListBox.hpp"
#include "WZSources/CompoundControls/FolderedDataView/WZFolderedDataView.hpp"
#include "WZSources/CompoundControls/FolderedDataView/WZTreeItemFactory.hpp"

#include <benchmark/benchmark.h>

#include <string>

namespace {

using WZ::Folderable::FolderedDataView;
using WZ::Folderable::ListBoxItem;
using WZ::Folderable::ListItemFactory;
using WZ::Folderable::ModelItem;
using WZ::Folderable::TreeItem;
using WZ::Folderable::TreeItemFactory;
using ViewMode = FolderedDataView::ViewMode;

const char* const Kinds[] = {"Letter", "Receipt", "Invoice", "Recipe", "Manual", "Photo", "Contract", "Report"};

class ArchiveItem : public ModelItem {
public:
    ArchiveItem(NK::UInt64 number, NK::UniString name) : id(NK::Guid::FromNumber(0xDA7A, number)), name(std::move(name)) {}
    NK::Guid GetId() const override { return id; }
    const NK::UniString& GetName() const { return name; }

private:
    NK::Guid id;
    NK::UniString name;
};

const NK::UniString& NameOf(const ModelItem& item)
{
    return static_cast<const ArchiveItem&>(item).GetName();
}

NK::Array<NK::Owner<ModelItem>> MakeForest()
{
    NK::Array<NK::Owner<ModelItem>> forest;
    NK::UInt64 number = 0;
    for (int f = 0; f < 100; ++f) {
        auto folder = NK::NewOwned<ArchiveItem>(++number, NK::UniString("Shelf " + std::to_string((f * 37) % 100)));
        for (int s = 0; s < 10; ++s) {
            auto sub = NK::NewOwned<ArchiveItem>(++number, NK::UniString("Group " + std::to_string(s)));
            for (int i = 0; i < 99; ++i)
                sub->AddChild(NK::NewOwned<ArchiveItem>(
                    ++number, NK::UniString(std::string(Kinds[(i + s) % 8]) + " " + std::to_string((i * 53) % 99))));
            folder->AddChild(std::move(sub));
        }
        forest.Push(std::move(folder));
    }
    return forest;
}

class Row : public WZ::Folderable::HierarchicalTreeItem {
public:
    explicit Row(const ModelItem& model)
        : HierarchicalTreeItem(model, NameOf(model), NK::Optional<QM::Icon>(), QM::Font::Plain, NK::Optional<QM::Color>(),
                               NK::Optional<QM::Color>(), NK::Optional<NK::UniString>())
    {
    }
};

class RowFactory : public TreeItemFactory {
public:
    NK::Owner<TreeItem> CreateItem(const ModelItem& item) override { return NK::NewOwned<Row>(item); }
};

class TreeSearch : public TreeItemFactory::SearchFilter {
public:
    NK::Array<NK::UniString> GetSearchTexts(const ModelItem& item) const override { return {NameOf(item)}; }
};

class ListRow : public ListBoxItem {
public:
    explicit ListRow(const ModelItem& model) : ListBoxItem(model.GetId()), name(NameOf(model)) {}
    bool IsEqual(const WZ::Diffable& other) const override
    {
        auto* row = dynamic_cast<const ListRow*>(&other);
        return row != nullptr && row->name == name;
    }
    NK::UniString name;
};

class ListRowFactory : public ListItemFactory {
public:
    ListRowFactory()
    {
        SetComparator([](const ListBoxItem* a, const ListBoxItem* b) {
            return static_cast<const ListRow*>(a)->name < static_cast<const ListRow*>(b)->name;
        });
    }
    const ListBoxItem* CreateItem(const ModelItem& item) override { return new ListRow(item); }
};

class ListSearch : public ListItemFactory::SearchFilter {
public:
    NK::Array<NK::UniString> GetSearchTexts(const ModelItem& item) const override { return {NameOf(item)}; }
};

// A data view with the hierarchical view (mode 1) and the flat list view (mode 2).
struct Browser {
    explicit Browser(ViewMode mode)
    {
        WZ::Folderable::UntypedListBox& list = *dataView.GetListBoxDataView();
        list.AddTextColumn(1, "Name", NK::NewOwned<WZ::ProportionalColumn>(1.0f, 100),
                           [](const ListBoxItem& row) { return static_cast<const ListRow&>(row).name; });
        list.SetupColumns();
        auto hierarchical = NK::NewOwned<WZ::Folderable::Views::HierarchicalView>(
            NK::NewOwned<WZ::Folderable::HierarchicalLayout>(dataView), dataView, NK::NewOwned<RowFactory>());
        hierarchical->SetSearchFilter(NK::NewOwned<TreeSearch>());
        dataView.RegisterView(ViewMode::Hierarchical, std::move(hierarchical));
        auto flat = NK::NewOwned<WZ::Folderable::Views::FlatListView>(
            NK::NewOwned<WZ::Folderable::FlatListLayout>(dataView), dataView);
        flat->SetListItemFactory(NK::NewOwned<ListRowFactory>());
        flat->SetListItemSearchFilter(NK::NewOwned<ListSearch>());
        dataView.RegisterView(ViewMode::FlatList, std::move(flat));
        dataView.SetViewMode(mode);
        dataView.InitRect();
    }

    NK::Int64 ShownRows(ViewMode mode)
    {
        if (mode == ViewMode::FlatList)
            return dataView.GetListBoxDataView()->GetModelItems().GetSize();
        return dataView.GetHierarchicalDataView()->GetDisplayedRowCount();
    }

    QM::Dialog dialog {"Browser", 800, 600};
    FolderedDataView dataView {dialog, QM::Rect(0, 0, 800, 600)};
};

void SetItemsAgain(benchmark::State& state, ViewMode mode)
{
    Browser browser(mode);
    browser.dataView.SetItems(MakeForest());
    for (auto _ : state) {
        state.PauseTiming();
        NK::Array<NK::Owner<ModelItem>> forest = MakeForest();
        state.ResumeTiming();
        browser.dataView.SetItems(std::move(forest));
    }
    state.counters["items"] = 100100;
    state.counters["rows"] = static_cast<double>(browser.ShownRows(mode));
}

void SetItemsFirst(benchmark::State& state)
{
    for (auto _ : state) {
        state.PauseTiming();
        auto browser = std::make_unique<Browser>(ViewMode::Hierarchical);
        NK::Array<NK::Owner<ModelItem>> forest = MakeForest();
        state.ResumeTiming();
        browser->dataView.SetItems(std::move(forest));
        state.PauseTiming();
        browser.reset();
        state.ResumeTiming();
    }
    state.counters["items"] = 100100;
}

void SearchKeystroke(benchmark::State& state, ViewMode mode)
{
    Browser browser(mode);
    browser.dataView.SetItems(MakeForest());
    QM::SearchEdit& field = *browser.dataView.GetSearchField();
    field.SimulateUserType("Receipt 1");
    bool typed = false;
    for (auto _ : state) {
        if (typed)
            field.SimulateUserBackspace();
        else
            field.SimulateUserType("7");
        typed = !typed;
    }
    state.counters["items"] = 100100;
    state.counters["rows"] = static_cast<double>(browser.ShownRows(mode));
}

BENCHMARK_CAPTURE(SetItemsAgain, Hierarchical, ViewMode::Hierarchical)->Unit(benchmark::kMillisecond);
BENCHMARK(SetItemsFirst)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(SearchKeystroke, Hierarchical, ViewMode::Hierarchical)->Unit(benchmark::kMillisecond);

}  // namespace
