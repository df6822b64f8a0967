#include "DiffTestItems.hpp"

#include "WZSources/Diff/WZDiff.hpp"

#include <gtest/gtest.h>

#include <memory>
#include <vector>

namespace {

using DiffTest::TreeNode;
using WZ::Diff::Move;
using WZ::Diff::TreeResult;

NK::Array<const WZ::TreeDiffable*> Roots(const std::vector<std::unique_ptr<TreeNode>>& roots)
{
    NK::Array<const WZ::TreeDiffable*> result;
    for (const auto& root : roots)
        result.Push(root.get());
    return result;
}

std::vector<NK::UInt64> Keys(const TreeResult& result)
{
    std::vector<NK::UInt64> keys;
    for (const auto& entry : result.updates)
        keys.push_back(entry.first);
    return keys;
}

class TreeDiffingTest : public ::testing::Test {
protected:
    TreeNode& Root(std::vector<std::unique_ptr<TreeNode>>& forest, NK::UInt64 number, const std::string& text)
    {
        forest.push_back(std::make_unique<TreeNode>(number, text));
        return *forest.back();
    }

    std::vector<std::unique_ptr<TreeNode>> before;
    std::vector<std::unique_ptr<TreeNode>> after;
};

TEST_F(TreeDiffingTest, EqualForestsHaveNoChanges)
{
    Root(before, 1, "a").Add(11, "a1").Add(111, "a11");
    Root(after, 1, "a").Add(11, "a1").Add(111, "a11");
    EXPECT_FALSE(WZ::TreeDiffing(Roots(before), Roots(after)).HasChanges());
}

TEST_F(TreeDiffingTest, LevelChangesAreKeptInAscendingSets)
{
    Root(before, 1, "a");
    Root(before, 2, "b");
    Root(before, 3, "c");
    Root(after, 4, "d");
    Root(after, 1, "a");
    Root(after, 3, "c-renamed");
    Root(after, 5, "e");
    TreeResult result = WZ::TreeDiffing(Roots(before), Roots(after));
    EXPECT_EQ(result.inserted, (NK::SkipSet<NK::UInt64> {0, 3}));
    EXPECT_EQ(result.deleted, (NK::SkipSet<NK::UInt64> {1}));
    EXPECT_TRUE(result.moved.IsEmpty());
    ASSERT_EQ(Keys(result), (std::vector<NK::UInt64> {2}));
    EXPECT_TRUE(result.updates.Get(2).itemChanged);
    EXPECT_EQ(result.updates.Get(2).subTree, nullptr);
}

TEST_F(TreeDiffingTest, ChildrenChangesNestUnderTheUnchangedParentByNewIndex)
{
    Root(before, 1, "a");
    TreeNode& oldB = Root(before, 2, "b");
    oldB.Add(21, "b1");
    oldB.Add(22, "b2").Add(221, "b21");
    Root(after, 9, "new");
    Root(after, 1, "a");
    TreeNode& newB = Root(after, 2, "b");
    newB.Add(21, "b1");
    newB.Add(22, "b2").Add(221, "b21-renamed");
    newB.Add(23, "b3");

    TreeResult result = WZ::TreeDiffing(Roots(before), Roots(after));
    EXPECT_EQ(result.inserted, (NK::SkipSet<NK::UInt64> {0}));
    ASSERT_EQ(Keys(result), (std::vector<NK::UInt64> {2}));
    const TreeResult::Update& update = result.updates.Get(2);
    EXPECT_FALSE(update.itemChanged);
    ASSERT_NE(update.subTree, nullptr);
    EXPECT_EQ(update.subTree->inserted, (NK::SkipSet<NK::UInt64> {2}));
    ASSERT_EQ(Keys(*update.subTree), (std::vector<NK::UInt64> {1}));
    const TreeResult::Update& inner = update.subTree->updates.Get(1);
    EXPECT_FALSE(inner.itemChanged);
    ASSERT_NE(inner.subTree, nullptr);
    ASSERT_EQ(Keys(*inner.subTree), (std::vector<NK::UInt64> {0}));
    EXPECT_TRUE(inner.subTree->updates.Get(0).itemChanged);
    EXPECT_EQ(inner.subTree->updates.Get(0).subTree, nullptr);
}

TEST_F(TreeDiffingTest, AChangedItemWithChangedChildrenHasBothInOneUpdate)
{
    Root(before, 1, "a").Add(11, "x");
    Root(after, 1, "a2").Add(11, "y");
    TreeResult result = WZ::TreeDiffing(Roots(before), Roots(after));
    ASSERT_EQ(Keys(result), (std::vector<NK::UInt64> {0}));
    EXPECT_TRUE(result.updates.Get(0).itemChanged);
    ASSERT_NE(result.updates.Get(0).subTree, nullptr);
    EXPECT_TRUE(result.updates.Get(0).subTree->updates.Get(0).itemChanged);
}

TEST_F(TreeDiffingTest, AMovedItemIsNotDescendedInto)
{
    Root(before, 1, "a").Add(11, "a1");
    Root(before, 2, "b");
    Root(after, 2, "b");
    Root(after, 1, "a").Add(11, "a1-renamed");
    TreeResult result = WZ::TreeDiffing(Roots(before), Roots(after));
    EXPECT_TRUE(result.moved.Contains(Move {0, 1}));
    EXPECT_TRUE(result.moved.Contains(Move {1, 0}));
    EXPECT_TRUE(result.updates.IsEmpty());
}

TEST_F(TreeDiffingTest, CopiesAreDeepAndIndependent)
{
    Root(before, 1, "a").Add(11, "x");
    Root(after, 1, "a").Add(11, "y");
    TreeResult original = WZ::TreeDiffing(Roots(before), Roots(after));
    TreeResult copy = original;
    ASSERT_NE(copy.updates.Get(0).subTree, nullptr);
    EXPECT_NE(copy.updates.Get(0).subTree.Get(), original.updates.Get(0).subTree.Get());
    copy.updates.Get(0).subTree->updates.Clear();
    EXPECT_FALSE(original.updates.Get(0).subTree->updates.IsEmpty());

    TreeResult assigned;
    assigned = original;
    EXPECT_TRUE(assigned.updates.Get(0).subTree->updates.Get(0).itemChanged);
}

}  // namespace
