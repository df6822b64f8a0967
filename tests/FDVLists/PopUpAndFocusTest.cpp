// The pop-up of parent folders and the focus tracker of the tree-and-list view on their own.
#include "ListsTestBench.hpp"

#include "NK/NKAssert.hpp"

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

TEST_F(PopUpViewTest, ShowsTheEntriesAndChoosesTheLastSilently)
{
    popUp.SetItems(Path({"Recipes", "Vegetables", "Spinach"}));
    EXPECT_EQ(PopUpEntries(control), "Recipes > Vegetables > Spinach");
    EXPECT_EQ(control.GetSelectedItem(), 3);
    EXPECT_EQ(&popUp.GetSelectedItem()->GetModel(), Find(forest, "Spinach"));
    EXPECT_TRUE(recorder.picked.empty());
}

TEST_F(PopUpViewTest, AUsersPickReachesTheDelegate)
{
    popUp.SetItems(Path({"Recipes", "Vegetables", "Spinach"}));
    control.SimulateUserSelect(2);
    EXPECT_EQ(recorder.picked, (std::vector<std::string> {"Vegetables"}));
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

TEST_F(PopUpViewTest, APickWithoutADelegateIsReported)
{
    popUp.SetItems(Path({"Recipes", "Vegetables"}));
    popUp.SetDelegate(nullptr);
    NK::AssertCapture capture;
    control.SimulateUserSelect(1);
    EXPECT_EQ(capture.GetExpressions(), (std::vector<std::string> {"delegate != nullptr"}));
}

class FocusRecorder : public ListAndTreeFocusDelegate {
public:
    explicit FocusRecorder(const ListAndTreeFocus& focus) : focus(focus) {}
    void ListAndTreeFocusChanged() override
    {
        changes.push_back(focus.GetLastFocus() == ListAndTreeFocus::Status::Tree ? "tree" : "list");
    }
    const ListAndTreeFocus& focus;
    std::vector<std::string> changes;
};

TEST(ListAndTreeFocusTest, RecordsTheLastFocusedControlOnlyWhileEnabled)
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
    focus.Disable();
    tree.SimulateUserFocus();

    EXPECT_EQ(recorder.changes, (std::vector<std::string> {"tree", "list"}));
    EXPECT_EQ(focus.GetLastFocus(), ListAndTreeFocus::Status::List);
}

}  // namespace
