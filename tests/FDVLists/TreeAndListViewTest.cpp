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
              "#2 TreeView (0, 24, 200, 276)\n  *     Notes\n    [-] Project\n      [+] Views\n");
    EXPECT_EQ(Chosen(), "Notes");
    EXPECT_EQ(Rows(resource.list), "Minutes");
    EXPECT_EQ(PopUpEntries(resource.popUpControl), "Notes");
    EXPECT_FALSE(resource.upButton.IsEnabled());
    EXPECT_EQ(SelectedNames(), "Notes");
    EXPECT_TRUE(recorder.reported.empty());
}

TEST_F(TreeAndListViewTest, ClickingAFolderShowsItsChildrenPathAndParent)
{
    Show();
    ClickFolder("Project");
    ClickFolder("Views");

    EXPECT_EQ(Chosen(), "Views");
    EXPECT_EQ(Rows(resource.list), "Plan Section");
    EXPECT_EQ(PopUpEntries(resource.popUpControl), "Project > Views");
    EXPECT_EQ(resource.popUpControl.GetSelectedItem(), 2);
    EXPECT_TRUE(resource.upButton.IsEnabled());
    EXPECT_EQ(recorder.reported, (std::vector<std::string> {"Project", "Views"}));
}

TEST_F(TreeAndListViewTest, ThePopUpOfAFolderThreeLevelsDeepShowsThreeEntriesTopFirst)
{
    Show();
    view.SetSelection(Selection {Find(forest, "Detail")});

    EXPECT_EQ(Chosen(), "Section");
    EXPECT_EQ(PopUpEntries(resource.popUpControl), "Project > Views > Section");
    EXPECT_TRUE(resource.treeView.IsItemExpanded(resource.tree.GetNode(IdOf("Views"))));
    EXPECT_EQ(SelectedNames(), "Detail");
}

TEST_F(TreeAndListViewTest, TheUpButtonChoosesTheParentUntilTheTopLevel)
{
    Show(Selection {Find(forest, "Detail")});
    recorder.reported.clear();

    EXPECT_TRUE(resource.upButton.SimulateUserClick());
    EXPECT_EQ(Chosen(), "Views");
    EXPECT_EQ(Rows(resource.list), "Plan Section");
    EXPECT_EQ(resource.treeView.GetSelectedItem(), resource.tree.GetNode(IdOf("Views")));
    resource.upButton.SimulateUserClick();
    EXPECT_EQ(Chosen(), "Project");
    EXPECT_FALSE(resource.upButton.IsEnabled());
    EXPECT_FALSE(resource.upButton.SimulateUserClick());

    EXPECT_EQ(recorder.reported, (std::vector<std::string> {"Views", "Project"}));
    EXPECT_EQ(PopUpEntries(resource.popUpControl), "Project");
}

TEST_F(TreeAndListViewTest, AClickOnTheUpButtonOfATopLevelFolderIsReported)
{
    Show();
    resource.upButton.Enable();
    NK::AssertCapture capture;
    resource.upButton.SimulateUserClick();
    EXPECT_EQ(capture.GetExpressions(), (std::vector<std::string> {"parentFolder != nullptr"}));
    EXPECT_EQ(Chosen(), "Notes");
}

TEST_F(TreeAndListViewTest, PickingAnAncestorInThePopUpChoosesIt)
{
    Show(Selection {Find(forest, "Detail")});
    recorder.reported.clear();

    EXPECT_TRUE(resource.popUpControl.SimulateUserSelect(1));

    EXPECT_EQ(Chosen(), "Project");
    EXPECT_EQ(Rows(resource.list), "Sheets Views");
    EXPECT_EQ(PopUpEntries(resource.popUpControl), "Project");
    EXPECT_EQ(recorder.reported, (std::vector<std::string> {"Project"}));
}

