#include "NK/NKAssert.hpp"
#include "QM/QMDialog.hpp"
#include "QM/QMTreeView.hpp"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <tuple>
#include <vector>

namespace {

using Tree = QM::TreeView;

struct TreeRecorder : QM::TreeViewObserver {
    void SelectionChanged(const QM::TreeViewSelectionEvent& e) override
    {
        std::string text = Who(e.origin) + "selection:";
        for (int item : e.source.GetSelectedItems())
            text += " " + e.source.GetItemText(item).ToUtf8();
        events.push_back(text);
    }
    void ItemExpanded(const QM::TreeViewItemEvent& e) override { Log(Who(e.origin) + "expanded", e); }
    void ItemCollapsed(const QM::TreeViewItemEvent& e) override { Log(Who(e.origin) + "collapsed", e); }
    void ItemDoubleClicked(const QM::TreeViewItemEvent& e) override { Log("double-click", e); }
    void ItemTextEdited(const QM::TreeViewEditEvent& e) override
    {
        events.push_back("edited " + e.oldText.ToUtf8() + " -> " + e.newText.ToUtf8());
    }
    void Log(const std::string& what, const QM::TreeViewItemEvent& e)
    {
        events.push_back(what + " " + e.source.GetItemText(e.item).ToUtf8());
    }
    static std::string Who(QM::Origin origin) { return origin == QM::Origin::User ? "user " : ""; }
    std::vector<std::string> events;
};

class QMTreeViewTest : public ::testing::Test {
protected:
    int Add(Tree& tree, int parent, int after, const char* text)
    {
        int item = tree.InsertItem(parent, after);
        tree.SetItemText(item, text);
        return item;
    }
    // The texts of a node's children, walked forwards; walked backwards they must agree.
    std::vector<std::string> Children(const Tree& tree, int parent) const
    {
        std::vector<std::string> texts;
        std::vector<std::string> backwards;
        for (int c = tree.GetItem(parent, Tree::FirstChild); c != Tree::NoItem; c = tree.GetItem(c, Tree::NextSibling))
            texts.push_back(tree.GetItemText(c).ToUtf8());
        for (int c = tree.GetItem(parent, Tree::LastChild); c != Tree::NoItem; c = tree.GetItem(c, Tree::PreviousSibling))
            backwards.insert(backwards.begin(), tree.GetItemText(c).ToUtf8());
        EXPECT_EQ(backwards, texts);
        return texts;
    }

