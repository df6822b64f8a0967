#include "WZSources/Diff/WZDiff.hpp"

#include "WZSources/Diff/WZDiffPairing.hpp"
#include "WZSources/Diff/WZTreeChildren.hpp"

#include <vector>

namespace WZ {

Diff::Result Diffing(const NK::Array<const Diffable*>& oldItems, const NK::Array<const Diffable*>& newItems)
{
    return Diff::DiffingWithPairs(oldItems, newItems).result;
}

namespace {

// One level still to compare: its result and the two item arrays.
struct PendingLevel {
    Diff::TreeResult* result;
    NK::Array<const TreeDiffable*> oldItems;
    NK::Array<const TreeDiffable*> newItems;
};

// A nested result created for the update under `key` of `parent`, kept only if it has changes.
struct NestedLevel {
    Diff::TreeResult* parent;
    NK::UInt64 key;
};

// Queues the comparison of the children of the paired items old `oldIndex` and new `newIndex`,
// unless both have none.
void QueueChildren(Diff::TreeResult& tree, const TreeDiffable& oldItem, const TreeDiffable& newItem,
                   NK::UInt64 oldIndex, NK::UInt64 newIndex, std::vector<PendingLevel>& pending,
                   std::vector<NestedLevel>& nested)
{
    NK::Array<const TreeDiffable*> oldChildren = Diff::ChildrenOf(oldItem);
    NK::Array<const TreeDiffable*> newChildren = Diff::ChildrenOf(newItem);
    if (oldChildren.IsEmpty() && newChildren.IsEmpty())
        return;
    Diff::TreeResult::Update* update = tree.updates.GetPtr(newIndex);
    if (update == nullptr) {
        tree.updates.Add(newIndex, Diff::TreeResult::Update(false, nullptr, oldIndex));
        update = tree.updates.GetPtr(newIndex);
    }
    update->subTree = NK::NewOwned<Diff::TreeResult>();
    pending.push_back({update->subTree.Get(), std::move(oldChildren), std::move(newChildren)});
    nested.push_back({&tree, newIndex});
}

// A level whose ids are the same in the same order, the usual case below an unchanged item:
// every item pairs with the one at its own index, nothing is inserted, deleted or moved, so the
// comparison is the content test alone (an id counts as changed when any of its pairs differs).
bool CompareAlignedLevel(Diff::TreeResult& tree, const NK::Array<const TreeDiffable*>& oldItems,
                         const NK::Array<const TreeDiffable*>& newItems, std::vector<PendingLevel>& pending,
                         std::vector<NestedLevel>& nested)
{
    const NK::UIndex count = oldItems.GetSize();
    if (newItems.GetSize() != count)
        return false;
    std::vector<NK::Guid> ids(count);
    for (NK::UIndex index = 0; index < count; ++index) {
        ids[index] = newItems[index]->GetId();
        if (oldItems[index]->GetId() != ids[index])
            return false;
    }
    NK::HashSet<NK::Guid> changedIds;
    for (NK::UIndex index = 0; index < count; ++index) {
        const Diffable* oldItem = oldItems[index];
        const Diffable* newItem = newItems[index];
        if (oldItem != newItem && !newItem->IsEqual(*oldItem))
            changedIds.Add(ids[index]);
    }
    if (!changedIds.IsEmpty())
        for (NK::UIndex index = 0; index < count; ++index)
            if (changedIds.Contains(ids[index]))
                tree.updates.Add(index, Diff::TreeResult::Update(true, nullptr, index));
    for (NK::UIndex index = 0; index < count; ++index)
        QueueChildren(tree, *oldItems[index], *newItems[index], index, index, pending, nested);
    return true;
}

// Fills `tree` with the comparison of one level; queues the children of every paired, unmoved
// item that has children on either side.
void CompareLevel(Diff::TreeResult& tree, const NK::Array<const TreeDiffable*>& oldItems,
                  const NK::Array<const TreeDiffable*>& newItems, std::vector<PendingLevel>& pending,
                  std::vector<NestedLevel>& nested)
{
    if (CompareAlignedLevel(tree, oldItems, newItems, pending, nested))
        return;
    Diff::PairedResult paired = Diff::DiffingWithPairs(oldItems, newItems);
    const Diff::Result& level = paired.result;
    const std::vector<NK::UInt32>& newIndexOfOld = paired.newIndexOfOld;

    for (NK::UInt64 index : level.inserted)
        tree.inserted.Add(index);
    for (NK::UInt64 index : level.deleted)
        tree.deleted.Add(index);
    tree.moved = level.moved;

    for (NK::UInt64 oldIndex : level.changed) {
        const auto newIndex = static_cast<NK::UInt64>(newIndexOfOld[oldIndex]);
        tree.updates.Put(newIndex, Diff::TreeResult::Update(true, nullptr, oldIndex));
    }

    // A moved item's subtree is rebuilt by the updater, so its children are not compared.
    std::vector<bool> movedAway(oldItems.GetSize(), false);
    for (const Diff::Move& move : level.moved)
        movedAway[move.from] = true;

    for (NK::UIndex oldIndex = 0; oldIndex < oldItems.GetSize(); ++oldIndex) {
        const NK::UInt32 newIndex = newIndexOfOld[oldIndex];
        if (newIndex == Diff::IdTable::NoIndex || movedAway[oldIndex])
            continue;
        QueueChildren(tree, *oldItems[oldIndex], *newItems[newIndex], oldIndex, newIndex, pending, nested);
    }
}

}  // namespace

Diff::TreeResult TreeDiffing(const NK::Array<const TreeDiffable*>& oldItems,
                             const NK::Array<const TreeDiffable*>& newItems)
{
    // Every level is compared from an explicit stack, then the nested results without changes
    // are dropped, deepest first, so that trees of any depth are handled.
    Diff::TreeResult tree;
    std::vector<PendingLevel> pending;
    std::vector<NestedLevel> nested;
    pending.push_back({&tree, oldItems, newItems});
    Diff::DropNullItems(pending.back().oldItems);
    Diff::DropNullItems(pending.back().newItems);
    while (!pending.empty()) {
        PendingLevel level = std::move(pending.back());
        pending.pop_back();
        CompareLevel(*level.result, level.oldItems, level.newItems, pending, nested);
    }

    // A nested result is created after its parent's, so walking backwards meets it first.
    for (auto it = nested.rbegin(); it != nested.rend(); ++it) {
        Diff::TreeResult::Update& update = it->parent->updates.Get(it->key);
        if (update.subTree->HasChanges())
            continue;
        update.subTree = nullptr;
        if (!update.itemChanged)
            it->parent->updates.Delete(it->key);
    }
    return tree;
}

}  // namespace WZ
