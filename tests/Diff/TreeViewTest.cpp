#include "DiffTestItems.hpp"

#include "NK/NKAssert.hpp"
#include "QM/QMDialog.hpp"
#include "QM/QMTreeView.hpp"
#include "WZSources/Diff/TreeView/WZTreeView.hpp"
#include "WZSources/Diff/WZQMAccessors.hpp"
#include "WZSources/Diff/WZTreeNodeAccessor.hpp"
#include "WZSources/Diff/WZTreeViewAccessor.hpp"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using DiffTest::Id;
using DiffTest::TreeNode;

class NameDecorator : public WZ::TreeViewDecorator<TreeNode> {
public:
    explicit NameDecorator(std::string prefix) : prefix(std::move(prefix)) {}
    void Decorate(WZ::TreeNodeAccessor& node, const TreeNode& item) override
    {
        node.SetText((prefix + item.GetText()).c_str());
        node.SetFontStyle(QM::Font::Bold);
    }
    std::string prefix;
};

// A client's tree: it binds itself through the protected typed Setup.
class NodeTree : public WZ::TreeView<TreeNode, NameDecorator> {
public:
    void Bind(QM::TreeView& treeView, const std::string& prefix, NK::Owner<ItemDeallocator> deallocator = nullptr)
    {
        Setup(treeView, NK::NewOwned<NameDecorator>(prefix), std::move(deallocator));
    }
};

class TreeViewTest : public ::testing::Test {
protected:
    QM::Dialog dialog;
    QM::TreeView treeView {dialog, QM::Rect(0, 0, 200, 300)};
};

// Typed operations speak of the client's items. A second Setup reports the three bindings on
// their fixed lines, removes the old updater's nodes before that updater frees their items, and
// binds anew.
TEST_F(TreeViewTest, TypedTreeBindsOnceAndASecondSetupReportsThenReplaces)
{
    NK::AssertCapture capture;
    const TreeNode b(2, "b");
    NodeTree tree;
    tree.Bind(treeView, "first ", NK::NewOwned<WZ::SmartTreeViewUpdater::DefaultDeallocator>());
    auto* owned = new TreeNode(1, "a");
    const TreeNode& child = owned->Add(11, "a1");
    tree.SetRootItems({owned});
    tree.SetRootItems({owned});  // the same root again stays alive
    const int node = tree.GetUpdater()->GetTreeViewItemId(Id(11));
    EXPECT_EQ(tree.GetItem(node), &child);
    EXPECT_EQ(treeView.GetItemText(node).ToUtf8(), "first a1");
    EXPECT_EQ(treeView.GetItemFontStyle(node), QM::Font::Bold);
    treeView.SelectItem(node);
    EXPECT_EQ(tree.GetSelectedItems(), (NK::Array<const TreeNode*> {&child}));
    EXPECT_TRUE(capture.GetReports().empty());

    QM::TreeView other {dialog, QM::Rect(0, 0, 100, 100)};
    tree.Bind(other, "second ", nullptr);
    std::vector<std::pair<std::string, int>> reported;
    for (const auto& report : capture.GetReports()) {
        reported.emplace_back(report.expression, report.location.line);
        EXPECT_EQ(report.location.function, "WZ::UntypedTreeView::Setup");
        EXPECT_EQ(report.location.file, "WZSources\\Diff\\TreeView\\WZTreeView");
        EXPECT_EQ(report.kind, NK::AssertImpl::Kind::Precondition);
    }
    EXPECT_EQ(reported, (std::vector<std::pair<std::string, int>> {
                            {"this->treeView == nullptr", 350}, {"this->decorator == nullptr", 351}, {"updater == nullptr", 352}}));
    EXPECT_EQ(treeView.GetItemCount(), 0);  // no node is left with a record of a freed item
    tree.SetRootItems({&b});
    EXPECT_EQ(tree.GetRootItems(), (NK::Array<const TreeNode*> {&b}));
    EXPECT_EQ(tree.GetItem(Id(2)), &b);
    EXPECT_EQ(other.GetItemText(other.GetItem(0, QM::TreeView::FirstChild)).ToUtf8(), "second b");
}

