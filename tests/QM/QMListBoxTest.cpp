#include "NK/NKAssert.hpp"
#include "QM/QMDialog.hpp"
#include "QM/QMListBox.hpp"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

struct Tag : NK::Object {
    explicit Tag(std::string name) : name(std::move(name)) {}
    std::string name;
};

class SelectionRecorder : public QM::ListBoxObserver {
public:
    void SelectionChanged(const QM::ListBoxSelectionEvent& e) override
    {
        events.push_back(std::string(e.origin == QM::Origin::User ? "user:" : "program:") +
                         Rows(e.source.GetSelectedItems()));
    }
    void ItemDoubleClicked(const QM::ListBoxClickEvent& e) override
    {
        events.push_back("double-click " + std::to_string(e.row));
    }
    static std::string Rows(const NK::Array<short>& rows)
    {
        std::string text;
        for (short row : rows)
            text += (text.empty() ? "" : ",") + std::to_string(row);
        return text;
    }
    std::vector<std::string> events;
};

class QMListBoxTest : public ::testing::Test {
protected:
    // Rows named by their first tab field, in order.
    std::vector<std::string> Texts(const QM::ListBox& box) const
    {
        std::vector<std::string> texts;
        for (int row = 1; row <= box.GetItemCount(); ++row)
            texts.push_back(box.IsSeparator(static_cast<short>(row)) ? "--" : box.GetTabItemText(static_cast<short>(row), 1).ToUtf8());
        return texts;
    }
    short Insert(QM::ListBox& box, int position, const char* text)
    {
        short row = box.InsertItem(position);
        box.SetTabItemText(row, 1, text);
        return row;
    }

    QM::Dialog dialog;
    QM::ListBox single {dialog, QM::Rect(0, 0, 200, 90)};  // five rows of 18 pixels visible
    QM::ListBox multi {dialog, QM::Rect(0, 100, 200, 190), QM::ListBox::SelectionType::Multi};
};

TEST_F(QMListBoxTest, InsertionNumbersRowsAndHonoursTheMarkers)
{
    EXPECT_EQ(Insert(single, 1, "b"), 1);
    EXPECT_EQ(Insert(single, QM::ListBox::LastPosition, "d"), 2);
    EXPECT_EQ(Insert(single, QM::ListBox::FirstPosition, "a"), 1);
    EXPECT_EQ(Insert(single, 3, "c"), 3);
    EXPECT_EQ(Insert(single, 5, "e"), 5);  // count + 1 appends
    EXPECT_EQ(single.InsertSeparator(3), 3);
    EXPECT_EQ(Texts(single), (std::vector<std::string> {"a", "b", "--", "c", "d", "e"}));

    NK::AssertCapture capture;
    EXPECT_EQ(single.InsertItem(8), 0);
    EXPECT_EQ(single.InsertItem(0), 0);
    EXPECT_EQ(single.InsertItem(-1), 0);
    single.DeleteItem(7);
    EXPECT_EQ(capture.GetReports().size(), 4u);
    EXPECT_EQ(single.GetItemCount(), 6);

    single.DeleteItem(3);
    single.DeleteItem(1);
    EXPECT_EQ(Texts(single), (std::vector<std::string> {"b", "c", "d", "e"}));
}

// Rows are short: a full list box refuses another row with a report and no change, and still
// renders (a short row counter would wrap around before it passed the last row).
TEST_F(QMListBoxTest, AFullListBoxRefusesAnotherRow)
{
    for (int i = 0; i < QM::ListBox::MaxRowCount; ++i)
        multi.InsertItem(QM::ListBox::LastPosition);
    multi.SelectItem(QM::ListBox::MaxRowCount);
    NK::AssertCapture capture;
    EXPECT_EQ(multi.InsertItem(1), 0);
    EXPECT_EQ(multi.InsertSeparator(QM::ListBox::LastPosition), 0);
    EXPECT_EQ(capture.GetReports().size(), 2u);
    EXPECT_EQ(multi.GetItemCount(), QM::ListBox::MaxRowCount);
    EXPECT_EQ(multi.GetSelectedItems(), (NK::Array<short> {QM::ListBox::MaxRowCount}));
    NK::Array<std::string> lines;
    multi.Render(lines, "");
    EXPECT_EQ(lines.GetSize(), 1u + QM::ListBox::MaxRowCount);
}

