#include "WZSources/ColumnModel/WZColumnManager.hpp"

#include "NK/NKAssert.hpp"
#include "NK/NKResources.hpp"
#include "QM/QMDialog.hpp"
#include "QM/QMListBox.hpp"

#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <set>
#include <vector>

namespace {

using Justification = QM::ListBox::Justification;
using Tabs = std::vector<std::pair<short, short>>;
using Sizes = std::vector<short>;

// Reaches the manager's reaction to a dragged header, which the list box views call.
class Manager : public WZ::ColumnManager<short, short> {
public:
    using ColumnManagerBase::HeaderDragged;
};

class ColumnManagerTest : public ::testing::Test {
protected:
    ColumnManagerTest() { listBox.SetHasHeader(true); }

    // Name (proportional 40/200, sizeable) | Details: Size (fixed 60) + Date (proportional 30/100)
    void AddThreeColumns()
    {
        manager.AddProportionalColumn(10, manager.AddHeader(1, "Name"), 40, 200).SetSizeable(true);
        auto& details = manager.AddHeader(2, "Details").SetArrowType(QM::ListBox::ArrowType::Down);
        manager.AddFixedColumn(20, details, 60).SetJustification(Justification::Right);
        manager.AddProportionalColumn(30, details, 30, 100).SetOwnerDraw(true);
    }
    void LayOut()
    {
        manager.Setup(listBox);
        manager.Resize(listBox, false);
    }
    void SetTabs(const Tabs& tabs)
    {
        for (size_t i = 0; i < tabs.size(); ++i)
            listBox.SetTabFieldBeginEndPosition(static_cast<short>(i + 1), tabs[i].first, tabs[i].second);
    }
    Tabs GetTabs() const
    {
        Tabs tabs;
        for (short tab = 1; tab <= listBox.GetTabFieldCount(); ++tab)
            tabs.emplace_back(listBox.GetTabFieldBeginPosition(tab), listBox.GetTabFieldEndPosition(tab));
        return tabs;
    }
    Sizes HeaderSizes() const
    {
        Sizes sizes;
        for (short item = 1; item <= listBox.GetHeaderItemCount(); ++item)
            sizes.push_back(listBox.GetHeaderItemSize(item));
        return sizes;
    }
    static Sizes Ids(const NK::Array<Manager::Column*>& columns)
    {
        Sizes ids;
        for (auto* column : columns)
            ids.push_back(column->GetId());
        return ids;
    }

