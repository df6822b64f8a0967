// The tree-and-list view: the chosen folder in the tree, its children in the list, its path in
// the pop-up and its parent behind the up button, all driven the way a user drives them; the
// selection it reports, the focus rules, searches and rebuilds of the forest.
#include "ListsTestBench.hpp"

#include "NK/NKAssert.hpp"
#include "QM/QMTextRenderer.hpp"

#include <gtest/gtest.h>

namespace {

using namespace FDVListsTest;

class TreeAndListViewTest : public ::testing::Test {
protected:
    TreeAndListViewTest() : forest(BuildForest(SampleForest())), view(nullptr, resource, NK::NewOwned<FolderFactory>())
    {
        view.SetPopUpItemFactory(NK::NewOwned<TreeAndListView::PopUpViewItemFactory>(view.GetTreeItemFactory()));
        view.SetCurrentItems(&forest);
        view.SetDelegate(&recorder);
        recorder.view = &view;
        view.SetListItemFactory(NK::NewOwned<RowFactory>());
        view.SetListItemSearchFilter(NK::NewOwned<TextSearchFilter>());
    }

    void Show(const Selection& selection = {}) { view.WillAppear(View::OpenData {selection, nullptr}); }
    // A user's click on the node of the named folder.
    void ClickFolder(const std::string& name) { resource.treeView.SimulateUserSelectNode(resource.tree.GetNode(IdOf(name))); }
    std::string Chosen() const { return view.GetTreeSelection() != nullptr ? AsNamed(*view.GetTreeSelection()).GetName() : "-"; }
    std::string SelectedNames() const { return Names(view.GetSelection().GetItems()); }