    QM::Dialog dialog;
    Tree single {dialog, QM::Rect(0, 0, 200, 300)};
    Tree multi {dialog, QM::Rect(200, 0, 400, 300), Tree::SelectionType::Multi};
};

TEST_F(QMTreeViewTest, InsertsByPositionAndRefusesUnknownParentsAndForeignSiblings)
{
    int b = Add(single, 0, Tree::LastPosition, "b");
    int d = Add(single, 0, Tree::LastPosition, "d");
    Add(single, 0, Tree::FirstPosition, "a");
    Add(single, 0, b, "c");
    Add(single, 0, d, "e");
    int child = Add(single, b, Tree::FirstPosition, "b1");
    Add(single, b, child, "b2");
    EXPECT_EQ(Children(single, 0), (std::vector<std::string> {"a", "b", "c", "d", "e"}));
    EXPECT_EQ(Children(single, b), (std::vector<std::string> {"b1", "b2"}));
    EXPECT_EQ(single.GetItem(child, Tree::Parent), b);
    EXPECT_EQ(single.GetChildCount(0), 5);
    EXPECT_TRUE(single.HasAncestor(child, b));
    EXPECT_FALSE(single.HasAncestor(b, child));

    NK::AssertCapture capture;
    EXPECT_EQ(single.InsertItem(99, Tree::LastPosition), Tree::NoItem);
    EXPECT_EQ(single.InsertItem(0, child), Tree::NoItem);  // b1 is not a top-level node
    EXPECT_EQ(single.InsertItem(b, -7), Tree::NoItem);
    EXPECT_EQ(single.GetItem(42, Tree::FirstChild), Tree::NoItem);
    EXPECT_EQ(capture.GetReports().size(), 4u);
    EXPECT_EQ(single.GetItemCount(), 7);
    EXPECT_FALSE(single.IsExistingItem(0));
}

TEST_F(QMTreeViewTest, DeletingANodeDeletesItsSubtreeAndHandlesAreNeverReused)
{
    int a = Add(single, 0, Tree::LastPosition, "a");
    int b = Add(single, 0, Tree::LastPosition, "b");
    int a1 = Add(single, a, Tree::LastPosition, "a1");
    int a11 = Add(single, a1, Tree::LastPosition, "a11");
    int a2 = Add(single, a, Tree::LastPosition, "a2");
    single.SetItemValue(b, 7);
    NK::Ref<NK::Object> record = NK::NewRef<NK::Object>();
    single.SetItemObjectData(a11, record);
    single.DeleteItem(a);
    EXPECT_EQ(record.GetRefCount(), 1);  // the deleted subtree let its records go
    for (int gone : {a, a1, a11, a2})
        EXPECT_FALSE(single.IsExistingItem(gone));
    EXPECT_EQ(Children(single, 0), (std::vector<std::string> {"b"}));
    EXPECT_EQ(single.GetItemValue(b), 7);  // survivors keep their handle and data
    int c = Add(single, 0, Tree::FirstPosition, "c");
    EXPECT_GT(c, a2);
    single.DeleteAllItems();
    EXPECT_EQ(single.GetItemCount(), 0);
    EXPECT_GT(single.AppendItem(0), c);
}

TEST_F(QMTreeViewTest, VisibleNavigationFollowsExpansion)
{
    int a = Add(single, 0, Tree::LastPosition, "a");
    int a1 = Add(single, a, Tree::LastPosition, "a1");
    int a2 = Add(single, a, Tree::LastPosition, "a2");
    int b = Add(single, 0, Tree::LastPosition, "b");
    EXPECT_EQ(single.GetItem(a, Tree::NextVisible), b);
    single.ExpandItem(a);
    const std::vector<std::tuple<int, Tree::GetItemFlag, int>> steps {
        {a, Tree::NextVisible, a1}, {a2, Tree::NextVisible, b}, {b, Tree::NextVisible, Tree::NoItem},
        {b, Tree::PreviousVisible, a2}, {a1, Tree::PreviousVisible, a}, {a, Tree::PreviousVisible, Tree::NoItem}};
    for (const auto& [from, relation, to] : steps)
        EXPECT_EQ(single.GetItem(from, relation), to) << from;
}

TEST_F(QMTreeViewTest, SelectionSingleAndMultiInDisplayOrder)
{
    int a = Add(multi, 0, Tree::LastPosition, "a");
    int b = Add(multi, 0, Tree::LastPosition, "b");
    int a1 = Add(multi, a, Tree::LastPosition, "a1");
    multi.SelectItems({b, a1, a});
    EXPECT_EQ(multi.GetSelectedItems(), (NK::Array<int> {a, a1, b}));
    EXPECT_EQ(multi.GetSelectedItem(2), a1);
    EXPECT_EQ(multi.GetSelectedItem(4), Tree::NoItem);
    multi.DeselectItem(a1);
    multi.DeleteItem(a);
    EXPECT_EQ(multi.GetSelectedItems(), (NK::Array<int> {b}));

    int x = Add(single, 0, Tree::LastPosition, "x");
    int y = Add(single, 0, Tree::LastPosition, "y");
    single.SelectItem(x);
    single.SelectItem(y);
    EXPECT_EQ(single.GetSelectedItems(), (NK::Array<int> {y}));
}

TEST_F(QMTreeViewTest, ObserversHearSelectionExpansionAndEditsWithTheirOrigin)
{
    int a = Add(multi, 0, Tree::LastPosition, "a");
    int a1 = Add(multi, a, Tree::LastPosition, "a1");
    int b = Add(multi, 0, Tree::LastPosition, "b");
    TreeRecorder recorder;
    multi.Attach(recorder);
    multi.SelectItem(a1);
    multi.SelectItem(a1);  // unchanged: silent
    multi.SimulateUserSelectNode(b);
    multi.SimulateUserSelectNodes({a, b});
    multi.SetItemStatus(a1, Tree::ItemStatus::Disabled);
    multi.SimulateUserSelectNode(a1);  // a disabled node takes no click
    multi.SetItemStatus(a1, Tree::ItemStatus::Enabled);
    multi.ExpandItem(a);
    multi.ExpandItem(a);  // unchanged: silent
    multi.SimulateUserCollapse(a);
    multi.SimulateUserExpand(a);
    multi.DeleteItem(b);  // took a selected node with it
    multi.SimulateUserDoubleClickNode(a1);
    multi.BeginItemEdit(a1);
    multi.SimulateUserEndItemEdit("renamed", true);
    multi.BeginItemEdit(a);
    multi.SimulateUserEndItemEdit("ignored", false);
    EXPECT_EQ(recorder.events,
              (std::vector<std::string> {"selection: a1", "user selection: b", "user selection: a b", "expanded a",
                                         "user collapsed a", "user expanded a", "selection: a",
                                         "user selection: a1", "double-click a1", "edited a1 -> renamed"}));
    EXPECT_EQ(multi.GetItemText(a), NK::UniString("a"));
    EXPECT_EQ(multi.GetEditedItem(), Tree::NoItem);
}

TEST_F(QMTreeViewTest, RendersIndentedNodesWithOpenClosedAndSelectionMarks)
{
    int docs = Add(single, 0, Tree::LastPosition, "Documents");
    int letters = Add(single, docs, Tree::LastPosition, "Letters");
    Add(single, letters, Tree::LastPosition, "hidden below a closed node");
    int report = Add(single, docs, Tree::LastPosition, "Report");
    single.SetItemNormalIcon(report, QM::Icon(3, 9));
    int music = Add(single, 0, Tree::LastPosition, "Music");
    Add(single, music, Tree::LastPosition, "Song");
    int empty = Add(single, 0, Tree::LastPosition, "Empty");
    single.SetItemStatus(empty, Tree::ItemStatus::Disabled);
    single.ExpandItem(docs);
    single.SelectItem(report);
    NK::Array<std::string> lines;
    single.Render(lines, "");
    EXPECT_EQ(lines, (NK::Array<std::string> {"#1 TreeView (0, 0, 200, 300)", "    [-] Documents",
                                              "      [+] Letters", "  *       [icon(3:9)] Report",
                                              "    [+] Music", "        Empty (disabled)"}));
}

// A level 100,000 wide and a chain 200,000 deep: links stay consistent, and the walks (selection
// in display order, ancestors, deletion of a subtree, destruction) go without recursion. The text
// form of an open chain grows with the square of its depth, so the chain is printed closed.
TEST(QMTreeViewScaleTest, WideLevelsAndDeepChainsKeepTheirLinks)
{
    QM::Dialog dialog;
    auto tree = std::make_unique<Tree>(dialog, QM::Rect(), Tree::SelectionType::Multi);
    int parent = tree->AppendItem(0);
    std::vector<int> children;
    for (int i = 0; i < 100000; ++i)
        children.push_back(tree->AppendItem(parent));
    for (std::size_t i = 0; i < children.size(); i += 2)
        tree->DeleteItem(children[i]);
    int count = 0;
    for (int c = tree->GetItem(parent, Tree::FirstChild), previous = Tree::NoItem; c != Tree::NoItem;
         previous = c, c = tree->GetItem(c, Tree::NextSibling), ++count)
        ASSERT_EQ(tree->GetItem(c, Tree::PreviousSibling), previous);
    EXPECT_EQ(count, 50000);
    EXPECT_EQ(tree->GetItem(parent, Tree::LastChild), children.back());
    tree->DeleteItem(parent);

    constexpr int depth = 200000;
    const int top = tree->AppendItem(0);
    int deepest = top;
    int middle = top;
    for (int k = 1; k < depth; ++k) {
        tree->ExpandItem(deepest);
        deepest = tree->AppendItem(deepest);
        middle = k == depth / 2 ? deepest : middle;
    }
    tree->SelectItems({deepest, top});
    EXPECT_EQ(tree->GetSelectedItems(), (NK::Array<int> {top, deepest}));
    EXPECT_TRUE(tree->HasAncestor(deepest, top));
    NK::Array<std::string> lines;
    tree->CollapseItem(top);
    tree->Render(lines, "");
    EXPECT_EQ(lines.GetLast(), "  * [+] ");
    tree->DeleteItem(middle);
    EXPECT_EQ(tree->GetItemCount(), depth / 2);
    tree.reset();  // the control goes with a chain 100,000 deep
}

}  // namespace
