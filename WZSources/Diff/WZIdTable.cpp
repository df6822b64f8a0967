#include "WZSources/Diff/WZIdTable.hpp"

namespace WZ::Diff {

IdTable::IdTable(NK::UIndex maxIds)
{
    Allocate(maxIds);
    entries.reserve(maxIds);
}

void IdTable::Allocate(NK::UIndex maxIds)
{
    // At most three quarters full, so that probe runs stay short.
    NK::UIndex capacity = 16;
    while (capacity < maxIds + maxIds / 3)
        capacity <<= 1;
    mask = capacity - 1;
    limit = capacity - capacity / 4;
    slots = std::make_unique<NK::UInt64[]>(capacity);
}

void IdTable::Grow()
{
    Allocate(limit * 2);
    for (NK::UIndex number = 0; number < entries.size(); ++number) {
        NK::UIndex slot = static_cast<NK::UIndex>(HashOf(entries[number].id)) & mask;
        while (slots[slot] != 0)
            slot = (slot + 1) & mask;
        slots[slot] = (HashOf(entries[number].id) & TagMask) | (NK::UInt64 {number} + 1);
    }
}

}  // namespace WZ::Diff
