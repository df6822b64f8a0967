#include "DiffTestItems.hpp"

#include "QM/QMDialog.hpp"
#include "QM/QMTreeView.hpp"
#include "WZSources/Diff/WZSmartTreeViewUpdater.hpp"

#include <gtest/gtest.h>

#include <deque>
#include <map>
#include <memory>
#include <random>
#include <set>
#include <string>
#include <vector>

namespace {

using DiffTest::Id;
using DiffTest::TreeNode;
using SelectionRestoreResult = WZ::SmartTreeViewUpdater::UpdateResult::SelectionRestoreResult;

// The shape of a forest: built into fresh TreeNodes for every update, as a client would.
struct Shape {
    NK::UInt64 number;
    std::string text;
    std::vector<Shape> children;
};

class TextDecorator : public WZ::TreeViewDecorator<TreeNode> {
public:
    void Decorate(WZ::TreeNodeAccessor& node, const TreeNode& item) override
    {
        node.SetText(item.GetText().c_str());
        ++calls[item.GetId()];
        lastItem[item.GetId()] = &item;
    }
    std::map<NK::Guid, int> calls;
    std::map<NK::Guid, const TreeNode*> lastItem;
};

class RecordingDeallocator : public WZ::SmartTreeViewUpdater::ItemDeallocator {
public:
    explicit RecordingDeallocator(std::vector<const WZ::TreeDiffable*>& given) : given(given) {}
    void Deallocate(const WZ::TreeDiffable* item) override { given.push_back(item); }
    std::vector<const WZ::TreeDiffable*>& given;
};

class SmartTreeViewUpdaterTest : public ::testing::Test {
protected:
    NK::Array<const WZ::TreeDiffable*> Build(const std::vector<Shape>& shapes)
    {
        auto& forest = forests.emplace_back();
        NK::Array<const WZ::TreeDiffable*> roots;
        for (const Shape& shape : shapes) {
            forest.push_back(std::make_unique<TreeNode>(shape.number, shape.text));
            AddChildren(*forest.back(), shape.children);
            roots.Push(forest.back().get());
        }
        return roots;
    }
    static void AddChildren(TreeNode& node, const std::vector<Shape>& children)
    {
        for (const Shape& child : children)
            AddChildren(node.Add(child.number, child.text), child.children);
    }
    WZ::SmartTreeViewUpdater::UpdateResult Show(const std::vector<Shape>& shapes)
    {
        return updater.SetRootItems(Build(shapes));
    }

    // The tree view as lines: two blanks per depth, the text, "+" for an expanded node.
    std::vector<std::string> Shown() const
    {
        std::vector<std::string> lines;
        AppendShown(QM::TreeView::RootItem, "", lines);
        return lines;
    }
    void AppendShown(int parent, const std::string& indent, std::vector<std::string>& lines) const
    {
        for (int node = treeView.GetItem(parent, QM::TreeView::FirstChild); node != QM::TreeView::NoItem;
             node = treeView.GetItem(node, QM::TreeView::NextSibling)) {
            lines.push_back(indent + treeView.GetItemText(node).ToUtf8() + (treeView.IsItemExpanded(node) ? "+" : ""));
            AppendShown(node, indent + "  ", lines);
        }
    }
    static void AppendExpected(const std::vector<Shape>& shapes, const std::string& indent, std::vector<std::string>& lines)
    {
        for (const Shape& shape : shapes) {
            lines.push_back(indent + shape.text);
            AppendExpected(shape.children, indent + "  ", lines);
        }
    }
    int Node(NK::UInt64 number) const { return updater.GetTreeViewItemId(Id(number)); }
    NK::UInt64 Count(QM::Op op) const { return treeView.GetJournal().GetCount(op); }

