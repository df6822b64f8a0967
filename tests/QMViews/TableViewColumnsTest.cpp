#include "TableTestModel.hpp"

#include "NK/NKAssert.hpp"
#include "NK/NKMemoryChannel.hpp"
#include "QM/QMDialog.hpp"
#include "QM/QMTextRenderer.hpp"

#include <gtest/gtest.h>

namespace {

using namespace QMViewsTest;
using Layout = QM::TableView::ColumnLayout;
using Names = std::vector<std::string>;

class TableViewColumnsTest : public ::testing::Test {
protected:
    TableViewColumnsTest()
    {
        table.SetDataProvider(&provider);
        table.SetDelegate(&delegate);
        table.SetColumns({{"name", "Name", 160, true}, {"size", "Size", 60, true}, {"kind", "Kind", 80, false}});
        provider.Replace(Kids(N(1, "Letters", Kids(N(2, "Invoices"))), N(3, "Notes")), table);
    }

    QM::Dialog dialog;
    Table table {dialog, QM::Rect(0, 0, 300, 200)};
    Provider provider;
    RecordingDelegate delegate;
};

TEST_F(TableViewColumnsTest, RendersTheShownColumnsWithTheTreeInTheFirst)
{
    table.ExpandNode(IdOf(1));
    table.SelectNode(IdOf(2));
    EXPECT_EQ(QM::TextRenderer::Join(QM::TextRenderer::RenderItem(table)),
              "#1 TableView (0, 0, 300, 200)\n"
              "  columns: Name (160) | Size (60)\n"
              "    [-] [icon(1:7)] Letters | 10 KB\n"
              "  *       Invoices | 20 KB\n"
              "        Notes | 30 KB\n");
}

TEST_F(TableViewColumnsTest, ApplyingALayoutArrangesNamedColumnsAndKeepsTheOthersAfterThem)
{
    Layout saved = table.GetColumnLayout();
    EXPECT_EQ(saved, Layout({{"name", 160, true}, {"size", 60, true}, {"kind", 80, false}}));

    table.ApplyColumnLayout(Layout({{"kind", 90, true}, {"gone", 50, true}, {"name", 120, true}}));
    EXPECT_EQ(table.GetColumnLayout(), Layout({{"kind", 90, true}, {"name", 120, true}, {"size", 60, true}}));
    EXPECT_EQ(table.GetColumns()[0].title, NK::UniString("Kind"));
    EXPECT_EQ(delegate.events, (Names {"columns"}));

    table.ApplyColumnLayout(table.GetColumnLayout());  // no change, no notification
    EXPECT_EQ(delegate.events.size(), 1u);

    NK::AssertCapture capture;
    table.ApplyColumnLayout(Layout({{"name", -1, true}}));
    table.ApplyColumnLayout(Layout({{"name", 10, true}, {"name", 20, true}}));
    table.SetColumns({{"a", "A", 10, true}, {"a", "B", 10, true}});
    EXPECT_EQ(capture.GetExpressions(), (Names {"layout.IsValid()", "layout.IsValid()", "HasValidColumns(newColumns)"}));
    EXPECT_EQ(table.GetColumnLayout(), Layout({{"kind", 90, true}, {"name", 120, true}, {"size", 60, true}}));
}

TEST_F(TableViewColumnsTest, UserDragsResizeAndMoveColumns)
{
    EXPECT_TRUE(table.SimulateUserResizeColumn("size", 75));
    EXPECT_FALSE(table.SimulateUserResizeColumn("size", 75));
    EXPECT_TRUE(table.SimulateUserResizeColumn("name", -30));  // stops at nothing
    EXPECT_EQ(table.GetColumns()[0].width, 0);
    EXPECT_TRUE(table.SimulateUserMoveColumn("kind", 0));
    EXPECT_EQ(table.GetColumnLayout(), Layout({{"kind", 80, false}, {"name", 0, true}, {"size", 75, true}}));
    EXPECT_EQ(delegate.events, (Names {"columns by user", "columns by user", "columns by user"}));

    NK::AssertCapture capture;
    EXPECT_FALSE(table.SimulateUserMoveColumn("kind", 3));
    EXPECT_FALSE(table.SimulateUserResizeColumn("none", 10));
    EXPECT_EQ(capture.GetReports().size(), 2u);
}

TEST(ColumnLayoutTest, ChannelFormRoundTripsAndADamagedOneChangesNothing)
{
    Layout layout({{"name", 160, true}, {"Größe", 60, false}});
    NK::MemoryOChannel out;
    ASSERT_EQ(layout.Write(out), NK::NoError);

    Layout read;
    NK::MemoryIChannel in(out.GetBytes());
    ASSERT_EQ(read.Read(in), NK::NoError);
    EXPECT_EQ(read, layout);
    EXPECT_EQ(in.GetPosition(), in.GetSize());

    std::vector<NK::Byte> future = out.GetBytes();
    future[0] = 2;  // a format version this build does not know
    NK::MemoryOChannel twice;
    Layout({{"a", 1, true}, {"a", 2, true}}).Write(twice);
    const std::pair<std::vector<NK::Byte>, NK::ErrCode> damaged[] = {
        {std::vector<NK::Byte>(out.GetBytes().begin(), out.GetBytes().end() - 2), NK::ErrChannelEnd},
        {future, NK::ErrFrameVersion},
        {twice.GetBytes(), NK::ErrChannelFormat},
    };
    for (const auto& [bytes, error] : damaged) {
        NK::MemoryIChannel damagedIn(bytes);
        EXPECT_EQ(read.Read(damagedIn), error);
        EXPECT_EQ(read, layout);
    }
}

}  // namespace
