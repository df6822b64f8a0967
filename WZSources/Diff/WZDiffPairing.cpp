#include "WZSources/Diff/WZDiffPairing.hpp"

#include "NK/NKAssert.hpp"

#include <algorithm>
#include <memory>
#include <stdexcept>

namespace WZ::Diff {

namespace {

using NK::UIndex;
using NK::UInt32;
using NK::UInt64;

constexpr UInt32 NoIndex = IdTable::NoIndex;

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

// The pending old indices of every id: a stack whose top is the smallest old index of the id not
// yet paired, above one implicit -1 marker per new occurrence (popping an empty stack gives
// NoIndex). The top is kept per id; the indices below it are the id's later old occurrences,
// chained through one shared array indexed by old index. An id that occurs once therefore costs
// one inline slot and nothing else.
class PendingOldIndices {
public:
    PendingOldIndices(UIndex ids, UIndex oldCount) : top(ids, NoIndex), below(oldCount, NoIndex) {}

    // Pushes an old index; pushed in descending order, the stack pops them ascending.
    void Push(UInt32 entry, UInt32 oldIndex)
    {
        if (entry >= top.size())
            top.resize(entry + 1, NoIndex);
        below[oldIndex] = top[entry];
        top[entry] = oldIndex;
    }

    UInt32 Pop(UInt32 entry)
    {
        if (entry >= top.size())
            return NoIndex;
        const UInt32 oldIndex = top[entry];
        if (oldIndex != NoIndex)
            top[entry] = below[oldIndex];
        return oldIndex;
    }

private:
    std::vector<UInt32> top;
    std::vector<UInt32> below;
};

void CheckLength(UIndex count)
{
    if (!NK_PRECOND(count < NoIndex))
        throw std::length_error("WZ::Diffing: a list of 2^32 - 1 items or more");
}

// The index map and index set of a result where the other side is empty.
template <typename Item>
void FillOneSide(const NK::Array<const Item*>& items, IndexMap::Side side, IndexMap& indexMap,
                 IndexSet<UInt64>& indices)
{
    const UIndex count = items.GetSize();
    auto table = std::make_shared<IdTable>(count);
    std::vector<UInt32> entryOfIndex(count);
    indices.EnsureSize(count);
    LookUpAll(*table, items.GetContent(), count, [](UIndex k) { return k; }, [&](UIndex i, UInt32 number) {
        IdTable::Entry& entry = (*table)[number];
        UInt32& first = side == IndexMap::Side::Old ? entry.firstOld : entry.firstNew;
        if (first == NoIndex)
            first = static_cast<UInt32>(i);
        entryOfIndex[i] = number;
    });
    for (UIndex i = 0; i < count; ++i)
        indices.Append(i);
    indexMap = IndexMap(std::move(table), side, std::move(entryOfIndex));
}

template <typename Item>
PairedResult Compare(const NK::Array<const Item*>& oldItems, const NK::Array<const Item*>& newItems)
{
    PairedResult out;
    Result& result = out.result;
    const UIndex oldCount = oldItems.GetSize();
    const UIndex newCount = newItems.GetSize();
    CheckLength(oldCount);
    CheckLength(newCount);

    if (newCount == 0) {
        FillOneSide(oldItems, IndexMap::Side::Old, result.oldIndexMap, result.deleted);
        out.newIndexOfOld.assign(oldCount, NoIndex);
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
        if (entry.firstNew == NoIndex)
            entry.firstNew = static_cast<UInt32>(i);
        newEntry[i] = number;
    });
    // Descending, so that the top of every stack is the smallest old index not yet paired.
    PendingOldIndices pending(table->GetSize(), oldCount);
    LookUpAll(*table, oldContent, oldCount, [oldCount](UIndex k) { return oldCount - 1 - k; },
              [&](UIndex j, UInt32 number) {
                  (*table)[number].firstOld = static_cast<UInt32>(j);
                  pending.Push(number, static_cast<UInt32>(j));
                  oldEntry[j] = number;
              });

    // The content flag belongs to the id: one unequal pair marks every pair of it changed.
    std::vector<bool> changedId(table->GetSize(), false);
    std::vector<UInt32> oldOfNew(newCount, NoIndex);
    std::vector<UInt32>& newOfOld = out.newIndexOfOld;
    newOfOld.assign(oldCount, NoIndex);
    UIndex pairs = 0;
    for (UIndex i = 0; i < newCount; ++i) {
        const UInt32 j = pending.Pop(newEntry[i]);
        if (j == NoIndex)
            continue;
        const Diffable& newItem = *newContent[i];
        const Diffable& oldItem = *oldContent[j];
        if (&newItem != &oldItem && !newItem.IsEqual(oldItem))
            changedId[newEntry[i]] = true;
        oldOfNew[i] = j;
        newOfOld[j] = static_cast<UInt32>(i);
        ++pairs;
    }

    // deletedBefore[j]: the unpaired old items before j.
    std::vector<UInt32> deletedBefore(oldCount);
    result.deleted.EnsureSize(oldCount - pairs);
    UInt32 deletions = 0;
    for (UIndex j = 0; j < oldCount; ++j) {
        deletedBefore[j] = deletions;
        if (newOfOld[j] == NoIndex) {
            result.deleted.Append(j);
            ++deletions;
        }
    }

    result.inserted.EnsureSize(newCount - pairs);
    UInt64 insertions = 0;
    for (UIndex i = 0; i < newCount; ++i) {
        const UInt32 j = oldOfNew[i];
        if (j == NoIndex) {
            result.inserted.Append(i);
            ++insertions;
            continue;
        }
        if (changedId[newEntry[i]])
            result.changed.Append(j);
        if (j - deletedBefore[j] + insertions != i)
            result.moved.Append(Move {j, i});
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
