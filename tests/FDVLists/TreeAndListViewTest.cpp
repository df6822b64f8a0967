// The tree-and-list view: the chosen folder in the tree, its children in the list, its path in
// the pop-up and its parent behind the up button, all driven the way a user drives them; the
// selection it reports, the focus rules, searches and rebuilds of the forest.
#include "ListsTestBench.hpp"

#include "NK/NKAssert.hpp"
#include "QM/QMTextRenderer.hpp"

#include <functional>
#include <gtest/gtest.h>

namespace {

using namespace FDVListsTest;
using Events = std::vector<std::string>;

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
    Selection Items(const std::vector<std::string>& names) const
    {
        NK::Array<const ModelItem*> items;
        for (const std::string& name : names)
            items.Push(Find(forest, name));
        return Selection(items);
    }
    int Node(const std::string& name) const { return resource.tree.GetNode(IdOf(name)); }
    // A user's click on the node of the named folder.
    void ClickFolder(const std::string& name) { resource.treeView.SimulateUserSelectNode(Node(name)); }
    std::string Chosen() const { return view.GetTreeSelection() != nullptr ? AsNamed(*view.GetTreeSelection()).GetName() : "-"; }
    std::string Selected() const { return Names(view.GetSelection().GetItems()); }
    // Forest replaced by the client; the chosen folder is looked up by id, as the data view does.
    void Replace(const std::vector<FDVTest::Node>& nodes)
    {
        NK::Array<NK::Owner<ModelItem>> next = BuildForest(nodes);
        if (view.GetTreeSelection() != nullptr)
            view.SetTreeSelection(WZ::Folderable::FindModelItemById(next, view.GetTreeSelection()->GetId()));
        forest = std::move(next);
        view.Refresh();
    }

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
    EXPECT_EQ(Rows(resource.list), "Muffins");
    EXPECT_EQ(PopUpEntries(resource.popUpControl), "Nibbles");
    EXPECT_FALSE(resource.upButton.IsEnabled());
    EXPECT_EQ(Selected(), "Nibbles");
    EXPECT_TRUE(recorder.reported.empty());
}

// Every way of choosing a folder shows its children, its path top-level first, and its parent
// behind the up button, with one event.
TEST_F(TreeAndListViewTest, FoldersAreChosenInTheTreeWithTheUpButtonAndInThePopUp)
{
    struct Step {
        std::function<void()> action;
        std::string chosen, rows, path;
    };
    const std::vector<Step> steps {
        {[&] { ClickFolder("Recipes"); }, "Recipes", "Stews Vegetables", "Recipes"},
        {[&] { view.SetSelection(Items({"Dumplings"})); }, "Spinach", "Dumplings", "Recipes > Vegetables > Spinach"},
        {[&] { EXPECT_TRUE(resource.upButton.SimulateUserClick()); }, "Vegetables", "Peppers Spinach", "Recipes > Vegetables"},
        {[&] { ClickFolder("Spinach"); }, "Spinach", "Dumplings", "Recipes > Vegetables > Spinach"},
        {[&] { EXPECT_TRUE(resource.popUpControl.SimulateUserSelect(1)); }, "Recipes", "Stews Vegetables", "Recipes"},
    };
    Show();
    for (const Step& step : steps) {
        recorder.reported.clear();
        step.action();
        EXPECT_EQ(Chosen(), step.chosen);
        EXPECT_EQ(Rows(resource.list), step.rows) << step.chosen;
        EXPECT_EQ(PopUpEntries(resource.popUpControl), step.path) << step.chosen;
        EXPECT_EQ(resource.upButton.IsEnabled(), step.chosen != "Recipes") << step.chosen;
        EXPECT_EQ(resource.treeView.GetSelectedItem(), Node(step.chosen));
        EXPECT_EQ(recorder.reported.size(), 1u) << step.chosen;
    }
    // The up button of a top-level folder cannot be clicked; forced, the click is reported.
    EXPECT_FALSE(resource.upButton.SimulateUserClick());
    resource.upButton.Enable();
    NK::AssertCapture capture;
    resource.upButton.SimulateUserClick();
    EXPECT_EQ(capture.GetExpressions(), (std::vector<std::string> {"parentFolder != nullptr"}));
    EXPECT_EQ(Chosen(), "Recipes");
}

