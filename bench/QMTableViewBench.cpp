// The hierarchical table view at the size of a large archive: 100 folders of 10 subfolders of
// 99 items (100,100 rows). Measured: a first load from the virtual root, a reload of the same
// rows (every key new, every content equal), a reload with 1% of the rows changed (a third
// renamed, a third dropped, a third new), and expanding every folder. Beside them, as the peer
// that a component without the table would use, filling the toolkit's tree view with the same
// 100,100 nodes. Each reload includes the provider's answers; building the models does not.
// The counter ns_per_row is the time per row; the journal of the last run is printed as a label.
#include "QM/QMDialog.hpp"
#include "QM/QMHierarchicalTableView.hpp"
#include "QM/QMTreeView.hpp"

#include <benchmark/benchmark.h>

#include <memory>
#include <string>
#include <vector>

namespace {

struct Node {
    NK::UInt64 number = 0;
    std::string name;
    std::vector<Node*> children;
};

// A forest whose nodes live in one array; numbers name rows across models.
struct Model {
    std::vector<std::unique_ptr<Node>> nodes;
    std::vector<Node*> top;

    Node* Add(NK::UInt64 number, std::string name, Node* parent)
    {
        nodes.push_back(std::make_unique<Node>(Node {number, std::move(name), {}}));
        (parent == nullptr ? top : parent->children).push_back(nodes.back().get());
        return nodes.back().get();
    }
};

constexpr int folderCount = 100;
constexpr int subfolderCount = 10;
constexpr int leafCount = 99;
constexpr int rowCount = folderCount * (1 + subfolderCount * (1 + leafCount));

// changePercent of the leaves changed: alternately renamed, dropped, and replaced by a new row.
Model BuildModel(int changePercent)
{
    Model model;
    model.nodes.reserve(rowCount);
    NK::UInt64 number = 0;
    int leafIndex = 0;
    int changeEvery = changePercent == 0 ? 0 : 100 / changePercent;
    for (int f = 0; f < folderCount; ++f) {
        Node* folder = model.Add(++number, "Folder " + std::to_string(f), nullptr);
        for (int s = 0; s < subfolderCount; ++s) {
            Node* subfolder = model.Add(++number, "Subfolder " + std::to_string(s), folder);
            for (int l = 0; l < leafCount; ++l) {
                ++number;
                ++leafIndex;
                int change = changeEvery != 0 && leafIndex % changeEvery == 0 ? (leafIndex / changeEvery) % 3 + 1 : 0;
                if (change == 1)
                    model.Add(number, "Renamed " + std::to_string(l), subfolder);
                else if (change == 3)
                    model.Add(number + 10000000, "New " + std::to_string(l), subfolder);
                else if (change == 0)
                    model.Add(number, "View " + std::to_string(l), subfolder);
                // change == 2: dropped
            }
        }
    }
    return model;
}

struct Key {
    NK::Guid id = NK::NullGuid;
    const Node* node = nullptr;
    NK::UInt32 GenerateHashValue() const noexcept { return id.GenerateHashValue(); }
};

struct IdComparator {
    bool operator()(const Key& a, const Key& b) const noexcept { return a.id == b.id; }
    bool operator()(const Key& a, const NK::Guid& b) const noexcept { return a.id == b; }
};

struct ContentComparator {
    bool operator()(const Key& a, const Key& b) const noexcept
    {
        return a.node == b.node || (a.node != nullptr && b.node != nullptr && a.node->name == b.node->name);
    }
};

using Table = QM::HierarchicalTableView<Key, IdComparator, ContentComparator>;

class Provider : public QM::TableView::Hierarchical::DataProvider<Key> {
public:
    Key GetVirtualRoot() const override { return Key {}; }
    NK::Array<Key> GetChildren(const Key& parent) const override
    {
        const std::vector<Node*>& list = parent.node == nullptr ? model->top : parent.node->children;
        NK::Array<Key> keys;
        keys.SetCapacity(list.size());
        for (const Node* child : list)
            keys.Push(Key {NK::Guid::FromNumber(1, child->number), child});
        return keys;
    }
    const Model* model = nullptr;
};

void Report(benchmark::State& state, const QM::Item& control, int rows)
{
    state.counters["ns_per_row"] =
        benchmark::Counter(static_cast<double>(rows), benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
    state.SetLabel(control.GetJournal().ToString());
}

void BM_TableFirstLoad(benchmark::State& state)
{
    Model model = BuildModel(0);
    Provider provider;
    provider.model = &model;
    QM::Dialog dialog;
    std::unique_ptr<Table> table;
    for (auto _ : state) {
        state.PauseTiming();
        table = std::make_unique<Table>(dialog, QM::Rect(0, 0, 400, 600));
        table->SetDataProvider(&provider);
        state.ResumeTiming();
        table->Reload();
        benchmark::DoNotOptimize(table->GetNodeCount());
    }
    Report(state, *table, rowCount);
}
BENCHMARK(BM_TableFirstLoad)->Unit(benchmark::kMillisecond);

// Reloads alternate between two models, so that every reload meets new keys.
void ReloadBetween(benchmark::State& state, const Model& first, const Model& second)
{
    Provider provider;
    provider.model = &first;
    QM::Dialog dialog;
    Table table(dialog, QM::Rect(0, 0, 400, 600));
    table.SetDataProvider(&provider);
    table.Reload();
    table.ExpandNode(NK::Guid::FromNumber(1, 1));
    bool onFirst = true;
    for (auto _ : state) {
        onFirst = !onFirst;
        provider.model = onFirst ? &first : &second;
        table.ResetJournal();
        table.Reload();
        benchmark::DoNotOptimize(table.GetNodeCount());
    }
    Report(state, table, rowCount);
}

void BM_TableReloadUnchanged(benchmark::State& state)
{
    Model first = BuildModel(0);
    Model second = BuildModel(0);
    ReloadBetween(state, first, second);
}
BENCHMARK(BM_TableReloadUnchanged)->Unit(benchmark::kMillisecond);

void BM_TableReloadOnePercentChanged(benchmark::State& state)
{
    Model first = BuildModel(0);
    Model second = BuildModel(1);
    ReloadBetween(state, first, second);
}
BENCHMARK(BM_TableReloadOnePercentChanged)->Unit(benchmark::kMillisecond);

void BM_TableExpandAll(benchmark::State& state)
{
    Model model = BuildModel(0);
    Provider provider;
    provider.model = &model;
    QM::Dialog dialog;
    Table table(dialog, QM::Rect(0, 0, 400, 600));
    table.SetDataProvider(&provider);
    table.Reload();
    table.ResetJournal();
    for (auto _ : state) {
        table.ExpandAllNodes();
        state.PauseTiming();
        table.CollapseAllNodes();
        state.ResumeTiming();
    }
    Report(state, table, rowCount);
}
BENCHMARK(BM_TableExpandAll)->Unit(benchmark::kMillisecond);

// The peer: the same rows inserted into the toolkit's tree view, node by node with their texts.
void BM_TreeViewFill(benchmark::State& state)
{
    Model model = BuildModel(0);
    QM::Dialog dialog;
    for (auto _ : state) {
        state.PauseTiming();
        auto tree = std::make_unique<QM::TreeView>(dialog, QM::Rect(0, 0, 400, 600));
        state.ResumeTiming();
        std::vector<std::pair<const Node*, int>> pending;
        for (auto it = model.top.rbegin(); it != model.top.rend(); ++it)
            pending.emplace_back(*it, QM::TreeView::RootItem);
        while (!pending.empty()) {
            auto [node, parent] = pending.back();
            pending.pop_back();
            int handle = tree->AppendItem(parent);
            tree->SetItemText(handle, NK::UniString(node->name));
            for (auto it = node->children.rbegin(); it != node->children.rend(); ++it)
                pending.emplace_back(*it, handle);
        }
        benchmark::DoNotOptimize(tree->GetItemCount());
        state.PauseTiming();
        tree.reset();
        state.ResumeTiming();
    }
    state.counters["ns_per_row"] =
        benchmark::Counter(static_cast<double>(rowCount), benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}
BENCHMARK(BM_TreeViewFill)->Unit(benchmark::kMillisecond);

}  // namespace
