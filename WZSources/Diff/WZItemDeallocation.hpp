// WZ::DeallocateOnceExcept: the rule by which both smart updaters free the items they let go.
// Each item object of `released` is passed to `deallocate` once, however often it is listed,
// and never when it is also in `kept` (an item shown again stays the updater's, not freed).
#pragma once

#include "NK/NKArray.hpp"
#include "NK/NKHashTable.hpp"

namespace WZ {

template <typename Item, typename Deallocate>
void DeallocateOnceExcept(const NK::Array<const Item*>& released, const NK::Array<const Item*>& kept,
                          Deallocate&& deallocate)
{
    if (released.IsEmpty())
        return;
    NK::HashSet<const Item*> done;
    done.EnsureSize(kept.GetSize() + released.GetSize());
    for (const Item* item : kept)
        done.Add(item);
    for (const Item* item : released)
        if (done.Add(item))
            deallocate(item);
}

}  // namespace WZ
