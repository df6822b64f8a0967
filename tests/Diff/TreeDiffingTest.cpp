#include "DiffTestItems.hpp"
#include "TreeChain.hpp"

#include "NK/NKAssert.hpp"
#include "WZSources/Diff/WZDiff.hpp"

#include <gtest/gtest.h>

#include <memory>
#include <vector>

namespace {

using DiffTest::TreeNode;
using WZ::Diff::Move;
using WZ::Diff::TreeResult;

std::vector<NK::UInt64> Keys(const TreeResult& result)
{
    std::vector<NK::UInt64> keys;
    for (const auto& entry : result.updates)
        keys.push_back(entry.first);
    return keys;
}

class TreeDiffingTest : public ::testing::Test {
protected:
    TreeNode& Old(NK::UInt64 number, const std::string& text) { return Root(before, number, text); }
    TreeNode& New(NK::UInt64 number, const std::string& text) { return Root(after, number, text); }
    TreeResult Compare() const { return WZ::TreeDiffing(Roots(before), Roots(after)); }

    static TreeNode& Root(std::vector<std::unique_ptr<TreeNode>>& forest, NK::UInt64 number, const std::string& text)
    {
        forest.push_back(std::make_unique<TreeNode>(number, text));
        return *forest.back();
    }
    static NK::Array<const WZ::TreeDiffable*> Roots(const std::vector<std::unique_ptr<TreeNode>>& roots)
    {
        NK::Array<const WZ::TreeDiffable*> result;
        for (const auto& root : roots)
            result.Push(root.get());
        return result;
    }

    std::vector<std::unique_ptr<TreeNode>> before;
    std::vector<std::unique_ptr<TreeNode>> after;
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
    TreeResult result = Compare();
    EXPECT_EQ(result.inserted, (NK::SkipSet<NK::UInt64> {0, 3}));
    EXPECT_EQ(result.deleted, (NK::SkipSet<NK::UInt64> {1}));
    EXPECT_TRUE(result.moved.IsEmpty());
    ASSERT_EQ(Keys(result), (std::vector<NK::UInt64> {2}));  // a's equal subtree leaves no update
    EXPECT_TRUE(result.updates.Get(2).itemChanged);
    EXPECT_EQ(result.updates.Get(2).oldIndex, 2u);
    EXPECT_EQ(result.updates.Get(2).subTree, nullptr);

    EXPECT_FALSE(WZ::TreeDiffing(Roots(after), Roots(after)).HasChanges());
}

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

    TreeResult result = Compare();
    ASSERT_EQ(Keys(result), (std::vector<NK::UInt64> {1, 2}));
    const TreeResult::Update& a = result.updates.Get(1);  // changed itself and below: one update
    EXPECT_TRUE(a.itemChanged);
    ASSERT_NE(a.subTree, nullptr);
    EXPECT_TRUE(a.subTree->updates.Get(0).itemChanged);

    const TreeResult::Update& b = result.updates.Get(2);
    EXPECT_FALSE(b.itemChanged);
    EXPECT_EQ(b.oldIndex, 1u);
    ASSERT_NE(b.subTree, nullptr);
    EXPECT_EQ(b.subTree->inserted, (NK::SkipSet<NK::UInt64> {2}));
    ASSERT_EQ(Keys(*b.subTree), (std::vector<NK::UInt64> {1}));
    const TreeResult::Update& b2 = b.subTree->updates.Get(1);
    EXPECT_FALSE(b2.itemChanged);
    ASSERT_NE(b2.subTree, nullptr);
    ASSERT_EQ(Keys(*b2.subTree), (std::vector<NK::UInt64> {0}));
    EXPECT_TRUE(b2.subTree->updates.Get(0).itemChanged);
}

TEST_F(TreeDiffingTest, AMovedItemIsNotDescendedInto)
{
    Old(1, "a").Add(11, "a1");
    Old(2, "b");
    New(2, "b");
    New(1, "a").Add(11, "a1-renamed");
    TreeResult result = Compare();
    EXPECT_EQ(result.moved, (NK::HashSet<Move> {{0, 1}, {1, 0}}));
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
    TreeResult result = Compare();
    ASSERT_EQ(Keys(result), (std::vector<NK::UInt64> {2}));
    EXPECT_EQ(result.updates.Get(2).oldIndex, 1u);
    ASSERT_NE(result.updates.Get(2).subTree, nullptr);
    EXPECT_TRUE(result.updates.Get(2).subTree->inserted.IsEmpty());
}

TEST_F(TreeDiffingTest, NullItemsAreReportedAndLeftOut)
{
    NK::AssertCapture capture;
    TreeNode& a = Old(1, "a");
    a.Add(11, "a1");
    TreeResult result = WZ::TreeDiffing({nullptr, &a}, {&a, nullptr, before[0].get()});
    EXPECT_EQ(result.inserted, (NK::SkipSet<NK::UInt64> {1}));
    EXPECT_EQ(capture.GetReports().size(), 2u);
}

TEST_F(TreeDiffingTest, CopiesAreDeepAndIndependent)
{
    Old(1, "a").Add(11, "x");
    New(1, "a").Add(11, "y");
    TreeResult original = Compare();
    TreeResult copy = original;
    ASSERT_NE(copy.updates.Get(0).subTree, nullptr);
    copy.updates.Get(0).subTree->updates.Clear();
    EXPECT_FALSE(original.updates.Get(0).subTree->updates.IsEmpty());

    TreeResult assigned;
    assigned = original;
    EXPECT_TRUE(assigned.updates.Get(0).subTree->updates.Get(0).itemChanged);
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
    const TreeResult* level = &copy;
    while (!level->updates.Get(0).itemChanged) {
        level = level->updates.Get(0).subTree.Get();
        ++levels;
    }
    EXPECT_EQ(levels, depth);
    EXPECT_FALSE(WZ::TreeDiffing({&before[0]}, {&before[0]}).HasChanges());
}

}  // namespace