TEST_F(QMListBoxTest, RowsKeepTheirDataWhenRowsAroundThemComeAndGo)
{
    Insert(multi, QM::ListBox::LastPosition, "keep");
    Insert(multi, QM::ListBox::LastPosition, "drop");
    NK::Ref<NK::Object> tag = NK::NewRef<Tag>("kept record");
    multi.SetTabFieldCount(2);
    multi.SetItemObjectData(1, tag);
    multi.SetItemValue(1, 42);
    multi.SetTabItemText(1, 2, "second");
    multi.SetTabItemIcon(1, 2, QM::Icon(-4, 17));
    multi.SetItemFontStyle(1, QM::Font::Bold);
    multi.SetItemColor(1, QM::Color(1, 2, 3));
    multi.SelectItems({1, 2});

    Insert(multi, QM::ListBox::FirstPosition, "new");
    multi.DeleteItem(3);
    ASSERT_EQ(Texts(multi), (std::vector<std::string> {"new", "keep"}));
    EXPECT_EQ(multi.GetItemObjectData(2), tag);
    EXPECT_EQ(multi.GetItemObjectData(1), nullptr);
    EXPECT_EQ(multi.GetItemValue(2), 42);
    EXPECT_EQ(multi.GetTabItemText(2, 2), NK::UniString("second"));
    EXPECT_EQ(multi.GetTabItemIcon(2, 2), QM::Icon(-4, 17));
    EXPECT_EQ(multi.GetItemFontStyle(2), QM::Font::Bold);
    EXPECT_EQ(multi.GetItemColor(2), QM::Color(1, 2, 3));
    EXPECT_EQ(multi.GetSelectedItems(), (NK::Array<short> {2}));
}

TEST_F(QMListBoxTest, TabFieldsAreNumberedFromOneUpToTheirCount)
{
    Insert(single, 1, "a");
    NK::AssertCapture capture;
    single.SetTabItemText(1, 2, "beyond the only field");
    single.SetTabItemText(1, 0, "before the first");
    EXPECT_EQ(capture.GetReports().size(), 2u);

    single.SetTabFieldCount(3);
    single.SetTabItemText(1, 3, "third");
    single.SetTabItemColor(1, 3, QM::Color(9, 9, 9));
    EXPECT_EQ(single.GetTabItemText(1, 2), NK::UniString());
    EXPECT_EQ(single.GetTabItemColor(1, 3), QM::Color(9, 9, 9));
    single.SetTabFieldCount(2);  // the third field's content goes with it
    single.SetTabFieldCount(3);
    EXPECT_EQ(single.GetTabItemText(1, 3), NK::UniString());
    EXPECT_FALSE(single.GetTabItemColor(1, 3).has_value());
}

TEST_F(QMListBoxTest, SingleSelectionKeepsOneRowAndNeverASeparator)
{
    Insert(single, QM::ListBox::LastPosition, "a");
    single.InsertSeparator(QM::ListBox::LastPosition);
    Insert(single, QM::ListBox::LastPosition, "c");
    single.SelectItem(1);
    single.SelectItem(3);
    EXPECT_EQ(single.GetSelectedItems(), (NK::Array<short> {3}));
    single.SelectItem(2);
    EXPECT_EQ(single.GetSelectedItem(), 3);
    single.SelectItems({1, 3});  // one after the other: the last one stays
    EXPECT_EQ(single.GetSelectedItems(), (NK::Array<short> {3}));

    single.DeselectItem(0);
    SelectionRecorder recorder;
    single.Attach(recorder);
    NK::AssertCapture capture;
    single.SimulateUserSelectRows({1, 3});  // a user cannot pick two rows here
    EXPECT_EQ(capture.GetReports().size(), 1u);
    single.SimulateUserClickRow(2);  // a separator does not take a click
    single.DisableItem(1);
    single.SimulateUserClickRow(1);  // nor does a disabled row
    single.SimulateUserDoubleClickRow(1);
    EXPECT_TRUE(recorder.events.empty());
    EXPECT_EQ(single.GetSelectedCount(), 0);
}

