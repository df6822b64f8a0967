// The flat view: every item of the forest in one sorted list, rebuilt with the fewest list
// operations, its selection kept by id and reported once per change, and narrowed by a search.
#include "ListsTestBench.hpp"

#include "NK/NKAssert.hpp"
#include "NK/NKMemoryChannel.hpp"

#include <gtest/gtest.h>

namespace {

using namespace FDVListsTest;

class FlatListViewTest : public ::testing::Test {
protected:
    FlatListViewTest() : forest(BuildForest(SampleForest())), view(nullptr, resource)
    {
        view.SetCurrentItems(&forest);
        view.SetDelegate(&recorder);
        recorder.view = &view;
        view.SetListItemFactory(NK::NewOwned<RowFactory>());
        view.SetListItemSearchFilter(NK::NewOwned<TextSearchFilter>());
    }

    void Show(const Selection& selection = {}) { view.WillAppear(View::OpenData {selection, nullptr}); }
    UntypedListBox& List() { return resource.list; }
    QM::ListBox& ListBox() { return resource.listBox; }

    ListsResource resource;
    NK::Array<NK::Owner<ModelItem>> forest;
    FlatListView view;
    SelectionRecorder recorder;
};

TEST_F(FlatListViewTest, ShowsEveryItemSortedWithTheSelectionItAppearsWith)
{
    Show(Selection {Find(forest, "Peppers"), Find(forest, "Nibbles")});

    EXPECT_EQ(Rows(List()), "Dumplings Muffins Nibbles Peppers Recipes Spinach Stews Vegetables");
    EXPECT_EQ(Names(view.GetSelection().GetItems()), "Nibbles Peppers");
    EXPECT_TRUE(ListBox().IsVisible());
    EXPECT_TRUE(ListBox().IsDrawEnabled());
    EXPECT_TRUE(recorder.reported.empty());
    EXPECT_EQ(ListBox().GetTabItemText(RowOf(List(), "Spinach"), 2).ToUtf8(), "7");
}

TEST_F(FlatListViewTest, ARefreshOfTheSameRowsChangesNothingAndSendsNothing)
{
    Show(Selection {Find(forest, "Peppers")});
    ListBox().ResetJournal();
    view.Refresh();
    const QM::Journal& journal = ListBox().GetJournal();
    EXPECT_EQ(journal.GetCount(QM::Op::InsertItem) + journal.GetCount(QM::Op::DeleteItem) + journal.GetCount(QM::Op::SetText), 0u);
    EXPECT_EQ(journal.GetCount(QM::Op::Redraw), 1u);
    EXPECT_TRUE(ListBox().IsDrawEnabled());
    EXPECT_TRUE(recorder.reported.empty());
    EXPECT_EQ(Names(view.GetSelection().GetItems()), "Peppers");
}

TEST_F(FlatListViewTest, ARefreshThatDropsASelectedRowSendsOneEvent)
{
    Show(Selection {Find(forest, "Peppers"), Find(forest, "Stews")});
    // The client removes "Stews" from its model.
    NK::Array<NK::Owner<ModelItem>>& project = forest[0]->GetChildren();
    project.Delete(1);

    view.Refresh();

    EXPECT_EQ(Rows(List()), "Dumplings Muffins Nibbles Peppers Recipes Spinach Vegetables");
    EXPECT_EQ(recorder.reported, (std::vector<std::string> {"Peppers"}));
}

TEST_F(FlatListViewTest, UserSelectionIsReportedAndTheViewIsDeafWhileHandlingIsOff)
{
    Show();
    ListBox().SimulateUserClickRow(RowOf(List(), "Vegetables"));
    view.DisableSelectionHandling();
    ListBox().SimulateUserClickRow(RowOf(List(), "Nibbles"));
    view.EnableSelectionHandling();
    ListBox().SimulateUserSelectRows({RowOf(List(), "Nibbles"), RowOf(List(), "Peppers")});

    EXPECT_EQ(recorder.reported, (std::vector<std::string> {"Vegetables", "Nibbles Peppers"}));
}

TEST_F(FlatListViewTest, ASearchNarrowsTheRowsAndItsEndRestoresRowsAndSelection)
{
    Show(Selection {Find(forest, "Peppers")});
    resource.searchField.SimulateUserType("s");
    EXPECT_EQ(Rows(List()), "Muffins Spinach Stews");  // items without search texts never show
    EXPECT_TRUE(view.GetSelection().IsEmpty());
    resource.searchField.SimulateUserType("e");
    EXPECT_EQ(Rows(List()), "Spinach");
    resource.searchField.SimulateUserClear();
    EXPECT_EQ(Rows(List()), "Dumplings Muffins Nibbles Peppers Recipes Spinach Stews Vegetables");
    EXPECT_EQ(Names(view.GetSelection().GetItems()), "Peppers");
    EXPECT_EQ(recorder.reported, (std::vector<std::string> {"", "Peppers"}));

    // A row picked during a search stays selected after it.
    resource.searchField.SimulateUserType("stews");
    ListBox().SimulateUserClickRow(RowOf(List(), "Stews"));
    resource.searchField.SimulateUserClear();
    EXPECT_EQ(Names(view.GetSelection().GetItems()), "Stews");
    EXPECT_EQ(recorder.reported.back(), "Stews");
}

TEST_F(FlatListViewTest, WithoutASearchFilterASearchShowsEveryRowAndANewFilterTakesTheFieldsText)
{
    view.SetListItemSearchFilter(nullptr);
    Show();
    resource.searchField.SimulateUserType("muffins");
    EXPECT_EQ(Rows(List()), "Dumplings Muffins Nibbles Peppers Recipes Spinach Stews Vegetables");
    auto filter = NK::NewOwned<TextSearchFilter>();
    const TextSearchFilter* raw = filter.Get();
    view.SetListItemSearchFilter(std::move(filter));
    EXPECT_EQ(raw->GetSearchText().ToUtf8(), "muffins");
}

// Rows kept from before would lead to items of a forest that may be deleted next.
TEST_F(FlatListViewTest, WithoutAFactoryARefreshIsReportedAndEmptiesTheList)
{
    Show();
    view.SetListItemFactory(nullptr);
    NK::AssertCapture capture;
    view.Refresh();
    EXPECT_EQ(capture.GetExpressions(), (std::vector<std::string> {"listItemFactory != nullptr"}));
    EXPECT_EQ(Rows(List()), "");
}

TEST_F(FlatListViewTest, DisappearingHidesTheListAndWhatLiesOnItsLaterColumns)
{
    QM::Item edit(resource.dialog, QM::Rect(0, 0, 10, 10));
    QM::Item firstColumnEdit(resource.dialog, QM::Rect(0, 0, 10, 10));
    ListBox().SetOnTabItem(2, &edit);
    ListBox().SetOnTabItem(1, &firstColumnEdit);
    Show();

    view.WillDisappear();
    ListBox().SimulateUserClickRow(1);

    EXPECT_FALSE(ListBox().IsVisible());
    EXPECT_FALSE(edit.IsVisible());
    EXPECT_TRUE(firstColumnEdit.IsVisible());
    EXPECT_TRUE(recorder.reported.empty());
}

TEST_F(FlatListViewTest, TheViewStateCarriesTheColumnsAndSurvivesAChannel)
{
    Show();
    List().GetColumnManager().GetColumn(2)->SetVisible(false);
    List().SetupColumns();
    NK::Owner<View::ViewState> written = view.GetState();
    NK::MemoryOChannel out;
    ASSERT_EQ(written->Write(out), NK::NoError);

    List().GetColumnManager().GetColumn(2)->SetVisible(true);
    List().SetupColumns();
    NK::Owner<View::ViewState> read = view.CreateDefaultState();
    NK::MemoryIChannel in(out.GetBytes());
    ASSERT_EQ(read->Read(in), NK::NoError);
    NK::MemoryOChannel again;
    read->Write(again);
    EXPECT_EQ(again.GetBytes(), out.GetBytes());

    view.WillDisappear();
    view.WillAppear(View::OpenData {Selection(), read.Get()});
    EXPECT_FALSE(List().GetColumnManager().GetColumn(2)->IsVisible());
    EXPECT_EQ(ListBox().GetTabFieldCount(), 1);
}

TEST_F(FlatListViewTest, ATruncatedViewStateIsAnErrorAndLeavesTheStateAsItWas)
{
    Show();
    NK::MemoryOChannel out;
    view.GetState()->Write(out);
    std::vector<NK::Byte> bytes = out.GetBytes();
    bytes.resize(bytes.size() - 2);

    List().GetColumnManager().GetColumn(2)->SetVisible(false);
    NK::Owner<View::ViewState> state = view.GetState();
    NK::MemoryIChannel in(bytes);
    EXPECT_NE(state->Read(in), NK::NoError);
    auto& columns = static_cast<ListBoxBaseView::ViewState&>(*state).GetColumnState();
    EXPECT_FALSE(columns.columns.Get(2).visible);

    std::vector<NK::Byte> huge {0xFF, 0xFF};
    NK::MemoryIChannel corrupted(huge);
    EXPECT_EQ(state->Read(corrupted), -7003);
}

TEST_F(FlatListViewTest, RowsLeadBackToTheirModelItems)
{
    Show();
    EXPECT_EQ(List().GetRow(IdOf("nothing")), UntypedListBox::InvalidListItemIndex);
    EXPECT_EQ(List().GetModelItem(RowOf(List(), "Dumplings")), Find(forest, "Dumplings"));
    EXPECT_EQ(List().GetModelItem(IdOf("nothing")), nullptr);
    List().SelectItems(NK::Array<const ModelItem*> {Find(forest, "Vegetables"), Find(forest, "Muffins")});
    EXPECT_EQ(Names(List().GetSelectedModelItems()), "Muffins Vegetables");
}

}  // namespace
