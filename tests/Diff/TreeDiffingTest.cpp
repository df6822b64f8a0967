#include "DiffTestItems.hpp"
#include "TreeChain.hpp"

#include "NK/NKAssert.hpp"
#include "WZSources/Diff/WZDiff.hpp"

#include <gtest/gtest.h>

#include <memory>
#include <vector>

namespace {

using DiffTest::TreeNode;
using WZ::Diff::TreeResult;
using Keys = std::vector<NK::UInt64>;

Keys UpdateKeys(const TreeResult& result)
{
    Keys keys;
    for (const auto& entry : result.updates)
        keys.push_back(entry.first);
    return keys;
}

class TreeDiffingTest : public ::testing::Test {
protected:
    TreeNode& Old(NK::UInt64 number, const std::string& text) { return Add(before, number, text); }
    TreeNode& New(NK::UInt64 number, const std::string& text) { return Add(after, number, text); }
    TreeResult Compare() const { return WZ::TreeDiffing(before, after); }
    TreeNode& Add(NK::Array<const WZ::TreeDiffable*>& roots, NK::UInt64 number, const std::string& text)
    {
        owned.push_back(std::make_unique<TreeNode>(number, text));
        roots.Push(owned.back().get());
        return *owned.back();
    }

    std::vector<std::unique_ptr<TreeNode>> owned;
    NK::Array<const WZ::TreeDiffable*> before;
    NK::Array<const WZ::TreeDiffable*> after;
};

TEST_F(TreeDiffingTest, LevelChangesAreKeptInAscendingSetsAndEqualForestsHaveNone)
{
    Old(1, "a").Add(11, "a1").Add(111, "a11");
    Old(2, "b");
    Old(3, "c");
    New(4, "d");
    New(1, "a").Add(11, "a1").Add(111, "a11");
    New(3, "c-renamed");
    New(5, "e");
    const TreeResult result = Compare();
    EXPECT_EQ(result.inserted, (NK::SkipSet<NK::UInt64> {0, 3}));
    EXPECT_EQ(result.deleted, (NK::SkipSet<NK::UInt64> {1}));
    EXPECT_TRUE(result.moved.IsEmpty());
    ASSERT_EQ(UpdateKeys(result), Keys {2});  // a's equal subtree leaves no update
    EXPECT_TRUE(result.updates.Get(2).itemChanged);
    EXPECT_EQ(result.updates.Get(2).oldIndex, 2u);
    EXPECT_EQ(result.updates.Get(2).subTree, nullptr);
    EXPECT_FALSE(WZ::TreeDiffing(after, after).HasChanges());
}

// Changes below a kept item nest under its new index; copies of the result are deep.
TEST_F(TreeDiffingTest, ChildrenChangesNestUnderTheirParentByNewIndex)
{
    Old(1, "a").Add(11, "x");
    TreeNode& oldB = Old(2, "b");
    oldB.Add(21, "b1");
    oldB.Add(22, "b2").Add(221, "b21");
    New(9, "new");
    New(1, "a2").Add(11, "y");
    TreeNode& newB = New(2, "b");
    newB.Add(21, "b1");
    newB.Add(22, "b2").Add(221, "b21-renamed");
    newB.Add(23, "b3");

    const TreeResult result = Compare();
    ASSERT_EQ(UpdateKeys(result), (Keys {1, 2}));
    const TreeResult::Update& a = result.updates.Get(1);  // changed itself and below: one update
    EXPECT_TRUE(a.itemChanged);
    ASSERT_NE(a.subTree, nullptr);
    EXPECT_TRUE(a.subTree->updates.Get(0).itemChanged);
    const TreeResult::Update& b = result.updates.Get(2);
    EXPECT_FALSE(b.itemChanged);
    EXPECT_EQ(b.oldIndex, 1u);
    ASSERT_NE(b.subTree, nullptr);
    EXPECT_EQ(b.subTree->inserted, (NK::SkipSet<NK::UInt64> {2}));
    ASSERT_EQ(UpdateKeys(*b.subTree), Keys {1});
    const TreeResult::Update& b2 = b.subTree->updates.Get(1);
    EXPECT_FALSE(b2.itemChanged);
    ASSERT_NE(b2.subTree, nullptr);
    ASSERT_EQ(UpdateKeys(*b2.subTree), Keys {0});
    EXPECT_TRUE(b2.subTree->updates.Get(0).itemChanged);

    TreeResult copy = result;
    copy.updates.Get(1).subTree->updates.Clear();
    EXPECT_FALSE(result.updates.Get(1).subTree->updates.IsEmpty());
    TreeResult assigned;
    assigned = result;
    EXPECT_TRUE(assigned.updates.Get(2).subTree->updates.Get(1).subTree->updates.Get(0).itemChanged);
}

TEST_F(TreeDiffingTest, AMovedItemIsNotDescendedInto)
{
    Old(1, "a").Add(11, "a1");
    Old(2, "b");
    New(2, "b");
    New(1, "a").Add(11, "a1-renamed");
    const TreeResult result = Compare();
    EXPECT_EQ(result.moved, (NK::HashSet<WZ::Diff::Move> {{0, 1}, {1, 0}}));
    EXPECT_TRUE(result.updates.IsEmpty());
}

// Siblings of one id pair by occurrence: the second old A is the partner of the second new A.
TEST_F(TreeDiffingTest, UpdatesNameThePartnerThatTheComparisonPaired)
{
    Old(1, "A").Add(5, "x");
    Old(1, "A").Add(6, "y").Add(7, "q");
    New(0, "new");
    New(1, "A").Add(5, "x");
    New(1, "A").Add(6, "y").Add(7, "q'");
    const TreeResult result = Compare();
    ASSERT_EQ(UpdateKeys(result), Keys {2});
    EXPECT_EQ(result.updates.Get(2).oldIndex, 1u);
    ASSERT_NE(result.updates.Get(2).subTree, nullptr);
    EXPECT_TRUE(result.updates.Get(2).subTree->inserted.IsEmpty());
}

TEST_F(TreeDiffingTest, NullItemsAreReportedAndLeftOut)
{
    NK::AssertCapture capture;
    TreeNode& a = Old(1, "a");
    a.Add(11, "a1");
    const TreeResult result = WZ::TreeDiffing({nullptr, &a}, {&a, nullptr, &a});
    EXPECT_EQ(result.inserted, (NK::SkipSet<NK::UInt64> {1}));
    EXPECT_EQ(capture.GetReports().size(), 2u);
}

// A change at the bottom of a chain 200,000 deep is found, and the result copies and goes.
TEST(TreeDiffingDepthTest, DeepChainsAreComparedWithoutRecursion)
{
    constexpr NK::UInt64 depth = 200000;
    const auto before = DiffTest::MakeChain(1, depth, "end");
    const auto after = DiffTest::MakeChain(1, depth, "end changed");
    const TreeResult result = WZ::TreeDiffing({&before[0]}, {&after[0]});
    const TreeResult copy = result;
    NK::UInt64 levels = 1;
    for (const TreeResult* level = &copy; !level->updates.Get(0).itemChanged; ++levels)
        level = level->updates.Get(0).subTree.Get();
    EXPECT_EQ(levels, depth);
    EXPECT_FALSE(WZ::TreeDiffing({&before[0]}, {&before[0]}).HasChanges());
}

}  // namespace
