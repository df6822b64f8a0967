#include "DiffTestItems.hpp"
#include "TreeChain.hpp"

#include "NK/NKAssert.hpp"
#include "QM/QMDialog.hpp"
#include "QM/QMTreeView.hpp"
#include "WZSources/Diff/WZSmartTreeViewUpdater.hpp"

#include <gtest/gtest.h>

#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <random>
#include <set>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

using DiffTest::ChainLink;
using DiffTest::Id;
using DiffTest::TreeNode;
using Roots = NK::Array<const WZ::TreeDiffable*>;
using Lines = std::vector<std::string>;
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
        if (item.GetText() == throwOn)
            throw std::runtime_error("decorator failed");
        node.SetText(item.GetText().c_str());
        ++calls[item.GetId()];
    }
    std::map<NK::Guid, int> calls;
    std::string throwOn = "\x01";
};

struct RecordingDeallocator : WZ::SmartTreeViewUpdater::ItemDeallocator {
    explicit RecordingDeallocator(std::vector<const WZ::TreeDiffable*>& given) : given(given) {}
    void Deallocate(const WZ::TreeDiffable* item) override { given.push_back(item); }
    std::vector<const WZ::TreeDiffable*>& given;
};

// A node that lists a null entry before its children.
struct NullChildNode : TreeNode {
    using TreeNode::TreeNode;
    Roots GetDiffableChildren() const override
    {
        Roots children = TreeNode::GetDiffableChildren();
        children.Insert(0, nullptr);
        return children;
    }
};

struct ChainDecorator : WZ::UntypedTreeViewDecorator {
    void Decorate(QM::TreeView& view, int node, const WZ::TreeDiffable& item) override
    {
        view.SetItemText(node, static_cast<const ChainLink&>(item).text.c_str());
    }
};

class SmartTreeViewUpdaterTest : public ::testing::Test {
protected:
    Roots Build(const std::vector<Shape>& shapes)
    {
        auto& forest = forests.emplace_back();
        Roots roots;
        std::function<void(TreeNode&, const Shape&)> fill = [&](TreeNode& node, const Shape& shape) {
            for (const Shape& child : shape.children)
                fill(node.Add(child.number, child.text), child);
        };
        for (const Shape& shape : shapes) {
            fill(*forest.emplace_back(std::make_unique<TreeNode>(shape.number, shape.text)), shape);
            roots.Push(forest.back().get());
        }
        return roots;
    }
    WZ::SmartTreeViewUpdater::UpdateResult Show(const std::vector<Shape>& shapes)
    {
        return updater.SetRootItems(Build(shapes));
    }

    // The tree view as lines: two blanks per depth, the text, "+" for an expanded node.
    Lines Shown()
    {
        Lines lines;
        WZ::TreeViewAccessor accessor(treeView);
        NK::Array<int> nodes = accessor.GetAllChildren(QM::TreeView::RootItem);
        for (NK::UIndex k = 1; k < nodes.GetSize(); ++k) {
            std::string indent;
            for (int p = accessor.GetParentItem(nodes[k]); p != QM::TreeView::RootItem; p = accessor.GetParentItem(p))
                indent += "  ";
            lines.push_back(indent + treeView.GetItemText(nodes[k]).ToUtf8() + (treeView.IsItemExpanded(nodes[k]) ? "+" : ""));
        }
        return lines;
    }
    int Node(NK::UInt64 number) const { return updater.GetTreeViewItemId(Id(number)); }

    std::deque<std::vector<std::unique_ptr<TreeNode>>> forests;
    QM::Dialog dialog;
    QM::TreeView treeView {dialog, QM::Rect(0, 0, 200, 300), QM::TreeView::SelectionType::Multi};
    TextDecorator decorator;
    WZ::SmartTreeViewUpdater updater {treeView, decorator, nullptr};
};

TEST_F(SmartTreeViewUpdaterTest, OnlyWhatDiffersIsRewrittenAndNodesPointAtTheNewItems)
{
    Show({{1, "a", {{11, "a1", {{111, "a11", {}}}}}}, {2, "b", {}}});
    treeView.ResetJournal();
    decorator.calls.clear();
    Roots roots = Build({{1, "a", {{11, "a1", {{111, "a11", {}}}}, {12, "a2", {}}}}, {2, "b renamed", {}}});
    const WZ::TreeDiffable* newA11 = roots[0]->GetDiffableChildren()[0]->GetDiffableChildren()[0];
    updater.SetRootItems(std::move(roots));
    EXPECT_EQ(Shown(), (Lines {"a", "  a1", "    a11", "  a2", "b renamed"}));
    // a, whose children changed, is not redecorated; only its level below is updated.
    EXPECT_EQ(decorator.calls, (std::map<NK::Guid, int> {{Id(12), 1}, {Id(2), 1}}));
    EXPECT_EQ(treeView.GetJournal().ToString(), "InsertItem=1 SetItemObjectData=6 SetText=2");
    EXPECT_EQ(updater.GetTreeViewItem(Node(111)), newA11);
    treeView.SetItemText(Node(111), "scribbled");
    updater.RedecorateItem(Node(111));
    EXPECT_EQ(treeView.GetItemText(Node(111)).ToUtf8(), "a11");

    const int foreign = treeView.AppendItem(QM::TreeView::RootItem);  // a node without a record
    EXPECT_THROW(updater.RedecorateItem(foreign), NK::NullReferenceException);
}

