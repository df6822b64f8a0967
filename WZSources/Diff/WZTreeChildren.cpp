#define NK_SOURCE_PATH "WZSources\\Diff\\WZTreeChildren"

#include "WZSources/Diff/WZTreeChildren.hpp"

#include "NK/NKAssert.hpp"

#include <algorithm>

namespace WZ::Diff {

void DropNullItems(NK::Array<const TreeDiffable*>& items)
{
    std::vector<const TreeDiffable*>& store = items.AsStdVector();
    if (std::find(store.begin(), store.end(), nullptr) == store.end())
        return;
    for (const TreeDiffable* item : store)
        NK_PRECOND_TEXT(item != nullptr, "item != nullptr");
    store.erase(std::remove(store.begin(), store.end(), nullptr), store.end());
}

}  // namespace WZ::Diff
