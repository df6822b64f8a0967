#include "WZSources/Diff/WZDiffPairing.hpp"

#include "WZSources/Diff/WZIdTable.hpp"

#include <algorithm>
#include <memory>

namespace WZ::Diff {

namespace {

using NK::Int64;
using NK::UIndex;
using NK::UInt32;
using NK::UInt64;

constexpr UInt32 NoSpill = 0xFFFFFFFFu;

// Ids are looked up in batches: the ids and hashes of a batch first, with their slots fetched,
// then the lookups, so that the cache misses of a large table overlap instead of queueing.
constexpr UIndex BatchSize = 16;

// Calls `visit(position, entry number)` for every position of `order` (a callable giving the
// position of step k), looking each item's id up in (or adding it to) the table.
template <typename Item, typename Order, typename Visit>
void LookUpAll(IdTable& table, const Item* const* items, UIndex count, Order order, Visit visit)
{
    NK::Guid ids[BatchSize];
    UInt64 hashes[BatchSize];
    for (UIndex start = 0; start < count; start += BatchSize) {
        const UIndex size = std::min(BatchSize, count - start);
        for (UIndex k = 0; k < size; ++k) {
            ids[k] = items[order(start + k)]->GetId();
            hashes[k] = IdTable::HashOf(ids[k]);
            table.Prefetch(hashes[k]);
        }
        for (UIndex k = 0; k < size; ++k)
            visit(order(start + k), table.FindOrAdd(ids[k], hashes[k]));
    }
}

// The stack of pending old indices of one id. It sits on top of one -1 marker per new
// occurrence; the markers are implicit (popping an empty stack gives -1). The smallest pending
// index is kept inline and only the ones below it go to a shared overflow, so an id that occurs
// once costs no allocation of its own.
struct PendingStack {
    Int64 top = -1;
    UInt32 pending = 0;
    UInt32 spill = NoSpill;
    bool changed = false;  // some pair of the id differs in content
};

struct SpillNode {
    Int64 index;
    UInt32 next;
};

class PendingStacks {
public:
    explicit PendingStacks(UIndex ids) : stacks(ids) {}

    PendingStack& operator[](UInt32 number)
    {
        if (number >= stacks.size())
            stacks.resize(number + 1);
        return stacks[number];
    }

    void Push(PendingStack& stack, Int64 oldIndex)
    {
        if (stack.pending > 0) {
            spilled.push_back(SpillNode {stack.top, stack.spill});
            stack.spill = static_cast<UInt32>(spilled.size() - 1);
        }
        stack.top = oldIndex;
        ++stack.pending;
    }

