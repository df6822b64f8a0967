#include "WZSources/Diff/WZDiffPairing.hpp"

#include <cstring>
#include <memory>
#include <type_traits>

namespace WZ::Diff {

namespace {

using NK::Int64;
using NK::UIndex;
using NK::UInt32;
using NK::UInt64;

static_assert(sizeof(NK::Guid) == 16 && std::is_trivially_copyable_v<NK::Guid>,
              "the symbol table hashes a Guid by its 16 bytes");

constexpr UInt32 NoSpill = 0xFFFFFFFFu;

// One id of the symbol table. The stack of pending old indices sits on top of one -1 marker per
// new occurrence; the markers are implicit (popping an empty stack gives -1). The smallest
// pending index is kept inline and only the ones below it go to the table's shared overflow, so
// an id that occurs once costs no allocation of its own.
struct SymbolEntry {
    NK::Guid id;
    Int64 top = -1;
    UInt32 pending = 0;
    UInt32 spill = NoSpill;
    UInt32 oldCount = 0;
    UInt32 newCount = 0;
    bool changed = false;
};

struct SpillNode {
    Int64 index;
    UInt32 next;
};

UInt64 HashOf(const NK::Guid& id) noexcept
{
    UInt64 halves[2];
    std::memcpy(halves, &id, sizeof halves);
    UInt64 h = halves[0] * 0x9E3779B97F4A7C15ULL ^ halves[1];
    h ^= h >> 32;
    h *= 0xD6E8FEB86659FD93ULL;
    h ^= h >> 32;
    return h;
}

// Open addressing with linear probing over a power-of-two slot array, sized once for every id
// the two sequences can bring. A slot holds the upper hash bits beside the entry number, so a
// probe rarely has to look at an entry that is not the one sought.
class SymbolTable {
public:
    explicit SymbolTable(UIndex maxIds)
    {
        UIndex capacity = 16;
        while (capacity < maxIds + maxIds / 3)
            capacity <<= 1;
        mask = capacity - 1;
        slots = std::make_unique<UInt64[]>(capacity);
        entries.reserve(maxIds);
    }

    UInt32 FindOrAdd(const NK::Guid& id)
    {
        const UInt64 hash = HashOf(id);
        const UInt64 tag = hash & 0xFFFFFFFF00000000ULL;
        for (UIndex slot = static_cast<UIndex>(hash) & mask;; slot = (slot + 1) & mask) {
            const UInt64 content = slots[slot];
            if (content == 0) {
                entries.push_back(SymbolEntry {id});
                const auto number = static_cast<UInt32>(entries.size() - 1);
                slots[slot] = tag | (UInt64 {number} + 1);
                return number;
            }
            if ((content & 0xFFFFFFFF00000000ULL) == tag) {
                const auto number = static_cast<UInt32>(content) - 1;
                if (entries[number].id == id)
                    return number;
            }
        }
    }

    SymbolEntry& operator[](UInt32 number) { return entries[number]; }

    void Push(SymbolEntry& entry, Int64 oldIndex)
    {
        if (entry.pending > 0) {
            spilled.push_back(SpillNode {entry.top, entry.spill});
            entry.spill = static_cast<UInt32>(spilled.size() - 1);
        }
        entry.top = oldIndex;
        ++entry.pending;
    }

    Int64 Pop(SymbolEntry& entry)
    {
        if (entry.pending == 0)
            return -1;
        const Int64 index = entry.top;
        if (--entry.pending > 0) {
            const SpillNode& below = spilled[entry.spill];
            entry.top = below.index;
            entry.spill = below.next;
        }
        return index;
    }

private:
    UIndex mask = 0;
    std::unique_ptr<UInt64[]> slots;
    std::vector<SymbolEntry> entries;
    std::vector<SpillNode> spilled;
};

template <typename Item>
void FillEverything(const NK::Array<const Item*>& items, IndexMap& indexMap, NK::HashSet<UInt64>& indices)
{
    const UIndex count = items.GetSize();
    indexMap.Reserve(count);
    indices.EnsureSize(count);
    for (UIndex i = 0; i < count; ++i) {
        indexMap.Add(static_cast<Int64>(i), items[i]->GetId());
        indices.Add(i);
    }
}

template <typename Item>
PairedResult Compare(const NK::Array<const Item*>& oldItems, const NK::Array<const Item*>& newItems)
{
    PairedResult out;
    Result& result = out.result;
    const UIndex oldCount = oldItems.GetSize();
    const UIndex newCount = newItems.GetSize();

    if (newCount == 0) {
        FillEverything(oldItems, result.oldIndexMap, result.deleted);
        out.newIndexOfOld.assign(oldCount, -1);
        return out;
    }
    if (oldCount == 0) {
        FillEverything(newItems, result.newIndexMap, result.inserted);
        return out;
    }

    const Item* const* oldContent = oldItems.GetContent();
    const Item* const* newContent = newItems.GetContent();

    SymbolTable table(oldCount + newCount);
    std::vector<UInt32> newEntry(newCount);
    std::vector<UInt32> oldEntry(oldCount);
    std::vector<Int64> oldOfNew(newCount, -1);
    std::vector<Int64>& newOfOld = out.newIndexOfOld;
    newOfOld.assign(oldCount, -1);

    for (UIndex i = 0; i < newCount; ++i) {
        const UInt32 number = table.FindOrAdd(newContent[i]->GetId());
        ++table[number].newCount;
        newEntry[i] = number;
    }
    // Descending, so that the top of every stack is the smallest old index not yet paired.
    for (UIndex j = oldCount; j-- > 0;) {
        const UInt32 number = table.FindOrAdd(oldContent[j]->GetId());
        SymbolEntry& entry = table[number];
        ++entry.oldCount;
        table.Push(entry, static_cast<Int64>(j));
        oldEntry[j] = number;
    }

    UIndex pairs = 0;
    for (UIndex i = 0; i < newCount; ++i) {
        SymbolEntry& entry = table[newEntry[i]];
        const Int64 j = table.Pop(entry);
        if (j < 0)
            continue;
        const Diffable& newItem = *newContent[i];
        const Diffable& oldItem = *oldContent[j];
        if (&newItem != &oldItem && !newItem.IsEqual(oldItem))
            entry.changed = true;
        oldOfNew[i] = j;
        newOfOld[static_cast<UIndex>(j)] = static_cast<Int64>(i);
        ++pairs;
    }

    // deletedBefore[j]: unpaired old items before j.
    std::vector<UInt64> deletedBefore(oldCount);
    result.deleted.EnsureSize(oldCount - pairs);
    result.oldIndexMap.Reserve(oldCount);
    UInt64 deletions = 0;
    for (UIndex j = 0; j < oldCount; ++j) {
        deletedBefore[j] = deletions;
        if (newOfOld[j] < 0) {
            result.deleted.Add(j);
            ++deletions;
        }
        result.oldIndexMap.Add(static_cast<Int64>(j), table[oldEntry[j]].id);
    }

    result.inserted.EnsureSize(newCount - pairs);
    result.newIndexMap.Reserve(newCount);
    UInt64 insertions = 0;
    for (UIndex i = 0; i < newCount; ++i) {
        const SymbolEntry& entry = table[newEntry[i]];
        const Int64 j = oldOfNew[i];
        if (j < 0) {
            result.inserted.Add(i);
            ++insertions;
        } else {
            const auto from = static_cast<UInt64>(j);
            if (entry.changed)
                result.changed.Add(from);
            if (from - deletedBefore[from] + insertions != i)
                result.moved.Add(Move {from, i});
        }
        result.newIndexMap.Add(static_cast<Int64>(i), entry.id);
    }
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