TEST_F(TreeAndListViewTest, ClickingIntoTheTreeAfterSelectingRowsMakesTheFolderTheSelection)
{
    Show(Selection {Find(forest, "Sheets")});
    resource.listBox.SimulateUserSelectRows({RowOf(resource.list, "Sheets"), RowOf(resource.list, "Views")});
    EXPECT_EQ(SelectedNames(), "Sheets Views");
    EXPECT_EQ(view.GetLastFocus(), WZ::Folderable::Views::ListAndTreeFocus::Status::List);

    resource.treeView.SimulateUserFocus();

    EXPECT_EQ(resource.listBox.GetSelectedCount(), 0);
    EXPECT_EQ(SelectedNames(), "Project");
    EXPECT_EQ(view.GetItemsForCurrentControl().GetSize(), 1u);
    EXPECT_EQ(recorder.reported, (std::vector<std::string> {"Sheets Views", "Project"}));
}

TEST_F(TreeAndListViewTest, AClickOnATreeNodeWhileTheListHadTheFocusClearsTheListSelection)
{
    Show(Selection {Find(forest, "Sheets")});
    resource.listBox.SimulateUserClickRow(RowOf(resource.list, "Views"));
    ClickFolder("Notes");

    EXPECT_EQ(Rows(resource.list), "Minutes");
    EXPECT_EQ(resource.listBox.GetSelectedCount(), 0);
    EXPECT_EQ(view.GetLastFocus(), WZ::Folderable::Views::ListAndTreeFocus::Status::Tree);
    EXPECT_EQ(recorder.reported, (std::vector<std::string> {"Views", "Notes"}));
}

TEST_F(TreeAndListViewTest, ASelectionChoosesTheParentOfItsFirstItem)
{
    Show();
    const ModelItem* project = Find(forest, "Project");
    const ModelItem* notes = Find(forest, "Notes");
    const ModelItem* plan = Find(forest, "Plan");

    auto [planFolder, planSelection] = view.CalculateSelection(Selection {plan});
    EXPECT_EQ(planFolder, Find(forest, "Views"));
    EXPECT_EQ(planSelection, Selection {plan});
    auto [alone, nothing] = view.CalculateSelection(Selection {project});
    EXPECT_EQ(alone, project);
    EXPECT_TRUE(nothing.IsEmpty());
    auto [first, rest] = view.CalculateSelection(Selection {project, plan});
    EXPECT_EQ(first, notes);  // the first top-level folder in the tree's order
    EXPECT_EQ(rest, Selection {plan});
    EXPECT_EQ(view.CalculateSelection(Selection()).first, notes);

    view.SetSelection(Selection {project});
    EXPECT_EQ(Chosen(), "Project");
    EXPECT_EQ(SelectedNames(), "Project");

    // A top-level leaf has no node in the folder tree: it cannot be the chosen folder.
    forest.Push(Build(Node("Readme")));
    view.Refresh();
    auto [leafFolder, leafSelection] = view.CalculateSelection(Selection {forest.GetLast().Get()});
    EXPECT_EQ(leafFolder, notes);
    EXPECT_TRUE(leafSelection.IsEmpty());
}

TEST_F(TreeAndListViewTest, SettingTheShownSelectionAgainSendsNothing)
{
    Show(Selection {Find(forest, "Plan"), Find(forest, "Section")});
    view.SetSelection(Selection {Find(forest, "Plan"), Find(forest, "Section")});
    EXPECT_TRUE(recorder.reported.empty());
    view.SetSelection(Selection {Find(forest, "Plan")});
    EXPECT_EQ(recorder.reported, (std::vector<std::string> {"Plan"}));
}

TEST_F(TreeAndListViewTest, ARefreshAfterTheChosenFolderWentAwayChoosesTheFirstTopLevelFolder)
{
    Show(Selection {Find(forest, "Detail")});
    recorder.reported.clear();

    // A new forest without "Section"; the chosen folder is looked up by id, as the data view does.
    NK::Array<NK::Owner<ModelItem>> next =
        BuildForest({Node("Project", {Node("Views", {Node("Plan")}), Node("Sheets")}), Node("Notes", {Node("Minutes")})});
    view.SetTreeSelection(WZ::Folderable::FindModelItemById(next, view.GetTreeSelection()->GetId()));
    forest = std::move(next);
    view.Refresh();

    EXPECT_EQ(Chosen(), "Notes");
    EXPECT_EQ(Rows(resource.list), "Minutes");
    EXPECT_EQ(PopUpEntries(resource.popUpControl), "Notes");
    EXPECT_EQ(recorder.reported, (std::vector<std::string> {"Notes"}));
}