// A moved subtree is rebuilt collapsed; expansion comes back by id, the selection on the item or
// its nearest ancestor.
TEST_F(SmartTreeViewUpdaterTest, ExpansionAndSelectionComeBackAfterAnUpdate)
{
    Show({{1, "a", {{11, "a1", {{111, "a11", {}}}}}}, {2, "b", {}}});
    treeView.ExpandItem(Node(1));
    treeView.ExpandItem(Node(11));
    treeView.SelectItem(Node(111));
    const int oldA1 = Node(11);
    auto moved = Show({{2, "b", {}}, {1, "a", {{11, "a1", {{111, "a11", {}}}}}}});
    EXPECT_EQ(Shown(), (Lines {"b", "a", "  a1", "    a11"}));
    EXPECT_FALSE(treeView.IsExistingItem(oldA1));
    moved.RestoreExpandeds();
    EXPECT_EQ(Shown(), (Lines {"b", "a+", "  a1+", "    a11"}));
    EXPECT_EQ(moved.RestoreSelection(), SelectionRestoreResult::SameItem);
    EXPECT_EQ(updater.GetSelectedTreeItems(), (NK::Array<int> {Node(111)}));

    auto ancestor = Show({{2, "b", {}}, {1, "a", {{11, "a1", {}}}}});
    EXPECT_EQ(ancestor.GetSelectedChain(), (NK::Array<NK::Guid> {Id(111), Id(11), Id(1)}));
    EXPECT_EQ(ancestor.RestoreSelection(), SelectionRestoreResult::Ancestor);
    EXPECT_EQ(updater.GetSelectedItemIds(), (NK::Array<NK::Guid> {Id(11)}));

    updater.SelectItem(Id(2));
    auto several = Show({{1, "a", {{11, "a1", {}}}}, {2, "b", {}}});
    EXPECT_TRUE(several.GetSelectedChain().IsEmpty());
    EXPECT_EQ(several.RestoreSelection(), SelectionRestoreResult::Nothing);
}

// A root is freed once, when it is no longer shown: handing the same pointers again keeps them.
TEST_F(SmartTreeViewUpdaterTest, DeallocatorFreesOnlyRootsThatAreNoLongerShown)
{
    const Roots a = Build({{1, "a", {{11, "a1", {}}}}});
    const Roots b = Build({{2, "b", {}}});
    const Roots b2 = Build({{2, "b", {}}});
    struct Case {
        const char* name;
        std::vector<Roots> updates;
        std::vector<const WZ::TreeDiffable*> freedByUpdates;
        std::vector<const WZ::TreeDiffable*> freedAtEnd;
    };
    const std::vector<Case> cases {
        {"same pointers again", {Roots {a[0], b[0]}, Roots {a[0], b[0]}}, {}, {a[0], b[0]}},
        {"one root kept, one dropped", {Roots {a[0], b[0]}, Roots {b[0]}}, {a[0]}, {b[0]}},
        {"new object of a shown id", {Roots {b[0]}, Roots {b2[0]}}, {b[0]}, {b2[0]}},
        {"a root listed twice", {Roots {b[0], b[0]}, Roots {}}, {b[0]}, {}},
    };
    for (const Case& c : cases) {
        std::vector<const WZ::TreeDiffable*> given;
        {
            WZ::SmartTreeViewUpdater owning(treeView, decorator, NK::NewOwned<RecordingDeallocator>(given));
            for (const Roots& roots : c.updates)
                owning.SetRootItems(Roots(roots));
            EXPECT_EQ(given, c.freedByUpdates) << c.name;
            given.clear();
        }
        EXPECT_EQ(given, c.freedAtEnd) << c.name;
        treeView.DeleteAllItems();
    }
}

