#include "DataViewTestBench.hpp"

#include "NK/NKAssert.hpp"

#include <gtest/gtest.h>

namespace {

using namespace FDVDataViewTest;

class DataViewTest : public ::testing::Test {
protected:
    DataViewTest()
    {
        bench.dataView.SetItems(BuildForest(SampleForest()));
        bench.dataView.ShowCurrentView();
        bench.dataView.InitRect();
    }
    FolderedDataView& DataView() { return bench.dataView; }
    short RowOf(const std::string& name) { return DataView().GetListBoxDataView()->GetRow(IdOf(name)); }
    using Events = std::vector<std::string>;

    Bench bench;
    EventRecorder recorder {bench.dataView};
};

TEST_F(DataViewTest, OnlyTheCurrentViewsControlsAreShownAndPlacedInTheRectangle)
{
    EXPECT_TRUE(bench.Table().IsVisible());
    EXPECT_FALSE(bench.ListBox().IsVisible());
    EXPECT_EQ(bench.Table().GetRect(), QM::Rect(10, 34, 630, 410));

    DataView().SetViewMode(ViewMode::TreeAndList);
    EXPECT_FALSE(bench.Table().IsVisible());
    EXPECT_TRUE(bench.Tree().IsVisible());
    EXPECT_TRUE(DataView().GetUpButton()->IsVisible());
    DataView().Resize(400, 300);
    DataView().Move(0, 0);
    EXPECT_EQ(bench.ListBox().GetRect().GetRight(), 400);
    EXPECT_EQ(bench.Tree().GetRect().GetTop(), 24);
    EXPECT_EQ(DataView().GetOwnItem()->GetRect(), QM::Rect(0, 0, 400, 300));
}

TEST_F(DataViewTest, SwitchingViewsCarriesTheSelectionAndSendsAnEventOnlyWhenItChanges)
{
    ASSERT_TRUE(bench.Table().SimulateUserExpand(IdOf("Vegetables")));
    ASSERT_TRUE(bench.Table().SimulateUserSelectNodes(NK::Array<NK::Guid> {IdOf("Peppers"), IdOf("Spinach")}));
    recorder.events.clear();
    // Each view shows both items; the tree-and-list view in the folder of the first.
    for (ViewMode mode : {ViewMode::FlatList, ViewMode::TreeAndList, ViewMode::Hierarchical}) {
        DataView().SetViewMode(mode);
        EXPECT_EQ(bench.Selected(), "Peppers Spinach") << int(mode);
    }
    EXPECT_EQ(bench.TreeAndList().GetTreeSelection(), bench.Find("Vegetables"));
    EXPECT_TRUE(recorder.events.empty());

    // Items of two folders: the tree-and-list view can show only the first one's folder.
    DataView().SetViewMode(ViewMode::FlatList);
    bench.ListBox().SimulateUserSelectRows(NK::Array<short> {RowOf("Muffins"), RowOf("Peppers")});
    recorder.events.clear();
    DataView().SetViewMode(ViewMode::TreeAndList);
    DataView().SetViewMode(ViewMode::TreeAndList);  // the shown mode: nothing happens
    EXPECT_EQ(bench.TreeAndList().GetTreeSelection(), bench.Find("Nibbles"));
    EXPECT_EQ(recorder.events, Events {"Muffins"});
}

TEST_F(DataViewTest, FirstLevelOpensOnceAndFoldersTheUserClosedStayClosed)
{
    EXPECT_EQ(bench.Table().GetExpandedItemIds().GetSize(), 2u);
    ASSERT_TRUE(bench.Table().SimulateUserCollapse(IdOf("Nibbles")));
    ASSERT_TRUE(bench.Table().SimulateUserCollapse(IdOf("Recipes")));
    DataView().SetViewMode(ViewMode::FlatList);
    DataView().SetItems(BuildForest(SampleForest()));
    DataView().SetViewMode(ViewMode::Hierarchical);
    EXPECT_TRUE(bench.Table().GetExpandedItemIds().IsEmpty());

    ASSERT_TRUE(bench.Table().SimulateUserExpand(IdOf("Recipes")));
    DataView().SetViewMode(ViewMode::FlatList);
    DataView().SetViewMode(ViewMode::Hierarchical);
    EXPECT_TRUE(bench.Table().IsExpandedItem(IdOf("Recipes")));
    EXPECT_FALSE(bench.Table().IsExpandedItem(IdOf("Nibbles")));
}

// In every view a search narrows the rows, and both its ends, the user's clearing of the field and
// the program's LeaveSearchMode, bring back the rows and the selection at once.
TEST_F(DataViewTest, EveryViewSearchesAndBothEndsOfASearchRestoreRowsAndSelection)
{
    for (ViewMode mode : {ViewMode::Hierarchical, ViewMode::FlatList, ViewMode::TreeAndList}) {
        DataView().SetViewMode(mode);
        DataView().SetSelection(bench.SelectionOf({"Muffins"}));
        for (bool byProgram : {false, true}) {
            const std::string context = std::to_string(int(mode)) + (byProgram ? " program" : " user");
            bench.SearchField().SimulateUserType("spin");
            EXPECT_TRUE(DataView().IsSearchModeOnCurrentView()) << context;
            EXPECT_TRUE(bench.Shows("Spinach")) << context;
            EXPECT_FALSE(bench.Shows("Muffins")) << context;
            recorder.events.clear();
            if (byProgram)
                DataView().GetCurrentView()->LeaveSearchMode();
            else
                bench.SearchField().SimulateUserClear();
            EXPECT_FALSE(DataView().IsSearchModeOnCurrentView()) << context;
            EXPECT_TRUE(bench.Shows("Muffins")) << context;
            EXPECT_EQ(bench.Selected(), "Muffins") << context;
            EXPECT_EQ(recorder.events, Events {"Muffins"}) << context;
        }
    }
}

TEST_F(DataViewTest, FocusMovingBetweenTreeAndListIsReportedWithTheSelectionOfTheFocusedControl)
{
    DataView().SetViewMode(ViewMode::TreeAndList);
    DataView().SetSelection(bench.SelectionOf({"Peppers"}));
    recorder.events.clear();

    bench.ListBox().SimulateUserFocus();
    EXPECT_EQ(recorder.events, Events {"Peppers"});
    EXPECT_EQ(Names(DataView().GetSelectionOfCurrentControl().GetItems()), "Peppers");
    bench.ListBox().SimulateUserFocus();  // no move, no change: nothing
    bench.Tree().SimulateUserFocus();
    EXPECT_EQ(recorder.events, (Events {"Peppers", "Vegetables"}));
    EXPECT_EQ(bench.ListBox().GetSelectedCount(), 0);
}

TEST_F(DataViewTest, AFlatListRefreshThatOnlyReordersTheRowsSendsNoEvent)
{
    DataView().SetViewMode(ViewMode::FlatList);
    bench.ListBox().SimulateUserSelectRows(NK::Array<short> {RowOf("Peppers"), RowOf("Stews")});
    recorder.events.clear();
    auto& flat = static_cast<FlatListView&>(*DataView().GetCurrentView());
    flat.GetListItemFactory()->SetComparator([](const ListBoxItem* a, const ListBoxItem* b) {
        return static_cast<const ListRow*>(b)->name < static_cast<const ListRow*>(a)->name;
    });
    flat.Refresh();
    EXPECT_EQ(bench.ListRows(), "Vegetables Stews Spinach Recipes Peppers Nibbles Muffins Dumplings");
    EXPECT_EQ(bench.Selected(), "Stews Peppers");
    EXPECT_TRUE(recorder.events.empty());
}

TEST_F(DataViewTest, SetItemsKeepsTheChosenFolderByIdAndAnEmptyForestEmptiesEveryView)
{
    DataView().SetViewMode(ViewMode::TreeAndList);
    bench.Tree().SimulateUserSelectNode(DataView().GetTreeDataView()->GetNode(IdOf("Vegetables")));
    DataView().SetItems(BuildForest(SampleForest()));
    EXPECT_EQ(bench.TreeAndList().GetTreeSelection(), bench.Find("Vegetables"));
    EXPECT_EQ(bench.ListRows(), "Peppers Spinach");

    // The folder follows the new forest while another view is shown; gone, the first is chosen.
    DataView().SetViewMode(ViewMode::Hierarchical);
    ASSERT_TRUE(bench.Table().SimulateUserSelectNode(IdOf("Stews")));
    recorder.events.clear();
    NK::AssertCapture capture;
    DataView().SetItems({});
    EXPECT_EQ(bench.TreeAndList().GetTreeSelection(), nullptr);
    EXPECT_EQ(bench.Table().GetNodeCount(), 0);
    EXPECT_EQ(recorder.events, Events {""});
    EXPECT_TRUE(capture.GetExpressions().empty());

    DataView().SetItems(BuildForest({Node("Archive", {Node("Letters")}), Node("Recipes", {Node("Stews")})}));
    DataView().SetViewMode(ViewMode::TreeAndList);
    EXPECT_EQ(bench.TreeAndList().GetTreeSelection(), bench.Find("Archive"));
    EXPECT_EQ(bench.ListRows(), "Letters");
}

TEST_F(DataViewTest, ViewsRegisteredAfterTheItemsGetTheForest)
{
    Bench later(false);
    later.dataView.SetItems(BuildForest(SampleForest()));
    later.RegisterViews();
    later.dataView.SetViewMode(ViewMode::FlatList);
    EXPECT_EQ(later.ListRows(), "Dumplings Muffins Nibbles Peppers Recipes Spinach Stews Vegetables");
}

TEST_F(DataViewTest, GeometryReportsAnInitialisedRectangleAndALayoutWithoutOne)
{
    NK::AssertCapture capture;
    DataView().InitRect();
    EXPECT_EQ(capture.GetExpressions(), (std::vector<std::string> {"rect.IsEmpty ()"}));

    Bench unplaced;
    capture.Clear();
    unplaced.dataView.ShowCurrentView();
    unplaced.dataView.ReLayoutNeeded();
    EXPECT_EQ(capture.GetExpressions(), (std::vector<std::string> {"!rect.IsEmpty ()"}));
}

}  // namespace
