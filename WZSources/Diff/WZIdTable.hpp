// WZ::Diff::IdTable: the ids met by one comparison, each numbered in order of first meeting,
// with the first index at which it occurs in the old and in the new sequence. Open addressing
// over a power-of-two slot array sized once for the most ids the comparison can meet, so that
// the table never grows; a slot keeps the upper hash bits beside the entry number, so a probe
// rarely looks at an entry that is not the one sought. Meeting more ids than announced costs a
// rehash, nothing else.
#pragma once

#include "NK/NKGuid.hpp"
#include "NK/NKTypes.hpp"

#include <cstring>
#include <memory>
#include <type_traits>
#include <vector>

namespace WZ::Diff {

class IdTable {
public:
    static constexpr NK::UInt32 NotFound = 0xFFFFFFFFu;
    // Indices are kept in 32 bits, which holds any list a control can show; NoIndex is none.
    static constexpr NK::UInt32 NoIndex = 0xFFFFFFFFu;

    struct Entry {
        NK::Guid id;
        NK::UInt32 firstOld = NoIndex;  // first index in the old sequence
        NK::UInt32 firstNew = NoIndex;  // first index in the new sequence
    };

    // Room for `maxIds` distinct ids without rehashing.
    explicit IdTable(NK::UIndex maxIds);

    NK::UIndex GetSize() const noexcept { return entries.size(); }
    Entry& operator[](NK::UInt32 number) noexcept { return entries[number]; }
    const Entry& operator[](NK::UInt32 number) const noexcept { return entries[number]; }

    NK::UInt32 FindOrAdd(const NK::Guid& id) { return FindOrAdd(id, HashOf(id)); }

    // The same with the id's HashOf already computed (after Prefetch, say).
    NK::UInt32 FindOrAdd(const NK::Guid& id, NK::UInt64 hash)
    {
        const NK::UInt64 tag = hash & TagMask;
        for (NK::UIndex slot = static_cast<NK::UIndex>(hash) & mask;; slot = (slot + 1) & mask) {
            const NK::UInt64 content = slots[slot];
            if (content == 0) {
                if (entries.size() >= limit) {
                    Grow();
                    return FindOrAdd(id, hash);
                }
                const auto number = static_cast<NK::UInt32>(entries.size());
                entries.push_back(Entry {id});
                slots[slot] = tag | (NK::UInt64 {number} + 1);
                return number;
            }
            if ((content & TagMask) == tag && SameId(entries[static_cast<NK::UInt32>(content) - 1].id, id))
                return static_cast<NK::UInt32>(content) - 1;
        }
    }

    NK::UInt32 Find(const NK::Guid& id) const
    {
        if (entries.empty())
            return NotFound;
        const NK::UInt64 hash = HashOf(id);
        const NK::UInt64 tag = hash & TagMask;
        for (NK::UIndex slot = static_cast<NK::UIndex>(hash) & mask;; slot = (slot + 1) & mask) {
            const NK::UInt64 content = slots[slot];
            if (content == 0)
                return NotFound;
            if ((content & TagMask) == tag && SameId(entries[static_cast<NK::UInt32>(content) - 1].id, id))
                return static_cast<NK::UInt32>(content) - 1;
        }
    }

    // Asks the processor to fetch the slot where a lookup of the hash starts. Lookups in a large
    // table miss the cache; fetching a batch of slots before looking them up overlaps the misses.
    void Prefetch(NK::UInt64 hash) const noexcept { __builtin_prefetch(&slots[static_cast<NK::UIndex>(hash) & mask]); }

    static NK::UInt64 HashOf(const NK::Guid& id) noexcept
    {
        static_assert(sizeof(NK::Guid) == 16 && std::is_trivially_copyable_v<NK::Guid>);
        NK::UInt64 halves[2];
        std::memcpy(halves, &id, sizeof halves);
        NK::UInt64 h = halves[0] * 0x9E3779B97F4A7C15ULL ^ halves[1];
        h ^= h >> 32;
        h *= 0xD6E8FEB86659FD93ULL;
        h ^= h >> 32;
        return h;
    }

private:
    // Equality by the 16 bytes at once; NK::Guid's own operator compares field by field.
    static bool SameId(const NK::Guid& a, const NK::Guid& b) noexcept
    {
        NK::UInt64 x[2];
        NK::UInt64 y[2];
        std::memcpy(x, &a, sizeof x);
        std::memcpy(y, &b, sizeof y);
        return ((x[0] ^ y[0]) | (x[1] ^ y[1])) == 0;
    }

    static constexpr NK::UInt64 TagMask = 0xFFFFFFFF00000000ULL;

    void Allocate(NK::UIndex maxIds);
    void Grow();

    NK::UIndex mask = 0;
    NK::UIndex limit = 0;  // entries that fit before the table is too full
    std::unique_ptr<NK::UInt64[]> slots;
    std::vector<Entry> entries;
};

}  // namespace WZ::Diff
