#include "NK/NKAssert.hpp"
#include "QM/QMDialog.hpp"
#include "QM/QMListBox.hpp"

#include <gtest/gtest.h>

#include <vector>

namespace {

class HeaderRecorder : public QM::ListBoxHeaderObserver {
public:
    void HeaderItemResized(const QM::ListBoxHeaderEvent& e) override { resized.push_back(e.headerItem); }
    void HeaderItemDragged(const QM::ListBoxHeaderDragEvent& e) override { dragged.push_back({e.fromItem, e.toItem}); }
    void HeaderButtonClicked(const QM::ListBoxHeaderEvent&) override { ++buttonClicks; }
    std::vector<short> resized;
    std::vector<std::pair<short, short>> dragged;
    int buttonClicks = 0;
};

class ListBoxColumnsTest : public ::testing::Test {
protected:
    void AddHeader(std::initializer_list<short> sizes)
    {
        listBox.SetHasHeader(true);
        listBox.SetHeaderItemCount(static_cast<short>(sizes.size()));
        short item = 1;
        for (short size : sizes) {
            listBox.SetHeaderItemSize(item, size);
            listBox.SetHeaderItemSizeableFlag(item, true);
            ++item;
        }
    }

    QM::Dialog dialog {"Columns", 400, 300};
    QM::ListBox listBox {dialog, QM::Rect(0, 0, 200, 100)};
    HeaderRecorder recorder;
};

TEST_F(ListBoxColumnsTest, TabFieldsFollowTheTabFieldCountAndOutOfRangeOnesAreReported)
{
    NK::AssertCapture capture;
    listBox.SetTabFieldBeginEndPosition(1, 0, 70);
    listBox.SetTabFieldOwnerDrawFlag(1, true);
    listBox.SetTabFieldCount(3);
    EXPECT_EQ(listBox.GetTabFieldBeginPosition(3), 70);  // new fields start empty at the end
    EXPECT_EQ(listBox.GetTabFieldWidth(3), 0);
    EXPECT_FALSE(listBox.GetTabFieldOwnerDrawFlag(2));
    listBox.SetTabFieldCount(1);
    EXPECT_TRUE(listBox.GetTabFieldOwnerDrawFlag(1));
    EXPECT_TRUE(capture.GetReports().empty());

    listBox.SetTabFieldBeginEndPosition(2, 0, 10);
    listBox.SetTabFieldBeginEndPosition(1, 30, 10);  // begin after end
    listBox.SetTabFieldCount(-1);
    listBox.SetHeaderItemText(1, "ignored");  // no header: nothing to write, nothing to report
    EXPECT_EQ(listBox.GetTabFieldWidth(1), 70);
    EXPECT_EQ(capture.GetReports().size(), 3u);
    listBox.SetTabFieldCount(0);  // a list box without columns has no tab field
    EXPECT_EQ(listBox.GetTabFieldCount(), 0);
    AddHeader({50});
    listBox.SetHeaderItemText(2, "no such item");
    EXPECT_EQ(capture.GetReports().size(), 4u);
}

TEST_F(ListBoxColumnsTest, DraggedDividerRespectsMinimumAndSizeableFlagAndMovesSynchronisedTabFields)
{
    listBox.SetTabFieldCount(3);
    AddHeader({100, 80});
    listBox.SetHeaderItemMinSize(1, 40);
    listBox.SetHeaderItemSizeableFlag(2, false);
    listBox.EnableHeaderButton();
    EXPECT_EQ(listBox.GetItemWidth(), 200 - QM::ListBox::HeaderButtonWidth);
    listBox.Attach(recorder);
    EXPECT_TRUE(listBox.SimulateUserClickHeaderButton());
    EXPECT_EQ(recorder.buttonClicks, 1);

    EXPECT_TRUE(listBox.SimulateUserDragHeaderDivider(1, 60));  // synchronised: the tab fields follow
    EXPECT_EQ(listBox.GetTabFieldEndPosition(1), 60);
    EXPECT_EQ(listBox.GetTabFieldEndPosition(2), 140);
    listBox.SetHeaderSynchronState(false);
    EXPECT_TRUE(listBox.SimulateUserDragHeaderDivider(1, 10));
    EXPECT_EQ(listBox.GetHeaderItemSize(1), 40);
    EXPECT_EQ(listBox.GetTabFieldEndPosition(1), 60);  // not synchronised: the tab fields stay
    EXPECT_FALSE(listBox.SimulateUserDragHeaderDivider(1, 40));  // no change, no event
    EXPECT_FALSE(listBox.SimulateUserDragHeaderDivider(2, 120));
    EXPECT_EQ(recorder.resized, (std::vector<short> {1, 1}));

    // Header items move only when dragable, taking their text and size along.
    listBox.SetHeaderItemText(1, "A");
    EXPECT_FALSE(listBox.SimulateUserDragHeaderItem(1, 2));
    listBox.SetHeaderDragableButtons(true);
    EXPECT_TRUE(listBox.SimulateUserDragHeaderItem(1, 2));
    EXPECT_EQ(listBox.GetHeaderItemText(2), NK::UniString("A"));
    EXPECT_EQ(listBox.GetHeaderItemSize(1), 80);
    EXPECT_EQ(recorder.dragged, (std::vector<std::pair<short, short>> {{1, 2}}));
}

}  // namespace
