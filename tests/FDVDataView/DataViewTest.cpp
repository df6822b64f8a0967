#include "DataViewTestBench.hpp"

#include "NK/NKAssert.hpp"

#include <gtest/gtest.h>

namespace {

using namespace FDVDataViewTest;

class DataViewTest : public ::testing::Test {
protected:
    DataViewTest()
    {
        browser.dataView.SetItems(BuildForest(SampleForest()));
        browser.dataView.ShowCurrentView();
        browser.dataView.InitRect();
    }
    FolderedDataView& DataView() { return browser.dataView; }

    Browser browser;
    EventRecorder recorder {browser.dataView};
};

TEST_F(DataViewTest, OnlyTheCurrentViewsControlsAreShownAndPlacedInTheRectangle)
{
    EXPECT_TRUE(browser.Table().IsVisible());
    EXPECT_TRUE(browser.SearchField().IsVisible());
    EXPECT_FALSE(browser.ListBox().IsVisible());
    EXPECT_FALSE(browser.Tree().IsVisible());
    EXPECT_EQ(DataView().GetRect(), QM::Rect(10, 10, 630, 410));
    EXPECT_EQ(browser.Table().GetRect(), QM::Rect(10, 34, 630, 410));

    DataView().SetViewMode(ViewMode::TreeAndList);
    EXPECT_FALSE(browser.Table().IsVisible());
    EXPECT_TRUE(browser.Tree().IsVisible());
    EXPECT_TRUE(browser.ListBox().IsVisible());
    EXPECT_TRUE(DataView().GetUpButton()->IsVisible());
    EXPECT_EQ(browser.Tree().GetRect().GetLeft(), 10);

    DataView().Resize(400, 300);
    EXPECT_EQ(browser.ListBox().GetRect().GetRight(), 410);
    EXPECT_EQ(browser.ListBox().GetRect().GetBottom(), 310);
    DataView().Move(0, 0);
    EXPECT_EQ(browser.Tree().GetRect().GetTop(), 24);
    EXPECT_EQ(DataView().GetOwnItem()->GetRect(), QM::Rect(0, 0, 400, 300));
}

TEST_F(DataViewTest, SwitchingThroughAllViewsKeepsTheSelectedItemsWithoutEvents)
{
    ASSERT_TRUE(browser.Table().SimulateUserExpand(IdOf("Views")));
    ASSERT_TRUE(browser.Table().SimulateUserExpand(IdOf("Section")));
    ASSERT_TRUE(browser.Table().SimulateUserSelectNodes(NK::Array<NK::Guid> {IdOf("Plan"), IdOf("Detail")}));
    ASSERT_EQ(browser.Selected(), "Plan Detail");
    EXPECT_EQ(recorder.events.back(), "Plan Detail");
    recorder.events.clear();

    DataView().SetViewMode(ViewMode::FlatList);
    EXPECT_EQ(browser.Selected(), "Detail Plan");  // in the list's row order, sorted by name
    recorder.events.clear();
    // The tree-and-list view shows the folder of the first item with both selected in its list.
    DataView().SetSelection(browser.SelectionOf({"Plan", "Section"}));
    recorder.events.clear();
    DataView().SetViewMode(ViewMode::TreeAndList);
    EXPECT_EQ(browser.TreeAndList().GetTreeSelection(), browser.Find("Views"));
    EXPECT_EQ(browser.ListRows(), "Plan Section");
    EXPECT_EQ(browser.Selected(), "Plan Section");
    EXPECT_TRUE(recorder.events.empty());

    DataView().SetViewMode(ViewMode::Hierarchical);
    EXPECT_EQ(browser.Selected(), "Plan Section");
    DataView().SetViewMode(ViewMode::FlatList);
    EXPECT_EQ(browser.Selected(), "Plan Section");
    EXPECT_TRUE(recorder.events.empty());
}

TEST_F(DataViewTest, SwitchingToAViewThatShowsAnotherSelectionSendsOneEvent)
{
    // The tree-and-list view shows the folder of the first item; an item of another folder
    // cannot be selected in its list.
    DataView().SetViewMode(ViewMode::FlatList);
    QM::ListBox& list = browser.ListBox();
    list.SimulateUserSelectRows(NK::Array<short> {DataView().GetListBoxDataView()->GetRow(IdOf("Minutes")),
                                                  DataView().GetListBoxDataView()->GetRow(IdOf("Plan"))});
    ASSERT_EQ(browser.Selected(), "Minutes Plan");
    recorder.events.clear();
    DataView().SetViewMode(ViewMode::TreeAndList);
    EXPECT_EQ(browser.TreeAndList().GetTreeSelection(), browser.Find("Notes"));
    EXPECT_EQ(recorder.events, (std::vector<std::string> {"Minutes"}));
    // Switching to the shown mode does nothing.
    DataView().SetViewMode(ViewMode::TreeAndList);
    EXPECT_EQ(recorder.events.size(), 1u);
}

TEST_F(DataViewTest, EachViewKeepsItsOpenFoldersWhileAnotherIsShown)
{
    ASSERT_TRUE(browser.Table().SimulateUserExpand(IdOf("Views")));
    DataView().SetViewMode(ViewMode::FlatList);
    DataView().SetViewMode(ViewMode::Hierarchical);
    EXPECT_TRUE(browser.Table().IsExpandedItem(IdOf("Views")));
    EXPECT_FALSE(browser.Table().IsExpandedItem(IdOf("Section")));
}

TEST_F(DataViewTest, SearchInTheHierarchicalViewAndItsEndRestoreRowsFoldersAndSelection)
{
    ASSERT_TRUE(browser.Table().SimulateUserSelectNode(IdOf("Sheets")));
    const auto openBefore = browser.Table().GetExpandedItemIds();
    browser.SearchField().SimulateUserType("det");
    EXPECT_TRUE(DataView().IsSearchModeOnCurrentView());
    EXPECT_TRUE(browser.Table().IsExpandedItem(IdOf("Section")));
    browser.SearchField().SimulateUserClear();
    EXPECT_FALSE(DataView().IsSearchModeOnCurrentView());
    EXPECT_EQ(browser.Table().GetExpandedItemIds(), openBefore);
    EXPECT_EQ(browser.Selected(), "Sheets");
}

TEST_F(DataViewTest, SearchInTheFlatListAndItsEndRestoreRowsAndSelection)
{
    DataView().SetViewMode(ViewMode::FlatList);
    const std::string allRows = browser.ListRows();
    browser.ListBox().SimulateUserClickRow(browser.dataView.GetListBoxDataView()->GetRow(IdOf("Minutes")));
    EXPECT_EQ(recorder.events.back(), "Minutes");
    browser.SearchField().SimulateUserType("se");
    EXPECT_EQ(browser.ListRows(), "Section");
    browser.SearchField().SimulateUserClear();
    EXPECT_EQ(browser.ListRows(), allRows);
    EXPECT_EQ(browser.Selected(), "Minutes");
}

TEST_F(DataViewTest, SearchInTheTreeAndListViewListsTheWholeForestAndItsEndRestoresTheFolder)
{
    DataView().SetViewMode(ViewMode::TreeAndList);
    browser.Tree().SimulateUserSelectNode(DataView().GetTreeDataView()->GetNode(IdOf("Views")));
    EXPECT_EQ(browser.ListRows(), "Plan Section");
    browser.SearchField().SimulateUserType("min");
    EXPECT_EQ(browser.ListRows(), "Minutes");
    browser.SearchField().SimulateUserClear();
    EXPECT_EQ(browser.ListRows(), "Plan Section");
    EXPECT_EQ(browser.TreeAndList().GetTreeSelection(), browser.Find("Views"));
    EXPECT_EQ(browser.Selected(), "Views");
}

TEST_F(DataViewTest, TheUpButtonAndThePopUpChooseFoldersOnThePath)
{
    DataView().SetViewMode(ViewMode::TreeAndList);
    browser.Tree().SimulateUserSelectNode(DataView().GetTreeDataView()->GetNode(IdOf("Section")));
    EXPECT_EQ(DataView().GetPopUpControl()->GetItemCount(), 3);
    recorder.events.clear();
    ASSERT_TRUE(DataView().GetUpButton()->SimulateUserClick());
    EXPECT_EQ(browser.TreeAndList().GetTreeSelection(), browser.Find("Views"));
    EXPECT_EQ(browser.ListRows(), "Plan Section");
    EXPECT_EQ(recorder.events, (std::vector<std::string> {"Views"}));
    ASSERT_TRUE(DataView().GetPopUpControl()->SimulateUserSelect(1));
    EXPECT_EQ(browser.ListRows(), "Sheets Views");
    EXPECT_FALSE(DataView().GetUpButton()->IsEnabled());
}

TEST_F(DataViewTest, SetItemsKeepsTheChosenFolderByIdOrFallsBackToTheFirstTopLevelFolder)
{
    DataView().SetViewMode(ViewMode::TreeAndList);
    browser.Tree().SimulateUserSelectNode(DataView().GetTreeDataView()->GetNode(IdOf("Views")));
    DataView().SetItems(BuildForest(SampleForest()));
    EXPECT_EQ(browser.TreeAndList().GetTreeSelection(), browser.Find("Views"));
    EXPECT_EQ(browser.ListRows(), "Plan Section");

    // Even while another view is shown, the tree-and-list view's folder follows the new forest.
    DataView().SetViewMode(ViewMode::FlatList);
    DataView().SetItems(BuildForest({Node("Archive", {Node("Old")}), Node("Project", {Node("Sheets")})}));
    EXPECT_EQ(browser.TreeAndList().GetTreeSelection(), nullptr);
    DataView().SetViewMode(ViewMode::TreeAndList);
    EXPECT_EQ(browser.TreeAndList().GetTreeSelection(), browser.Find("Archive"));
    EXPECT_EQ(browser.ListRows(), "Old");
}

TEST_F(DataViewTest, RegisteringAViewHandsItTheForestAndTheDataViewAsDelegate)
{
    FolderedDataView bare;
    EXPECT_EQ(bare.GetCurrentView(), nullptr);
    EXPECT_EQ(bare.GetListBox(), nullptr);
    Browser later(false);
    later.dataView.SetItems(BuildForest(SampleForest()));
    later.RegisterViews();
    later.dataView.SetViewMode(ViewMode::FlatList);
    EXPECT_EQ(later.ListRows(), "Detail Minutes Notes Plan Project Section Sheets Views");
    EXPECT_TRUE(later.dataView.HasView(ViewMode::Hierarchical));
    EXPECT_EQ(later.dataView.GetViews().GetSize(), 3u);
}

TEST_F(DataViewTest, GeometryReportsAnInitialisedRectangleAndALayoutWithoutOne)
{
    NK::AssertCapture capture;
    DataView().InitRect();
    EXPECT_EQ(capture.GetExpressions(), (std::vector<std::string> {"rect.IsEmpty ()"}));

    Browser unplaced;
    capture.Clear();
    unplaced.dataView.ShowCurrentView();
    unplaced.dataView.ReLayoutNeeded();
    EXPECT_EQ(capture.GetExpressions(), (std::vector<std::string> {"!rect.IsEmpty ()"}));
}

}  // namespace
