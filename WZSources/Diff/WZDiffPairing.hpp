// The sequence comparison behind Diffing and TreeDiffing, also handing out the pairing itself:
// for every old index, the new index of its partner (IdTable::NoIndex when the old item was
// deleted). Lists must hold fewer than 2^32 - 1 items; longer ones throw std::length_error. The tree
// comparison uses it to find the partner of each paired item without going through the ids.
#pragma once

#include "NK/NKArray.hpp"
#include "NK/NKTypes.hpp"
#include "WZSources/Diff/WZDiffResult.hpp"
#include "WZSources/Diff/WZDiffable.hpp"
#include "WZSources/Diff/WZIdTable.hpp"

#include <vector>

namespace WZ::Diff {

struct PairedResult {
    Result result;
    std::vector<NK::UInt32> newIndexOfOld;
};

PairedResult DiffingWithPairs(const NK::Array<const Diffable*>& oldItems, const NK::Array<const Diffable*>& newItems);
PairedResult DiffingWithPairs(const NK::Array<const TreeDiffable*>& oldItems,
                              const NK::Array<const TreeDiffable*>& newItems);

}  // namespace WZ::Diff
