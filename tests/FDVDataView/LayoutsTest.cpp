#include "NK/NKAssert.hpp"
#include "NK/NKMemoryChannel.hpp"
#include "QM/QMButton.hpp"
#include "QM/QMDialog.hpp"
#include "QM/QMListBox.hpp"
#include "QM/QMPopUpControl.hpp"
#include "QM/QMSearchEdit.hpp"
#include "QM/QMSplitter.hpp"
#include "QM/QMTreeView.hpp"
#include "WZSources/CompoundControls/FolderedDataView/Views/WZFDVLayouts.hpp"
#include "WZSources/CompoundControls/FolderedDataView/Views/WZFDVTreeAndListLayout.hpp"

#include <gtest/gtest.h>

namespace {

using WZ::Folderable::FlatListLayout;
using WZ::Folderable::HierarchicalLayout;
using WZ::Folderable::Layout;
using WZ::Folderable::NormalLayout;
using WZ::Folderable::TreeAndListLayout;

// The controls of a data view on a dialog, as the layouts' resource.
class Controls : public WZ::Folderable::LayoutResource {
public:
    QM::SearchEdit* GetSearchField() const override { return &searchField; }
    QM::ListBox* GetListBox() const override { return &listBox; }
    QM::Button* GetUpButton() const override { return &upButton; }
    QM::Item* GetHierarchicalTable() const override { return &table; }
    QM::TreeView* GetTreeView() const override { return &tree; }
    QM::PopUpControl* GetPopUpControl() const override { return &popUp; }
    QM::Splitter* GetSplitter() const override { return &splitter; }

