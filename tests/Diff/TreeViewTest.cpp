#include "DiffTestItems.hpp"

#include "NK/NKAssert.hpp"
#include "QM/QMDialog.hpp"
#include "QM/QMTreeView.hpp"
#include "WZSources/Diff/TreeView/WZTreeView.hpp"
#include "WZSources/Diff/WZQMAccessors.hpp"
#include "WZSources/Diff/WZTreeViewAccessor.hpp"

#include <gtest/gtest.h>

#include <memory>
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
    void Bind(QM::TreeView& treeView, const std::string& prefix)
    {
        Setup(treeView, NK::NewOwned<NameDecorator>(prefix), nullptr);
    }
};

class TreeViewTest : public ::testing::Test {
protected:
    QM::Dialog dialog;
    QM::TreeView treeView {dialog, QM::Rect(0, 0, 200, 300)};
    std::vector<std::unique_ptr<TreeNode>> roots;
};

TEST_F(TreeViewTest, TypedOperationsSpeakOfTheClientsItems)
{
    NodeTree tree;
    tree.Bind(treeView, "> ");

    roots.push_back(std::make_unique<TreeNode>(1, "a"));
    TreeNode& child = roots.back()->Add(11, "a1");
    roots.push_back(std::make_unique<TreeNode>(2, "b"));
    tree.SetRootItems({roots[0].get(), roots[1].get()});

    EXPECT_EQ(tree.GetRootItems(), (NK::Array<const TreeNode*> {roots[0].get(), roots[1].get()}));
    EXPECT_EQ(tree.GetItem(Id(11)), &child);
    const int node = tree.GetUpdater()->GetTreeViewItemId(Id(11));
    EXPECT_EQ(tree.GetItem(node), &child);
    EXPECT_EQ(treeView.GetItemText(node).ToUtf8(), "> a1");
    EXPECT_EQ(treeView.GetItemFontStyle(node), QM::Font::Bold);
    treeView.SelectItem(node);
    EXPECT_EQ(tree.GetSelectedItems(), (NK::Array<const TreeNode*> {&child}));
}

TEST_F(TreeViewTest, SecondSetupReportsThenReplaces)
{
    NK::AssertCapture capture;
    NodeTree tree;
    tree.Bind(treeView, "first ");
    EXPECT_TRUE(capture.GetReports().empty());
    WZ::SmartTreeViewUpdater* firstUpdater = tree.GetUpdater();

    QM::TreeView other {dialog, QM::Rect(0, 0, 100, 100)};
    tree.Bind(other, "second ");
    ASSERT_EQ(capture.GetReports().size(), 3u);
    EXPECT_EQ(capture.GetExpressions(),
              (std::vector<std::string> {"this->treeView == nullptr", "this->decorator == nullptr", "updater == nullptr"}));
    for (const auto& report : capture.GetReports()) {
        EXPECT_EQ(report.location.function, "WZ::UntypedTreeView::Setup");
        EXPECT_EQ(report.location.file, "WZSources\\Diff\\TreeView\\WZTreeView");
        EXPECT_EQ(report.kind, NK::AssertImpl::Kind::Precondition);
    }
    EXPECT_NE(tree.GetUpdater(), firstUpdater);

    roots.push_back(std::make_unique<TreeNode>(1, "a"));
    tree.SetRootItems({roots[0].get()});
    EXPECT_EQ(other.GetItemText(other.GetItem(0, QM::TreeView::FirstChild)).ToUtf8(), "second a");
}

TEST_F(TreeViewTest, AccessorWalksAndInsertsByPosition)
{
    WZ::TreeViewAccessor accessor(treeView);
    EXPECT_TRUE(accessor.GetChildren(0).IsEmpty());
    const int b = accessor.GetInsertItem(0, 0);  // empty level: first
    const int d = accessor.GetInsertItem(0, 1);  // at the end
    const int a = accessor.GetInsertItem(0, 0);  // in front of b
    const int c = accessor.GetInsertItem(0, 2);  // between b and d
    EXPECT_EQ(accessor.GetChildren(0), (NK::Array<int> {a, b, c, d}));
    const int c1 = accessor.GetInsertItem(c, 0);
    const int c2 = accessor.GetInsertItem(c, 1);
    const int c11 = accessor.GetInsertItem(c1, 0);
    EXPECT_EQ(accessor.GetAllChildren(c), (NK::Array<int> {c, c1, c11, c2}));
    EXPECT_EQ(accessor.GetSiblings(c2), (NK::Array<int> {c1, c2}));
    EXPECT_EQ(accessor.GetParentItem(c11), c1);
    treeView.DeleteItem(c1);
    EXPECT_FALSE(accessor.IsExistingItem(c11));
    EXPECT_TRUE(accessor.IsExistingItem(c2));
}

}  // namespace
