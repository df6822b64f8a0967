#include "WZSources/ListBoxView/WZHomogenListBoxView.hpp"

#include "QM/QMDialog.hpp"
#include "QM/QMListBox.hpp"

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

namespace {

int liveRows = 0;

struct FileRow : WZ::Diffable {
    FileRow(int number, std::string name, int size) : id(NK::Guid::FromNumber(0, number)), name(std::move(name)), size(size)
    {
        ++liveRows;
    }
    ~FileRow() override { --liveRows; }

    NK::Guid GetId() const override { return id; }
    bool IsEqual(const WZ::Diffable& other) const override
    {
        return static_cast<const FileRow&>(other).name == name && static_cast<const FileRow&>(other).size == size;
    }
    NK::Guid id;
    std::string name;
    int size;
};

struct FileModel {
    std::string path;
};
struct FileList {
    using Item = FileRow;
    using ModelItem = FileModel;
};

NK::Array<NK::Owner<FileRow>> Rows(std::initializer_list<std::tuple<int, const char*, int>> rows)
{
    NK::Array<NK::Owner<FileRow>> out;
    for (const auto& [number, name, size] : rows)
        out.Push(NK::NewOwned<FileRow>(number, name, size));
    return out;
}

class ListBoxViewTest : public ::testing::Test {
protected:
    ListBoxViewTest()
    {
        listBox.SetHasHeader(true);
        view.AddTextColumn(1, "Name", NK::NewOwned<WZ::ProportionalColumn>(40, 100),
                           [](const FileRow& f) { return NK::UniString(f.name); })
            .SetSizeable(true);
        view.AddTextColumn(2, "Size", NK::NewOwned<WZ::FixedColumn>(50),
                           [](const FileRow& f) { return NK::UniString::FromInt(f.size); });
        view.SetupColumns();
    }

    std::vector<std::string> Lines() const
    {
        std::vector<std::string> lines;
        for (short row = 1; row <= listBox.GetItemCount(); ++row) {
            std::string line;
            for (short tab = 1; tab <= listBox.GetTabFieldCount(); ++tab)
                line += (tab > 1 ? "|" : "") + listBox.GetTabItemText(row, tab).ToUtf8();
            lines.push_back(line);
        }
        return lines;
    }

    using TabList = std::vector<std::pair<short, short>>;
    TabList Tabs() const
    {
        TabList tabs;
        for (short tab = 1; tab <= listBox.GetTabFieldCount(); ++tab)
            tabs.emplace_back(listBox.GetTabFieldBeginPosition(tab), listBox.GetTabFieldEndPosition(tab));
        return tabs;
    }

