// The foldered data view's item factories over 100k model items.
// - CreateTree: an archive forest of 100 folders x 10 sub-folders x 99 items (100,100 items), an
//   item filter that drops every tenth item, siblings sorted. Peers side by side: the default
//   comparator (natural order of display names through collation), a plain code-unit order and
//   no sorting, so that the cost of the factory itself and that of the order are seen apart.
// - ListItemFactory::CreateItems with a search filter over 100k flat items, rows sorted by
//   name, for a blank, a one-word and a two-word search; beside it the search component alone
//   (entries added and run) on the same texts.
// The counters: items given, rows (or keys) that came out.
#include "NK/NKSearch.hpp"
#include "WZSources/CompoundControls/FolderedDataView/WZFolderableListBox.hpp"
#include "WZSources/CompoundControls/FolderedDataView/WZFolderableModelItem.hpp"
#include "WZSources/CompoundControls/FolderedDataView/WZTreeItemFactory.hpp"

#include <benchmark/benchmark.h>

#include <memory>
#include <string>

namespace {

using WZ::Folderable::FilterStatus;
using WZ::Folderable::ListBoxItem;
using WZ::Folderable::ListItemFactory;
using WZ::Folderable::ModelItem;
using WZ::Folderable::TreeItem;
using WZ::Folderable::TreeItemFactory;

const char* const Kinds[] = {"Letter", "Receipt", "Invoice", "Recipe", "Manual", "Photo", "Contract", "Report"};

class ArchiveItem : public ModelItem {
public:
    ArchiveItem(NK::UInt64 number, NK::UniString name, NK::UniString kind)
        : id(NK::Guid::FromNumber(0xFDB, number)), number(number), name(std::move(name)), kind(std::move(kind))
    {
    }
    NK::Guid GetId() const override { return id; }
    NK::UInt64 GetNumber() const { return number; }
    const NK::UniString& GetName() const { return name; }
    const NK::UniString& GetKind() const { return kind; }

private:
    NK::Guid id;
    NK::UInt64 number;
    NK::UniString name;
    NK::UniString kind;
};

const ArchiveItem& AsArchive(const ModelItem& item)
{
    return static_cast<const ArchiveItem&>(item);
}

NK::Owner<ModelItem> MakeItem(NK::UInt64 number, const std::string& name, const char* kind)
{
    return NK::NewOwned<ArchiveItem>(number, NK::UniString(name), NK::UniString(kind));
}

// 100 folders, each with 10 sub-folders of 99 items; names numbered out of order so that
// sorting has work to do.
NK::Array<NK::Owner<ModelItem>> MakeArchiveForest()
{
    NK::Array<NK::Owner<ModelItem>> forest;
    NK::UInt64 number = 0;
    for (int f = 0; f < 100; ++f) {
        auto folder = MakeItem(number++, "Shelf " + std::to_string((f * 37) % 100), "Folder");
        for (int s = 0; s < 10; ++s) {
            auto sub = MakeItem(number++, "Box " + std::to_string((s * 7) % 10), "Folder");
            for (int i = 0; i < 99; ++i) {
                const char* kind = Kinds[(i + s) % 8];
                sub->AddChild(MakeItem(number++, std::string(kind) + " " + std::to_string((i * 53) % 99), kind));
            }
            folder->AddChild(std::move(sub));
        }
        forest.Push(std::move(folder));
    }
    return forest;
}

class NameTreeFactory : public TreeItemFactory {
public:
    NK::Owner<TreeItem> CreateItem(const ModelItem& item) override
    {
        return NK::NewOwned<TreeItem>(item, AsArchive(item).GetName(), NK::Optional<QM::Icon>(QM::Icon(9, 1)),
                                      QM::Font::Plain, NK::Optional<QM::Color>(), NK::Optional<QM::Color>(),
                                      NK::Optional<NK::UniString>());
    }
};

class EveryTenthOut : public TreeItemFactory::Filter {
public:
    Status GetStatus(const ModelItem& item) const override
    {
        return AsArchive(item).GetNumber() % 10 == 9 ? Status::Excluded : Status::Included;
    }
};

enum class Order { Natural, CodeUnit, None };

void CreateTree(benchmark::State& state, Order order)
{
    const NK::Array<NK::Owner<ModelItem>> forest = MakeArchiveForest();
    const NK::Array<const ModelItem*> roots = ModelItem::ToPtrArray(forest);
    const NK::UIndex total = ModelItem::ToPtrArrayRecursive(forest).GetSize();
    NameTreeFactory factory;
    EveryTenthOut filter;
    factory.SetItemFilter(&filter);
    if (order == Order::CodeUnit)
        factory.SetItemComparator([](const TreeItem& a, const TreeItem& b) { return a.GetDisplayName() < b.GetDisplayName(); });
    else if (order == Order::None)
        factory.SetItemComparator({});
    for (auto _ : state) {
        NK::Array<NK::Owner<TreeItem>> tree = factory.CreateTree(roots);
        benchmark::DoNotOptimize(tree.GetContent());
    }
    state.counters["items"] = static_cast<double>(total);
}

BENCHMARK_CAPTURE(CreateTree, natural_order, Order::Natural)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(CreateTree, code_unit_order, Order::CodeUnit)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(CreateTree, unsorted, Order::None)->Unit(benchmark::kMillisecond);

// ---- the list -------------------------------------------------------------------------------

NK::Array<NK::Owner<ModelItem>> MakeFlatItems()
{
    NK::Array<NK::Owner<ModelItem>> items;
    for (NK::UInt64 i = 0; i < 100000; ++i) {
        const char* kind = Kinds[i % 8];
        items.Push(MakeItem(i, std::string(kind) + " " + std::to_string((i * 7919) % 100000), kind));
    }
    return items;
}

class Row : public ListBoxItem {
public:
    explicit Row(const ArchiveItem& model) : ListBoxItem(model.GetId()), name(model.GetName()) {}
    bool IsEqual(const WZ::Diffable& other) const override { return static_cast<const Row&>(other).name == name; }
    NK::UniString name;
};

class RowFactory : public ListItemFactory {
public:
    const ListBoxItem* CreateItem(const ModelItem& item) override { return new Row(AsArchive(item)); }
};

class NameAndKindSearch : public ListItemFactory::SearchFilter {
public:
    using SearchFilter::SearchFilter;
    NK::Array<NK::UniString> GetSearchTexts(const ModelItem& item) const override
    {
        return {AsArchive(item).GetName(), AsArchive(item).GetKind()};
    }
};

void SetPerItem(benchmark::State& state, NK::UIndex count, NK::UIndex kept)
{
    state.counters["items"] = static_cast<double>(count);
    state.counters["rows"] = static_cast<double>(kept);
}

void ListCreateItemsWithSearch(benchmark::State& state, const char* searchText)
{
    const NK::Array<NK::Owner<ModelItem>> forest = MakeFlatItems();
    const NK::Array<const ModelItem*> items = ModelItem::ToPtrArray(forest);
    RowFactory factory;
    factory.SetFilter(NK::NewOwned<NameAndKindSearch>(searchText));
    factory.SetComparator([](const ListBoxItem* a, const ListBoxItem* b) {
        return static_cast<const Row*>(a)->name < static_cast<const Row*>(b)->name;
    });
    NK::UIndex kept = 0;
    for (auto _ : state) {
        NK::Array<const ListBoxItem*> rows = factory.CreateItems(items);
        kept = rows.GetSize();
        state.PauseTiming();
        for (const ListBoxItem* row : rows)
            delete row;
        state.ResumeTiming();
    }
    SetPerItem(state, items.GetSize(), kept);
}

BENCHMARK_CAPTURE(ListCreateItemsWithSearch, blank, "")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(ListCreateItemsWithSearch, one_word, "letter")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(ListCreateItemsWithSearch, two_words, "RECEIPT 12")->Unit(benchmark::kMillisecond);

void SearchComponentAlone(benchmark::State& state, const char* searchText)
{
    const NK::Array<NK::Owner<ModelItem>> forest = MakeFlatItems();
    NK::UIndex found = 0;
    for (auto _ : state) {
        NK::Search search;
        search.Reserve(forest.GetSize());
        for (const NK::Owner<ModelItem>& item : forest)
            search.AddEntry(item->GetId(), NK::Array<NK::UniString> {AsArchive(*item).GetName(), AsArchive(*item).GetKind()});
        found = search.Run(searchText).GetMatchCount();
    }
    SetPerItem(state, forest.GetSize(), found);
}

BENCHMARK_CAPTURE(SearchComponentAlone, one_word, "letter")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(SearchComponentAlone, two_words, "RECEIPT 12")->Unit(benchmark::kMillisecond);

}  // namespace
