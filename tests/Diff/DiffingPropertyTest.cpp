// Applies every comparison result to the old sequence the way the updaters do (delete bottom-up,
// insert ascending, rewrite the rows of moves and of changed ids) and checks that this yields the
// new sequence, over seeded random edits with duplicate ids.
#include "DiffTestItems.hpp"

#include "WZSources/Diff/WZDiff.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <deque>
#include <random>
#include <set>
#include <vector>

namespace {

using DiffTest::EqualCalls;
using DiffTest::TextItem;

struct Shown {
    NK::Guid id;
    std::string text;
    bool operator==(const Shown&) const = default;
};

std::vector<Shown> Show(const NK::Array<const WZ::Diffable*>& items)
{
    std::vector<Shown> rows;
    for (const WZ::Diffable* item : items)
        rows.push_back({item->GetId(), static_cast<const TextItem*>(item)->GetText()});
    return rows;
}

std::vector<Shown> Apply(const NK::Array<const WZ::Diffable*>& oldItems, const NK::Array<const WZ::Diffable*>& newItems,
                         const WZ::Diff::Result& result)
{
    std::vector<Shown> rows = Show(oldItems);
    std::vector<NK::UInt64> deleted(result.deleted.begin(), result.deleted.end());
    for (auto it = deleted.rbegin(); it != deleted.rend(); ++it)
        rows.erase(rows.begin() + static_cast<std::ptrdiff_t>(*it));
    std::vector<Shown> fresh = Show(newItems);
    for (NK::UInt64 index : result.inserted)
        rows.insert(rows.begin() + static_cast<std::ptrdiff_t>(index), fresh[index]);
    for (const WZ::Diff::Move& move : result.moved)
        rows[move.to] = fresh[move.to];
    std::set<NK::Guid> changedIds;
    for (NK::UInt64 oldIndex : result.changed)
        changedIds.insert(result.oldIndexMap.GetId(static_cast<NK::Int64>(oldIndex)));
    for (std::size_t i = 0; i < rows.size(); ++i)
        if (changedIds.count(fresh[i].id) > 0 && !result.inserted.Contains(i))
            rows[i] = fresh[i];
    return rows;
}

// Random edits of a random list: a small pool of ids makes duplicates common.
class Scenario {
public:
    explicit Scenario(unsigned seed) : random(seed) {}

    void Build()
    {
        int length = Pick(0, 30);
        for (int k = 0; k < length; ++k)
            oldItems.Push(NewItem(Pick(1, 25), "v0"));
        std::vector<const WZ::Diffable*> next(oldItems.begin(), oldItems.end());
        int edits = Pick(0, 12);
        for (int e = 0; e < edits; ++e) {
            int kind = Pick(0, 4);
            const int size = static_cast<int>(next.size());
            if (kind == 4)  // no edit
                continue;
            if (kind == 1 || size == 0) {
                next.insert(next.begin() + Pick(0, size), NewItem(Pick(1, 40), "v0"));
                continue;
            }
            auto at = next.begin() + Pick(0, size - 1);
            if (kind == 0 || kind == 2) {  // delete, or move elsewhere
                const WZ::Diffable* moving = *at;
                next.erase(at);
                if (kind == 2)
                    next.insert(next.begin() + Pick(0, size - 1), moving);
            } else {
                *at = NewItem(Number(*at), "v" + std::to_string(e + 1));
            }
        }
        // Most items of the new list are fresh copies, as a client rebuilding its list would make.
        for (const WZ::Diffable* item : next) {
            const auto* text = static_cast<const TextItem*>(item);
            newItems.Push(Pick(0, 3) == 0 ? item : NewItem(Number(item), text->GetText()));
        }
    }

    NK::Array<const WZ::Diffable*> oldItems;
    NK::Array<const WZ::Diffable*> newItems;
    EqualCalls calls;

private:
    int Pick(int low, int high) { return std::uniform_int_distribution<int>(low, high)(random); }
    static NK::UInt64 Number(const WZ::Diffable* item) { return item->GetId().GetLow(); }
    const TextItem* NewItem(NK::UInt64 number, const std::string& text) { return &store.emplace_back(number, text, &calls); }

    std::mt19937 random;
    std::deque<TextItem> store;
};

// Whether each index is a member, by walking the set rather than looking it up.
template <typename Set>
bool Holds(const Set& set, NK::UInt64 index)
{
    return std::find(set.begin(), set.end(), index) != set.end();
}

TEST(DiffingPropertyTest, ApplyingTheResultToTheOldSequenceYieldsTheNewOne)
{
    for (unsigned seed = 1; seed <= 3000; ++seed) {
        Scenario scenario(seed);
        scenario.Build();
        WZ::Diff::Result result = WZ::Diffing(scenario.oldItems, scenario.newItems);
        ASSERT_EQ(Apply(scenario.oldItems, scenario.newItems, result), Show(scenario.newItems)) << "seed " << seed;

        // Every index is accounted for exactly once: paired or inserted, paired or deleted.
        const auto pairs = scenario.newItems.GetSize() - result.inserted.GetSize();
        ASSERT_EQ(scenario.oldItems.GetSize() - result.deleted.GetSize(), pairs) << "seed " << seed;
        ASSERT_EQ(result.oldIndexMap.GetSize(), scenario.oldItems.GetSize());
        ASSERT_EQ(result.newIndexMap.GetSize(), scenario.newItems.GetSize());
        for (const WZ::Diff::Move& move : result.moved)
            ASSERT_EQ(scenario.oldItems[move.from]->GetId(), scenario.newItems[move.to]->GetId()) << "seed " << seed;
        // Content is compared at most once per pair, and never for a pair of one object.
        ASSERT_LE(scenario.calls.count, static_cast<int>(pairs)) << "seed " << seed;
        // Lookups agree with iteration, also in `changed`, which is out of order when items moved.
        for (NK::UInt64 index = 0; index <= scenario.oldItems.GetSize(); ++index) {
            ASSERT_EQ(result.changed.Contains(index), Holds(result.changed, index)) << "seed " << seed;
            ASSERT_EQ(result.deleted.Contains(index), Holds(result.deleted, index)) << "seed " << seed;
        }

        ASSERT_TRUE(std::is_sorted(result.inserted.begin(), result.inserted.end())) << "seed " << seed;
        ASSERT_TRUE(std::is_sorted(result.moved.begin(), result.moved.end(),
                                   [](const WZ::Diff::Move& a, const WZ::Diff::Move& b) { return a.to < b.to; }))
            << "seed " << seed;
    }
}

}  // namespace