// Siblings sharing an id pair by occurrence, at every depth; the id maps back to its shallowest,
// first node (the index map is rebuilt breadth first).
TEST_F(SmartTreeViewUpdaterTest, SiblingsSharingAnIdPairByOccurrence)
{
    Show({{1, "a", {{5, "x", {}}}}, {1, "a", {{6, "y", {{7, "q", {}}}}}}});
    Show({{1, "a", {{5, "x", {}}}}, {1, "a", {{6, "y", {{7, "q'", {}}}}}}});
    EXPECT_EQ(Shown(), (Lines {"a", "  x", "a", "  y", "    q'"}));

    Show({{1, "a", {{2, "b below", {}}}}, {2, "b on top", {}}, {3, "c", {{2, "b below", {}}}}});
    EXPECT_EQ(treeView.GetItemText(Node(2)).ToUtf8(), "b on top");
    const int second = treeView.GetItem(Node(1), QM::TreeView::NextSibling);
    treeView.SetItemText(second, "scribbled");
    updater.RedecorateItem(second);  // each node's record names its own item, not the first of the id
    EXPECT_EQ(treeView.GetItemText(second).ToUtf8(), "b on top");
}

TEST_F(SmartTreeViewUpdaterTest, NullItemsAreReportedAndLeftOut)
{
    NK::AssertCapture capture;
    auto& forest = forests.emplace_back();
    for (int k = 0; k < 2; ++k) {
        forest.push_back(std::make_unique<NullChildNode>(1, "a"));
        forest.back()->Add(11, "a1");
    }
    forest.back()->Add(12, "a2");
    forest.push_back(std::make_unique<TreeNode>(2, "b"));
    updater.SetRootItems({nullptr, forest[0].get(), nullptr, forest[2].get()});
    EXPECT_EQ(Shown(), (Lines {"a", "  a1", "b"}));
    EXPECT_GE(capture.GetReports().size(), 3u);  // two roots and a child, at least
    EXPECT_EQ(updater.GetRootItems(), (Roots {forest[0].get(), forest[2].get()}));
    updater.SetRootItems({forest[1].get(), forest[2].get()});
    EXPECT_EQ(Shown(), (Lines {"a", "  a1", "  a2", "b"}));
}

// A throwing decorator leaves the updater showing nothing, consistently, with what it owned freed.
TEST_F(SmartTreeViewUpdaterTest, AFailedUpdateLeavesNothingHalfShown)
{
    std::vector<const WZ::TreeDiffable*> given;
    WZ::SmartTreeViewUpdater owning(treeView, decorator, NK::NewOwned<RecordingDeallocator>(given));
    const Roots first = Build({{1, "a", {{11, "a1", {}}}}, {2, "b", {}}});
    const Roots second = Build({{1, "a", {{11, "a1", {}}, {12, "a2", {}}}}, {3, "bad", {}}});
    owning.SetRootItems(Roots(first));
    decorator.throwOn = "bad";
    EXPECT_THROW(owning.SetRootItems(Roots(second)), std::runtime_error);
    EXPECT_EQ(treeView.GetItemCount(), 0);
    EXPECT_TRUE(owning.GetRootItems().IsEmpty());
    EXPECT_EQ(owning.GetTreeViewItem(Id(11)), nullptr);
    EXPECT_EQ(given, (std::vector<const WZ::TreeDiffable*> {first[0], first[1], second[0], second[1]}));
    decorator.throwOn = "\x01";
    owning.SetRootItems(Build({{1, "a", {{12, "fine", {}}}}}));
    EXPECT_EQ(Shown(), (Lines {"a", "  fine"}));
}

// A chain 200,000 deep is shown, updated at its deepest link and removed.
TEST_F(SmartTreeViewUpdaterTest, DeepChainsAreHandledWithoutRecursion)
{
    constexpr NK::UInt64 depth = 200000;
    const std::deque<ChainLink> first = DiffTest::MakeChain(100, depth, "end");
    const std::deque<ChainLink> second = DiffTest::MakeChain(100, depth, "end changed");
    ChainDecorator chainDecorator;
    WZ::SmartTreeViewUpdater deep(treeView, chainDecorator, nullptr);
    deep.SetRootItems({&first[0]});
    treeView.ResetJournal();
    deep.SetRootItems({&second[0]});
    EXPECT_EQ(treeView.GetJournal().ToString(), "SetItemObjectData=200000 SetText=1");
    EXPECT_EQ(treeView.GetItemText(deep.GetTreeViewItemId(Id(100 + depth - 1))).ToUtf8(), "end changed");
    deep.SetRootItems({});
    EXPECT_EQ(treeView.GetItemCount(), 0);
}

