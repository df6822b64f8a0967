// The sequence comparison over lists of 10^3 … 10^6 items, beside an O(NP) edit-script library on
// the same id sequences. Scenarios: the same array (same item objects), 1% and 10% random
// insertions, deletions and content changes over freshly built items (as a client rebuilding its
// list makes them), and a full shuffle. The counter ns_per_item is the time per item of the new
// list.
#include "NK/NKGuid.hpp"
#include "WZSources/Diff/WZDiff.hpp"

#include <benchmark/benchmark.h>

#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wall"
#pragma GCC diagnostic ignored "-Wextra"
#pragma GCC diagnostic ignored "-Wunused-parameter"
#pragma GCC diagnostic ignored "-Wsign-compare"
#include <dtl/dtl.hpp>
#pragma GCC diagnostic pop

#include <algorithm>
#include <deque>
#include <map>
#include <random>
#include <vector>

namespace {

class BenchItem : public WZ::Diffable {
public:
    BenchItem(NK::UInt64 number, NK::UInt64 content) : id(NK::Guid::FromNumber(0xB00C, number)), content(content) {}
    NK::Guid GetId() const override { return id; }
    bool IsEqual(const WZ::Diffable& other) const override
    {
        return static_cast<const BenchItem&>(other).content == content;
    }
    NK::UInt64 GetNumber() const { return id.GetLow(); }
    NK::UInt64 GetContent() const { return content; }

private:
    NK::Guid id;
    NK::UInt64 content;
};

enum Scenario : int { Identical, Edits1, Edits10, Shuffle };

struct Lists {
    std::deque<BenchItem> store;
    NK::Array<const WZ::Diffable*> oldItems;
    NK::Array<const WZ::Diffable*> newItems;
};

// The new list is rebuilt from fresh items except in the Identical scenario.
Lists MakeLists(NK::UIndex count, Scenario scenario)
{
    Lists lists;
    std::mt19937_64 random(count * 31 + static_cast<unsigned>(scenario));
    std::vector<const BenchItem*> next;
    for (NK::UIndex i = 0; i < count; ++i) {
        lists.oldItems.Push(&lists.store.emplace_back(i, 0));
        next.push_back(static_cast<const BenchItem*>(lists.oldItems.GetLast()));
    }
    if (scenario == Identical) {
        lists.newItems = lists.oldItems;
        return lists;
    }
    if (scenario == Shuffle) {
        std::shuffle(next.begin(), next.end(), random);
    } else {
        const NK::UIndex edits = count * (scenario == Edits1 ? 1 : 10) / 100;
        NK::UInt64 fresh = count;
        // Gather the edits by position first, so that building the new list stays linear.
        std::map<NK::UIndex, int> kindAt;
        while (kindAt.size() < edits)
            kindAt.emplace(random() % count, static_cast<int>(random() % 3));
        std::vector<const BenchItem*> edited;
        edited.reserve(count + edits);
        for (NK::UIndex i = 0; i < count; ++i) {
            auto it = kindAt.find(i);
            int kind = it == kindAt.end() ? -1 : it->second;
            if (kind == 0) {
                edited.push_back(&lists.store.emplace_back(fresh++, 0));
                edited.push_back(next[i]);
            } else if (kind == 2) {
                edited.push_back(&lists.store.emplace_back(next[i]->GetNumber(), 1));
            } else if (kind != 1) {
                edited.push_back(next[i]);
            }
        }
        next.swap(edited);
    }
    for (const BenchItem* item : next)
        lists.newItems.Push(&lists.store.emplace_back(item->GetNumber(), item->GetContent()));
    return lists;
}

void Report(benchmark::State& state, NK::UIndex count)
{
    state.SetItemsProcessed(static_cast<int64_t>(state.iterations() * count));
    state.counters["ns_per_item"] = benchmark::Counter(static_cast<double>(count),
                                                       benchmark::Counter::kIsIterationInvariantRate |
                                                           benchmark::Counter::kInvert);
}

void BM_WZDiffing(benchmark::State& state)
{
    const auto count = static_cast<NK::UIndex>(state.range(0));
    Lists lists = MakeLists(count, static_cast<Scenario>(state.range(1)));
    for (auto _ : state) {
        WZ::Diff::Result result = WZ::Diffing(lists.oldItems, lists.newItems);
        benchmark::DoNotOptimize(result);
    }
    Report(state, count);
}

void BM_DtlOnIds(benchmark::State& state)
{
    const auto count = static_cast<NK::UIndex>(state.range(0));
    Lists lists = MakeLists(count, static_cast<Scenario>(state.range(1)));
    std::vector<NK::Guid> oldIds;
    std::vector<NK::Guid> newIds;
    for (const WZ::Diffable* item : lists.oldItems)
        oldIds.push_back(item->GetId());
    for (const WZ::Diffable* item : lists.newItems)
        newIds.push_back(item->GetId());
    for (auto _ : state) {
        dtl::Diff<NK::Guid> diff(oldIds, newIds);
        diff.onHuge();
        diff.compose();
        benchmark::DoNotOptimize(diff.getEditDistance());
    }
    Report(state, count);
}

void WZArguments(benchmark::internal::Benchmark* bench)
{
    bench->ArgNames({"items", "scenario"});
    for (int scenario : {Identical, Edits1, Edits10, Shuffle})
        for (int64_t count : {1000, 10000, 100000, 1000000})
            bench->Args({count, scenario});
}

// O(NP) grows with the number of edits times the length: the shuffle stops at 10^4 items, where
// one run already takes a fraction of a second and 10^5 would take minutes.
void DtlArguments(benchmark::internal::Benchmark* bench)
{
    bench->ArgNames({"items", "scenario"});
    for (int scenario : {Identical, Edits1, Edits10})
        for (int64_t count : {1000, 10000, 100000, 1000000})
            bench->Args({count, scenario});
    for (int64_t count : {1000, 10000})
        bench->Args({count, Shuffle});
}

BENCHMARK(BM_WZDiffing)->Apply(WZArguments)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_DtlOnIds)->Apply(DtlArguments)->Unit(benchmark::kMillisecond);

}  // namespace