TEST_F(TreeAndListViewTest, WorkingInTheTreeAfterTheListMakesTheFolderTheSelection)
{
    for (bool byClick : {false, true}) {
        Show(Items({"Stews"}));
        recorder.reported.clear();
        resource.listBox.SimulateUserSelectRows({RowOf(resource.list, "Stews"), RowOf(resource.list, "Vegetables")});
        EXPECT_EQ(view.GetLastFocus(), WZ::Folderable::Views::ListAndTreeFocus::Status::List);
        if (byClick)
            ClickFolder("Nibbles");
        else
            resource.treeView.SimulateUserFocus();

        const std::string folder = byClick ? "Nibbles" : "Recipes";
        EXPECT_EQ(resource.listBox.GetSelectedCount(), 0);
        EXPECT_EQ(Selected(), folder);
        EXPECT_EQ(Names(view.GetItemsForCurrentControl()), folder);
        EXPECT_EQ(view.GetLastFocus(), WZ::Folderable::Views::ListAndTreeFocus::Status::Tree);
        EXPECT_EQ(recorder.reported, (Events {"Stews Vegetables", folder}));
        view.WillDisappear();
    }
}

TEST_F(TreeAndListViewTest, ASelectionIsShownInTheFolderOfItsFirstItemAndATopLevelItemHasNone)
{
    Show();
    struct Case {
        std::vector<std::string> selection;
        std::string folder, shown;
    };
    const std::vector<Case> cases {
        {{"Peppers"}, "Vegetables", "Peppers"},
        {{"Peppers", "Muffins"}, "Vegetables", "Peppers Muffins"},
        {{"Recipes"}, "Nibbles", ""},
        {{"Recipes", "Peppers"}, "Nibbles", "Peppers"},
        {{}, "Nibbles", ""},
    };
    for (const Case& c : cases) {
        const auto [folder, shown] = view.CalculateSelection(Items(c.selection));
        EXPECT_EQ(AsNamed(*folder).GetName(), c.folder) << testing::PrintToString(c.selection);
        EXPECT_EQ(Names(shown.GetItems()), c.shown) << testing::PrintToString(c.selection);
    }
    view.SetSelection(Items({"Recipes"}));
    EXPECT_EQ(Chosen(), "Nibbles");
    EXPECT_EQ(Selected(), "Nibbles");
    // Setting the shown selection again sends nothing.
    view.SetSelection(Items({"Peppers", "Spinach"}));
    recorder.reported.clear();
    view.SetSelection(Items({"Peppers", "Spinach"}));
    EXPECT_TRUE(recorder.reported.empty());
}

TEST_F(TreeAndListViewTest, ARebuildKeepsTheTreesFolderThenTheRememberedOneThenTheFirst)
{
    Show(Items({"Peppers"}));
    recorder.reported.clear();
    resource.listBox.ResetJournal();
    Replace(SampleForest());  // the same folders by id
    EXPECT_EQ(Chosen(), "Vegetables");
    EXPECT_EQ(Selected(), "Peppers");
    EXPECT_EQ(resource.listBox.GetJournal().GetCount(QM::Op::InsertItem), 0u);
    EXPECT_TRUE(recorder.reported.empty());

    // The node the tree shows selected wins over a folder named for the rebuild.
    view.SetTreeSelection(Find(forest, "Nibbles"));
    view.Refresh();
    EXPECT_EQ(Chosen(), "Vegetables");

    // Gone from the forest (the tree's node with it): the remembered folder, else the first.
    ClickFolder("Spinach");
    view.SetTreeSelection(Find(forest, "Recipes"));
    Replace({FDVTest::Node("Recipes", {FDVTest::Node("Vegetables", {FDVTest::Node("Peppers")}), FDVTest::Node("Stews")}),
             FDVTest::Node("Nibbles", {FDVTest::Node("Muffins")})});
    EXPECT_EQ(Chosen(), "Recipes");
    recorder.reported.clear();
    Replace({FDVTest::Node("Nibbles", {FDVTest::Node("Muffins")})});
    EXPECT_EQ(Chosen(), "Nibbles");
    EXPECT_EQ(Rows(resource.list), "Muffins");
    EXPECT_EQ(PopUpEntries(resource.popUpControl), "Nibbles");
    EXPECT_EQ(recorder.reported, Events {"Nibbles"});
}