    std::deque<std::vector<std::unique_ptr<TreeNode>>> forests;
    QM::Dialog dialog;
    QM::TreeView treeView {dialog, QM::Rect(0, 0, 200, 300), QM::TreeView::SelectionType::Multi};
    TextDecorator decorator;
    WZ::SmartTreeViewUpdater updater {treeView, decorator, nullptr};
};

TEST_F(SmartTreeViewUpdaterTest, FirstFillBuildsAndMapsTheWholeForest)
{
    Show({{1, "a", {{11, "a1", {{111, "a11", {}}}}, {12, "a2", {}}}}, {2, "b", {}}});
    EXPECT_EQ(Shown(), (std::vector<std::string> {"a", "  a1", "    a11", "  a2", "b"}));
    const int a11 = Node(111);
    EXPECT_EQ(updater.GetTreeViewItemId(a11), Id(111));
    EXPECT_FALSE(updater.HasTreeViewItem(Id(3)));
    EXPECT_EQ(updater.GetTreeViewItem(9999), nullptr);
}

TEST_F(SmartTreeViewUpdaterTest, AnItemWhoseChildrenChangedIsNotRedecorated)
{
    Show({{1, "a", {{11, "a1", {}}}}, {2, "b", {}}});
    treeView.ResetJournal();
    decorator.calls.clear();
    Show({{1, "a", {{11, "a1", {}}, {12, "a2", {}}}}, {2, "b renamed", {}}});
    EXPECT_EQ(Shown(), (std::vector<std::string> {"a", "  a1", "  a2", "b renamed"}));
    EXPECT_EQ(decorator.calls, (std::map<NK::Guid, int> {{Id(12), 1}, {Id(2), 1}}));
    EXPECT_EQ(Count(QM::Op::InsertItem), 1u);
    EXPECT_EQ(Count(QM::Op::DeleteItem), 0u);
}

TEST_F(SmartTreeViewUpdaterTest, EveryNodePointsAtTheNewItemAfterwards)
{
    Show({{1, "a", {{11, "a1", {}}}}});
    auto roots = Build({{1, "a", {{11, "a1", {}}}}});
    const auto* newChild = static_cast<const TreeNode*>(roots[0]->GetDiffableChildren()[0]);
    treeView.ResetJournal();
    updater.SetRootItems(NK::Array<const WZ::TreeDiffable*>(roots));
    EXPECT_EQ(treeView.GetJournal().ToString(), "SetItemObjectData=2");
    EXPECT_EQ(updater.GetTreeViewItem(Node(11)), newChild);
    updater.RedecorateItem(Id(11));
    EXPECT_EQ(decorator.lastItem[Id(11)], newChild);
}

TEST_F(SmartTreeViewUpdaterTest, AMovedSubtreeIsRebuiltCollapsedAndReexpandedById)
{
    Show({{1, "a", {{11, "a1", {{111, "a11", {}}}}}}, {2, "b", {}}});
    treeView.ExpandItem(Node(1));
    treeView.ExpandItem(Node(11));
    const int oldA1 = Node(11);

    auto result = Show({{2, "b", {}}, {1, "a", {{11, "a1", {{111, "a11", {}}}}}}});
    EXPECT_EQ(Shown(), (std::vector<std::string> {"b", "a", "  a1", "    a11"}));
    EXPECT_FALSE(treeView.IsExistingItem(oldA1));  // the subtree was rebuilt
    EXPECT_EQ(result.GetExpandeds(), (NK::HashSet<NK::Guid> {Id(1), Id(11)}));

    result.RestoreExpandeds();
    EXPECT_EQ(Shown(), (std::vector<std::string> {"b", "a+", "  a1+", "    a11"}));
}

TEST_F(SmartTreeViewUpdaterTest, SelectionComesBackOnTheItemOrItsNearestAncestor)
{
    Show({{1, "a", {{11, "a1", {{111, "a11", {}}}}}}, {2, "b", {}}});
    treeView.SelectItem(Node(111));
    auto ancestor = Show({{2, "b", {}}, {1, "a", {{11, "a1", {}}}}});
    EXPECT_EQ(ancestor.GetSelectedChain(), (NK::Array<NK::Guid> {Id(111), Id(11), Id(1)}));
    EXPECT_EQ(ancestor.RestoreSelection(), SelectionRestoreResult::Ancestor);
    EXPECT_EQ(updater.GetSelectedItemIds(), (NK::Array<NK::Guid> {Id(11)}));  // a1 is rebuilt with moved a

    auto same = Show({{1, "a", {{11, "a1", {}}}}, {2, "b", {}}});
    EXPECT_EQ(same.RestoreSelection(), SelectionRestoreResult::SameItem);
    EXPECT_EQ(updater.GetSelectedTreeItems(), (NK::Array<int> {Node(11)}));

    treeView.SelectItem(Node(2));
    auto several = Show({{1, "a", {{11, "a1", {}}}}, {2, "b", {}}});
    EXPECT_TRUE(several.GetSelectedChain().IsEmpty());
    EXPECT_EQ(several.RestoreSelection(), SelectionRestoreResult::Nothing);

}

TEST_F(SmartTreeViewUpdaterTest, SelectAndRedecorateByIdOrNode)
{
    Show({{1, "a", {}}, {2, "b", {}}});
    updater.SelectItem(Id(2));
    EXPECT_EQ(treeView.GetSelectedItems(), (NK::Array<int> {Node(2)}));
    treeView.ResetJournal();
    updater.SelectItem(Id(77));  // not shown: nothing is asked of the tree view
    EXPECT_EQ(treeView.GetJournal().GetTotal(), 0u);

    treeView.SetItemText(Node(1), "scribbled");
    updater.RedecorateItem(Node(1));
    EXPECT_EQ(treeView.GetItemText(Node(1)).ToUtf8(), "a");
    decorator.calls.clear();
    updater.RedecorateItem(Id(77));
    EXPECT_TRUE(decorator.calls.empty());

    const int foreign = treeView.AppendItem(QM::TreeView::RootItem);
    try {
        updater.RedecorateItem(foreign);
        FAIL() << "no exception";
    } catch (const NK::NullReferenceException& e) {
        EXPECT_STREQ(e.what(), "Null reference.");
    }
    treeView.ExpandItem(foreign);
    WZ::TreeViewAccessor accessor(treeView);
    WZ::SmartTreeViewUpdater::IndexMap map;
    WZ::SmartTreeViewUpdater::UpdateResult result(treeView, map, accessor);
    EXPECT_THROW(result.StoreExpandeds({foreign}, treeView), NK::NullReferenceException);
}

TEST_F(SmartTreeViewUpdaterTest, DeallocatorGetsEachOldRootOnce)
{
    std::vector<const WZ::TreeDiffable*> given;
    NK::Array<const WZ::TreeDiffable*> first = Build({{1, "a", {{11, "a1", {}}}}, {2, "b", {}}});
    NK::Array<const WZ::TreeDiffable*> second = Build({{2, "b", {}}});
    {
        WZ::SmartTreeViewUpdater owning(treeView, decorator, NK::NewOwned<RecordingDeallocator>(given));
        owning.SetRootItems(NK::Array<const WZ::TreeDiffable*>(first));
        owning.SetRootItems(NK::Array<const WZ::TreeDiffable*>(second));
        EXPECT_EQ(given, (std::vector<const WZ::TreeDiffable*> {first[0], first[1]}));
    }
    EXPECT_EQ(given, (std::vector<const WZ::TreeDiffable*> {first[0], first[1], second[0]}));
}

// Random forests: after each update the tree view shows exactly the new forest, every node maps
// to the item of its id, and an update to an equal forest inserts and deletes nothing.
TEST_F(SmartTreeViewUpdaterTest, RandomUpdatesLeaveTheTreeShowingTheNewForest)
{
    std::mt19937 random(11);
    auto pick = [&](int low, int high) { return std::uniform_int_distribution<int>(low, high)(random); };
    NK::UInt64 nextNumber = 1;
    std::vector<Shape> forest;
    // A random level of the forest: the roots, or the children of a random node.
    auto randomLevel = [&]() {
        std::vector<Shape>* level = &forest;
        while (!level->empty() && pick(0, 2) > 0)
            level = &(*level)[static_cast<std::size_t>(pick(0, static_cast<int>(level->size()) - 1))].children;
        return level;
    };
    for (int round = 0; round < 300; ++round) {
        for (int e = pick(0, 5); e > 0; --e) {
            std::vector<Shape>* level = randomLevel();
            const int size = static_cast<int>(level->size());
            const int kind = size == 0 ? 0 : pick(0, 4);
            if (kind == 0) {
                level->insert(level->begin() + pick(0, size), Shape {nextNumber, "n" + std::to_string(nextNumber), {}});
                ++nextNumber;
            } else if (kind == 1) {
                level->erase(level->begin() + pick(0, size - 1));
            } else if (kind == 2) {
                (*level)[static_cast<std::size_t>(pick(0, size - 1))].text += "'";
            } else {
                std::swap((*level)[static_cast<std::size_t>(pick(0, size - 1))],
                          (*level)[static_cast<std::size_t>(pick(0, size - 1))]);
            }
        }
        auto result = Show(forest);
        result.RestoreExpandeds();
        std::vector<std::string> expected;
        AppendExpected(forest, "", expected);
        std::vector<std::string> shown = Shown();
        for (std::string& line : shown)
            if (!line.empty() && line.back() == '+')
                line.pop_back();
        ASSERT_EQ(shown, expected) << "round " << round;
        WZ::TreeViewAccessor accessor(treeView);
        NK::Array<int> nodes = accessor.GetAllChildren(QM::TreeView::RootItem);
        for (NK::UIndex k = 1; k < nodes.GetSize(); ++k) {
            const int node = nodes[k];
            const auto* item = static_cast<const TreeNode*>(updater.GetTreeViewItem(node));
            ASSERT_NE(item, nullptr) << "round " << round;
            ASSERT_EQ(item->GetText(), treeView.GetItemText(node).ToUtf8()) << "round " << round;
            ASSERT_EQ(updater.GetTreeViewItemId(item->GetId()), node);
            // Expand a few nodes, so that moved subtrees have something to restore.
            if (pick(0, 3) == 0)
                treeView.ExpandItem(node);
        }

        treeView.ResetJournal();
        Show(forest);
        ASSERT_EQ(Count(QM::Op::InsertItem) + Count(QM::Op::DeleteItem), 0u) << "round " << round;
    }
}

}  // namespace
