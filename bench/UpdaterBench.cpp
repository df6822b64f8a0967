// The smart list box updater on a headless list box, beside a clear-and-refill of the same rows.
// Each update alternates between two lists that differ by 1% random insertions, deletions and
// content changes. The counters give the control operations of one update from the list box's
// journal: row_ops (row insertions and deletions) and all_ops (every mutating call). A list box
// numbers its rows with a short, so 32767 rows is the largest list measured.
#include "NK/NKGuid.hpp"
#include "QM/QMDialog.hpp"
#include "QM/QMListBox.hpp"
#include "WZSources/Diff/WZSmartListBoxUpdater.hpp"
#include "WZSources/Diff/WZSmartTreeViewUpdater.hpp"

#include <benchmark/benchmark.h>

#include <deque>
#include <map>
#include <random>
#include <string>
#include <vector>

namespace {

class RowItem : public WZ::Diffable {
public:
    RowItem(NK::UInt64 number, std::string text) : id(NK::Guid::FromNumber(0xB0C5, number)), text(std::move(text)) {}
    NK::Guid GetId() const override { return id; }
    bool IsEqual(const WZ::Diffable& other) const override { return static_cast<const RowItem&>(other).text == text; }
    const std::string& GetText() const { return text; }

private:
    NK::Guid id;
    std::string text;
};

class TextDecorator : public WZ::ListBoxDecorator {
public:
    void DecorateRow(QM::ListBox& listBox, short row, const WZ::Diffable& item) const override
    {
        listBox.SetTabItemText(row, 1, static_cast<const RowItem&>(item).GetText().c_str());
    }
};

struct TwoLists {
    std::deque<RowItem> store;
    NK::Array<const WZ::Diffable*> first;
    NK::Array<const WZ::Diffable*> second;
};

TwoLists MakeLists(NK::UIndex count)
{
    TwoLists lists;
    std::mt19937_64 random(count);
    for (NK::UIndex i = 0; i < count; ++i)
        lists.first.Push(&lists.store.emplace_back(i, "row " + std::to_string(i)));
    std::map<NK::UIndex, int> kindAt;
    while (kindAt.size() < count / 100)
        kindAt.emplace(random() % count, static_cast<int>(random() % 3));
    NK::UInt64 fresh = count;
    for (NK::UIndex i = 0; i < count; ++i) {
        auto it = kindAt.find(i);
        const int kind = it == kindAt.end() ? -1 : it->second;
        const auto* item = static_cast<const RowItem*>(lists.first[i]);
        if (kind == 0)
            lists.second.Push(&lists.store.emplace_back(fresh++, "new row"));
        if (kind == 2)
            lists.second.Push(&lists.store.emplace_back(i, item->GetText() + " changed"));
        else if (kind != 1)
            lists.second.Push(&lists.store.emplace_back(i, item->GetText()));
    }
    return lists;
}

NK::UInt64 RowOps(const QM::Journal& journal)
{
    return journal.GetCount(QM::Op::InsertItem) + journal.GetCount(QM::Op::InsertSeparator) +
           journal.GetCount(QM::Op::DeleteItem) + journal.GetCount(QM::Op::DeleteAllItems);
}

void ReportOps(benchmark::State& state, const QM::Journal& journal, NK::UInt64 updates)
{
    state.counters["row_ops"] = static_cast<double>(RowOps(journal)) / static_cast<double>(updates);
    state.counters["all_ops"] = static_cast<double>(journal.GetTotal()) / static_cast<double>(updates);
}

void BM_SmartListBoxUpdater_SetItems(benchmark::State& state)
{
    const auto count = static_cast<NK::UIndex>(state.range(0));
    TwoLists lists = MakeLists(count);
    QM::Dialog dialog;
    QM::ListBox listBox {dialog, QM::Rect(0, 0, 300, 400)};
    TextDecorator decorator;
    WZ::SmartListBoxUpdater updater(&listBox, &decorator, nullptr);
    updater.SetItems(NK::Array<const WZ::Diffable*>(lists.first));
    listBox.ResetJournal();
    bool toSecond = true;
    NK::UInt64 updates = 0;
    for (auto _ : state) {
        updater.SetItems(NK::Array<const WZ::Diffable*>(toSecond ? lists.second : lists.first));
        toSecond = !toSecond;
        ++updates;
    }
    ReportOps(state, listBox.GetJournal(), updates);
}

// What a list box without the updater does: clear, then insert, decorate and attach every row.
void BM_ClearAndRefill(benchmark::State& state)
{
    const auto count = static_cast<NK::UIndex>(state.range(0));
    TwoLists lists = MakeLists(count);
    QM::Dialog dialog;
    QM::ListBox listBox {dialog, QM::Rect(0, 0, 300, 400)};
    TextDecorator decorator;
    bool toSecond = true;
    NK::UInt64 updates = 0;
    for (auto _ : state) {
        const auto& items = toSecond ? lists.second : lists.first;
        listBox.DeleteAllItems();
        for (NK::UIndex i = 0; i < items.GetSize(); ++i) {
            const short row = listBox.InsertItem(QM::ListBox::LastPosition);
            decorator.DecorateRow(listBox, row, *items[i]);
            listBox.SetItemObjectData(row, NK::NewRef<NK::Object>());
        }
        toSecond = !toSecond;
        ++updates;
    }
    ReportOps(state, listBox.GetJournal(), updates);
}

BENCHMARK(BM_SmartListBoxUpdater_SetItems)->ArgName("rows")->Arg(1000)->Arg(10000)->Arg(32700)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ClearAndRefill)->ArgName("rows")->Arg(1000)->Arg(10000)->Arg(32700)->Unit(benchmark::kMillisecond);