// Random forests, with items moving within and between levels and ids repeated: after each update
// and RestoreExpandeds the tree shows exactly the new forest, every node's record names the item
// at its place, a node whose path holds only ids unique in both forests keeps the expansion it had
// at the same path, no node is expanded whose id was not, and an equal forest changes no node.
TEST_F(SmartTreeViewUpdaterTest, RandomUpdatesLeaveTheTreeShowingTheNewForest)
{
    std::mt19937 random(11);
    auto pick = [&](std::size_t low, std::size_t high) { return std::uniform_int_distribution<std::size_t>(low, high)(random); };
    NK::UInt64 nextNumber = 1;
    std::vector<Shape> forest;
    auto randomLevel = [&]() {
        std::vector<Shape>* level = &forest;
        while (!level->empty() && pick(0, 2) > 0)
            level = &(*level)[pick(0, level->size() - 1)].children;
        return level;
    };
    std::set<std::vector<NK::UInt64>> expandedPaths;
    std::set<NK::UInt64> expandedIds;
    std::map<NK::UInt64, int> oldOccurrences;
    for (int round = 0; round < 300; ++round) {
        for (std::size_t e = pick(0, 5); e > 0; --e) {
            std::vector<Shape>* level = randomLevel();
            const std::size_t size = level->size();
            const std::size_t kind = size == 0 ? pick(0, 1) : pick(0, 6);
            if (kind == 0) {
                level->insert(level->begin() + pick(0, size), Shape {nextNumber, "n" + std::to_string(nextNumber), {}});
                ++nextNumber;
            } else if (kind == 1) {  // an id already used, with a text of its own
                level->insert(level->begin() + pick(0, size), Shape {pick(1, nextNumber), "r" + std::to_string(round), {}});
            } else if (kind == 2) {
                level->erase(level->begin() + pick(0, size - 1));
            } else if (kind == 3) {
                (*level)[pick(0, size - 1)].text += "'";
            } else if (kind == 4) {
                std::swap((*level)[pick(0, size - 1)], (*level)[pick(0, size - 1)]);
            } else {  // to another parent
                const auto from = level->begin() + pick(0, size - 1);
                Shape moving = std::move(*from);
                level->erase(from);
                std::vector<Shape>* target = randomLevel();
                target->insert(target->begin() + pick(0, target->size()), std::move(moving));
            }
        }
        Show(forest).RestoreExpandeds();

        std::vector<std::pair<std::vector<NK::UInt64>, const Shape*>> expected;  // pre-order, with id paths
        std::vector<NK::UInt64> path;
        std::map<NK::UInt64, int> occurrences;
        std::function<void(const std::vector<Shape>&)> walk = [&](const std::vector<Shape>& level) {
            for (const Shape& shape : level) {
                path.push_back(shape.number);
                expected.emplace_back(path, &shape);
                ++occurrences[shape.number];
                walk(shape.children);
                path.pop_back();
            }
        };
        walk(forest);
        const NK::Array<int> nodes = WZ::TreeViewAccessor(treeView).GetAllChildren(QM::TreeView::RootItem);
        ASSERT_EQ(nodes.GetSize(), expected.size() + 1) << "round " << round;
        std::set<std::vector<NK::UInt64>> nowExpanded;
        std::set<NK::UInt64> nowExpandedIds;
        for (NK::UIndex k = 0; k < expected.size(); ++k) {
            const int node = nodes[k + 1];
            const auto& [idPath, shape] = expected[k];
            ASSERT_EQ(treeView.GetItemText(node).ToUtf8(), shape->text) << "round " << round;
            ASSERT_EQ(updater.GetTreeViewItemId(node), Id(shape->number)) << "round " << round;
            treeView.SetItemText(node, "");
            updater.RedecorateItem(node);
            ASSERT_EQ(treeView.GetItemText(node).ToUtf8(), shape->text) << "round " << round;
            bool unique = true;
            for (NK::UInt64 number : idPath)
                unique = unique && occurrences[number] == 1 && oldOccurrences[number] <= 1;
            const bool expanded = treeView.IsItemExpanded(node);
            ASSERT_TRUE(!unique || expandedPaths.count(idPath) == 0 || expanded) << "round " << round << " " << shape->text;
            ASSERT_TRUE(!expanded || expandedIds.count(shape->number) > 0) << "round " << round << " " << shape->text;
            if (pick(0, 3) == 0)
                treeView.ExpandItem(node);
            if (treeView.IsItemExpanded(node)) {
                nowExpanded.insert(idPath);
                nowExpandedIds.insert(shape->number);
            }
        }
        expandedPaths = std::move(nowExpanded);
        expandedIds = std::move(nowExpandedIds);
        oldOccurrences = std::move(occurrences);
        treeView.ResetJournal();
        Show(forest);
        ASSERT_EQ(treeView.GetJournal().GetCount(QM::Op::InsertItem) + treeView.GetJournal().GetCount(QM::Op::DeleteItem), 0u) << "round " << round;
    }
}

}  // namespace
