#include "DiffTestItems.hpp"

#include "WZSources/Diff/WZDiff.hpp"

#include <gtest/gtest.h>

#include <deque>
#include <type_traits>
#include <vector>

namespace {

using DiffTest::EqualCalls;
using DiffTest::Id;
using DiffTest::TextItem;
using WZ::Diff::Move;
using Indices = std::vector<NK::UInt64>;
using Moves = std::vector<Move>;

// Owns the items of a test and hands them out as the arrays the comparison takes.
class DiffingTest : public ::testing::Test {
protected:
    const TextItem* Make(NK::UInt64 number, const std::string& text) { return &store.emplace_back(number, text, &calls); }
    static NK::Array<const WZ::Diffable*> List(std::initializer_list<const TextItem*> items)
    {
        NK::Array<const WZ::Diffable*> list;
        for (const TextItem* item : items)
            list.Push(item);
        return list;
    }

    std::deque<TextItem> store;
    EqualCalls calls;
};

template <typename Set>
auto InOrder(const Set& set)
{
    return std::vector<std::remove_cvref_t<decltype(*set.begin())>>(set.begin(), set.end());
}

TEST_F(DiffingTest, OneEmptySideInsertsOrDeletesEverything)
{
    auto items = List({Make(1, "a"), Make(2, "b"), Make(1, "a")});
    auto grown = WZ::Diffing({}, items);
    EXPECT_EQ(InOrder(grown.inserted), (Indices {0, 1, 2}));
    EXPECT_TRUE(grown.deleted.IsEmpty() && grown.changed.IsEmpty() && grown.moved.IsEmpty() && grown.oldIndexMap.IsEmpty());
    EXPECT_EQ(grown.newIndexMap.GetId(1), Id(2));
    EXPECT_EQ(grown.newIndexMap.GetIndex(Id(1), -1), 0);  // a repeated id maps back to its first index
    auto emptied = WZ::Diffing(items, {});
    EXPECT_EQ(InOrder(emptied.deleted), (Indices {0, 1, 2}));
    EXPECT_TRUE(emptied.inserted.IsEmpty() && emptied.newIndexMap.IsEmpty());
    EXPECT_EQ(emptied.oldIndexMap.GetIndex(Id(2), -1), 1);
    EXPECT_FALSE(WZ::Diffing({}, {}).HasChanges());
    EXPECT_EQ(calls.count, 0);
}

TEST_F(DiffingTest, ContentIsComparedOncePerPairNewAgainstOldAndNeverOnOneObject)
{
    const TextItem* oldA = Make(1, "a");
    const TextItem* oldB = Make(2, "b");
    const TextItem* newA = Make(1, "a");
    EXPECT_FALSE(WZ::Diffing(List({oldA, oldB}), List({oldA, oldB})).HasChanges());
    EXPECT_EQ(calls.count, 0);
    EXPECT_FALSE(WZ::Diffing(List({oldA, oldB}), List({newA, oldB})).HasChanges());
    ASSERT_EQ(calls.count, 1);
    EXPECT_EQ(calls.made[0], std::make_pair(static_cast<const void*>(newA), static_cast<const void*>(oldA)));
}

TEST_F(DiffingTest, MovesNameEveryItemThatChangedItsPlaceAmongThePairs)
{
    const TextItem* a = Make(1, "a");
    const TextItem* b = Make(2, "b");
    const TextItem* c = Make(3, "c");
    // A reversal moves only the outer items; carrying one to the back moves every item it passed.
    auto reversed = WZ::Diffing(List({a, b, c}), List({c, b, a}));
    EXPECT_EQ(InOrder(reversed.moved), (Moves {{2, 0}, {0, 2}}));
    EXPECT_TRUE(reversed.inserted.IsEmpty() && reversed.deleted.IsEmpty() && reversed.changed.IsEmpty());
    EXPECT_EQ(InOrder(WZ::Diffing(List({a, b, c}), List({b, c, a})).moved), (Moves {{1, 0}, {2, 1}, {0, 2}}));
}

TEST_F(DiffingTest, InsertionDeletionChangeAndMoveTogetherAndChangedOldIndicesInNewOrder)
{
    // old A B C D, new A X C B with B's content changed.
    auto result = WZ::Diffing(List({Make(1, "a"), Make(2, "b"), Make(3, "c"), Make(4, "d")}),
                              List({Make(1, "a"), Make(24, "x"), Make(3, "c"), Make(2, "b2")}));
    EXPECT_EQ(InOrder(result.deleted), (Indices {3}));
    EXPECT_EQ(InOrder(result.inserted), (Indices {1}));
    EXPECT_EQ(InOrder(result.changed), (Indices {1}));
    // C keeps index 2 yet moved: the insertion before it alone would have put it at 3.
    EXPECT_EQ(InOrder(result.moved), (Moves {{2, 2}, {1, 3}}));
    EXPECT_EQ(result.oldIndexMap.GetId(3), Id(4));
    EXPECT_EQ(result.newIndexMap.GetIndex(Id(24), -1), 1);

    // Both items changed and swapped: the new pass meets old index 1 first, and lookups still find both.
    auto swapped = WZ::Diffing(List({Make(1, "a"), Make(2, "b")}), List({Make(2, "b2"), Make(1, "a2")}));
    EXPECT_EQ(InOrder(swapped.changed), (Indices {1, 0}));
    EXPECT_TRUE(swapped.changed.Contains(0) && swapped.changed.Contains(1) && !swapped.changed.Contains(2));
    EXPECT_TRUE(swapped.moved.Contains(Move {1, 0}) && !swapped.moved.Contains(Move {0, 0}));
}

TEST_F(DiffingTest, DuplicateIdsPairByOccurrenceAndShareTheirChangedFlag)
{
    const TextItem* first = Make(1, "a");
    const TextItem* second = Make(1, "a");
    auto shrunk = WZ::Diffing(List({first, second}), List({first}));
    EXPECT_EQ(InOrder(shrunk.deleted), (Indices {1}));
    EXPECT_TRUE(shrunk.inserted.IsEmpty() && shrunk.moved.IsEmpty());

    // The surplus new occurrence is an insertion, placed after the paired one.
    auto grown = WZ::Diffing(List({first, Make(2, "b")}), List({Make(2, "b"), first, second}));
    EXPECT_EQ(InOrder(grown.inserted), (Indices {2}));
    EXPECT_EQ(InOrder(grown.moved), (Moves {{1, 0}, {0, 1}}));

    // Only the second pair of id 1 differs, yet both of its pairs are reported by old index.
    auto changed = WZ::Diffing(List({Make(1, "a"), Make(2, "b"), Make(1, "a")}),
                               List({Make(1, "a"), Make(2, "b"), Make(1, "other")}));
    EXPECT_EQ(InOrder(changed.changed), (Indices {0, 2}));
    EXPECT_TRUE(changed.moved.IsEmpty());
}

TEST(DiffIndexSetTest, KeepsAddingOrderAndRefusesMembersItHolds)
{
    // Ascending adds, then adds out of order, then adds in order again after the set lost it.
    WZ::Diff::IndexSet<NK::UInt64> set {2, 5};
    struct Step {
        NK::UInt64 member;
        bool added;
    };
    for (const Step& step : {Step {7, true}, Step {5, false}, Step {3, true}, Step {3, false}, Step {8, true},
                             Step {7, false}, Step {2, false}, Step {9, true}})
        EXPECT_EQ(set.Add(step.member), step.added) << step.member;
    EXPECT_EQ(InOrder(set), (Indices {2, 5, 7, 3, 8, 9}));
    for (NK::UInt64 member = 0; member < 11; ++member)
        EXPECT_EQ(set.Contains(member), member == 2 || member == 3 || member == 5 || (member >= 7 && member <= 9))
            << member;
    EXPECT_EQ(set, (WZ::Diff::IndexSet<NK::UInt64> {9, 8, 7, 5, 3, 2}));
    EXPECT_FALSE(set == (WZ::Diff::IndexSet<NK::UInt64> {9, 8, 7, 5, 3, 1}));
    EXPECT_EQ(InOrder(NK::HashSet<NK::UInt64>(set)), InOrder(set));
}

TEST(SeparatorDiffableTest, EqualOnlyToASeparatorOfTheSameId)
{
    WZ::SeparatorDiffable separator(Id(1));
    TextItem text(1, "a", nullptr, true);
    EXPECT_TRUE(separator.IsEqual(WZ::SeparatorDiffable(Id(1))) && !separator.IsEqual(WZ::SeparatorDiffable(Id(2))));
    EXPECT_FALSE(separator.IsEqual(text));
    EXPECT_TRUE(WZ::IsSeparatorItem(text) && !WZ::IsSeparatorItem(TextItem(2, "b")));
}

TEST(DiffIndexMapTest, EachSideKnowsOnlyItsOwnIdsInIndexOrderAlsoInACopy)
{
    std::deque<TextItem> items;
    auto make = [&](NK::UInt64 number) { return static_cast<const WZ::Diffable*>(&items.emplace_back(number, "x")); };
    WZ::Diff::Result result = WZ::Diffing({make(1), make(2), make(1)}, {make(3), make(1)});

    using Walk = std::vector<std::pair<NK::Int64, NK::Guid>>;
    EXPECT_EQ(Walk(result.oldIndexMap.begin(), result.oldIndexMap.end()), (Walk {{0, Id(1)}, {1, Id(2)}, {2, Id(1)}}));
    EXPECT_FALSE(result.oldIndexMap.HasId(Id(3)) || result.newIndexMap.HasId(Id(2)) || result.oldIndexMap.HasIndex(3));

    WZ::Diff::Result copy = result;  // copies answer alike, also after the original is gone
    result = WZ::Diff::Result();
    EXPECT_EQ(copy.newIndexMap.GetId(1), Id(1));
    EXPECT_EQ(copy.oldIndexMap.GetIndex(Id(2), -1), 1);
    EXPECT_FALSE(result.oldIndexMap.HasId(Id(1)));
}

TEST(DiffIndexMapTest, ManyDistinctIdsOutgrowTheAnnouncedTable)
{
    // The table is announced for the longer list; disjoint lists meet twice as many ids.
    std::deque<TextItem> items;
    NK::Array<const WZ::Diffable*> oldItems;
    NK::Array<const WZ::Diffable*> newItems;
    for (NK::UInt64 n = 0; n < 2500; ++n) {
        oldItems.Push(&items.emplace_back(n, "x"));
        newItems.Push(&items.emplace_back(n + 2500, "x"));
    }
    WZ::Diff::Result result = WZ::Diffing(oldItems, newItems);
    for (NK::UInt64 n = 0; n < 2500; ++n)
        ASSERT_EQ(result.oldIndexMap.GetIndex(Id(n), -1) + result.newIndexMap.GetIndex(Id(n + 2500), -1), 2 * static_cast<NK::Int64>(n));
}

}  // namespace
