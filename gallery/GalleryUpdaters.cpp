// A list box and a tree that follow a changing data set through the smart updaters. After each
// step the scene prints what the controls show and how many control operations the update
// took, beside what clearing and refilling a second control with the same data took.
#include "GalleryScene.hpp"

#include "QM/QMDialog.hpp"
#include "QM/QMListBox.hpp"
#include "QM/QMTextRenderer.hpp"
#include "QM/QMTreeView.hpp"
#include "WZSources/Diff/WZSmartListBoxUpdater.hpp"
#include "WZSources/Diff/WZSmartTreeViewUpdater.hpp"

#include <deque>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace {

class Entry : public WZ::TreeDiffable {
public:
    Entry(NK::UInt64 number, std::string name) : id(NK::Guid::FromNumber(0x6A11, number)), name(std::move(name)) {}

    NK::Guid GetId() const override { return id; }
    bool IsEqual(const WZ::TreeDiffable& other) const override
    {
        return static_cast<const Entry&>(other).name == name;
    }
    NK::Array<const WZ::TreeDiffable*> GetDiffableChildren() const override
    {
        NK::Array<const WZ::TreeDiffable*> result;
        for (const auto& child : children)
            result.Push(child.get());
        return result;
    }
    Entry& Add(NK::UInt64 number, std::string childName)
    {
        children.push_back(std::make_unique<Entry>(number, std::move(childName)));
        return *children.back();
    }
    const std::string& GetName() const { return name; }

private:
    NK::Guid id;
    std::string name;
    std::vector<std::unique_ptr<Entry>> children;
};

class RowWriter : public WZ::ListBoxDecorator {
public:
    void DecorateRow(QM::ListBox& listBox, short row, const WZ::Diffable& item) const override
    {
        listBox.SetTabItemText(row, 1, static_cast<const Entry&>(item).GetName().c_str());
    }
};

class NodeWriter : public WZ::TreeViewDecorator<Entry> {
public:
    void Decorate(WZ::TreeNodeAccessor& node, const Entry& item) override { node.SetText(item.GetName().c_str()); }
};

// The data of one step, as a client rebuilds it: fresh objects every time.
struct Data {
    std::vector<std::unique_ptr<Entry>> entries;

    Entry& Add(NK::UInt64 number, std::string name)
    {
        entries.push_back(std::make_unique<Entry>(number, std::move(name)));
        return *entries.back();
    }
    NK::Array<const WZ::Diffable*> AsList() const
    {
        NK::Array<const WZ::Diffable*> list;
        for (const auto& entry : entries)
            list.Push(entry.get());
        return list;
    }
    NK::Array<const WZ::TreeDiffable*> AsForest() const
    {
        NK::Array<const WZ::TreeDiffable*> forest;
        for (const auto& entry : entries)
            forest.Push(entry.get());
        return forest;
    }
};

void Print(std::ostream& out, const QM::Item& control)
{
    out << QM::TextRenderer::Join(QM::TextRenderer::RenderItem(control));
}

void RefillList(QM::ListBox& listBox, const Data& data)
{
    RowWriter writer;
    listBox.DeleteAllItems();
    for (const auto& entry : data.entries) {
        const short row = listBox.InsertItem(QM::ListBox::LastPosition);
        writer.DecorateRow(listBox, row, *entry);
        listBox.SetItemObjectData(row, NK::NewRef<NK::Object>());
    }
}

void RefillTree(QM::TreeView& treeView, int parent, const NK::Array<const WZ::TreeDiffable*>& items)
{
    for (const WZ::TreeDiffable* item : items) {
        const int node = treeView.AppendItem(parent);
        treeView.SetItemText(node, static_cast<const Entry*>(item)->GetName().c_str());
        treeView.SetItemObjectData(node, NK::NewRef<NK::Object>());
        RefillTree(treeView, node, item->GetDiffableChildren());
    }
}

void Compare(std::ostream& out, const QM::Item& updated, const QM::Item& refilled)
{
    out << "operations: " << updated.GetJournal().GetTotal() << " by difference ("
        << updated.GetJournal().ToString() << ") against " << refilled.GetJournal().GetTotal()
        << " for clear-and-refill\n";
    updated.ResetJournal();
    refilled.ResetJournal();
}

}  // namespace