TEST_F(TreeAndListViewTest, ARefreshKeepsAChosenFolderThatIsStillThere)
{
    Show(Selection {Find(forest, "Plan")});
    recorder.reported.clear();
    resource.listBox.ResetJournal();

    NK::Array<NK::Owner<ModelItem>> next = BuildForest(SampleForest());
    view.SetTreeSelection(WZ::Folderable::FindModelItemById(next, view.GetTreeSelection()->GetId()));
    forest = std::move(next);
    view.Refresh();

    EXPECT_EQ(Chosen(), "Views");
    EXPECT_EQ(SelectedNames(), "Plan");
    EXPECT_EQ(resource.listBox.GetJournal().GetCount(QM::Op::InsertItem), 0u);
    EXPECT_TRUE(recorder.reported.empty());
}

TEST_F(TreeAndListViewTest, ASearchListsMatchesOfTheWholeForestAndItsEndRestoresFolderAndSelection)
{
    Show(Selection {Find(forest, "Plan")});
    recorder.reported.clear();

    resource.searchField.SimulateUserType("s");
    EXPECT_EQ(Rows(resource.list), "Minutes Section Sheets");
    EXPECT_TRUE(view.GetSelection().IsEmpty());  // no folder stands in for the selection while searching
    resource.searchField.SimulateUserClear();

    EXPECT_EQ(Chosen(), "Views");
    EXPECT_EQ(Rows(resource.list), "Plan Section");
    EXPECT_EQ(SelectedNames(), "Plan");
    EXPECT_EQ(recorder.reported, (std::vector<std::string> {"", "Plan"}));
}

TEST_F(TreeAndListViewTest, AnItemPickedDuringASearchIsShownInItsFolderAfterIt)
{
    Show(Selection {Find(forest, "Plan")});
    resource.searchField.SimulateUserType("minutes");
    resource.listBox.SimulateUserClickRow(RowOf(resource.list, "Minutes"));
    resource.searchField.SimulateUserClear();

    EXPECT_EQ(Chosen(), "Notes");
    EXPECT_EQ(SelectedNames(), "Minutes");
    EXPECT_EQ(PopUpEntries(resource.popUpControl), "Notes");
}

TEST_F(TreeAndListViewTest, OpenFoldersAreKeptWhileAnotherViewIsShown)
{
    Show();
    EXPECT_TRUE(resource.treeView.IsItemExpanded(resource.tree.GetNode(IdOf("Project"))));
    resource.treeView.SimulateUserCollapse(resource.tree.GetNode(IdOf("Project")));
    resource.treeView.SimulateUserExpand(resource.tree.GetNode(IdOf("Notes")));
    view.WillDisappear();

    resource.treeView.ExpandItem(resource.tree.GetNode(IdOf("Project")));
    Show();

    EXPECT_FALSE(resource.treeView.IsItemExpanded(resource.tree.GetNode(IdOf("Project"))));
    EXPECT_TRUE(resource.treeView.IsItemExpanded(resource.tree.GetNode(IdOf("Notes"))));
    EXPECT_EQ(Chosen(), "Notes");
}

TEST_F(TreeAndListViewTest, AHiddenViewHearsNothingFromItsControls)
{
    Show();
    view.WillDisappear();
    ClickFolder("Project");
    resource.upButton.Enable();
    resource.upButton.SimulateUserClick();
    resource.searchField.SimulateUserType("s");

    EXPECT_TRUE(recorder.reported.empty());
    EXPECT_EQ(Chosen(), "Notes");
}

TEST_F(TreeAndListViewTest, WithoutAPopUpFactoryTheDefaultOneIsReportedAndNamesEntriesLikeTheTree)
{
    view.SetPopUpItemFactory(nullptr);
    NK::AssertCapture capture;
    Show(Selection {Find(forest, "Plan")});
    EXPECT_EQ(capture.GetExpressions(), (std::vector<std::string> {"popUpItemFactory != nullptr"}));
    EXPECT_EQ(PopUpEntries(resource.popUpControl), "Project > Views");
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
