#include "TableTestModel.hpp"

#include "NK/NKAssert.hpp"
#include "QM/QMDialog.hpp"
#include "QM/QMTextRenderer.hpp"

#include <gtest/gtest.h>

#include <functional>

namespace {

using namespace QMViewsTest;
using Names = std::vector<std::string>;

// Music(Albums(Jazz, Folk(Ballads)), Singles), Podcasts
Forest SampleForest()
{
    return Kids(N(1, "Music", Kids(N(2, "Albums", Kids(N(3, "Jazz"), N(4, "Folk", Kids(N(5, "Ballads"))))), N(6, "Singles"))),
                N(7, "Podcasts"));
}

struct Bench {
    explicit Bench(Table::SelectionType type = Table::SelectionType::Multi) : table(dialog, QM::Rect(0, 0, 300, 200), type)
    {
        table.SetDataProvider(&provider);
        table.SetDelegate(&delegate);
        provider.Replace(SampleForest(), table);
        table.ResetJournal();
    }
    std::string Render() const { return QM::TextRenderer::Join(QM::TextRenderer::RenderItem(table)); }
    // Every loaded row in order: its name, + when open, * when selected. Reading the names
    // through the keys also catches keys left pointing at a replaced forest (under ASan).
    std::string State() const
    {
        std::string text;
        for (const Key& key : table.GetAllNodes())
            text += (text.empty() ? "" : " ") + RecordingDelegate::NameOf(key) + (table.IsNodeExpanded(key.id) ? "+" : "") +
                    (table.IsNodeSelected(key.id) ? "*" : "");
        return text;
    }

