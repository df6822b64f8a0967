#include "DiffTestItems.hpp"

#include "WZSources/Diff/WZDiff.hpp"

#include <gtest/gtest.h>

#include <deque>
#include <vector>

namespace {

using DiffTest::EqualCalls;
using DiffTest::Id;
using DiffTest::TextItem;
using WZ::Diff::Move;

// Owns the items of a test and hands them out as the arrays the comparison takes.
class DiffingTest : public ::testing::Test {
protected:
    const TextItem* Make(NK::UInt64 number, const std::string& text)
    {
        return &store.emplace_back(number, text, &calls);
    }
    NK::Array<const WZ::Diffable*> List(std::initializer_list<const TextItem*> items)
    {
        NK::Array<const WZ::Diffable*> list;
        for (const TextItem* item : items)
            list.Push(item);
        return list;
    }

    std::deque<TextItem> store;
    EqualCalls calls;
};

template <typename T>
std::vector<T> InOrder(const NK::HashSet<T>& set)
{
    return std::vector<T>(set.begin(), set.end());
}

TEST_F(DiffingTest, EmptyOldSequenceInsertsEverything)
{
    auto result = WZ::Diffing({}, List({Make(1, "a"), Make(2, "b"), Make(1, "a")}));
    EXPECT_EQ(InOrder(result.inserted), (std::vector<NK::UInt64> {0, 1, 2}));
    EXPECT_TRUE(result.deleted.IsEmpty() && result.changed.IsEmpty() && result.moved.IsEmpty());
    EXPECT_TRUE(result.oldIndexMap.IsEmpty());
    EXPECT_EQ(result.newIndexMap.GetSize(), 3u);
    EXPECT_EQ(result.newIndexMap.GetId(1), Id(2));
    EXPECT_EQ(result.newIndexMap.GetIndex(Id(1), -1), 0);  // a repeated id maps back to its first index
    EXPECT_EQ(calls.count, 0);
}

TEST_F(DiffingTest, IdenticalPointersAreNeverCompared)
{
    auto items = List({Make(1, "a"), Make(2, "b"), Make(3, "c")});
    auto result = WZ::Diffing(items, items);
    EXPECT_FALSE(result.HasChanges());
    EXPECT_EQ(calls.count, 0);
}

TEST_F(DiffingTest, EqualCopiesAreComparedOncePerPairNewAgainstOld)
{
    const TextItem* oldA = Make(1, "a");
    const TextItem* oldB = Make(2, "b");
    const TextItem* newA = Make(1, "a");
    const TextItem* newB = Make(2, "b");
    auto result = WZ::Diffing(List({oldA, oldB}), List({newA, newB}));
    EXPECT_FALSE(result.HasChanges());
    ASSERT_EQ(calls.count, 2);
    EXPECT_EQ(calls.made[0], std::make_pair(static_cast<const void*>(newA), static_cast<const void*>(oldA)));
    EXPECT_EQ(calls.made[1], std::make_pair(static_cast<const void*>(newB), static_cast<const void*>(oldB)));
}

TEST_F(DiffingTest, MovesNameEveryItemThatChangedItsPlaceAmongThePairs)
{
    const TextItem* a = Make(1, "a");
    const TextItem* b = Make(2, "b");
    const TextItem* c = Make(3, "c");
    // A reversal moves only the outer items; carrying one to the back moves every item it passed.
    auto reversed = WZ::Diffing(List({a, b, c}), List({c, b, a}));
    EXPECT_EQ(InOrder(reversed.moved), (std::vector<Move> {{2, 0}, {0, 2}}));
    EXPECT_TRUE(reversed.inserted.IsEmpty() && reversed.deleted.IsEmpty() && reversed.changed.IsEmpty());
    auto carried = WZ::Diffing(List({a, b, c}), List({b, c, a}));
    EXPECT_EQ(InOrder(carried.moved), (std::vector<Move> {{1, 0}, {2, 1}, {0, 2}}));
}

TEST_F(DiffingTest, InsertionDeletionChangeAndMoveTogether)
{
    // old A B C D, new A X C B with B's content changed.
    auto result = WZ::Diffing(List({Make(1, "a"), Make(2, "b"), Make(3, "c"), Make(4, "d")}),
                              List({Make(1, "a"), Make(24, "x"), Make(3, "c"), Make(2, "b2")}));
    EXPECT_EQ(InOrder(result.deleted), (std::vector<NK::UInt64> {3}));
    EXPECT_EQ(InOrder(result.inserted), (std::vector<NK::UInt64> {1}));
    EXPECT_EQ(InOrder(result.changed), (std::vector<NK::UInt64> {1}));
    // C keeps index 2 yet moved: the insertion before it alone would have put it at 3.
    EXPECT_EQ(InOrder(result.moved), (std::vector<Move> {{2, 2}, {1, 3}}));
    EXPECT_TRUE(result.HasChanges());
    EXPECT_EQ(result.oldIndexMap.GetId(3), Id(4));
    EXPECT_EQ(result.newIndexMap.GetIndex(Id(24), -1), 1);
    EXPECT_EQ(calls.count, 3);
}

TEST_F(DiffingTest, DuplicateIdsPairByOccurrence)
{
    const TextItem* first = Make(1, "a");
    const TextItem* second = Make(1, "a");
    auto shrunk = WZ::Diffing(List({first, second}), List({first}));
    EXPECT_EQ(InOrder(shrunk.deleted), (std::vector<NK::UInt64> {1}));
    EXPECT_TRUE(shrunk.inserted.IsEmpty() && shrunk.moved.IsEmpty());

    // The surplus new occurrence is an insertion, placed after the paired one.
    auto grown = WZ::Diffing(List({first, Make(2, "b")}), List({Make(2, "b"), first, second}));
    EXPECT_EQ(InOrder(grown.inserted), (std::vector<NK::UInt64> {2}));
    EXPECT_EQ(InOrder(grown.moved), (std::vector<Move> {{1, 0}, {0, 1}}));
}

TEST_F(DiffingTest, ChangedBelongsToTheIdSoEveryPairOfItIsReported)
{
    // Only the second pair of id 1 differs, yet both of its pairs are reported by old index.
    auto result = WZ::Diffing(List({Make(1, "a"), Make(2, "b"), Make(1, "a")}),
                              List({Make(1, "a"), Make(2, "b"), Make(1, "other")}));
    EXPECT_EQ(InOrder(result.changed), (std::vector<NK::UInt64> {0, 2}));
    EXPECT_TRUE(result.moved.IsEmpty());
}

TEST(DiffMoveTest, HashSumsTheHalvesWithWrapAround)
{
    EXPECT_EQ((Move {(3ULL << 32) | 5, (7ULL << 32) | 11}.GenerateHashValue()), 3u + 5u + 65599u * 18u);
    // 0xFFFFFFFF + 0xFFFFFFFF wraps to 0xFFFFFFFE; adding 65599 * 1 wraps again.
    EXPECT_EQ((Move {~0ULL, 1ULL << 32}.GenerateHashValue()), 65597u);
    EXPECT_EQ((Move {1, 2}), (Move {1, 2}));
    EXPECT_FALSE((Move {1, 2}) == (Move {2, 1}));
}

TEST(SeparatorDiffableTest, EqualOnlyToASeparatorOfTheSameId)
{
    WZ::SeparatorDiffable separator(Id(1));
    WZ::SeparatorDiffable same(Id(1));
    WZ::SeparatorDiffable other(Id(2));
    TextItem text(1, "a", nullptr, true);
    EXPECT_TRUE(separator.IsEqual(same));
    EXPECT_FALSE(separator.IsEqual(other));
    EXPECT_FALSE(separator.IsEqual(text));
    EXPECT_TRUE(WZ::IsSeparatorItem(separator));
    EXPECT_TRUE(WZ::IsSeparatorItem(text));
    EXPECT_FALSE(WZ::IsSeparatorItem(TextItem(2, "b")));
}

TEST(DiffIndexMapTest, EachSideKnowsOnlyItsOwnIdsInIndexOrder)
{
    std::deque<TextItem> items;
    auto make = [&](NK::UInt64 number) { return static_cast<const WZ::Diffable*>(&items.emplace_back(number, "x")); };
    NK::Array<const WZ::Diffable*> oldItems {make(1), make(2), make(1)};
    NK::Array<const WZ::Diffable*> newItems {make(3), make(1)};
    WZ::Diff::Result result = WZ::Diffing(oldItems, newItems);

    std::vector<std::pair<NK::Int64, NK::Guid>> walked(result.oldIndexMap.begin(), result.oldIndexMap.end());
    EXPECT_EQ(walked, (std::vector<std::pair<NK::Int64, NK::Guid>> {{0, Id(1)}, {1, Id(2)}, {2, Id(1)}}));
    EXPECT_FALSE(result.oldIndexMap.HasId(Id(3)));  // only in the new list
    EXPECT_FALSE(result.newIndexMap.HasId(Id(2)));  // only in the old list
    EXPECT_EQ(result.newIndexMap.GetIndex(Id(3), -1), 0);
    EXPECT_EQ(result.oldIndexMap.GetIndex(Id(1), -1), 0);
    EXPECT_FALSE(result.oldIndexMap.HasIndex(3));

    WZ::Diff::Result copy = result;  // copies answer alike, also after the original is gone
    result = WZ::Diff::Result();
    EXPECT_EQ(copy.newIndexMap.GetId(1), Id(1));
    EXPECT_EQ(copy.oldIndexMap.GetIndex(Id(2), -1), 1);
    EXPECT_FALSE(result.oldIndexMap.HasId(Id(1)));
}

TEST(DiffIndexMapTest, ManyDistinctIdsOutgrowTheAnnouncedTable)
{
    std::vector<NK::Guid> ids;
    for (NK::UInt64 n = 0; n < 5000; ++n)
        ids.push_back(Id(n));
    // Announced for half the ids, the table must still find every one of them.
    std::deque<TextItem> items;
    NK::Array<const WZ::Diffable*> oldItems;
    NK::Array<const WZ::Diffable*> newItems;
    for (NK::UInt64 n = 0; n < 2500; ++n) {
        oldItems.Push(&items.emplace_back(n, "x"));
        newItems.Push(&items.emplace_back(n + 2500, "x"));
    }
    WZ::Diff::Result result = WZ::Diffing(oldItems, newItems);
    for (NK::UInt64 n = 0; n < 2500; ++n) {
        ASSERT_EQ(result.oldIndexMap.GetIndex(ids[n], -1), static_cast<NK::Int64>(n));
        ASSERT_EQ(result.newIndexMap.GetIndex(ids[n + 2500], -1), static_cast<NK::Int64>(n));
    }
    WZ::Diff::IndexMap own(ids);
    EXPECT_EQ(own.GetIndex(Id(4999), -1), 4999);
    EXPECT_EQ(own.GetSize(), 5000u);
}

}  // namespace
