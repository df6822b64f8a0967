#include "DiffTestItems.hpp"

#include "NK/NKAssert.hpp"
#include "QM/QMDialog.hpp"
#include "QM/QMListBox.hpp"
#include "WZSources/Diff/WZDiff.hpp"
#include "WZSources/Diff/WZSmartListBoxUpdater.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <deque>
#include <map>
#include <random>
#include <set>
#include <string>
#include <vector>

namespace {

using DiffTest::Id;
using DiffTest::TextItem;
using Restored = WZ::SmartListBoxUpdater::SelectionKeeper::Restored;

// Writes the item's text into the first tab field and counts the rows it decorated, by id.
class TextDecorator : public WZ::ListBoxDecorator {
public:
    void DecorateRow(QM::ListBox& listBox, short row, const WZ::Diffable& item) const override
    {
        listBox.SetTabItemText(row, 1, static_cast<const TextItem&>(item).GetText().c_str());
        ++calls[item.GetId()];
        ++total;
    }
    mutable std::map<NK::Guid, int> calls;
    mutable int total = 0;
};

// Remembers every item it was given; the test checks that none comes twice.
class RecordingDeallocator : public WZ::SmartListBoxUpdater::ItemDeallocator {
public:
    explicit RecordingDeallocator(std::vector<const WZ::Diffable*>& given) : given(given) {}
    void Deallocate(const WZ::Diffable* item) override { given.push_back(item); }
    std::vector<const WZ::Diffable*>& given;
};

class SmartListBoxUpdaterTest : public ::testing::Test {
protected:
    const TextItem* Item(NK::UInt64 number, const std::string& text)
    {
        return &store.emplace_back(number, text);
    }
    const TextItem* Separator(NK::UInt64 number)
    {
        return &store.emplace_back(number, "", nullptr, true);
    }
    static NK::Array<const WZ::Diffable*> List(std::initializer_list<const TextItem*> items)
    {
        NK::Array<const WZ::Diffable*> list;
        for (const TextItem* item : items)
            list.Push(item);
        return list;
    }
    // What a list box shows: the first tab field of each row, "--" for separators.
    static std::vector<std::string> Texts(const QM::ListBox& box)
    {
        std::vector<std::string> texts;
        for (int row = 1; row <= box.GetItemCount(); ++row)
            texts.push_back(box.IsSeparator(static_cast<short>(row)) ? "--" : box.GetTabItemText(static_cast<short>(row), 1).ToUtf8());
        return texts;
    }
    std::vector<std::string> Shown() const { return Texts(listBox); }
    NK::UInt64 Count(QM::Op op) const { return listBox.GetJournal().GetCount(op); }
    void ResetJournal() { const_cast<QM::Journal&>(listBox.GetJournal()).Reset(); }

