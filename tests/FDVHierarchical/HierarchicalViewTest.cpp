#include "HierarchicalTestBench.hpp"

#include "NK/NKMemoryChannel.hpp"
#include "WZSources/CompoundControls/FolderedDataView/Views/WZFDVLayouts.hpp"

#include <gtest/gtest.h>

namespace {

using namespace FDVHierarchicalTest;
using SearchFieldState = WZ::Folderable::NormalLayout::LayoutState;

class HierarchicalViewTest : public ::testing::Test {
protected:
    HierarchicalViewTest()
    {
        view = std::make_unique<HierarchicalView>(nullptr, resource, NK::NewOwned<RowFactory>());
        view->SetSearchFilter(NK::NewOwned<NameSearchFilter>());
        view->SetCurrentItems(&forest);
        recorder.view = view.get();
        view->SetDelegate(&recorder);
        forest = BuildForest(SampleForest());
        view->WillAppear(View::OpenData {});
        recorder.reported.clear();
    }

    // A new forest in place of the old, then the view's refresh (as the data view does).
    void ReplaceForest(const std::vector<Node>& nodes)
    {
        NK::Array<NK::Owner<ModelItem>> old = std::move(forest);
        forest = BuildForest(nodes);
        view->Refresh();
    }
    const ModelItem* Item(const std::string& name) const { return Find(forest, name); }
    std::string Selected() const { return FDVTest::Names(view->GetSelection().GetItems()); }
    // The table's rows as the renderer shows them, without the heading line.
    std::string Rows() const
    {
        const std::string text = Render(table);
        return text.substr(text.find('\n') + 1);
    }
    HierarchicalTableView::GuidSet Open() const { return table.GetExpandedItemIds(); }