TEST_F(TreeAndListViewTest, ASearchListsMatchesOfTheWholeForestAndItsEndRestoresFolderAndSelection)
{
    Show(Items({"Peppers"}));
    recorder.reported.clear();
    resource.searchField.SimulateUserType("s");
    EXPECT_EQ(Rows(resource.list), "Muffins Spinach Stews");
    EXPECT_TRUE(view.GetSelection().IsEmpty());  // no folder stands in for the selection while searching
    resource.searchField.SimulateUserClear();
    EXPECT_EQ(Chosen(), "Vegetables");
    EXPECT_EQ(Rows(resource.list), "Peppers Spinach");
    EXPECT_EQ(Selected(), "Peppers");
    EXPECT_EQ(recorder.reported, (Events {"", "Peppers"}));

    // An item picked during a search is shown in its own folder afterwards.
    resource.searchField.SimulateUserType("muffins");
    resource.listBox.SimulateUserClickRow(RowOf(resource.list, "Muffins"));
    resource.searchField.SimulateUserClear();
    EXPECT_EQ(Chosen(), "Nibbles");
    EXPECT_EQ(Selected(), "Muffins");
}

TEST_F(TreeAndListViewTest, OpenFoldersAreKeptWhileAnotherViewIsShownAndTheFirstLevelOpensOnce)
{
    Show();
    EXPECT_TRUE(resource.treeView.IsItemExpanded(Node("Recipes")));
    resource.treeView.SimulateUserCollapse(Node("Recipes"));
    resource.treeView.CollapseItem(Node("Nibbles"));  // nothing open at all
    view.WillDisappear();
    resource.treeView.ExpandItem(Node("Recipes"));  // another view's doing
    view.GetInMemoryViewState()->InitStateIfNeeded(forest);
    Show();
    EXPECT_FALSE(resource.treeView.IsItemExpanded(Node("Recipes")));

    resource.treeView.SimulateUserExpand(Node("Vegetables"));
    view.WillDisappear();
    Show();
    EXPECT_TRUE(resource.treeView.IsItemExpanded(Node("Vegetables")));
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

TEST_F(TreeAndListViewTest, MissingPartsAreReported)
{
    // An empty forest chooses nothing.
    forest.Clear();
    NK::AssertCapture capture;
    Show();
    EXPECT_EQ(Chosen(), "-");
    EXPECT_EQ(capture.GetExpressions(), (std::vector<std::string> {"currentItems->GetSize () > 0",
                                                                   "selectedTreeItems.GetSize () == 1",
                                                                   "treeSelection != nullptr"}));
    EXPECT_FALSE(resource.upButton.IsEnabled());
    EXPECT_EQ(Rows(resource.list), "");

    // Without a pop-up factory the default one names entries like the tree.
    view.WillDisappear();
    forest = BuildForest(SampleForest());
    view.SetPopUpItemFactory(nullptr);
    capture.Clear();
    Show(Items({"Peppers"}));
    EXPECT_EQ(capture.GetExpressions(), (std::vector<std::string> {"popUpItemFactory != nullptr"}));
    EXPECT_EQ(PopUpEntries(resource.popUpControl), "Recipes > Vegetables");
}

}  // namespace