    std::deque<TextItem> store;
    QM::Dialog dialog;
    QM::ListBox listBox {dialog, QM::Rect(0, 0, 200, 400), QM::ListBox::SelectionType::Multi};
    TextDecorator decorator;
    WZ::SmartListBoxUpdater updater {&listBox, &decorator, nullptr};
};

TEST_F(SmartListBoxUpdaterTest, FirstFillInsertsDecoratesAndMapsEveryRow)
{
    updater.SetItems(List({Item(1, "a"), Separator(2), Item(3, "c")}));
    EXPECT_EQ(Shown(), (std::vector<std::string> {"a", "--", "c"}));
    EXPECT_EQ(Count(QM::Op::InsertItem), 2u);
    EXPECT_EQ(Count(QM::Op::InsertSeparator), 1u);
    EXPECT_EQ(decorator.total, 2);  // separators are never decorated
    EXPECT_EQ(updater.GetRow(Id(3)), 3);
    EXPECT_EQ(updater.GetRow(Id(99)), 0);
    EXPECT_EQ(updater.GetId(4), NK::NullGuid);
    EXPECT_EQ(updater.GetContained({Id(3), Id(7), Id(1)}), (NK::Array<NK::Guid> {Id(3), Id(1)}));
}

// Equal content only retargets the rows; a reorder rewrites rows in place, decorating the
// changed ones alone.
TEST_F(SmartListBoxUpdaterTest, EqualContentRetargetsAndReorderRewritesInPlace)
{
    updater.SetItems(List({Item(1, "a"), Item(2, "b"), Item(3, "c"), Item(4, "d")}));
    ResetJournal();
    decorator.total = 0;
    auto copies = List({Item(1, "a"), Item(2, "b"), Item(3, "c"), Item(4, "d")});
    updater.SetItems(NK::Array<const WZ::Diffable*>(copies));
    EXPECT_EQ(listBox.GetJournal().ToString(), "SetItemObjectData=4");
    EXPECT_EQ(decorator.total, 0);
    EXPECT_EQ(updater.GetItem(short {3}), copies[2]);

    ResetJournal();
    updater.SetItems(List({Item(4, "d"), Item(2, "b"), Item(3, "c"), Item(1, "a")}));
    EXPECT_EQ(Shown(), (std::vector<std::string> {"d", "b", "c", "a"}));
    EXPECT_EQ(Count(QM::Op::InsertItem) + Count(QM::Op::DeleteItem), 0u);
    EXPECT_EQ(decorator.total, 2);  // the two outer rows
    EXPECT_EQ(updater.GetRow(Id(1)), 4);
}

TEST_F(SmartListBoxUpdaterTest, SelectionIsRestoredById)
{
    auto empty = updater.SetItems({});
    EXPECT_EQ(listBox.GetJournal().GetTotal(), 0u) << "nothing on nothing changes nothing";
    EXPECT_EQ(empty.RestoreByItemIds(), Restored::Nothing);
    EXPECT_EQ(Count(QM::Op::Deselect), 1u);  // the selection is cleared in every case

    updater.SetItems(List({Item(1, "a"), Item(2, "b"), Item(3, "c")}));
    listBox.SelectItems({1, 3});
    auto keeper = updater.SetItems(List({Item(4, "new"), Item(1, "a"), Item(2, "b")}));
    EXPECT_EQ(keeper.GetSelectedRows(), (NK::Array<short> {1, 3}));
    EXPECT_EQ(keeper.GetSelectedItemIds(), (NK::Array<NK::Guid> {Id(1), Id(3)}));
    EXPECT_EQ(keeper.RestoreByItemIds(), Restored::Partial);
    EXPECT_EQ(listBox.GetSelectedItems(), (NK::Array<short> {2}));
    EXPECT_EQ(updater.GetSelectedItemIds(), (NK::Array<NK::Guid> {Id(1)}));

    listBox.DeselectItem(0);
    listBox.SelectItems({1, 3});
    auto all = updater.SetItems(List({Item(2, "b"), Item(4, "new")}));
    EXPECT_EQ(all.RestoreByItemIds(), Restored::All);
    EXPECT_EQ(listBox.GetSelectedItems(), (NK::Array<short> {1, 2}));

    listBox.DeselectItem(0);
    listBox.SelectItems({1});
    auto none = updater.SetItems(List({Item(4, "new")}));
    EXPECT_EQ(none.RestoreByItemIds(), Restored::Nothing);
    EXPECT_TRUE(listBox.GetSelectedItems().IsEmpty());
}

TEST_F(SmartListBoxUpdaterTest, UpdateItemRedecoratesOneRowAndRowsWithoutRecordsThrow)
{
    updater.SetItems(List({Item(1, "a"), Item(2, "b")}));
    listBox.SetTabItemText(2, 1, "scribbled");
    decorator.total = 0;
    updater.UpdateItem(Id(2));
    EXPECT_EQ(Shown(), (std::vector<std::string> {"a", "b"}));
    EXPECT_EQ(decorator.total, 1);

    listBox.InsertItem(QM::ListBox::LastPosition);  // somebody else's row
    EXPECT_THROW(updater.GetItem(short {3}), NK::NullReferenceException);
    EXPECT_THROW(updater.UpdateItem(Id(42)), NK::NullReferenceException);
}

// Every item object let go reaches the deallocator exactly once, and never one still shown.
TEST_F(SmartListBoxUpdaterTest, DeallocatorGetsEveryLetGoItemOnceAndNoShownOne)
{
    const TextItem* a = Item(1, "a");
    const TextItem* b = Item(2, "b");
    const TextItem* c = Item(3, "c");
    const TextItem* b2 = Item(2, "b");
    struct Case {
        const char* name;
        std::vector<std::vector<const TextItem*>> updates;
        std::multiset<const WZ::Diffable*> givenBeforeDestruction;
    } cases[] = {
        {"new objects for a surviving id", {{a, b}, {b2, c}}, {a, b}},
        {"the same objects again", {{a, b}, {a, b, c}}, {}},
        {"an object moved and one repeated", {{a, b}, {c, a, c}}, {b}},
        {"an object given twice, then let go", {{b, b}, {c}}, {b}},
    };
    for (const Case& test : cases) {
        std::vector<const WZ::Diffable*> given;
        std::set<const WZ::Diffable*> handedOver;
        QM::ListBox box(dialog, QM::Rect(0, 0, 100, 100));
        {
            WZ::SmartListBoxUpdater owning(&box, &decorator, NK::NewOwned<RecordingDeallocator>(given));
            for (const auto& update : test.updates) {
                NK::Array<const WZ::Diffable*> list;
                for (const TextItem* item : update) {
                    list.Push(item);
                    handedOver.insert(item);
                }
                owning.SetItems(std::move(list));
                EXPECT_EQ(Texts(box).size(), update.size()) << test.name;
            }
            EXPECT_EQ(std::multiset<const WZ::Diffable*>(given.begin(), given.end()), test.givenBeforeDestruction)
                << test.name;
        }
        EXPECT_EQ(std::multiset<const WZ::Diffable*>(given.begin(), given.end()),
                  std::multiset<const WZ::Diffable*>(handedOver.begin(), handedOver.end()))
            << test.name;
        EXPECT_EQ(box.GetItemCount(), static_cast<short>(test.updates.back().size())) << "the rows stay";
    }
}

// Past the toolkit's 32,767 rows (less the rows of another writer, which stay below) the
// updater shows what fits, reports once, and lets the rest go: rows, shown array and row map
// agree, and no row number turns negative.
TEST_F(SmartListBoxUpdaterTest, LongArraysShowWhatFitsTheRows)
{
    struct Case {
        int foreignRows;
        int items;
    } cases[] = {{0, 32767}, {0, 40000}, {2, 32767}};
    for (const Case& test : cases) {
        QM::ListBox box(dialog, QM::Rect(0, 0, 100, 100));
        for (int i = 0; i < test.foreignRows; ++i)
            box.SetItemValue(box.AppendItem(), 7);
        std::vector<const WZ::Diffable*> given;
        WZ::SmartListBoxUpdater owning(&box, nullptr, NK::NewOwned<RecordingDeallocator>(given));
        NK::Array<const WZ::Diffable*> items;
        for (int i = 0; i < test.items; ++i)
            items.Push(Item(static_cast<NK::UInt64>(i + 1), ""));
        const NK::Array<const WZ::Diffable*> handedOver = items;
        const auto shown = static_cast<NK::UIndex>(std::min(test.items, 32767 - test.foreignRows));
        NK::AssertCapture capture;
        owning.SetItems(std::move(items));
        EXPECT_EQ(capture.GetExpressions().size(), shown < handedOver.GetSize() ? 1u : 0u) << test.items;
        ASSERT_EQ(box.GetItemCount(), test.foreignRows + static_cast<int>(shown));
        ASSERT_EQ(owning.GetItems().GetSize(), shown);
        const short last = static_cast<short>(shown);
        EXPECT_EQ(owning.GetItem(last), handedOver[shown - 1]);
        EXPECT_EQ(owning.GetRow(handedOver[shown - 1]->GetId()), last);
        EXPECT_FALSE(owning.HasItem(Id(shown + 1)));
        EXPECT_EQ(given, std::vector<const WZ::Diffable*>(handedOver.begin() + static_cast<std::ptrdiff_t>(shown), handedOver.end()));
        for (int row = last + 1; row <= box.GetItemCount(); ++row)
            EXPECT_EQ(box.GetItemValue(static_cast<short>(row)), 7) << "another writer's row";
        // The next update still works at the limit.
        owning.SetItems(NK::Array<const WZ::Diffable*>(owning.GetItems()));
        EXPECT_EQ(owning.GetItems().GetSize(), shown);
    }
}

// Null entries are reported and skipped; the other items are shown as if they came alone.
TEST_F(SmartListBoxUpdaterTest, NullEntriesAreReportedAndSkipped)
{
    updater.SetItems(List({Item(1, "a")}));
    NK::AssertCapture capture;
    updater.SetItems({nullptr, Item(2, "b"), nullptr, Item(1, "a")});
    EXPECT_EQ(capture.GetExpressions(), (std::vector<std::string> {"newItems hold no null item"}));
    EXPECT_EQ(Shown(), (std::vector<std::string> {"b", "a"}));
    EXPECT_EQ(updater.GetItems().GetSize(), 2u);
}

// Changed rows of ids that occur twice, far apart, are found through the index maps: the
// updater asks no item for its id while it looks for them (a search along the new items would
// ask each of the thousands between).
TEST_F(SmartListBoxUpdaterTest, RepeatedIdsFarApartAreFoundWithoutSearching)
{
    struct CountingItem : TextItem {
        CountingItem(NK::UInt64 number, std::string text, int& asked) : TextItem(number, std::move(text)), asked(asked) {}
        NK::Guid GetId() const override { return ++asked, TextItem::GetId(); }
        int& asked;
    };
    constexpr int Ids = 2000;
    int asked = 0;
    std::deque<CountingItem> items;
    auto list = [&](const std::string& text) {
        NK::Array<const WZ::Diffable*> list;
        for (int copy = 0; copy < 2; ++copy)
            for (int i = 1; i <= Ids; ++i)
                list.Push(&items.emplace_back(static_cast<NK::UInt64>(i), text + std::to_string(copy), asked));
        return list;
    };
    updater.SetItems(list("old"));
    asked = 0;
    updater.SetItems(list("new"));
    EXPECT_LE(asked, 8 * 2 * Ids);
    std::vector<std::string> expected(Ids, "new0");
    expected.resize(2 * Ids, "new1");
    EXPECT_EQ(Shown(), expected);
}

TEST(SmartListBoxDefaultDeallocatorTest, DeletesTheItems)
{
    static int destroyed = 0;
    struct Counted : TextItem {
        using TextItem::TextItem;
        ~Counted() override { ++destroyed; }
    };
    QM::Dialog dialog;
    QM::ListBox listBox {dialog, QM::Rect(0, 0, 100, 100)};
    {
        WZ::SmartListBoxUpdater owning(&listBox, nullptr,
                                       NK::NewOwned<WZ::SmartListBoxUpdater::DefaultDeallocator>());
        owning.SetItems({new Counted(1, "a"), new Counted(2, "b")});
        owning.SetItems({new Counted(1, "a")});
        EXPECT_EQ(destroyed, 2);
    }
    EXPECT_EQ(destroyed, 3);
}

// Random updates of a list with separators and a few repeated ids: after each, the list box
// shows exactly the new items, every record names its new item, and the control received no
// other insertions and deletions than the comparison found, plus one of each per kind switch.
TEST_F(SmartListBoxUpdaterTest, RandomUpdatesLeaveTheControlShowingTheNewItems)
{
    std::mt19937 random(7);
    auto pick = [&](int low, int high) { return std::uniform_int_distribution<int>(low, high)(random); };
    std::vector<std::pair<NK::UInt64, std::string>> model;  // id number and text ("" = separator)
    for (int round = 0; round < 400; ++round) {
        int edits = pick(0, 6);
        for (int e = 0; e < edits; ++e) {
            int kind = pick(0, 3);
            auto at = [&](bool end) { return model.begin() + pick(0, static_cast<int>(model.size()) - (end ? 0 : 1)); };
            if (kind == 0 || model.empty())
                model.insert(at(true), {static_cast<NK::UInt64>(pick(1, 30)), pick(0, 5) == 0 ? "" : "t" + std::to_string(round)});
            else if (kind == 1)
                model.erase(at(false));
            else if (kind == 2)
                at(false)->second = pick(0, 4) == 0 ? "" : "r" + std::to_string(round);
            else
                std::swap(*at(false), *at(false));
        }
        NK::Array<const WZ::Diffable*> next;
        std::vector<std::string> expected;
        for (const auto& [number, text] : model) {
            next.Push(text.empty() ? Separator(number) : Item(number, text));
            expected.push_back(text.empty() ? "--" : text);
        }
        // Rows are never moved: after the deletions and insertions each row still shows what it
        // showed, and every row whose kind then differs from its new item's is replaced once.
        NK::Array<const WZ::Diffable*> shownBefore = updater.GetItems();
        WZ::Diff::Result result = WZ::Diffing(shownBefore, next);
        std::vector<bool> kinds;
        for (const WZ::Diffable* item : shownBefore)
            kinds.push_back(WZ::IsSeparatorItem(*item));
        std::vector<NK::UInt64> deleted(result.deleted.begin(), result.deleted.end());
        for (auto it = deleted.rbegin(); it != deleted.rend(); ++it)
            kinds.erase(kinds.begin() + static_cast<std::ptrdiff_t>(*it));
        for (NK::UInt64 index : result.inserted)
            kinds.insert(kinds.begin() + static_cast<std::ptrdiff_t>(index), WZ::IsSeparatorItem(*next[index]));
        NK::UIndex switches = 0;
        for (NK::UIndex i = 0; i < next.GetSize(); ++i)
            switches += kinds[i] != WZ::IsSeparatorItem(*next[i]) ? 1 : 0;

        ResetJournal();
        updater.SetItems(NK::Array<const WZ::Diffable*>(next));
        ASSERT_EQ(Shown(), expected) << "round " << round;
        const auto inserted = Count(QM::Op::InsertItem) + Count(QM::Op::InsertSeparator);
        ASSERT_EQ(inserted, result.inserted.GetSize() + switches) << "round " << round;
        ASSERT_EQ(Count(QM::Op::DeleteItem), result.deleted.GetSize() + switches) << "round " << round;
        for (short row = 1; row <= listBox.GetItemCount(); ++row) {
            ASSERT_EQ(updater.GetItem(row), next[static_cast<NK::UIndex>(row - 1)]) << "round " << round;
            ASSERT_EQ(updater.GetId(row), next[static_cast<NK::UIndex>(row - 1)]->GetId());
        }
    }
}

}  // namespace