// The smart tree view updater inserting many siblings into one level of a tree view: range(0)
// new children under one parent that already has none (appended) or range(0) of its children
// (interleaved, every other one new). Only the inserting update is timed; the one that takes
// the new children away again is not.
class TreeItem : public WZ::TreeDiffable {
public:
    TreeItem(NK::UInt64 number, std::string text) : id(NK::Guid::FromNumber(0x7EE5, number)), text(std::move(text)) {}
    NK::Guid GetId() const override { return id; }
    bool IsEqual(const WZ::TreeDiffable& other) const override { return static_cast<const TreeItem&>(other).text == text; }
    NK::Array<const WZ::TreeDiffable*> GetDiffableChildren() const override { return children; }
    const std::string& GetText() const { return text; }
    NK::Array<const WZ::TreeDiffable*> children;

private:
    NK::Guid id;
    std::string text;
};

class TreeTextDecorator : public WZ::UntypedTreeViewDecorator {
public:
    void Decorate(QM::TreeView& treeView, int node, const WZ::TreeDiffable& item) override
    {
        treeView.SetItemText(node, static_cast<const TreeItem&>(item).GetText().c_str());
    }
};

void BM_SmartTreeViewUpdater_InsertSiblings(benchmark::State& state)
{
    const auto count = static_cast<NK::UInt64>(state.range(0));
    const bool interleaved = state.range(1) != 0;
    std::deque<TreeItem> store;
    TreeItem& without = store.emplace_back(0, "archive");
    TreeItem& with = store.emplace_back(0, "archive");
    for (NK::UInt64 i = 1; i <= count; ++i) {
        const TreeItem* child = &store.emplace_back(i, "document " + std::to_string(i));
        with.children.Push(child);
        if (interleaved && i % 2 == 0)
            without.children.Push(child);
    }
    QM::Dialog dialog;
    QM::TreeView treeView {dialog, QM::Rect(0, 0, 300, 400)};
    TreeTextDecorator decorator;
    WZ::SmartTreeViewUpdater updater(treeView, decorator, nullptr);
    updater.SetRootItems({&without});
    for (auto _ : state) {
        updater.SetRootItems({&with});
        state.PauseTiming();
        updater.SetRootItems({&without});
        state.ResumeTiming();
    }
    state.counters["inserted"] = static_cast<double>(interleaved ? count - count / 2 : count);
}

BENCHMARK(BM_SmartTreeViewUpdater_InsertSiblings)
    ->ArgNames({"siblings", "interleaved"})
    ->Args({10000, 0})
    ->Args({100000, 0})
    ->Args({100000, 1})
    ->Unit(benchmark::kMillisecond);

}  // namespace