    QM::Dialog dialog {"Layouts", 600, 400};
    mutable QM::SearchEdit searchField {dialog, QM::Rect(0, 0, 10, 10)};
    mutable QM::Item table {dialog, QM::Rect(0, 0, 10, 10)};
    mutable QM::TreeView tree {dialog, QM::Rect(0, 0, 10, 10)};
    mutable QM::Splitter splitter {dialog, QM::Rect(0, 0, 4, 10)};
    mutable QM::Button upButton {dialog, QM::Rect(0, 0, 10, 10), "Up"};
    mutable QM::PopUpControl popUp {dialog, QM::Rect(0, 0, 10, 10)};
    mutable QM::ListBox listBox {dialog, QM::Rect(0, 0, 10, 10)};
};

std::vector<NK::Byte> Bytes(const Layout::LayoutState& state)
{
    NK::MemoryOChannel channel;
    EXPECT_EQ(state.Write(channel), NK::NoError);
    return channel.GetBytes();
}

class LayoutsTest : public ::testing::Test {
protected:
    Controls controls;
    const QM::Rect rect {10, 20, 510, 320};
};

TEST_F(LayoutsTest, NormalLayoutPutsTheSearchFieldAboveTheContentAndGivesItsRoomBackWhenHidden)
{
    HierarchicalLayout layout(controls);
    layout.ApplyLayout(rect);
    EXPECT_EQ(controls.searchField.GetRect(), QM::Rect(10, 20, 510, 40));
    EXPECT_EQ(controls.table.GetRect(), QM::Rect(10, 44, 510, 320));
    EXPECT_EQ(layout.GetRect(), rect);

    layout.Show();
    layout.SetSearchFieldVisible(false);
    EXPECT_FALSE(controls.searchField.IsVisible());
    EXPECT_EQ(controls.table.GetRect(), rect);

    // The flat list places the list box, not the table.
    FlatListLayout flat(controls);
    flat.Show();
    flat.ApplyLayout(QM::Rect(0, 0, 200, 100));
    EXPECT_EQ(controls.listBox.GetRect(), QM::Rect(0, 24, 200, 100));
    EXPECT_EQ(controls.table.GetRect(), rect);
}

TEST_F(LayoutsTest, ShowAndHideSwitchWhatTheLayoutPlacesAndKeepAHiddenSearchFieldHidden)
{
    FlatListLayout layout(controls);
    layout.Hide();
    EXPECT_FALSE(controls.listBox.IsVisible());
    EXPECT_FALSE(controls.searchField.IsVisible());
    EXPECT_TRUE(controls.table.IsVisible());  // not the flat list's

    layout.ApplyState(NormalLayout::LayoutState(false));
    layout.Show();
    EXPECT_TRUE(controls.listBox.IsVisible());
    EXPECT_FALSE(controls.searchField.IsVisible());
}

TEST_F(LayoutsTest, NormalStateIsOneBoolAndAFailedReadLeavesTheStateAsItWas)
{
    NormalLayout::LayoutState hidden(false);
    EXPECT_EQ(Bytes(hidden), (std::vector<NK::Byte> {0}));

    NormalLayout::LayoutState read(true);
    NK::MemoryIChannel channel(Bytes(hidden));
    EXPECT_EQ(read.Read(channel), NK::NoError);
    EXPECT_TRUE(read.IsEqual(hidden));

    NormalLayout::LayoutState untouched(true);
    NK::MemoryIChannel empty(std::vector<NK::Byte> {});
    EXPECT_NE(untouched.Read(empty), NK::NoError);
    EXPECT_TRUE(untouched.IsSearchFieldVisible());
}

TEST_F(LayoutsTest, TreeAndListLayoutPlacesTreeSplitterHeaderRowAndList)
{
    TreeAndListLayout layout(controls);
    layout.ApplyLayout(rect);
    const short top = 44;  // below the search field and the gap
    EXPECT_EQ(controls.tree.GetRect(), QM::Rect(10, top, 190, 320));
    EXPECT_EQ(controls.splitter.GetRect(), QM::Rect(190, top, 194, 320));
    EXPECT_EQ(controls.upButton.GetRect(), QM::Rect(194, top, 218, top + 20));
    EXPECT_EQ(controls.popUp.GetRect(), QM::Rect(222, top, 510, top + 20));
    EXPECT_EQ(controls.listBox.GetRect(), QM::Rect(194, top + 24, 510, 320));
    // The splitter keeps both panes at their minimum widths.
    EXPECT_EQ(controls.splitter.GetMinimum(), 10 + TreeAndListLayout::minTreeWidth);
    EXPECT_EQ(controls.splitter.GetMaximum(), 510 - TreeAndListLayout::minListWidth - TreeAndListLayout::splitterWidth);
}

TEST_F(LayoutsTest, DraggingTheSplitterSetsTheTreeWidthAndPlacesTheListAgain)
{
    TreeAndListLayout layout(controls);
    layout.Show();
    layout.ApplyLayout(rect);
    controls.splitter.SimulateUserDrag(70);
    EXPECT_EQ(layout.GetSplitterState().treeWidth, 250);
    EXPECT_EQ(controls.tree.GetRect().GetWidth(), 250);
    EXPECT_EQ(controls.listBox.GetRect().GetLeft(), 10 + 250 + TreeAndListLayout::splitterWidth);

    // Dragged past the list's minimum: the splitter stops there.
    controls.splitter.SimulateUserDrag(1000);
    EXPECT_EQ(controls.listBox.GetRect().GetWidth(), TreeAndListLayout::minListWidth);

    // The wanted width is kept when the rectangle is narrowed, and fitted for placing.
    TreeAndListLayout narrow(controls);
    narrow.ApplyLayout(QM::Rect(0, 0, 200, 100));
    EXPECT_EQ(controls.tree.GetRect().GetWidth(), 200 - TreeAndListLayout::minListWidth - TreeAndListLayout::splitterWidth);
    EXPECT_EQ(narrow.GetSplitterState().treeWidth, TreeAndListLayout::defaultTreeWidth);
}

TEST_F(LayoutsTest, SplitterStateRoundTripsAndRefusesANegativeWidth)
{
    TreeAndListLayout layout(controls);
    layout.ApplyLayout(rect);
    layout.ApplyState(TreeAndListLayout::LayoutState(false, {300}));
    EXPECT_EQ(controls.tree.GetRect().GetWidth(), 300);
    EXPECT_EQ(controls.tree.GetRect().GetTop(), 20);  // no search field

    const std::vector<NK::Byte> bytes = Bytes(*layout.GetState());
    EXPECT_EQ(bytes, (std::vector<NK::Byte> {0, 0x2C, 0x01}));
    auto fresh = layout.CreateDefaultState();
    NK::MemoryIChannel channel(bytes);
    EXPECT_EQ(fresh->Read(channel), NK::NoError);
    EXPECT_TRUE(fresh->IsEqual(*layout.GetState()));

    NK::MemoryIChannel negative(std::vector<NK::Byte> {1, 0xFF, 0xFF});
    auto refused = layout.CreateDefaultState();
    EXPECT_EQ(refused->Read(negative), NK::ErrMissingElement);
    EXPECT_TRUE(refused->IsEqual(*layout.CreateDefaultState()));

    NK::MemoryIChannel truncated(std::vector<NK::Byte> {0, 0x2C});
    EXPECT_NE(refused->Read(truncated), NK::NoError);
    EXPECT_TRUE(refused->IsEqual(*layout.CreateDefaultState()));
}

TEST_F(LayoutsTest, AStateOfAnotherLayoutKindIsReportedAndIgnored)
{
    TreeAndListLayout layout(controls);
    layout.ApplyState(TreeAndListLayout::LayoutState(true, {222}));
    NK::AssertCapture capture;
    layout.ApplyState(NormalLayout::LayoutState(false));
    ASSERT_EQ(capture.GetReports().size(), 1u);
    EXPECT_EQ(capture.GetReports()[0].expression, "treeAndList != nullptr");
    EXPECT_EQ(layout.GetSplitterState().treeWidth, 222);
    EXPECT_TRUE(layout.IsSearchFieldVisible());
}

}  // namespace
