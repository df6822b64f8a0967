// The two comparisons of the library. Both pair items by id with a symbol table (linear in the
// lengths, no search for a longest common subsequence) and are pure functions of their inputs.
//
// Diffing: the k-th occurrence of an id in the new sequence pairs with its k-th occurrence in the
// old one; surplus occurrences are insertions or deletions. A pair whose objects differ and whose
// new item is not IsEqual to the old one marks its id changed, and every pair of a changed id is
// reported in `changed`. A paired item is moved when its new index is not its old index less the
// deletions before it plus the insertions before it (so a move may have from == to).
//
// TreeDiffing: Diffing of one level, then, for every paired item that did not move, the
// comparison of its children, kept as the item's update when it has changes.
#pragma once

#include "NK/NKArray.hpp"
#include "WZSources/Diff/WZDiffResult.hpp"
#include "WZSources/Diff/WZDiffable.hpp"

namespace WZ {

Diff::Result Diffing(const NK::Array<const Diffable*>& oldItems, const NK::Array<const Diffable*>& newItems);

Diff::TreeResult TreeDiffing(const NK::Array<const TreeDiffable*>& oldItems,
                             const NK::Array<const TreeDiffable*>& newItems);

}  // namespace WZ