// Records the "after" argument of every insertion.
class RecordingAccessor : public WZ::TreeViewAccessor {
public:
    using TreeViewAccessor::TreeViewAccessor;
    std::vector<int> afters;

protected:
    int InsertItem(int parent, int after) override
    {
        afters.push_back(after);
        return TreeViewAccessor::InsertItem(parent, after);
    }
};

TEST_F(TreeViewTest, AccessorWalksAndInsertsByPosition)
{
    RecordingAccessor accessor(treeView);
    EXPECT_TRUE(accessor.GetChildren(0).IsEmpty());
    const int b = accessor.GetInsertItem(0, 0);  // empty level: first
    const int d = accessor.GetInsertItem(0, 1);  // at the end
    const int a = accessor.GetInsertItem(0, 0);  // in front of b
    const int c = accessor.GetInsertItem(0, 2);  // between b and d
    EXPECT_EQ(accessor.afters, (std::vector<int> {QM::TreeView::FirstPosition, QM::TreeView::LastPosition,
                                                  QM::TreeView::FirstPosition, b}));
    EXPECT_EQ(accessor.GetChildren(0), (NK::Array<int> {a, b, c, d}));
    const int c1 = accessor.GetInsertItem(c, 0);
    const int c2 = accessor.GetInsertItem(c, 1);
    const int c11 = accessor.GetInsertItem(c1, 0);
    const int c111 = accessor.GetInsertItem(c11, 0);
    EXPECT_EQ(accessor.GetAllChildren(c), (NK::Array<int> {c, c1, c11, c111, c2}));
    EXPECT_EQ(accessor.GetAllChildren(c11), (NK::Array<int> {c11, c111}));  // stays below the item
    EXPECT_EQ(accessor.GetSiblings(c2), (NK::Array<int> {c1, c2}));
    EXPECT_EQ(accessor.GetParentItem(c11), c1);
    treeView.DeleteItem(c1);
    EXPECT_FALSE(accessor.IsExistingItem(c11));
    EXPECT_TRUE(accessor.IsExistingItem(c2));
}

TEST_F(TreeViewTest, AccessorsForwardToTheirControls)
{
    const int node = treeView.AppendItem(0);
    WZ::TreeNodeAccessor look(treeView, node);
    look.SetNormalIcon(QM::Icon(2, 7));
    look.SetFontStyle(QM::Font::Italic);
    look.SetTextColor(QM::Color(10, 20, 30));
    look.SetBackgroundColor(QM::Color(40, 50, 60));
    EXPECT_EQ(treeView.GetItemNormalIcon(node), QM::Icon(2, 7));
    EXPECT_EQ(treeView.GetItemFontStyle(node), QM::Font::Italic);
    EXPECT_EQ(treeView.GetItemColor(node), QM::Color(10, 20, 30));
    look.ResetTextColor();
    EXPECT_EQ(treeView.GetItemColor(node), std::nullopt);
    EXPECT_EQ(treeView.GetItemBackgroundColor(node), QM::Color(40, 50, 60));
    look.ResetBackgroundColor();
    EXPECT_EQ(treeView.GetItemBackgroundColor(node), std::nullopt);

    WZ::QMTreeViewAccessor tree(&treeView);
    treeView.SelectItem(node);
    tree.DisableDraw();
    EXPECT_FALSE(treeView.IsDrawEnabled());
    EXPECT_EQ(tree.GetSelectedItem(1), node);
    EXPECT_EQ(WZ::QMTreeViewAccessor().GetSelectedItem(1), QM::TreeView::NoItem);  // unbound: no control
    WZ::QMItemAccessor item(&treeView);
    item.MoveAndResize(5, 6, 50, 60);
    EXPECT_EQ(treeView.GetRect(), QM::Rect(5, 6, 55, 66));
    item.SetVisibility(false);
    EXPECT_FALSE(treeView.IsVisible());
    EXPECT_FALSE(WZ::QMItemAccessor().IsVisible());
}

}  // namespace
