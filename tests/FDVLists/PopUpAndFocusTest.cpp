// The controls beside the tree-and-list view's list on their own: the pop-up of parent folders,
// the focus tracker, and the splitter bar that the list box follows.
#include "ListsTestBench.hpp"

#include "NK/NKAssert.hpp"
#include "QM/QMSplitter.hpp"
#include "WZSources/ImprovedControls/WZImprovedHorizontalSplitter.hpp"

#include <gtest/gtest.h>

namespace {

using namespace FDVListsTest;
using WZ::Folderable::PopUpItem;
using WZ::Folderable::PopUpView;
using WZ::Folderable::PopUpViewDelegate;
using WZ::Folderable::Views::ListAndTreeFocus;
using WZ::Folderable::Views::ListAndTreeFocusDelegate;

class PickRecorder : public PopUpViewDelegate {
public:
    void PopUpViewSelectionChanged(const PopUpItem& item) override { picked.push_back(item.GetText().ToUtf8()); }
    std::vector<std::string> picked;
};

class PopUpViewTest : public ::testing::Test {
protected:
    PopUpViewTest() : forest(BuildForest(SampleForest())) { popUp.SetDelegate(&recorder); }

    NK::Array<NK::Owner<PopUpItem>> Path(const std::vector<std::string>& names)
    {
        NK::Array<NK::Owner<PopUpItem>> items;
        for (const std::string& name : names)
            items.Push(NK::NewOwned<PopUpItem>(*Find(forest, name), NK::UniString(name), QM::Icon()));
        return items;
    }

    QM::Dialog dialog;
    QM::PopUpControl control {dialog, QM::Rect(0, 0, 200, 20)};
    PopUpView popUp {control};
    PickRecorder recorder;
    NK::Array<NK::Owner<ModelItem>> forest;
};

TEST_F(PopUpViewTest, ShowsThePathWithTheLastChosenAndPassesOnlyAUsersPick)
{
    popUp.SetItems(Path({"Recipes", "Vegetables", "Spinach"}));
    EXPECT_EQ(PopUpEntries(control), "Recipes > Vegetables > Spinach");
    EXPECT_EQ(&popUp.GetSelectedItem()->GetModel(), Find(forest, "Spinach"));
    EXPECT_TRUE(recorder.picked.empty());
    control.SimulateUserSelect(2);
    EXPECT_EQ(recorder.picked, (std::vector<std::string> {"Vegetables"}));

    popUp.SetDelegate(nullptr);
    NK::AssertCapture capture;
    control.SimulateUserSelect(1);
    EXPECT_EQ(capture.GetExpressions(), (std::vector<std::string> {"delegate != nullptr"}));
}

TEST_F(PopUpViewTest, WalkingAlongAPathRewritesOnlyItsEnd)
{
    popUp.SetItems(Path({"Recipes", "Vegetables"}));
    control.ResetJournal();
    popUp.SetItems(Path({"Recipes", "Vegetables", "Spinach"}));
    popUp.SetItems(Path({"Recipes", "Stews"}));
    EXPECT_EQ(control.GetJournal().GetCount(QM::Op::InsertItem), 2u);
    EXPECT_EQ(control.GetJournal().GetCount(QM::Op::DeleteItem), 2u);
    EXPECT_EQ(PopUpEntries(control), "Recipes > Stews");
    popUp.SetItems({});
    EXPECT_EQ(control.GetItemCount(), 0);
    EXPECT_EQ(popUp.GetSelectedItem(), nullptr);
}

class FocusRecorder : public ListAndTreeFocusDelegate {
public:
    explicit FocusRecorder(const ListAndTreeFocus& focus) : focus(focus) {}
    void ListAndTreeFocusChanged() override
    {
        auto name = [](ListAndTreeFocus::Status status) { return status == ListAndTreeFocus::Status::Tree ? "tree" : "list"; };
        changes.push_back(std::string(name(focus.GetPreviousFocus())) + ">" + name(focus.GetLastFocus()));
    }
    const ListAndTreeFocus& focus;
    std::vector<std::string> changes;
};

TEST(ListAndTreeFocusTest, RecordsTheLastFocusedControlAndTheOneBeforeOnlyWhileEnabled)
{
    QM::Dialog dialog;
    QM::TreeView tree(dialog, QM::Rect(0, 0, 100, 100));
    QM::ListBox list(dialog, QM::Rect(100, 0, 100, 100));
    QM::SearchEdit search(dialog, QM::Rect(0, 100, 200, 20));
    ListAndTreeFocus focus;
    FocusRecorder recorder(focus);
    focus.SetDelegate(&recorder);
    focus.SetControls(&tree, &list);

    list.SimulateUserFocus();  // not tracked yet
    focus.Enable();
    tree.SimulateUserFocus();
    search.SimulateUserType("x");  // another control: not recorded
    list.SimulateUserFocus();
    tree.SimulateUserFocus();
    focus.Disable();
    list.SimulateUserFocus();

    EXPECT_EQ(recorder.changes, (std::vector<std::string> {"tree>tree", "tree>list", "list>tree"}));
    EXPECT_EQ(focus.GetLastFocus(), ListAndTreeFocus::Status::Tree);
}

// The tree left of the bar keeps its left edge, the list right of it its right edge, however the
// bar moves; neither becomes narrower than nothing.
TEST(ImprovedHorizontalSplitterTest, TheListBoxAndTheTreeFollowTheBar)
{
    ListsResource resource;
    resource.treeView.SetRect(QM::Rect(0, 0, 200, 300));
    resource.listBox.SetRect(QM::Rect(204, 0, 500, 300));
    QM::Splitter bar(resource.dialog, QM::Rect(200, 0, 204, 300));
    WZ::ImprovedHorizontalSplitter splitter(bar);
    splitter.AddItem(resource.treeView);
    resource.list.AddToImprovedSplitter(splitter);

    struct Step {
        int drag;
        short treeRight, listLeft;
    };
    const std::vector<Step> steps {{30, 230, 234}, {-100, 130, 134}, {-200, 0, -66}, {600, 600, 500}};
    for (const Step& step : steps) {
        bar.SimulateUserDrag(step.drag);
        EXPECT_EQ(resource.treeView.GetRect(), QM::Rect(0, 0, step.treeRight, 300)) << step.drag;
        EXPECT_EQ(resource.listBox.GetRect(), QM::Rect(step.listLeft, 0, 500, 300)) << step.drag;
    }
    // A removed item stays where it is; the program's moves of the bar count like the user's.
    splitter.RemoveItem(resource.treeView);
    bar.SetPosition(300);
    EXPECT_EQ(resource.treeView.GetRect(), QM::Rect(0, 0, 600, 300));
    EXPECT_EQ(resource.listBox.GetRect(), QM::Rect(270, 0, 500, 300));

    NK::AssertCapture capture;
    QM::Splitter lying(resource.dialog, QM::Rect(0, 100, 500, 104), QM::Splitter::Orientation::Horizontal);
    WZ::ImprovedHorizontalSplitter refused(lying);
    EXPECT_EQ(capture.GetExpressions(), (std::vector<std::string> {"splitter.GetOrientation () == Vertical"}));
}

}  // namespace
