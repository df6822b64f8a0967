// Geometry at sizes well beyond real dialogs, so that regressions show: sharing a width among
// 1,000 columns (room case with minimum clamps, tight case with the fixed-column cap, with and
// without whole-pixel rounding), laying out 1,000 toolkit items in nested linear layouts beside
// the same items in one flat layout, and a 1,000-column list box resize through the column
// manager. The counter ns_per_item is the time per column or item.
#include "QM/QMDialog.hpp"
#include "QM/QMItem.hpp"
#include "QM/QMListBox.hpp"
#include "WZSources/ColumnModel/WZColumnManager.hpp"
#include "WZSources/ColumnModel/WZResizeColumns.hpp"
#include "WZSources/Layouting/WZLinearLayout.hpp"

#include <benchmark/benchmark.h>

#include <memory>
#include <random>
#include <vector>

namespace {

using namespace WZ::Layouting;

struct ColumnSet {
    std::vector<std::unique_ptr<WZ::IColumn>> owned;
    std::vector<WZ::IColumn*> columns;
    std::vector<float> initial;

    void Add(std::unique_ptr<WZ::IColumn> column)
    {
        initial.push_back(column->GetWidth());
        columns.push_back(column.get());
        owned.push_back(std::move(column));
    }
    // Every run starts from the same widths, as a list box resized again and again would not.
    void Reset()
    {
        for (size_t i = 0; i < columns.size(); ++i)
            columns[i]->SetWidth(initial[i]);
    }
};

// 1,000 proportional columns, a tenth of them with minimums that clamp at the given width.
ColumnSet RoomColumns()
{
    ColumnSet set;
    std::mt19937 random(1);
    for (int i = 0; i < 1000; ++i) {
        float width = static_cast<float>(20 + random() % 40);
        float minWidth = i % 10 == 0 ? width : 5.0f;
        set.Add(std::make_unique<WZ::ProportionalColumn>(minWidth, width));
    }
    return set;
}

// 500 fixed and 500 proportional columns whose fixed widths do not fit.
ColumnSet TightColumns()
{
    ColumnSet set;
    std::mt19937 random(2);
    for (int i = 0; i < 1000; ++i) {
        if (i % 2 == 0)
            set.Add(std::make_unique<WZ::FixedColumn>(5.0f, static_cast<float>(30 + random() % 30)));
        else
            set.Add(std::make_unique<WZ::ProportionalColumn>(5.0f, 40.0f));
    }
    return set;
}

void Report(benchmark::State& state, double perRun)
{
    state.counters["ns_per_item"] =
        benchmark::Counter(perRun * static_cast<double>(state.iterations()), benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}

void BM_ResizeColumns_Room(benchmark::State& state)
{
    ColumnSet set = RoomColumns();
    bool round = state.range(0) != 0;
    for (auto _ : state) {
        set.Reset();
        WZ::ResizeColumns(set.columns, 24000.0f, round);
        benchmark::DoNotOptimize(set.columns[0]->GetWidth());
    }
    Report(state, 1000);
}
BENCHMARK(BM_ResizeColumns_Room)->Arg(0)->Arg(1)->ArgName("round");

void BM_ResizeColumns_Tight(benchmark::State& state)
{
    ColumnSet set = TightColumns();
    bool round = state.range(0) != 0;
    for (auto _ : state) {
        set.Reset();
        WZ::ResizeColumns(set.columns, 20000.0f, round);
        benchmark::DoNotOptimize(set.columns[0]->GetWidth());
    }
    Report(state, 1000);
}
BENCHMARK(BM_ResizeColumns_Tight)->Arg(0)->Arg(1)->ArgName("round");

void BM_ResizeColumns_Minimum(benchmark::State& state)
{
    ColumnSet set = RoomColumns();
    for (auto _ : state) {
        set.Reset();
        WZ::ResizeColumns(set.columns, 1000.0f, true);
        benchmark::DoNotOptimize(set.columns[0]->GetWidth());
    }
    Report(state, 1000);
}
BENCHMARK(BM_ResizeColumns_Minimum);

struct LayoutFixture {
    QM::Dialog dialog {"bench", 2000, 2000};
    std::vector<std::unique_ptr<QM::Item>> items;

    QM::Item& NewItem()
    {
        items.push_back(std::make_unique<QM::Item>(dialog, QM::Rect()));
        return *items.back();
    }
};

// 100 rows of 10 items, each row a horizontal layout inside one vertical layout.
void BM_NestedLayout_1000Items(benchmark::State& state)
{
    LayoutFixture fixture;
    VerticalLinearLayout root;
    root.SetGap(2);
    for (int row = 0; row < 100; ++row) {
        auto& line = root.AddLayout(NK::NewOwned<HorizontalLinearLayout>(), VFixedHeight {18}, VAutoFillWidth {});
        line.GetLayout().SetGap(4);
        for (int i = 0; i < 10; ++i) {
            HMainPolicy main = i % 3 == 0 ? HMainPolicy(HFixedWidth {40}) : HMainPolicy(HProportionalWidth {static_cast<float>(1 + i % 4)});
            line.GetLayout().Add(fixture.NewItem(), main, HFixedHeight {VerticalAlignment::Center, 14});
        }
    }
    short width = 1500;
    for (auto _ : state) {
        width = width == 1500 ? 1400 : 1500;  // every pass moves every item
        root.ApplyLayout(QM::Rect(0, 0, width, 2000));
    }
    Report(state, 1000);
}
BENCHMARK(BM_NestedLayout_1000Items);

// The same 1,000 items in one horizontal layout: the cost of nesting beside none.
void BM_FlatLayout_1000Items(benchmark::State& state)
{
    LayoutFixture fixture;
    HorizontalLinearLayout root;
    for (int i = 0; i < 1000; ++i) {
        HMainPolicy main = i % 3 == 0 ? HMainPolicy(HFixedWidth {8}) : HMainPolicy(HProportionalWidth {static_cast<float>(1 + i % 4)});
        root.Add(fixture.NewItem(), main, HAutoFillHeight {});
    }
    short width = 30000;
    for (auto _ : state) {
        width = width == 30000 ? 29000 : 30000;
        root.ApplyLayout(QM::Rect(0, 0, width, 20));
    }
    Report(state, 1000);
}
BENCHMARK(BM_FlatLayout_1000Items);

// A list box with 1,000 columns under 100 headers laid out by its column manager.
void BM_ColumnManagerResize_1000Columns(benchmark::State& state)
{
    QM::Dialog dialog {"bench", 2000, 2000};
    QM::ListBox listBox(dialog, QM::Rect(0, 0, 30000, 400));
    listBox.SetHasHeader(true);
    WZ::ColumnManager<short, short> manager;
    short id = 1;
    for (short h = 1; h <= 100; ++h) {
        auto& header = manager.AddHeader(h, "h");
        for (int c = 0; c < 10; ++c, ++id) {
            if (c % 2 == 0)
                manager.AddFixedColumn(id, header, 20);
            else
                manager.AddProportionalColumn(id, header, 10, 30);
        }
    }
    manager.Setup(listBox);
    short width = 30000;
    for (auto _ : state) {
        width = width == 30000 ? 29000 : 30000;
        listBox.Resize(width, 400);
        manager.Resize(listBox, false);
    }
    Report(state, 1000);
}
BENCHMARK(BM_ColumnManagerResize_1000Columns);

}  // namespace
