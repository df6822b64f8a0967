// The records a comparison returns. Diff::Result describes a flat sequence: which new indices
// were inserted, which old indices were deleted or changed content, which pairs moved, and the
// id of every index of both sequences. Diff::TreeResult describes one level of a tree, with
// nested results for the paired, unmoved items whose children differ.
//
// The sets of Diff::Result iterate in the order in which the comparison adds their members:
// `deleted` by ascending old index; `inserted`, `moved` and `changed` by ascending new index (so
// `changed`, which holds old indices, is ascending too unless items moved). The updaters walk
// them relying on it. They are arrays in that order (WZIndexSet.hpp): a comparison of a million
// items fills them without hashing.
#pragma once

#include "NK/NKArray.hpp"
#include "NK/NKHashTable.hpp"
#include "NK/NKPointers.hpp"
#include "NK/NKSkipMap.hpp"
#include "NK/NKTypes.hpp"
#include "WZSources/Diff/WZIndexMap.hpp"
#include "WZSources/Diff/WZIndexSet.hpp"

#include <vector>

namespace WZ::Diff {

// A paired item whose new index is not the one that the insertions and deletions before it give.
struct Move {
    NK::UInt64 from = 0;  // index in the old sequence
    NK::UInt64 to = 0;    // index in the new sequence

    bool operator==(const Move& other) const noexcept { return from == other.from && to == other.to; }
    // Both halves of both indices summed in 32-bit wrap-around arithmetic, `to` weighted by 65599.
    NK::UInt32 GenerateHashValue() const noexcept;
};

// Moves by new index, then old index: the order in which a comparison finds them.
struct MoveOrder {
    bool operator()(const Move& a, const Move& b) const noexcept
    {
        return a.to != b.to ? a.to < b.to : a.from < b.from;
    }
};

struct Result {
    IndexSet<NK::UInt64> inserted;  // new indices without an old counterpart
    IndexSet<NK::UInt64> deleted;   // old indices without a new counterpart
    IndexSet<NK::UInt64> changed;   // old indices of paired items whose id's content differs
    IndexSet<Move, MoveOrder> moved;
    IndexMap oldIndexMap;
    IndexMap newIndexMap;

    bool HasChanges() const noexcept;
};

// Results nest as deep as the compared trees; copying and destruction walk them with explicit
// stacks, so that a chain of any depth is handled.
struct TreeResult {
    struct Update {
        bool itemChanged = false;          // the item's own content differs
        NK::Owner<TreeResult> subTree;     // the comparison of its children; null when they are alike
        NK::UInt64 oldIndex = 0;           // the index of the item's partner in the old sequence

        Update() = default;
        Update(bool itemChanged, NK::Owner<TreeResult> subTree, NK::UInt64 oldIndex = 0);
        Update(const Update& other);
        Update& operator=(const Update& other);
        Update(Update&&) noexcept = default;
        Update& operator=(Update&&) noexcept = default;
        ~Update();
    };

    NK::SkipSet<NK::UInt64> inserted;              // new indices on this level
    NK::SkipSet<NK::UInt64> deleted;               // old indices on this level
    NK::SkipMap<NK::UInt64, Update> updates;       // by new index
    NK::HashSet<Move> moved;

    TreeResult() = default;
    TreeResult(const TreeResult& other);
    TreeResult(TreeResult&& other) noexcept = default;
    TreeResult& operator=(const TreeResult& other);
    TreeResult& operator=(TreeResult&& other) noexcept = default;
    ~TreeResult();

    bool HasChanges() const noexcept;

private:
    // Moves every nested result out of `result` into `pending`.
    static void TakeSubTrees(TreeResult& result, NK::Array<NK::Owner<TreeResult>>& pending);
};

}  // namespace WZ::Diff