    QM::Dialog dialog {"Music library", 400, 300};
    Table table;
    Provider provider;
    RecordingDelegate delegate;
};

class HierarchicalTableViewTest : public ::testing::Test, public Bench {};

TEST_F(HierarchicalTableViewTest, ReloadLoadsEveryRowFromTheVirtualRoot)
{
    EXPECT_EQ(provider.childrenRequests, 8);  // the virtual root and each of the seven rows
    EXPECT_EQ(State(), "Music Albums Jazz Folk Ballads Singles Podcasts");
    EXPECT_EQ(NamesOf(table.GetTopLevelNodes()), (Names {"Music", "Podcasts"}));
    EXPECT_EQ(NamesOf(table.GetChildNodes(IdOf(2))), (Names {"Jazz", "Folk"}));
    EXPECT_EQ(NamesOf(table.GetChildNodes(rootId)), (Names {"Music", "Podcasts"}));
    EXPECT_EQ(RecordingDelegate::NameOf(*table.GetParentNode(IdOf(5))), "Folk");
    EXPECT_FALSE(table.GetParentNode(IdOf(1)).has_value());
    EXPECT_FALSE(table.ContainsNode(IdOf(99)));
    // Rows in closed folders are loaded but not displayed.
    EXPECT_EQ(Render(), "#1 TableView (0, 0, 300, 200)\n"
                        "    [+] [icon(1:7)] Music\n"
                        "        Podcasts\n");

    // Reloading one folder asks only for its subtree and keeps it open.
    table.ExpandNode(IdOf(2));
    provider.forest[0]->children[0]->children.push_back(N(9, "Blues"));
    provider.childrenRequests = 0;
    table.ReloadChildren(IdOf(2));
    EXPECT_EQ(provider.childrenRequests, 5);  // Albums, Jazz, Folk, Ballads, Blues
    EXPECT_EQ(State(), "Music Albums+ Jazz Folk Ballads Blues Singles Podcasts");
}

// A reload matches the new rows to the old by id: an unchanged row keeps its state wherever it
// moved, a row whose content changed is redrawn as new, and a removed row takes its subtree.
TEST(HierarchicalTableViewReloadTest, RowsKeepTheirStateByIdAndContent)
{
    struct Case {
        const char* what;
        std::function<Forest()> next;
        const char* state;
        std::size_t inserted, deleted, redrawn;
        Names events;
    };
    const Case cases[] = {
        {"Podcasts gone, Audiobooks new",
         [] { return Kids(N(1, "Music", Kids(N(2, "Albums", Kids(N(3, "Jazz"), N(4, "Folk", Kids(N(5, "Ballads"))))), N(6, "Singles"), N(8, "Audiobooks")))); },
         "Music+ Albums+* Jazz* Folk+ Ballads* Singles* Audiobooks", 1, 1, 0, {"selection"}},
        {"Albums renamed",
         [] {
             Forest renamed = SampleForest();
             renamed[0]->children[0]->name = "Old albums";
             return renamed;
         },
         "Music+ Old albums Jazz* Folk+ Ballads* Singles* Podcasts*", 0, 0, 1, {"selection"}},
        {"reordered",
         [] { return Kids(N(7, "Podcasts"), N(1, "Music", Kids(N(6, "Singles"), N(2, "Albums", Kids(N(4, "Folk", Kids(N(5, "Ballads"))), N(3, "Jazz")))))); },
         "Podcasts* Music+ Singles* Albums+* Folk+ Ballads* Jazz*", 0, 0, 0, {}},
        {"Folk removed",
         [] { return Kids(N(1, "Music", Kids(N(2, "Albums", Kids(N(3, "Jazz"))), N(6, "Singles"))), N(7, "Podcasts")); },
         "Music+ Albums+* Jazz* Singles* Podcasts*", 0, 1, 0, {"selection"}},
    };
    for (const Case& c : cases) {
        Bench bench;
        for (NK::UInt64 folder : {1, 2, 4})
            bench.table.ExpandNode(IdOf(folder));
        bench.table.SelectNodes(NK::Array<NK::Guid> {IdOf(2), IdOf(3), IdOf(5), IdOf(6), IdOf(7)});
        bench.delegate.events.clear();
        bench.table.ResetJournal();
        bench.provider.Replace(c.next(), bench.table);
        EXPECT_EQ(bench.State(), c.state) << c.what;
        const QM::Journal& journal = bench.table.GetJournal();
        EXPECT_EQ(journal.GetCount(QM::Op::InsertItem), c.inserted) << c.what;
        EXPECT_EQ(journal.GetCount(QM::Op::DeleteItem), c.deleted) << c.what;
        EXPECT_EQ(journal.GetCount(QM::Op::RedrawItem), c.redrawn) << c.what;
        EXPECT_EQ(bench.delegate.events, c.events) << c.what;
        if (std::string(c.what) == "Folk removed") {  // coming back, the row is new: closed, not selected
            bench.provider.Replace(SampleForest(), bench.table);
            EXPECT_EQ(bench.State(), "Music+ Albums+* Jazz* Folk Ballads Singles* Podcasts*");
        }
    }
}

TEST_F(HierarchicalTableViewTest, ExpandAllOpensEveryFolderAndCollapseAllClosesThem)
{
    table.ExpandAllNodes();
    EXPECT_EQ(NamesOf(table.GetExpandedNodes()), (Names {"Music", "Albums", "Folk"}));
    table.ExpandAllNodes();  // nothing left to open
    EXPECT_EQ(delegate.events, (Names {"open Music", "open Albums", "open Folk"}));
    EXPECT_EQ(table.GetDisplayedRowCount(), 7);
    table.CollapseAllNodes();
    EXPECT_EQ(State(), "Music Albums Jazz Folk Ballads Singles Podcasts");
    EXPECT_EQ(delegate.events.size(), 6u);
    EXPECT_EQ(NamesOf(table.GetDisplayedNodes()), (Names {"Music", "Podcasts"}));
    EXPECT_EQ(table.GetJournal().GetCount(QM::Op::Expand), 2u);
    EXPECT_EQ(table.GetJournal().GetCount(QM::Op::Collapse), 1u);
}

TEST_F(HierarchicalTableViewTest, SelectedNodesComeInDisplayOrderWhateverTheOrderOfSelecting)
{
    table.SelectNode(IdOf(7));
    table.SelectNode(IdOf(5));  // inside closed folders
    table.SelectNodes(NK::Array<NK::Guid> {IdOf(6), IdOf(1)});
    EXPECT_EQ(NamesOf(table.GetSelectedNodes()), (Names {"Music", "Ballads", "Singles", "Podcasts"}));
    EXPECT_EQ(delegate.events, (Names {"selection", "selection", "selection"}));

    table.SelectNode(IdOf(5));  // already selected: no notification
    table.DeselectNode(IdOf(1));
    EXPECT_EQ(NamesOf(table.GetSelectedNodes()), (Names {"Ballads", "Singles", "Podcasts"}));
    table.ClearSelection();
    table.ClearSelection();
    EXPECT_EQ(State(), "Music Albums Jazz Folk Ballads Singles Podcasts");
    EXPECT_EQ(delegate.events.size(), 5u);
}

TEST(HierarchicalTableViewSingleSelectionTest, SelectingReplacesAndSeveralRowsAreRefused)
{
    Bench single(Table::SelectionType::Single);
    single.table.SelectNode(IdOf(3));
    single.table.SelectNode(IdOf(7));
    NK::AssertCapture capture;
    single.table.SelectNodes(NK::Array<NK::Guid> {IdOf(3), IdOf(6)});
    EXPECT_EQ(capture.GetExpressions(), (Names {"selectionType == SelectionType::Multi || selection.size() <= 1"}));
    EXPECT_EQ(NamesOf(single.table.GetSelectedNodes()), (Names {"Podcasts"}));
}

TEST_F(HierarchicalTableViewTest, UnknownIdsAreRefusedWithNothingChanged)
{
    table.SelectNode(IdOf(3));
    delegate.events.clear();
    NK::AssertCapture capture;
    table.ExpandNode(IdOf(42));
    table.SelectNode(IdOf(42));
    table.SelectNodes(NK::Array<NK::Guid> {IdOf(6), IdOf(42)});  // all or nothing
    table.ScrollToNode(IdOf(42));
    table.BeginNodeTextEdit(IdOf(42));
    EXPECT_EQ(capture.GetReports().size(), 5u);
    EXPECT_EQ(State(), "Music Albums Jazz* Folk Ballads Singles Podcasts");
    EXPECT_FALSE(table.GetEditedNode().has_value());
    EXPECT_TRUE(delegate.events.empty());
    // Queries are answered without a report.
    EXPECT_FALSE(table.IsNodeExpanded(IdOf(42)) || table.IsNodeSelected(IdOf(42)) || table.GetRowIndex(IdOf(42)));
    EXPECT_EQ(capture.GetReports().size(), 5u);
}

TEST_F(HierarchicalTableViewTest, ScrollingToANodeOpensItsFoldersAndBringsItOnScreen)
{
    table.Resize(300, 20 + 2 * QM::UntypedHierarchicalTableView::RowHeight);  // two rows below the header
    EXPECT_EQ(table.GetVisibleRowCount(), 2);
    EXPECT_FALSE(table.GetRowIndex(IdOf(5)).has_value());

    table.ScrollToNode(IdOf(5));
    EXPECT_EQ(State(), "Music+ Albums+ Jazz Folk+ Ballads Singles Podcasts");
    EXPECT_EQ(table.GetRowIndex(IdOf(5)), 4);
    EXPECT_EQ(table.GetScrollPosition(), 3);  // rows 3 and 4 on screen

    table.ScrollToNode(IdOf(1));
    EXPECT_EQ(table.GetScrollPosition(), 0);
    table.SetScrollPosition(100);  // kept within the displayed rows
    EXPECT_EQ(table.GetScrollPosition(), 5);
    table.CollapseAllNodes();
    EXPECT_EQ(table.GetScrollPosition(), 0);
}

TEST_F(HierarchicalTableViewTest, AUserReachesOnlyDisplayedRowsAndTakesTheFocus)
{
    QM::Item other(dialog, QM::Rect());
    other.SetFocus();

    EXPECT_FALSE(table.SimulateUserSelectNode(IdOf(3)));  // in a closed folder
    EXPECT_TRUE(other.HasFocus());
    EXPECT_TRUE(table.SimulateUserExpand(IdOf(1)));
    EXPECT_TRUE(table.HasFocus());
    EXPECT_FALSE(table.SimulateUserExpand(IdOf(6)));  // a leaf has nothing to open
    EXPECT_TRUE(table.SimulateUserSelectNode(IdOf(6)));
    EXPECT_TRUE(table.SimulateUserSelectNodes(NK::Array<NK::Guid> {IdOf(2), IdOf(7)}));
    EXPECT_EQ(State(), "Music+ Albums* Jazz Folk Ballads Singles Podcasts*");
    EXPECT_TRUE(table.SimulateUserDoubleClickNode(IdOf(7)));
    EXPECT_TRUE(table.SimulateUserCollapse(IdOf(1)));
    EXPECT_EQ(delegate.events, (Names {"open Music by user", "selection by user", "selection by user",
                                       "selection by user", "double click Podcasts", "close Music by user"}));

    table.Disable();
    EXPECT_FALSE(table.SimulateUserSelectNode(IdOf(1)));
    EXPECT_EQ(State(), "Music Albums Jazz Folk Ballads Singles Podcasts*");
}

TEST_F(HierarchicalTableViewTest, InPlaceEditingHandsTheTextToTheDelegate)
{
    table.BeginNodeTextEdit(IdOf(7));
    EXPECT_EQ(RecordingDelegate::NameOf(*table.GetEditedNode()), "Podcasts");
    EXPECT_NE(Render().find("Podcasts (editing)"), std::string::npos);
    EXPECT_TRUE(table.SimulateUserEndNodeTextEdit("Memos", true));
    EXPECT_FALSE(table.SimulateUserEndNodeTextEdit("again", true));  // no editor open any more
    table.BeginNodeTextEdit(IdOf(6));
    EXPECT_TRUE(table.SimulateUserEndNodeTextEdit("Reminders", false));  // cancelled
    EXPECT_EQ(delegate.events, (Names {"edited Podcasts to Memos"}));
    // A reload that drops the edited row closes the editor.
    table.BeginNodeTextEdit(IdOf(7));
    provider.Replace(Kids(N(1, "Music")), table);
    EXPECT_FALSE(table.GetEditedNode().has_value());
}

TEST_F(HierarchicalTableViewTest, RowsRepeatingAnIdAreAllAddressed)
{
    provider.Replace(Kids(N(1, "Music", Kids(N(3, "Jazz"))), N(2, "Albums", Kids(N(3, "Jazz")))), table);
    EXPECT_EQ(table.CountNodes(IdOf(3)), 2);
    table.SelectNode(IdOf(3));
    EXPECT_EQ(State(), "Music Jazz* Albums Jazz*");
}

// A provider that gives a folder as its own descendant.
class CyclicProvider : public Provider {
public:
    NK::Array<Key> GetChildren(const Key& parent) const override
    {
        NK::Array<Key> children = Provider::GetChildren(parent);
        if (parent.id == IdOf(2))
            children.Push(Key {IdOf(1), forest[0].get()});
        return children;
    }
};

TEST(HierarchicalTableViewCycleTest, ARowThatContainsItselfIsLeftOut)
{
    QM::Dialog dialog;
    Table table {dialog, QM::Rect()};
    CyclicProvider provider;
    table.SetDataProvider(&provider);
    NK::AssertCapture capture;
    provider.Replace(Kids(N(1, "Music", Kids(N(2, "Albums", Kids(N(3, "Jazz")))))), table);
    EXPECT_EQ(capture.GetExpressions(), (Names {"!IsOwnAncestor(child, hash)"}));
    EXPECT_EQ(NamesOf(table.GetAllNodes()), (Names {"Music", "Albums", "Jazz"}));
}

// Many reloads of a flat list with scattered insertions and deletions: the rows found by hash
// (not in place) must keep their state, and dropped row numbers must be safe to reuse.
TEST_F(HierarchicalTableViewTest, ScatteredChangesKeepTheStateOfEverySurvivor)
{
    std::vector<NK::UInt64> numbers;
    for (NK::UInt64 i = 1; i <= 1000; ++i)
        numbers.push_back(i);
    auto reload = [&] {
        Forest forest;
        for (NK::UInt64 number : numbers)
            forest.push_back(N(number, "row " + std::to_string(number), Kids(N(number + 100000, "child"))));
        provider.Replace(std::move(forest), table);
    };
    reload();
    for (NK::UInt64 number = 5; number <= 1000; number += 10)
        table.SelectNode(IdOf(number)), table.ExpandNode(IdOf(number));
    NK::UInt64 next = 2000;
    for (int round = 0; round < 5; ++round) {
        // Drop every 37th entry, insert a new one every 53rd place, and swap two far apart.
        std::vector<NK::UInt64> changed;
        for (std::size_t i = 0; i < numbers.size(); ++i) {
            if (i % 53 == 7)
                changed.push_back(next++);
            if (i % 37 != 11)
                changed.push_back(numbers[i]);
        }
        std::swap(changed[3], changed[changed.size() - 4]);
        numbers = changed;
        table.ResetJournal();
        reload();
        ASSERT_EQ(table.GetTopLevelNodes().GetSize(), numbers.size());
        for (std::size_t i = 0; i < numbers.size(); ++i) {
            const bool marked = numbers[i] < 2000 && numbers[i] % 10 == 5;
            ASSERT_EQ(table.GetTopLevelNodes()[i].id, IdOf(numbers[i]));
            ASSERT_EQ(table.IsNodeSelected(IdOf(numbers[i])), marked) << numbers[i];
            ASSERT_EQ(table.IsNodeExpanded(IdOf(numbers[i])), marked) << numbers[i];
        }
        EXPECT_EQ(table.GetNodeCount(), static_cast<int>(numbers.size() * 2));
        EXPECT_EQ(table.GetJournal().GetCount(QM::Op::RedrawItem), 0u);
    }
}

// A chain as deep as a client may hand over loads with a stack of its own and without comparing
// each row with every row above it (the check that keeps a cyclic provider from looping).
TEST_F(HierarchicalTableViewTest, AChainTwoHundredThousandDeepLoadsWithLinearWork)
{
    constexpr NK::UInt64 Depth = 200000;
    auto chain = [] {
        Forest forest = Kids(N(1, "disc"));
        Node* bottom = forest[0].get();
        for (NK::UInt64 number = 2; number <= Depth; ++number)
            bottom = bottom->children.emplace_back(N(number, "disc")).get();
        return forest;
    };
    IdComparator::comparisons = 0;
    provider.Replace(chain(), table);
    EXPECT_EQ(table.GetNodeCount(), static_cast<int>(Depth));
    EXPECT_LT(IdComparator::comparisons, 2 * Depth);
    table.ScrollToNode(IdOf(Depth));
    IdComparator::comparisons = 0;
    provider.Replace(chain(), table);  // every row matched in place, its state kept
    EXPECT_LT(IdComparator::comparisons, 4 * Depth);
    EXPECT_EQ(table.GetDisplayedRowCount(), static_cast<int>(Depth));
    provider.Replace(Kids(N(1, "disc")), table);
    EXPECT_EQ(table.GetNodeCount(), 1);
}

}  // namespace