TEST_F(QMListBoxTest, MultiSelectionSelectsDeselectsAndSortsAscending)
{
    for (const char* text : {"a", "b", "c", "d"})
        Insert(multi, QM::ListBox::LastPosition, text);
    multi.SelectItems({4, 1, 3});
    EXPECT_EQ(multi.GetSelectedItems(), (NK::Array<short> {1, 3, 4}));
    EXPECT_EQ(multi.GetSelectedItem(), 1);
    multi.DeselectItem(3);
    EXPECT_EQ(multi.GetSelectedItems(), (NK::Array<short> {1, 4}));
    EXPECT_TRUE(multi.IsItemSelected(4));

    NK::AssertCapture capture;
    multi.SelectItems({2, 9});  // one bad row: nothing is selected
    EXPECT_EQ(capture.GetReports().size(), 1u);
    EXPECT_EQ(multi.GetSelectedItems(), (NK::Array<short> {1, 4}));

    multi.DeselectItem(0);
    EXPECT_TRUE(multi.GetSelectedItems().IsEmpty());
    EXPECT_EQ(multi.GetSelectedItem(), 0);
}

TEST_F(QMListBoxTest, EveryChangeOfTheSelectionNotifiesOnceWithItsOrigin)
{
    for (const char* text : {"a", "b", "c", "d"})
        Insert(multi, QM::ListBox::LastPosition, text);
    SelectionRecorder recorder;
    multi.Attach(recorder);
    multi.SelectItem(2);
    multi.SelectItem(2);          // no change: no event
    multi.SelectItems({1, 3});    // one event for the whole call
    multi.SimulateUserClickRow(3);
    multi.SimulateUserSelectRows({1, 2});
    multi.SimulateUserSelectRows({1, 2});
    multi.DeleteItem(1);          // a selected row goes: the selection changed
    multi.DeleteItem(3);          // an unselected one: it did not
    multi.SimulateUserDoubleClickRow(2);
    multi.DeselectItem(0);
    EXPECT_EQ(recorder.events,
              (std::vector<std::string> {"program:2", "program:1,2,3", "user:3", "user:1,2", "program:1",
                                         "user:2", "double-click 2", "program:"}));
}

TEST_F(QMListBoxTest, SelectingScrollsTheRowIntoView)
{
    for (int i = 0; i < 20; ++i)
        single.InsertItem(QM::ListBox::LastPosition);
    single.SelectItem(12);  // rows 8..12 shown
    EXPECT_EQ(single.GetScrollPosition(), 7);
    single.SelectItem(9);  // already in view
    EXPECT_EQ(single.GetScrollPosition(), 7);
    single.SelectItem(3);
    EXPECT_EQ(single.GetScrollPosition(), 2);
    single.SetScrollPosition(100);
    EXPECT_EQ(single.GetScrollPosition(), 19);
}

TEST_F(QMListBoxTest, DrawingNestsAndTheJournalCountsEveryCall)
{
    single.DisableDraw();
    single.DisableDraw();
    single.InsertItem(QM::ListBox::LastPosition);
    single.SetTabItemText(1, 1, "x");
    single.SetTabItemText(1, 1, "x");  // the same text still counts: the journal counts calls
    single.EnableDraw();
    EXPECT_FALSE(single.IsDrawEnabled());
    single.EnableDraw();
    EXPECT_TRUE(single.IsDrawEnabled());
    EXPECT_EQ(single.GetJournal().ToString(), "InsertItem=1 SetText=2 DisableDraw=2 EnableDraw=2");

    NK::AssertCapture capture;
    single.EnableDraw();  // unbalanced
    EXPECT_EQ(capture.GetReports().size(), 1u);
    EXPECT_TRUE(single.IsDrawEnabled());
}

TEST_F(QMListBoxTest, RendersRowsTabsSeparatorsAndSelection)
{
    multi.SetTabFieldCount(3);
    short a = Insert(multi, QM::ListBox::LastPosition, "Alpha");
    multi.SetTabItemText(a, 2, "1 KB");
    multi.SetTabItemIcon(a, 1, QM::Icon(7, 3));
    multi.InsertSeparator(QM::ListBox::LastPosition);
    short b = Insert(multi, QM::ListBox::LastPosition, "Beta");
    multi.SetTabItemText(b, 3, "late");
    short c = Insert(multi, QM::ListBox::LastPosition, "Gamma");
    multi.GrayItem(c, true);
    multi.SelectItems({a, b});
    NK::Array<std::string> lines;
    multi.Render(lines, "");
    EXPECT_EQ(lines, (NK::Array<std::string> {"#2 ListBox (0, 100, 200, 190)", "  * [icon(7:3)] Alpha | 1 KB",
                                              "    ----------", "  * Beta |  | late", "    Gamma (grayed)"}));
}

}  // namespace