    QM::Dialog dialog {"Columns", 600, 400};
    QM::ListBox listBox {dialog, QM::Rect(0, 0, 330, 200)};
    Manager manager;
};

TEST_F(ColumnManagerTest, SetupConfiguresHeaderItemsAndTabFieldsAndResizeTilesThem)
{
    AddThreeColumns();
    manager.SetDraggableHeaderButtons(true);
    QM::Item edit(dialog, QM::Rect(0, 0, 10, 10));
    listBox.SetTabFieldCount(2);
    listBox.SetOnTabItem(2, &edit);
    LayOut();
    EXPECT_EQ(listBox.GetOnTabItem(2), nullptr);
    EXPECT_FALSE(listBox.GetHeaderSynchronState());
    EXPECT_TRUE(listBox.HasHeaderDragableButtons());
    EXPECT_TRUE(listBox.GetHeaderItemSizeableFlag(1));
    EXPECT_FALSE(listBox.GetHeaderItemSizeableFlag(2));
    EXPECT_EQ(listBox.GetHeaderItemArrowType(2), QM::ListBox::ArrowType::Down);
    EXPECT_EQ(listBox.GetHeaderItemMinSize(2), 90);  // the minimums of its columns summed
    EXPECT_EQ(listBox.GetTabFieldJustification(2), Justification::Right);
    EXPECT_TRUE(listBox.GetTabFieldOwnerDrawFlag(3));
    // 330 - 60 fixed = 270 shared 200:100 -> 180 and 90.
    EXPECT_EQ(GetTabs(), (Tabs {{0, 180}, {180, 240}, {240, 330}}));
    EXPECT_EQ(HeaderSizes(), (Sizes {180, 150}));

    // The header button takes its width off the columns' room.
    manager.SetHeaderButtonIconToDefault();
    LayOut();
    EXPECT_EQ(GetTabs().back().second, 330 - QM::ListBox::HeaderButtonWidth);
}

TEST_F(ColumnManagerTest, HeaderPropertiesFollowItsVisibleColumns)
{
    AddThreeColumns();
    WZ::HeaderDescriptorBase& details = *manager.GetHeader(2);
    EXPECT_FALSE(details.IsFixed());  // one fixed, one proportional
    manager.GetColumn(30)->SetSizeable(true);
    EXPECT_TRUE(details.IsSizeable());
    EXPECT_EQ(details.GetWidth(), 160);

    manager.GetColumn(30)->SetVisible(false);
    EXPECT_TRUE(details.IsFixed());
    EXPECT_FALSE(details.IsSizeable());  // the sizeable column is hidden
    EXPECT_EQ(details.GetMinWidth(), 60);
    manager.GetColumn(20)->SetVisible(false);
    EXPECT_FALSE(details.IsVisible());
    EXPECT_EQ(details.GetWidth(), 0);

    // Sums of whole pixels, held in the 16-bit range.
    auto& header = manager.AddHeader(3, "H");
    manager.AddProportionalColumn(1, header, 10.7f, 20.9f);
    manager.AddProportionalColumn(2, header, 10.7f, 20.9f);
    EXPECT_EQ(header.GetWidth(), 40);
    EXPECT_EQ(header.GetMinWidth(), 20);
    manager.AddFixedColumn(3, header, 30000);
    manager.AddFixedColumn(4, header, 30000);
    manager.AddFixedColumn(5, header, NAN);
    EXPECT_EQ(header.GetWidth(), 32767);
}

// Without a header the list box gets tab fields but no header calls, and the only icon it gets
// is the header button's, set only when it differs.
TEST_F(ColumnManagerTest, ListBoxWithoutHeaderGetsTabFieldsAndTheButtonIconOnlyWhenItDiffers)
{
    listBox.SetHasHeader(false);
    AddThreeColumns();
    manager.SetHeaderButtonIconToDefault();
    LayOut();
    EXPECT_EQ(listBox.GetHeaderItemCount(), 0);
    EXPECT_EQ(listBox.GetJournal().GetCount(QM::Op::SetText), 0u);
    EXPECT_EQ(GetTabs().back().second, 330);  // no header, no header button to leave room for
    EXPECT_EQ(listBox.GetHeaderButtonIcon(), QM::Icon(-4, 17));
    manager.Setup(listBox);
    EXPECT_EQ(listBox.GetJournal().GetCount(QM::Op::SetIcon), 1u);
    manager.SetHeaderButtonIcon(QM::Icon(7, 3));
    manager.Setup(listBox);
    EXPECT_EQ(listBox.GetJournal().GetCount(QM::Op::SetIcon), 2u);
    EXPECT_EQ(manager.GetHeaderButtonPosition(listBox), (QM::Point {330 - QM::ListBox::HeaderButtonWidth, 0}));
}

TEST_F(ColumnManagerTest, DraggedDividerIsSharedByTheHeadersColumnsAndTabsTiledAgain)
{
    AddThreeColumns();
    LayOut();
    ASSERT_TRUE(listBox.SimulateUserDragHeaderDivider(1, 120));
    EXPECT_EQ(GetTabs()[0], (std::pair<short, short> {0, 180}));  // synchronisation is off
    manager.HeaderResized(listBox, 1, 120);
    EXPECT_EQ(GetTabs(), (Tabs {{0, 120}, {120, 180}, {180, 270}}));
    EXPECT_EQ(HeaderSizes(), (Sizes {120, 150}));  // header items stay as dragged

    listBox.SetHeaderItemSizeableFlag(2, true);
    ASSERT_TRUE(listBox.SimulateUserDragHeaderDivider(2, 100));
    manager.HeaderResized(listBox, 2, 100);
    // Details 100: fixed 60 keeps its width while the proportional one (min 30) gets the rest.
    EXPECT_EQ(GetTabs(), (Tabs {{0, 120}, {120, 180}, {180, 220}}));

    // Dragged outward past the list box: Details gives back down to its minimum 90, then Name
    // itself, so that the tab fields end at the list box's width.
    manager.Resize(listBox, false);
    ASSERT_TRUE(listBox.SimulateUserDragHeaderDivider(1, 250));
    manager.HeaderResized(listBox, 1, 250);
    EXPECT_EQ(HeaderSizes(), (Sizes {240, 90}));
    EXPECT_EQ(GetTabs(), (Tabs {{0, 240}, {240, 300}, {300, 330}}));
}

TEST_F(ColumnManagerTest, ResizeCanKeepTheUsersColumnProportions)
{
    AddThreeColumns();
    LayOut();
    SetTabs({{0, 90}, {90, 150}, {150, 240}});  // the user narrowed Name to half
    listBox.Resize(390, 200);
    manager.Resize(listBox, std::set<short> {1});  // Name keeps its model width (180)
    EXPECT_EQ(GetTabs(), (Tabs {{0, 220}, {220, 280}, {280, 390}}));

    SetTabs({{0, 90}, {90, 150}, {150, 240}});
    manager.Resize(listBox, true);  // 90:90 read back -> equal shares of 330
    EXPECT_EQ(GetTabs(), (Tabs {{0, 165}, {165, 225}, {225, 390}}));
    manager.Resize(listBox, false);  // without reading back, the model's widths decide
    EXPECT_EQ(GetTabs(), (Tabs {{0, 165}, {165, 225}, {225, 390}}));
}

TEST_F(ColumnManagerTest, DraggedHeadersTakeTheirColumnsAlongAndHiddenOnesGetNoTabFields)
{
    AddThreeColumns();
    LayOut();
    manager.HeaderDragged(listBox, 2, 1);
    EXPECT_EQ(listBox.GetHeaderItemText(1), NK::UniString("Details"));
    EXPECT_EQ(Ids(manager.GetVisibleColumns()), (Sizes {20, 30, 10}));
    EXPECT_EQ(GetTabs(), (Tabs {{0, 60}, {60, 150}, {150, 330}}));
    EXPECT_EQ(manager.GetTabIndex(10), 3);
    EXPECT_TRUE(listBox.GetTabFieldOwnerDrawFlag(2));

    for (short id : {10, 20, 30})
        manager.GetColumn(id)->SetVisible(false);
    LayOut();
    EXPECT_EQ(listBox.GetHeaderItemCount(), 0);
    EXPECT_EQ(listBox.GetTabFieldCount(), 0);  // no column, no tab field
    manager.GetColumn(20)->SetVisible(true);
    manager.GetColumn(30)->SetVisible(true);
    LayOut();
    EXPECT_EQ(listBox.GetHeaderItemCount(), 1);
    EXPECT_EQ(listBox.GetTabFieldJustification(1), Justification::Right);
    EXPECT_EQ(GetTabs(), (Tabs {{0, 60}, {60, 330}}));
    EXPECT_EQ(HeaderSizes(), (Sizes {330}));
}

TEST_F(ColumnManagerTest, ColumnsStayInHeaderOrderAndDuplicateIdsAreRefused)
{
    NK::AssertCapture capture;
    auto& first = manager.AddHeader(1, "First");
    auto& second = manager.AddHeader(2, "Second");
    manager.AddFixedColumn(21, second, 10);
    manager.AddFixedColumn(11, first, 10);
    manager.AddFixedColumn(22, second, 10);
    auto& column = manager.AddFixedColumn(12, first, 10);
    EXPECT_EQ(Ids(manager.GetColumns()), (Sizes {11, 12, 21, 22}));
    EXPECT_EQ(manager.GetColumnOfTab(3)->GetId(), 21);
    EXPECT_EQ(manager.GetColumnOfTab(5), nullptr);

    EXPECT_EQ(&manager.AddHeader(1, "Again"), &first);
    EXPECT_EQ(&manager.AddFixedColumn(12, second, 99), &column);
    EXPECT_EQ(capture.GetExpressions(), (std::vector<std::string> {"header id is new", "column id is new"}));
    EXPECT_EQ(manager.GetColumns().GetSize(), 4u);
}

TEST_F(ColumnManagerTest, StateRestoresVisibilityAndWidthsByIdAndRefusesWidthsThatAreNoLengths)
{
    AddThreeColumns();
    Manager::State saved = manager.GetState();
    manager.GetColumn(10)->SetWidth(55);
    manager.GetColumn(30)->SetVisible(false);
    Manager::State withStranger = saved;
    withStranger.columns.Add(77, {false, 12});
    manager.ApplyState(withStranger);
    EXPECT_TRUE(manager.GetState() == saved);

    NK::AssertCapture capture;
    Manager::State partial;
    partial.columns.Add(20, {false, NAN});
    partial.columns.Add(30, {true, -1});
    manager.ApplyState(partial);
    EXPECT_FALSE(manager.GetColumn(20)->IsVisible());
    EXPECT_EQ(manager.GetColumn(20)->GetWidth(), 60);
    EXPECT_EQ(manager.GetColumn(30)->GetWidth(), 100);
    EXPECT_EQ(capture.GetReports().size(), 2u);
}

// Whatever the columns and the width, the tab fields tile from 0 without gaps, and when the
// minimums fit the last one ends at the list box's item width.
TEST_F(ColumnManagerTest, TabFieldsTileWithoutGapsAfterAnyResize)
{
    std::mt19937 random(4242u);
    auto pick = [&](int low, int high) { return std::uniform_int_distribution<int>(low, high)(random); };
    for (int round = 0; round < 300; ++round) {
        Manager local;
        float minSum = 0;
        short columnId = 1;
        bool anyProportional = false;
        for (short headerId = 1, headers = static_cast<short>(pick(1, 4)); headerId <= headers; ++headerId) {
            auto& header = local.AddHeader(headerId, "h");
            for (int c = pick(1, 3); c > 0; --c) {
                const float minWidth = static_cast<float>(pick(5, 40)), width = minWidth + static_cast<float>(pick(0, 100));
                auto& column = pick(0, 1) ? local.AddFixedColumn(columnId++, header, width)
                                          : local.AddProportionalColumn(columnId++, header, minWidth, width);
                column.SetVisible(pick(0, 4) != 0);
                if (column.IsVisible()) {
                    minSum += column.GetMinWidth();
                    anyProportional = anyProportional || !column.IsFixed();
                }
            }
        }
        local.Setup(listBox);
        listBox.Resize(static_cast<short>(pick(0, 700)), 100);
        if (pick(0, 1))
            local.Resize(listBox, false);
        else
            local.HeaderResized(listBox, 1, 0);
        SCOPED_TRACE("round " + std::to_string(round));

        short expected = 0;
        for (short tab = 1; tab <= listBox.GetTabFieldCount() && !local.GetVisibleColumns().IsEmpty(); ++tab) {
            EXPECT_EQ(listBox.GetTabFieldBeginPosition(tab), expected);
            expected = listBox.GetTabFieldEndPosition(tab);
        }
        if (anyProportional && minSum < listBox.GetItemWidth() && listBox.GetHeaderItemCount() > 0) {
            local.Resize(listBox, false);
            EXPECT_EQ(listBox.GetTabFieldEndPosition(listBox.GetTabFieldCount()), listBox.GetItemWidth());
        }
    }
}

}  // namespace