    NK::Array<NK::Owner<ModelItem>> forest;
    TableResource resource;
    HierarchicalTableView& table = resource.table;
    QM::SearchEdit& searchField = resource.searchField;
    std::unique_ptr<HierarchicalView> view;
    SelectionRecorder recorder;
};

// A rebuild keeps open folders and selection by id, and reports only a changed selection: the
// same rows and items send nothing, new items under the same ids one event, a lost row one.
TEST_F(HierarchicalViewTest, ARefreshKeepsFoldersAndSelectionByIdAndReportsOnlyAChange)
{
    ASSERT_TRUE(table.SimulateUserExpand(IdOf("Vegetables")));
    ASSERT_TRUE(table.SimulateUserSelectNodes(NK::Array<NK::Guid> {IdOf("Peppers"), IdOf("Muffins")}));
    ASSERT_EQ(recorder.reported, (NameList {"Muffins Peppers"}));
    recorder.reported.clear();
    const HierarchicalTableView::GuidSet openBefore = Open();
    table.ResetJournal();

    view->Refresh();
    EXPECT_EQ(recorder.reported, NameList {});
    EXPECT_EQ(table.GetJournal().GetCount(QM::Op::InsertItem) + table.GetJournal().GetCount(QM::Op::DeleteItem) +
                  table.GetJournal().GetCount(QM::Op::RedrawItem),
              0u);

    ReplaceForest(SampleForest());  // new objects, same ids and names
    EXPECT_EQ(Open(), openBefore);
    EXPECT_EQ(view->GetSelection().GetItems()[1], Item("Peppers"));
    EXPECT_EQ(recorder.reported, (NameList {"Muffins Peppers"}));

    ReplaceForest({Node("Recipes", {Node("Vegetables", {Node("Peppers")})}), Node("Nibbles")});
    EXPECT_EQ(recorder.reported, (NameList {"Muffins Peppers", "Peppers"}));
}

TEST_F(HierarchicalViewTest, UserSelectionIsReportedButNotWhileSelectionHandlingIsOff)
{
    ASSERT_TRUE(table.SimulateUserSelectNode(IdOf("Nibbles")));
    view->DisableSelectionHandling();
    ASSERT_TRUE(table.SimulateUserSelectNode(IdOf("Recipes")));
    view->EnableSelectionHandling();
    ASSERT_TRUE(table.SimulateUserSelectNode(IdOf("Stews")));
    EXPECT_EQ(recorder.reported, (NameList {"Nibbles", "Stews"}));
}

TEST_F(HierarchicalViewTest, SettingTheSelectionInsideAClosedFolderOpensThePathToIt)
{
    ASSERT_FALSE(table.IsExpandedItem(IdOf("Spinach")));
    view->SetSelection(Selection {Item("Dumplings"), Item("Muffins")});
    EXPECT_EQ(Selected(), "Muffins Dumplings");  // display order: Nibbles' child comes first
    EXPECT_TRUE(table.IsExpandedItem(IdOf("Vegetables")));
    EXPECT_TRUE(table.IsExpandedItem(IdOf("Spinach")));
}

// A search shows its matches opened and nothing selected; its end brings back rows, folders and
// selection. Each step sends one event at most.
TEST_F(HierarchicalViewTest, ASearchShowsTheMatchesOpenedAndItsEndRestoresRowsFoldersAndSelection)
{
    ASSERT_TRUE(table.SimulateUserCollapse(IdOf("Nibbles")));
    ASSERT_TRUE(table.SimulateUserSelectNode(IdOf("Stews")));
    recorder.reported.clear();
    const HierarchicalTableView::GuidSet openBefore = Open();
    const std::string rowsBefore = Rows();

    ASSERT_TRUE(searchField.SimulateUserType("dump"));
    EXPECT_TRUE(view->HasExpandStatesBeforeSearch());
    EXPECT_EQ(Rows(), "    [-] Recipes\n"
                      "      [-] Vegetables\n"
                      "        [-] Spinach\n"
                      "              Dumplings\n");
    ASSERT_TRUE(searchField.SimulateUserType("zzz"));
    EXPECT_EQ(table.GetNodeCount(), 0);

    ASSERT_TRUE(searchField.SimulateUserClear());
    EXPECT_FALSE(view->HasExpandStatesBeforeSearch());
    EXPECT_EQ(Open(), openBefore);
    EXPECT_EQ(Rows(), rowsBefore);
    EXPECT_EQ(recorder.reported, (NameList {"", "Stews"}));
}

TEST_F(HierarchicalViewTest, ARowPickedDuringASearchStaysSelectedAfterItWithoutAnotherEvent)
{
    ASSERT_TRUE(table.SimulateUserSelectNode(IdOf("Stews")));
    ASSERT_TRUE(searchField.SimulateUserType("pepp"));
    ASSERT_TRUE(table.SimulateUserSelectNode(IdOf("Peppers")));
    recorder.reported.clear();
    ASSERT_TRUE(searchField.SimulateUserClear());

    EXPECT_EQ(Selected(), "Peppers");
    EXPECT_TRUE(table.GetRowIndex(IdOf("Peppers")).has_value());  // its folders opened to show it
    EXPECT_EQ(recorder.reported, NameList {});
}

TEST_F(HierarchicalViewTest, AnItemFilterStillHidesMatchesDuringASearch)
{
    struct HideSpinach : TreeItemFactory::Filter {
        Status GetStatus(const ModelItem& item) const override
        {
            return AsNamed(item).GetName() == "Spinach" ? Status::Excluded : Status::Included;
        }
    };
    view->SetItemFilter(NK::NewOwned<HideSpinach>());
    view->Refresh();
    EXPECT_FALSE(table.ContainsNode(IdOf("Spinach")));

    ASSERT_TRUE(searchField.SimulateUserType("s"));  // Dumplings, Spinach, Stews, Muffins...
    EXPECT_FALSE(table.ContainsNode(IdOf("Spinach")));
    EXPECT_FALSE(table.ContainsNode(IdOf("Dumplings")));
    EXPECT_TRUE(table.ContainsNode(IdOf("Stews")));
    EXPECT_TRUE(table.ContainsNode(IdOf("Muffins")));
}

// Open folders are kept while another view is shown (from before a search that was running), and
// a search ended after the view came back, with nothing kept, opens only the first level.
TEST_F(HierarchicalViewTest, OpenFoldersAreKeptWhileTheViewIsNotShown)
{
    ASSERT_TRUE(table.SimulateUserExpand(IdOf("Vegetables")));
    ASSERT_TRUE(table.SimulateUserCollapse(IdOf("Nibbles")));
    const HierarchicalTableView::GuidSet openBefore = Open();
    ASSERT_TRUE(searchField.SimulateUserType("d"));
    view->WillDisappear();
    EXPECT_EQ(static_cast<HierarchicalView::InMemoryViewState*>(view->GetInMemoryViewState())->GetExpandedIds(), openBefore);
    EXPECT_FALSE(view->HasExpandStatesBeforeSearch());
    EXPECT_FALSE(table.IsVisible());

    view->WillAppear(View::OpenData {});
    EXPECT_TRUE(table.IsExpandedItem(IdOf("Spinach")));  // every match shown opened
    ASSERT_TRUE(searchField.SimulateUserClear());
    EXPECT_EQ(Open(), (HierarchicalTableView::GuidSet {IdOf("Nibbles"), IdOf("Recipes")}));

    table.CollapseAllNodes();
    table.ExpandItem(IdOf("Vegetables"));
    view->WillDisappear();
    table.CollapseAllNodes();  // another view meanwhile uses the same table
    view->WillAppear(View::OpenData {Selection {Item("Peppers")}, nullptr});
    EXPECT_EQ(Open(), (HierarchicalTableView::GuidSet {IdOf("Recipes"), IdOf("Vegetables")}));
    EXPECT_EQ(Selected(), "Peppers");
}

TEST_F(HierarchicalViewTest, ASearchStartedAgainWithoutAnEndIsReported)
{
    ASSERT_TRUE(searchField.SimulateUserType("p"));
    searchField.Clear();  // the program empties the field silently: no end of search
    NK::AssertCapture capture;
    ASSERT_TRUE(searchField.SimulateUserType("s"));
    EXPECT_EQ(capture.GetExpressions(), (std::vector<std::string> {"expandStatesBeforeSearch == nullptr"}));
    EXPECT_TRUE(view->HasExpandStatesBeforeSearch());
}

// A new search filter takes the field's text at once, the comparator goes to the factory, and a
// rebuild without a factory is reported and empties the table.
TEST_F(HierarchicalViewTest, SettingsTakeEffectAtTheNextRebuild)
{
    searchField.SetText("muf");
    auto filter = NK::NewOwned<NameSearchFilter>();
    const NameSearchFilter* kept = filter.Get();
    view->SetSearchFilter(std::move(filter));
    EXPECT_EQ(kept->GetSearchText(), NK::UniString("muf"));
    view->SetItemComparator([](const TreeItem& a, const TreeItem& b) { return b.GetDisplayName() < a.GetDisplayName(); });
    view->Refresh();
    EXPECT_FALSE(table.ContainsNode(IdOf("Peppers")));
    EXPECT_EQ(table.GetTopLevelNodes()[0].id, IdOf("Nibbles"));
    searchField.SetText("");
    view->SetSearchFilter(NK::NewOwned<NameSearchFilter>());
    view->Refresh();
    EXPECT_EQ(table.GetTopLevelNodes()[0].id, IdOf("Recipes"));

    view->SetItemFactory(nullptr);
    NK::AssertCapture capture;
    view->Refresh();
    EXPECT_EQ(capture.GetExpressions(), (std::vector<std::string> {"itemFactory != nullptr"}));
    EXPECT_EQ(table.GetNodeCount(), 0);
}

// ---- view state --------------------------------------------------------------------------

class HierarchicalViewStateTest : public HierarchicalViewTest {
protected:
    static NK::Array<QM::TableView::Column> Columns()
    {
        return {QM::TableView::Column {"name", "Name", 200, true}, QM::TableView::Column {"size", "Size", 80, true}};
    }
    static std::vector<NK::Byte> Write(const View::ViewState& state)
    {
        NK::MemoryOChannel channel;
        EXPECT_EQ(state.Write(channel), NK::NoError);
        return channel.GetBytes();
    }
};

// The column layout follows the layout's part and reads back whole; a stream cut anywhere leaves
// the column layout as it was.
TEST_F(HierarchicalViewStateTest, TheStateCarriesTheColumnLayoutAfterTheLayoutsPart)
{
    table.SetColumns(Columns());
    ASSERT_TRUE(table.SimulateUserResizeColumn("size", 120));
    HierarchicalView::ViewState written(NK::NewOwned<SearchFieldState>(false), table.GetColumnLayout());
    const std::vector<NK::Byte> bytes = Write(written);

    HierarchicalView::ViewState read(NK::NewOwned<SearchFieldState>(true), QM::TableView::ColumnLayout());
    NK::MemoryIChannel channel(bytes);
    ASSERT_EQ(read.Read(channel), NK::NoError);
    EXPECT_FALSE(static_cast<const SearchFieldState*>(read.GetLayoutState())->IsSearchFieldVisible());
    EXPECT_EQ(Write(read), bytes);

    const QM::TableView::ColumnLayout original({{"size", 10, false}});
    for (std::size_t cut : {std::size_t {0}, std::size_t {1}, bytes.size() - 1}) {
        HierarchicalView::ViewState damaged(NK::NewOwned<SearchFieldState>(true), original);
        NK::MemoryIChannel cutChannel(std::vector<NK::Byte>(bytes.begin(), bytes.begin() + static_cast<long>(cut)));
        EXPECT_NE(damaged.Read(cutChannel), NK::NoError) << cut;
        EXPECT_EQ(damaged.GetColumnLayout(), original) << cut;
    }
}

TEST_F(HierarchicalViewStateTest, AppearingWithAStateAppliesItsColumnLayout)
{
    table.SetColumns(Columns());
    NK::Owner<View::ViewState> defaults = view->CreateDefaultState();
    ASSERT_TRUE(table.SimulateUserMoveColumn("size", 0));
    NK::Owner<View::ViewState> moved = view->GetState();
    EXPECT_NE(static_cast<HierarchicalView::ViewState&>(*moved).GetColumnLayout(),
              static_cast<HierarchicalView::ViewState&>(*defaults).GetColumnLayout());

    view->WillDisappear();
    table.ResetJournal();
    view->WillAppear(View::OpenData {Selection {}, defaults.Get()});
    EXPECT_EQ(table.GetColumns()[0].id, NK::UniString("name"));

    // The same layout again is not applied a second time.
    view->WillDisappear();
    const NK::UInt64 applied = table.GetJournal().GetCount(QM::Op::SetValue);
    view->WillAppear(View::OpenData {Selection {}, defaults.Get()});
    EXPECT_EQ(table.GetJournal().GetCount(QM::Op::SetValue), applied);
}

}  // namespace