WZ_GALLERY_SCENE("updaters", "a list box and a tree follow a changing data set by difference")
{
    QM::Dialog dialog("Pantry", 400, 300);
    QM::ListBox listBox {dialog, QM::Rect(10, 10, 190, 200), QM::ListBox::SelectionType::Multi};
    QM::ListBox refilledList {dialog, QM::Rect(200, 10, 390, 200)};
    RowWriter rowWriter;
    WZ::SmartListBoxUpdater listUpdater(&listBox, &rowWriter, nullptr);
    std::deque<Data> history;  // without a deallocator the client keeps its items alive

    auto showList = [&](const std::string& title, Data data) {
        Gallery::Step(out, title);
        history.push_back(std::move(data));
        auto keeper = listUpdater.SetItems(history.back().AsList());
        RefillList(refilledList, history.back());
        if (!keeper.GetSelectedItemIds().IsEmpty()) {
            auto restored = keeper.RestoreByItemIds();
            const char* names[] = {"All", "Partial", "Nothing"};
            out << "selection restored: " << names[static_cast<int>(restored)] << "\n";
        }
        Print(out, listBox);
        Compare(out, listBox, refilledList);
    };

    Data first;
    for (auto [number, name] : {std::pair {1, "Apple"}, {2, "Banana"}, {3, "Cherry"}, {4, "Date"}})
        first.Add(number, name);
    showList("list: first fill", std::move(first));

    Data added;
    for (auto [number, name] : {std::pair {1, "Apple"}, {5, "Elderberry"}, {3, "Cherry"}, {4, "Date"}, {6, "Fig"}})
        added.Add(number, name);
    showList("list: Elderberry and Fig added, Banana removed", std::move(added));

    Data renamed;
    for (auto [number, name] : {std::pair {1, "Apple"}, {5, "Elderberry"}, {3, "Sour cherry"}, {4, "Date"}, {6, "Fig"}})
        renamed.Add(number, name);
    showList("list: Cherry renamed", std::move(renamed));

    Data reordered;
    for (auto [number, name] : {std::pair {4, "Date"}, {1, "Apple"}, {5, "Elderberry"}, {3, "Sour cherry"}, {6, "Fig"}})
        reordered.Add(number, name);
    showList("list: Date moved to the top", std::move(reordered));

    listBox.SimulateUserSelectRows({2, 4});  // Apple and Sour cherry
    listBox.ResetJournal();
    Data withoutApple;
    for (auto [number, name] : {std::pair {4, "Date"}, {5, "Elderberry"}, {3, "Sour cherry"}, {6, "Fig"}})
        withoutApple.Add(number, name);
    showList("list: the selected Apple removed (Sour cherry stays selected)", std::move(withoutApple));

    QM::TreeView tree {dialog, QM::Rect(10, 210, 190, 290)};
    QM::TreeView refilledTree {dialog, QM::Rect(200, 210, 390, 290)};
    NodeWriter nodeWriter;
    WZ::SmartTreeViewUpdater treeUpdater(tree, nodeWriter, nullptr);
    std::deque<Data> treeHistory;

    auto showTree = [&](const std::string& title, Data data) {
        Gallery::Step(out, title);
        treeHistory.push_back(std::move(data));
        auto result = treeUpdater.SetRootItems(treeHistory.back().AsForest());
        refilledTree.DeleteAllItems();
        RefillTree(refilledTree, QM::TreeView::RootItem, treeHistory.back().AsForest());
        result.RestoreExpandeds();
        if (!result.GetSelectedChain().IsEmpty()) {
            const char* names[] = {"SameItem", "Ancestor", "Nothing"};
            out << "selection restored: " << names[static_cast<int>(result.RestoreSelection())] << "\n";
        }
        Print(out, tree);
        Compare(out, tree, refilledTree);
    };
    auto pantry = [](bool withKale, const char* leekName, bool vegetablesFirst) {
        Data data;
        auto addFruit = [](Entry& node) {
            node.Add(1, "Apple");
            node.Add(3, "Cherry");
        };
        auto addVegetables = [&](Entry& node) {
            if (withKale)
                node.Add(21, "Kale");
            node.Add(22, leekName);
        };
        if (vegetablesFirst) {
            addVegetables(data.Add(20, "Vegetables"));
            addFruit(data.Add(10, "Fruit"));
        } else {
            addFruit(data.Add(10, "Fruit"));
            addVegetables(data.Add(20, "Vegetables"));
        }
        return data;
    };

    showTree("tree: first fill (then the user opens both folders)", pantry(true, "Leek", false));
    tree.SimulateUserExpand(treeUpdater.GetTreeViewItemId(NK::Guid::FromNumber(0x6A11, 10)));
    tree.SimulateUserExpand(treeUpdater.GetTreeViewItemId(NK::Guid::FromNumber(0x6A11, 20)));
    tree.ResetJournal();
    showTree("tree: Leek renamed (only its node is written)", pantry(true, "Leek (young)", false));
    showTree("tree: Vegetables moved first (subtrees rebuilt, expansion restored by id)",
             pantry(true, "Leek (young)", true));
    tree.SimulateUserSelectNode(treeUpdater.GetTreeViewItemId(NK::Guid::FromNumber(0x6A11, 21)));
    tree.ResetJournal();
    showTree("tree: the selected Kale removed (its parent is selected)", pantry(false, "Leek (young)", true));
}
