#define NK_SOURCE_PATH "WZSources\\Diff\\WZTreeChildren"

#include "WZSources/Diff/WZTreeChildren.hpp"

#include "NK/NKAssert.hpp"

namespace WZ::Diff {

void DropNullItems(NK::Array<const TreeDiffable*>& items)
{
    for (NK::UIndex dropped = NK::DeleteNullEntries(items); dropped > 0; --dropped)
        NK_PRECOND_TEXT(false, "item != nullptr");
}

}  // namespace WZ::Diff
