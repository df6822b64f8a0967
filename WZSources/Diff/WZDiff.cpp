#include "WZSources/Diff/WZDiff.hpp"

#include "WZSources/Diff/WZDiffPairing.hpp"

#include <vector>

namespace WZ {

Diff::Result Diffing(const NK::Array<const Diffable*>& oldItems, const NK::Array<const Diffable*>& newItems)
{
    return Diff::DiffingWithPairs(oldItems, newItems).result;
}

Diff::TreeResult TreeDiffing(const NK::Array<const TreeDiffable*>& oldItems,
                             const NK::Array<const TreeDiffable*>& newItems)
{
    Diff::PairedResult paired = Diff::DiffingWithPairs(oldItems, newItems);
    const Diff::Result& level = paired.result;
    const std::vector<NK::UInt32>& newIndexOfOld = paired.newIndexOfOld;

    Diff::TreeResult tree;
    for (NK::UInt64 index : level.inserted)
        tree.inserted.Add(index);
    for (NK::UInt64 index : level.deleted)
        tree.deleted.Add(index);
    tree.moved = level.moved;

    for (NK::UInt64 oldIndex : level.changed) {
        const auto newIndex = static_cast<NK::UInt64>(newIndexOfOld[oldIndex]);
        tree.updates.Put(newIndex, Diff::TreeResult::Update(true, nullptr));
    }

    // A moved item's subtree is rebuilt by the updater, so its children are not compared.
    std::vector<bool> movedAway(oldItems.GetSize(), false);
    for (const Diff::Move& move : level.moved)
        movedAway[move.from] = true;

    for (NK::UIndex oldIndex = 0; oldIndex < oldItems.GetSize(); ++oldIndex) {
        const NK::UInt32 newIndex = newIndexOfOld[oldIndex];
        if (newIndex == Diff::IdTable::NoIndex || movedAway[oldIndex])
            continue;
        const auto key = static_cast<NK::UInt64>(newIndex);
        Diff::TreeResult children = TreeDiffing(oldItems[oldIndex]->GetDiffableChildren(),
                                                newItems[key]->GetDiffableChildren());
        if (!children.HasChanges())
            continue;
        NK::Owner<Diff::TreeResult> subTree = NK::NewOwned<Diff::TreeResult>(std::move(children));
        if (Diff::TreeResult::Update* update = tree.updates.GetPtr(key))
            update->subTree = std::move(subTree);
        else
            tree.updates.Add(key, Diff::TreeResult::Update(false, std::move(subTree)));
    }
    return tree;
}

}  // namespace WZ