    QM::Dialog dialog {"Files", 600, 400};
    QM::ListBox listBox {dialog, QM::Rect(10, 10, 210, 110), QM::ListBox::SelectionType::Multi};
    WZ::HomogenListBoxView<FileList> view {listBox};
};

// The view owns its rows: the replaced ones are let go at once, the rest with the view.
TEST_F(ListBoxViewTest, ShowsOneRowPerItemAndANewItemListRewritesOnlyWhatChanged)
{
    const int before = liveRows;
    view.SetItems(Rows({{1, "a.txt", 10}, {2, "b.txt", 20}, {3, "c.txt", 30}}));
    listBox.ResetJournal();
    view.SetItems(Rows({{1, "a.txt", 10}, {2, "b.txt", 25}, {3, "c.txt", 30}, {4, "d.txt", 40}}));
    EXPECT_EQ(liveRows, before + 4);
    EXPECT_EQ(Lines(), (std::vector<std::string> {"a.txt|10", "b.txt|25", "c.txt|30", "d.txt|40"}));
    EXPECT_EQ(listBox.GetJournal().GetCount(QM::Op::InsertItem), 1u);
    EXPECT_EQ(listBox.GetJournal().GetCount(QM::Op::SetText), 4u);  // two cells of the changed row, two of the new one
    {
        QM::ListBox other(dialog, QM::Rect(0, 0, 100, 100));
        WZ::HomogenListBoxView<FileList> local(other);
        local.SetItems(Rows({{1, "a", 1}}));
        EXPECT_EQ(liveRows, before + 5);
    }
    EXPECT_EQ(liveRows, before + 4);
}

TEST_F(ListBoxViewTest, SelectionIsKeptByIdAcrossNewItemLists)
{
    view.SetItems(Rows({{1, "a", 1}, {2, "b", 2}, {3, "c", 3}}));
    view.SelectItems({NK::Guid::FromNumber(0, 3), NK::Guid::FromNumber(0, 9)});
    auto keeper = view.SetItems(Rows({{3, "c", 3}, {1, "a", 1}}));
    EXPECT_EQ(keeper.RestoreByItemIds(), WZ::SmartListBoxUpdater::SelectionKeeper::Restored::All);
    EXPECT_EQ(listBox.GetSelectedItems(), (NK::Array<short> {1}));
    ASSERT_EQ(view.GetSelectedItems().GetSize(), 1u);
    EXPECT_EQ(view.GetSelectedItems()[0]->name, "c");
}

TEST_F(ListBoxViewTest, ResizeAndDraggedDividerLayColumnsOutWithDrawingOffAndOneRedraw)
{
    listBox.ResetJournal();
    view.Resize(300, 100);
    EXPECT_EQ(Tabs(), (TabList {{0, 250}, {250, 300}}));
    EXPECT_EQ(listBox.GetHeaderItemSize(1), 250);
    EXPECT_EQ(listBox.GetJournal().GetCount(QM::Op::DisableDraw), 1u);
    EXPECT_EQ(listBox.GetJournal().GetCount(QM::Op::Redraw), 1u);
    EXPECT_TRUE(listBox.IsDrawEnabled());
    view.MoveAndResize(0, 0, 60, 100);  // below the minimums: every column at its minimum
    EXPECT_EQ(Tabs(), (TabList {{0, 40}, {40, 90}}));

    view.Resize(200, 100);
    ASSERT_TRUE(listBox.SimulateUserDragHeaderDivider(1, 90));
    EXPECT_EQ(Tabs(), (TabList {{0, 90}, {90, 140}}));
    EXPECT_EQ(view.GetColumnManager().GetColumn(1)->GetWidth(), 90);
    view.Resize(250, 100);  // a later resize shares the room from the dragged width on
    EXPECT_EQ(Tabs(), (TabList {{0, 200}, {200, 250}}));
}

TEST_F(ListBoxViewTest, CellsFollowDraggedHeadersAndHiddenColumns)
{
    view.GetColumnManager().SetDraggableHeaderButtons(true);
    view.SetupColumns();
    view.SetItems(Rows({{1, "a", 1}, {2, "b", 2}}));
    ASSERT_TRUE(listBox.SimulateUserDragHeaderItem(2, 1));
    EXPECT_EQ(Lines(), (std::vector<std::string> {"1|a", "2|b"}));
    EXPECT_EQ(Tabs(), (TabList {{0, 50}, {50, 200}}));

    auto state = view.GetColumnState();
    state.columns.Put(1, {false, 100});
    view.ApplyColumnState(state);
    EXPECT_EQ(listBox.GetHeaderItemCount(), 1);
    EXPECT_EQ(Lines(), (std::vector<std::string> {"1", "2"}));
    // A fixed column alone leaves the room unfilled and keeps its width through every relayout.
    view.Relayout();
    EXPECT_EQ(Tabs(), (TabList {{0, 50}}));
    state.columns.Put(1, {true, 100});
    view.ApplyColumnState(state);
    EXPECT_EQ(Lines(), (std::vector<std::string> {"1|a", "2|b"}));
}

TEST_F(ListBoxViewTest, RowsLeadBackToTheirModelItems)
{
    std::map<NK::Guid, FileModel> model {{NK::Guid::FromNumber(0, 1), {"/a"}}, {NK::Guid::FromNumber(0, 2), {"/b"}}};
    view.SetItems(Rows({{1, "a", 1}, {2, "b", 2}}));
    EXPECT_EQ(view.GetModelItem(short(1)), nullptr);  // no resolver yet
    view.SetModelItemResolver([&](const NK::Guid& id) -> const FileModel* {
        auto it = model.find(id);
        return it == model.end() ? nullptr : &it->second;
    });
    ASSERT_NE(view.GetModelItem(short(2)), nullptr);
    EXPECT_EQ(view.GetModelItem(short(2))->path, "/b");
    view.SetItems(Rows({{2, "b", 2}}));
    EXPECT_EQ(view.GetModelItem(NK::Guid::FromNumber(0, 1)), nullptr);  // no longer shown
}

}  // namespace
