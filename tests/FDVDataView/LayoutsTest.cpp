#include "DataViewTestBench.hpp"

#include "NK/NKAssert.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cstdint>
#include <limits>

namespace {

using namespace FDVDataViewTest;
using WZ::Folderable::Layout;
using WZ::Folderable::NormalLayout;

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

class LayoutsTest : public ::testing::Test {
protected:
    Controls controls;
    const QM::Rect rect {10, 20, 510, 320};
};

TEST_F(LayoutsTest, NormalLayoutsPutTheSearchFieldAboveTheContentAndGiveItsRoomBackWhenHidden)
{
    HierarchicalLayout layout(controls);
    layout.ApplyLayout(rect);
    EXPECT_EQ(controls.searchField.GetRect(), QM::Rect(10, 20, 510, 40));
    EXPECT_EQ(controls.table.GetRect(), QM::Rect(10, 44, 510, 320));
    layout.Show();
    layout.SetSearchFieldVisible(false);
    EXPECT_FALSE(controls.searchField.IsVisible());
    EXPECT_EQ(controls.table.GetRect(), rect);

    // The flat list places and shows the list box, not the table, and keeps a hidden search field hidden.
    FlatListLayout flat(controls);
    flat.Hide();
    EXPECT_FALSE(controls.listBox.IsVisible());
    EXPECT_TRUE(controls.table.IsVisible());
    flat.ApplyState(NormalLayout::LayoutState(false));
    flat.Show();
    EXPECT_TRUE(controls.listBox.IsVisible());
    EXPECT_FALSE(controls.searchField.IsVisible());
    flat.SetSearchFieldVisible(true);
    flat.ApplyLayout(QM::Rect(0, 0, 200, 100));
    EXPECT_EQ(controls.listBox.GetRect(), QM::Rect(0, 24, 200, 100));
    EXPECT_EQ(controls.table.GetRect(), rect);
}

TEST_F(LayoutsTest, TreeAndListLayoutPlacesItsControlsAndFollowsTheSplitter)
{
    TreeAndListLayout layout(controls);
    layout.Show();
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

    controls.splitter.SimulateUserDrag(70);
    EXPECT_EQ(layout.GetSplitterState().treeWidth, 250);
    EXPECT_EQ(controls.listBox.GetRect().GetLeft(), 10 + 250 + TreeAndListLayout::splitterWidth);
    controls.splitter.SimulateUserDrag(1000);  // past the list's minimum: the splitter stops there
    EXPECT_EQ(controls.listBox.GetRect().GetWidth(), TreeAndListLayout::minListWidth);

    // The wanted width is kept when the rectangle is narrowed, and fitted for placing.
    TreeAndListLayout narrow(controls);
    narrow.ApplyLayout(QM::Rect(0, 0, 200, 100));
    EXPECT_EQ(controls.tree.GetRect().GetWidth(), 200 - TreeAndListLayout::minListWidth - TreeAndListLayout::splitterWidth);
    EXPECT_EQ(narrow.GetSplitterState().treeWidth, TreeAndListLayout::defaultTreeWidth);
}

TEST_F(LayoutsTest, StatesRoundTripAndABadOneLeavesThemAsTheyWere)
{
    TreeAndListLayout layout(controls);
    layout.ApplyLayout(rect);
    layout.ApplyState(TreeAndListLayout::LayoutState(false, {300}));
    EXPECT_EQ(controls.tree.GetRect(), QM::Rect(10, 20, 310, 320));  // no search field

    NK::MemoryOChannel out;
    ASSERT_EQ(layout.GetState()->Write(out), NK::NoError);
    EXPECT_EQ(out.GetBytes(), (std::vector<NK::Byte> {0, 0x2C, 0x01}));
    auto fresh = layout.CreateDefaultState();
    NK::MemoryIChannel channel(out.GetBytes());
    EXPECT_EQ(fresh->Read(channel), NK::NoError);
    EXPECT_TRUE(fresh->IsEqual(*layout.GetState()));
    for (const std::vector<NK::Byte>& damaged : {std::vector<NK::Byte> {1, 0xFF, 0xFF}, std::vector<NK::Byte> {0, 0x2C}}) {
        auto refused = layout.CreateDefaultState();
        NK::MemoryIChannel in(damaged);
        EXPECT_NE(refused->Read(in), NK::NoError);  // a negative tree width, a cut-off stream
        EXPECT_TRUE(refused->IsEqual(*layout.CreateDefaultState()));
    }
    NormalLayout::LayoutState normal(true);
    NK::MemoryIChannel empty(std::vector<NK::Byte> {});
    EXPECT_NE(normal.Read(empty), NK::NoError);
    EXPECT_TRUE(normal.IsSearchFieldVisible());

    // A state of another layout kind is reported and ignored.
    NK::AssertCapture capture;
    layout.ApplyState(NormalLayout::LayoutState(true));
    EXPECT_EQ(capture.GetExpressions(), (std::vector<std::string> {"treeAndList != nullptr"}));
    EXPECT_EQ(layout.GetSplitterState().treeWidth, 300);
    EXPECT_FALSE(layout.IsSearchFieldVisible());
}

// ---- a whole data view: its list's columns and their state ---------------------------------

using ColumnState = WZ::Folderable::Views::ListBoxBaseView::ColumnState;
using TabList = std::vector<std::pair<short, short>>;

// Name and Kind share the room, Size keeps 60 pixels.
void AddColumns(Bench& browser)
{
    WZ::Folderable::UntypedListBox& list = *browser.dataView.GetListBoxDataView();
    list.AddTextColumn(2, "Kind", NK::NewOwned<WZ::ProportionalColumn>(1.0f, 100), [](const ListBoxItem&) { return NK::UniString("-"); });
    list.AddTextColumn(3, "Size", NK::NewOwned<WZ::FixedColumn>(60), [](const ListBoxItem&) { return NK::UniString("1 KB"); });
    list.SetupColumns();
    browser.dataView.SetItems(BuildForest({Node("Recipes", {Node("Soups"), Node("Bread")}), Node("Letters")}));
    browser.dataView.CreateDefaultState();
    browser.dataView.SetViewMode(ViewMode::FlatList);
    browser.dataView.ShowCurrentView();
    browser.dataView.InitRect();
}
WZ::Folderable::UntypedListBox& List(Bench& b) { return *b.dataView.GetListBoxDataView(); }
TabList Tabs(Bench& b)
{
    TabList tabs;
    for (short tab = 1; tab <= b.ListBox().GetTabFieldCount(); ++tab)
        tabs.emplace_back(b.ListBox().GetTabFieldBeginPosition(tab), b.ListBox().GetTabFieldEndPosition(tab));
    return tabs;
}
std::vector<NK::Byte> Written(Bench& b)
{
    NK::MemoryOChannel channel;
    EXPECT_EQ(b.dataView.WriteState(channel), NK::NoError);
    return channel.GetBytes();
}

// The list's tab fields follow every placement of the list; its column widths round-trip through
// the data view's state, and a state whose widths are no pixel lengths is refused as a whole.
TEST(DataViewColumnsTest, ColumnsFollowTheListAndRoundTripThroughTheState)
{
    Bench browser;
    AddColumns(browser);
    EXPECT_EQ(Tabs(browser).back().second, browser.ListBox().GetItemWidth());
    browser.dataView.SetViewMode(ViewMode::TreeAndList);  // the list beside the tree
    EXPECT_LT(browser.ListBox().GetItemWidth(), 620);
    EXPECT_EQ(Tabs(browser).back().second, browser.ListBox().GetItemWidth());
    browser.dataView.SetViewMode(ViewMode::FlatList);

    ColumnState custom = List(browser).GetColumnState();
    custom.columns.Put(1, {true, 150});
    custom.columns.Put(2, {true, 450});
    custom.columns.Put(3, {false, 60});
    List(browser).ApplyColumnState(custom);
    EXPECT_EQ(Tabs(browser), (TabList {{0, 155}, {155, 620}}));
    const std::vector<NK::Byte> before = Written(browser);
    Bench second;
    AddColumns(second);
    NK::MemoryIChannel channel(before);
    ASSERT_EQ(second.dataView.ReadState(channel), NK::NoError);
    EXPECT_TRUE(List(second).GetColumnState() == List(browser).GetColumnState());
    EXPECT_EQ(Tabs(second), Tabs(browser));

    // The written state with the Name column's width (its float bits, little-endian) damaged.
    const auto nameBits = std::bit_cast<std::uint32_t>(List(browser).GetColumnState().columns.Get(1).width);
    const NK::Byte nameWidth[] = {NK::Byte(nameBits), NK::Byte(nameBits >> 8), NK::Byte(nameBits >> 16), NK::Byte(nameBits >> 24)};
    for (float width : {std::numeric_limits<float>::quiet_NaN(), std::numeric_limits<float>::infinity(), -5.0f, 1e30f}) {
        std::vector<NK::Byte> damaged = before;
        auto at = std::search(damaged.begin(), damaged.end(), std::begin(nameWidth), std::end(nameWidth));
        ASSERT_NE(at, damaged.end());
        const auto bits = std::bit_cast<std::uint32_t>(width);
        for (int i = 0; i < 4; ++i)
            at[i] = static_cast<NK::Byte>(bits >> (8 * i));
        NK::MemoryIChannel in(damaged);
        EXPECT_EQ(second.dataView.ReadState(in), NK::ErrMissingElement) << width;
        EXPECT_EQ(Tabs(second), Tabs(browser)) << width;
        EXPECT_EQ(Written(second), before) << width;
    }
    browser.dataView.Resize(300, 400);
    EXPECT_EQ(Tabs(browser).back().second, 300);
}

}  // namespace