    Int64 Pop(PendingStack& stack)
    {
        if (stack.pending == 0)
            return -1;
        const Int64 index = stack.top;
        if (--stack.pending > 0) {
            const SpillNode& below = spilled[stack.spill];
            stack.top = below.index;
            stack.spill = below.next;
        }
        return index;
    }

private:
    std::vector<PendingStack> stacks;
    std::vector<SpillNode> spilled;
};

// Both index maps of a result where one side is empty: every item is inserted or deleted.
template <typename Item>
void FillOneSide(const NK::Array<const Item*>& items, IndexMap::Side side, IndexMap& indexMap,
                 NK::HashSet<UInt64>& indices)
{
    const UIndex count = items.GetSize();
    auto table = std::make_shared<IdTable>(count);
    std::vector<UInt32> entryOfIndex(count);
    indices.EnsureSize(count);
    for (UIndex i = 0; i < count; ++i) {
        const UInt32 number = table->FindOrAdd(items[i]->GetId());
        IdTable::Entry& entry = (*table)[number];
        Int64& first = side == IndexMap::Side::Old ? entry.firstOld : entry.firstNew;
        if (first < 0)
            first = static_cast<Int64>(i);
        entryOfIndex[i] = number;
        indices.Add(i);
    }
    indexMap = IndexMap(std::move(table), side, std::move(entryOfIndex));
}

template <typename Item>
PairedResult Compare(const NK::Array<const Item*>& oldItems, const NK::Array<const Item*>& newItems)
{
    PairedResult out;
    Result& result = out.result;
    const UIndex oldCount = oldItems.GetSize();
    const UIndex newCount = newItems.GetSize();

    if (newCount == 0) {
        FillOneSide(oldItems, IndexMap::Side::Old, result.oldIndexMap, result.deleted);
        out.newIndexOfOld.assign(oldCount, -1);
        return out;
    }
    if (oldCount == 0) {
        FillOneSide(newItems, IndexMap::Side::New, result.newIndexMap, result.inserted);
        return out;
    }

    const Item* const* oldContent = oldItems.GetContent();
    const Item* const* newContent = newItems.GetContent();

    // Sized for lists that mostly share their ids; the table grows when they do not.
    auto table = std::make_shared<IdTable>(std::max(oldCount, newCount) + std::min(oldCount, newCount) / 8);
    std::vector<UInt32> newEntry(newCount);
    std::vector<UInt32> oldEntry(oldCount);

    LookUpAll(*table, newContent, newCount, [](UIndex k) { return k; }, [&](UIndex i, UInt32 number) {
        IdTable::Entry& entry = (*table)[number];
        if (entry.firstNew < 0)
            entry.firstNew = static_cast<Int64>(i);
        newEntry[i] = number;
    });
    // Descending, so that the top of every stack is the smallest old index not yet paired.
    PendingStacks stacks(table->GetSize());
    LookUpAll(*table, oldContent, oldCount, [oldCount](UIndex k) { return oldCount - 1 - k; },
              [&](UIndex j, UInt32 number) {
                  (*table)[number].firstOld = static_cast<Int64>(j);
                  stacks.Push(stacks[number], static_cast<Int64>(j));
                  oldEntry[j] = number;
              });

    std::vector<Int64> oldOfNew(newCount, -1);
    std::vector<Int64>& newOfOld = out.newIndexOfOld;
    newOfOld.assign(oldCount, -1);
    UIndex pairs = 0;
    for (UIndex i = 0; i < newCount; ++i) {
        PendingStack& stack = stacks[newEntry[i]];
        const Int64 j = stacks.Pop(stack);
        if (j < 0)
            continue;
        const Diffable& newItem = *newContent[i];
        const Diffable& oldItem = *oldContent[j];
        if (&newItem != &oldItem && !newItem.IsEqual(oldItem))
            stack.changed = true;
        oldOfNew[i] = j;
        newOfOld[static_cast<UIndex>(j)] = static_cast<Int64>(i);
        ++pairs;
    }

    // deletedBefore[j]: the unpaired old items before j.
    std::vector<UInt64> deletedBefore(oldCount);
    result.deleted.EnsureSize(oldCount - pairs);
    UInt64 deletions = 0;
    for (UIndex j = 0; j < oldCount; ++j) {
        deletedBefore[j] = deletions;
        if (newOfOld[j] < 0) {
            result.deleted.Add(j);
            ++deletions;
        }
    }

    result.inserted.EnsureSize(newCount - pairs);
    UInt64 insertions = 0;
    for (UIndex i = 0; i < newCount; ++i) {
        const Int64 j = oldOfNew[i];
        if (j < 0) {
            result.inserted.Add(i);
            ++insertions;
            continue;
        }
        const auto from = static_cast<UInt64>(j);
        if (stacks[newEntry[i]].changed)
            result.changed.Add(from);
        if (from - deletedBefore[from] + insertions != i)
            result.moved.Add(Move {from, i});
    }

    result.oldIndexMap = IndexMap(table, IndexMap::Side::Old, std::move(oldEntry));
    result.newIndexMap = IndexMap(std::move(table), IndexMap::Side::New, std::move(newEntry));
    return out;
}

}  // namespace

PairedResult DiffingWithPairs(const NK::Array<const Diffable*>& oldItems, const NK::Array<const Diffable*>& newItems)
{
    return Compare(oldItems, newItems);
}

PairedResult DiffingWithPairs(const NK::Array<const TreeDiffable*>& oldItems,
                              const NK::Array<const TreeDiffable*>& newItems)
{
    return Compare(oldItems, newItems);
}

}  // namespace WZ::Diff