    ListsResource resource;
    NK::Array<NK::Owner<ModelItem>> forest;
    TreeAndListView view;
    SelectionRecorder recorder;
};

TEST_F(TreeAndListViewTest, AppearingChoosesTheFirstTopLevelFolder)
{
    Show();

    // The tree sorts by name and shows only folders.
    EXPECT_EQ(QM::TextRenderer::Join(QM::TextRenderer::RenderItem(resource.treeView)),
              "#2 TreeView (0, 24, 200, 276)\n  *     Nibbles\n    [-] Recipes\n      [+] Vegetables\n");
    EXPECT_EQ(Chosen(), "Nibbles");
    EXPECT_EQ(Rows(resource.list), "Muffins");
    EXPECT_EQ(PopUpEntries(resource.popUpControl), "Nibbles");
    EXPECT_FALSE(resource.upButton.IsEnabled());
    EXPECT_EQ(SelectedNames(), "Nibbles");
    EXPECT_TRUE(recorder.reported.empty());
}

TEST_F(TreeAndListViewTest, ClickingAFolderShowsItsChildrenPathAndParent)
{
    Show();
    ClickFolder("Recipes");
    ClickFolder("Vegetables");

    EXPECT_EQ(Chosen(), "Vegetables");
    EXPECT_EQ(Rows(resource.list), "Peppers Spinach");
    EXPECT_EQ(PopUpEntries(resource.popUpControl), "Recipes > Vegetables");
    EXPECT_EQ(resource.popUpControl.GetSelectedItem(), 2);
    EXPECT_TRUE(resource.upButton.IsEnabled());
    EXPECT_EQ(recorder.reported, (std::vector<std::string> {"Recipes", "Vegetables"}));
}

TEST_F(TreeAndListViewTest, ThePopUpOfAFolderThreeLevelsDeepShowsThreeEntriesTopFirst)
{
    Show();
    view.SetSelection(Selection {Find(forest, "Dumplings")});

    EXPECT_EQ(Chosen(), "Spinach");
    EXPECT_EQ(PopUpEntries(resource.popUpControl), "Recipes > Vegetables > Spinach");
    EXPECT_TRUE(resource.treeView.IsItemExpanded(resource.tree.GetNode(IdOf("Vegetables"))));
    EXPECT_EQ(SelectedNames(), "Dumplings");
}

TEST_F(TreeAndListViewTest, TheUpButtonChoosesTheParentUntilTheTopLevel)
{
    Show(Selection {Find(forest, "Dumplings")});
    recorder.reported.clear();

    EXPECT_TRUE(resource.upButton.SimulateUserClick());
    EXPECT_EQ(Chosen(), "Vegetables");
    EXPECT_EQ(Rows(resource.list), "Peppers Spinach");
    EXPECT_EQ(resource.treeView.GetSelectedItem(), resource.tree.GetNode(IdOf("Vegetables")));
    resource.upButton.SimulateUserClick();
    EXPECT_EQ(Chosen(), "Recipes");
    EXPECT_FALSE(resource.upButton.IsEnabled());
    EXPECT_FALSE(resource.upButton.SimulateUserClick());

    EXPECT_EQ(recorder.reported, (std::vector<std::string> {"Vegetables", "Recipes"}));
    EXPECT_EQ(PopUpEntries(resource.popUpControl), "Recipes");
}

TEST_F(TreeAndListViewTest, AClickOnTheUpButtonOfATopLevelFolderIsReported)
{
    Show();
    resource.upButton.Enable();
    NK::AssertCapture capture;
    resource.upButton.SimulateUserClick();
    EXPECT_EQ(capture.GetExpressions(), (std::vector<std::string> {"parentFolder != nullptr"}));
    EXPECT_EQ(Chosen(), "Nibbles");
}

TEST_F(TreeAndListViewTest, PickingAnAncestorInThePopUpChoosesIt)
{
    Show(Selection {Find(forest, "Dumplings")});
    recorder.reported.clear();

    EXPECT_TRUE(resource.popUpControl.SimulateUserSelect(1));

    EXPECT_EQ(Chosen(), "Recipes");
    EXPECT_EQ(Rows(resource.list), "Stews Vegetables");
    EXPECT_EQ(PopUpEntries(resource.popUpControl), "Recipes");
    EXPECT_EQ(recorder.reported, (std::vector<std::string> {"Recipes"}));
}

TEST_F(TreeAndListViewTest, ClickingIntoTheTreeAfterSelectingRowsMakesTheFolderTheSelection)
{
    Show(Selection {Find(forest, "Stews")});
    resource.listBox.SimulateUserSelectRows({RowOf(resource.list, "Stews"), RowOf(resource.list, "Vegetables")});
    EXPECT_EQ(SelectedNames(), "Stews Vegetables");
    EXPECT_EQ(view.GetLastFocus(), WZ::Folderable::Views::ListAndTreeFocus::Status::List);

    resource.treeView.SimulateUserFocus();

    EXPECT_EQ(resource.listBox.GetSelectedCount(), 0);
    EXPECT_EQ(SelectedNames(), "Recipes");
    EXPECT_EQ(view.GetItemsForCurrentControl().GetSize(), 1u);
    EXPECT_EQ(recorder.reported, (std::vector<std::string> {"Stews Vegetables", "Recipes"}));
}

TEST_F(TreeAndListViewTest, AClickOnATreeNodeWhileTheListHadTheFocusClearsTheListSelection)
{
    Show(Selection {Find(forest, "Stews")});
    resource.listBox.SimulateUserClickRow(RowOf(resource.list, "Vegetables"));
    ClickFolder("Nibbles");

    EXPECT_EQ(Rows(resource.list), "Muffins");
    EXPECT_EQ(resource.listBox.GetSelectedCount(), 0);
    EXPECT_EQ(view.GetLastFocus(), WZ::Folderable::Views::ListAndTreeFocus::Status::Tree);
    EXPECT_EQ(recorder.reported, (std::vector<std::string> {"Vegetables", "Nibbles"}));
}

TEST_F(TreeAndListViewTest, ASelectionChoosesTheParentOfItsFirstItem)
{
    Show();
    const ModelItem* project = Find(forest, "Recipes");
    const ModelItem* notes = Find(forest, "Nibbles");
    const ModelItem* plan = Find(forest, "Peppers");

    auto [planFolder, planSelection] = view.CalculateSelection(Selection {plan});
    EXPECT_EQ(planFolder, Find(forest, "Vegetables"));
    EXPECT_EQ(planSelection, Selection {plan});
    auto [alone, nothing] = view.CalculateSelection(Selection {project});
    EXPECT_EQ(alone, project);
    EXPECT_TRUE(nothing.IsEmpty());
    auto [first, rest] = view.CalculateSelection(Selection {project, plan});
    EXPECT_EQ(first, notes);  // the first top-level folder in the tree's order
    EXPECT_EQ(rest, Selection {plan});
    EXPECT_EQ(view.CalculateSelection(Selection()).first, notes);

    view.SetSelection(Selection {project});
    EXPECT_EQ(Chosen(), "Recipes");
    EXPECT_EQ(SelectedNames(), "Recipes");

    // A top-level leaf has no node in the folder tree: it cannot be the chosen folder.
    forest.Push(Build(Node("Readme")));
    view.Refresh();
    auto [leafFolder, leafSelection] = view.CalculateSelection(Selection {forest.GetLast().Get()});
    EXPECT_EQ(leafFolder, notes);
    EXPECT_TRUE(leafSelection.IsEmpty());
}

TEST_F(TreeAndListViewTest, SettingTheShownSelectionAgainSendsNothing)
{
    Show(Selection {Find(forest, "Peppers"), Find(forest, "Spinach")});
    view.SetSelection(Selection {Find(forest, "Peppers"), Find(forest, "Spinach")});
    EXPECT_TRUE(recorder.reported.empty());
    view.SetSelection(Selection {Find(forest, "Peppers")});
    EXPECT_EQ(recorder.reported, (std::vector<std::string> {"Peppers"}));
}

TEST_F(TreeAndListViewTest, ARefreshAfterTheChosenFolderWentAwayChoosesTheFirstTopLevelFolder)
{
    Show(Selection {Find(forest, "Dumplings")});
    recorder.reported.clear();

    // A new forest without "Spinach"; the chosen folder is looked up by id, as the data view does.
    NK::Array<NK::Owner<ModelItem>> next =
        BuildForest({Node("Recipes", {Node("Vegetables", {Node("Peppers")}), Node("Stews")}), Node("Nibbles", {Node("Muffins")})});
    view.SetTreeSelection(WZ::Folderable::FindModelItemById(next, view.GetTreeSelection()->GetId()));
    forest = std::move(next);
    view.Refresh();

    EXPECT_EQ(Chosen(), "Nibbles");
    EXPECT_EQ(Rows(resource.list), "Muffins");
    EXPECT_EQ(PopUpEntries(resource.popUpControl), "Nibbles");
    EXPECT_EQ(recorder.reported, (std::vector<std::string> {"Nibbles"}));
}

TEST_F(TreeAndListViewTest, ARefreshKeepsAChosenFolderThatIsStillThere)
{
    Show(Selection {Find(forest, "Peppers")});
    recorder.reported.clear();
    resource.listBox.ResetJournal();

    NK::Array<NK::Owner<ModelItem>> next = BuildForest(SampleForest());
    view.SetTreeSelection(WZ::Folderable::FindModelItemById(next, view.GetTreeSelection()->GetId()));
    forest = std::move(next);
    view.Refresh();

    EXPECT_EQ(Chosen(), "Vegetables");
    EXPECT_EQ(SelectedNames(), "Peppers");
    EXPECT_EQ(resource.listBox.GetJournal().GetCount(QM::Op::InsertItem), 0u);
    EXPECT_TRUE(recorder.reported.empty());
}

TEST_F(TreeAndListViewTest, ASearchListsMatchesOfTheWholeForestAndItsEndRestoresFolderAndSelection)
{
    Show(Selection {Find(forest, "Peppers")});
    recorder.reported.clear();

    resource.searchField.SimulateUserType("s");
    EXPECT_EQ(Rows(resource.list), "Muffins Spinach Stews");
    EXPECT_TRUE(view.GetSelection().IsEmpty());  // no folder stands in for the selection while searching
    resource.searchField.SimulateUserClear();

    EXPECT_EQ(Chosen(), "Vegetables");
    EXPECT_EQ(Rows(resource.list), "Peppers Spinach");
    EXPECT_EQ(SelectedNames(), "Peppers");
    EXPECT_EQ(recorder.reported, (std::vector<std::string> {"", "Peppers"}));
}

TEST_F(TreeAndListViewTest, AnItemPickedDuringASearchIsShownInItsFolderAfterIt)
{
    Show(Selection {Find(forest, "Peppers")});
    resource.searchField.SimulateUserType("muffins");
    resource.listBox.SimulateUserClickRow(RowOf(resource.list, "Muffins"));
    resource.searchField.SimulateUserClear();

    EXPECT_EQ(Chosen(), "Nibbles");
    EXPECT_EQ(SelectedNames(), "Muffins");
    EXPECT_EQ(PopUpEntries(resource.popUpControl), "Nibbles");
}

TEST_F(TreeAndListViewTest, OpenFoldersAreKeptWhileAnotherViewIsShown)
{
    Show();
    EXPECT_TRUE(resource.treeView.IsItemExpanded(resource.tree.GetNode(IdOf("Recipes"))));
    resource.treeView.SimulateUserCollapse(resource.tree.GetNode(IdOf("Recipes")));
    resource.treeView.SimulateUserExpand(resource.tree.GetNode(IdOf("Nibbles")));
    view.WillDisappear();

    resource.treeView.ExpandItem(resource.tree.GetNode(IdOf("Recipes")));
    Show();

    EXPECT_FALSE(resource.treeView.IsItemExpanded(resource.tree.GetNode(IdOf("Recipes"))));
    EXPECT_TRUE(resource.treeView.IsItemExpanded(resource.tree.GetNode(IdOf("Nibbles"))));
    EXPECT_EQ(Chosen(), "Nibbles");
}

TEST_F(TreeAndListViewTest, AHiddenViewHearsNothingFromItsControls)
{
    Show();
    view.WillDisappear();
    ClickFolder("Recipes");
    resource.upButton.Enable();
    resource.upButton.SimulateUserClick();
    resource.searchField.SimulateUserType("s");

    EXPECT_TRUE(recorder.reported.empty());
    EXPECT_EQ(Chosen(), "Nibbles");
}

TEST_F(TreeAndListViewTest, WithoutAPopUpFactoryTheDefaultOneIsReportedAndNamesEntriesLikeTheTree)
{
    view.SetPopUpItemFactory(nullptr);
    NK::AssertCapture capture;
    Show(Selection {Find(forest, "Peppers")});
    EXPECT_EQ(capture.GetExpressions(), (std::vector<std::string> {"popUpItemFactory != nullptr"}));
    EXPECT_EQ(PopUpEntries(resource.popUpControl), "Recipes > Vegetables");
}

TEST_F(TreeAndListViewTest, AnEmptyForestIsReportedAndChoosesNothing)
{
    forest.Clear();
    NK::AssertCapture capture;
    Show();
    EXPECT_EQ(Chosen(), "-");
    EXPECT_EQ(capture.GetExpressions(), (std::vector<std::string> {"currentItems->GetSize () > 0",
                                                                   "selectedTreeItems.GetSize () == 1",
                                                                   "treeSelection != nullptr"}));
    EXPECT_FALSE(resource.upButton.IsEnabled());
    EXPECT_EQ(Rows(resource.list), "");
}

}  // namespace
