#include "WZSources/Diff/WZIndexMap.hpp"

namespace WZ::Diff {

IndexMap::IndexMap(std::shared_ptr<const IdTable> table, Side side, std::vector<NK::UInt32> entryOfIndex)
    : table(std::move(table)), side(side), entryOfIndex(std::move(entryOfIndex))
{
}

IndexMap::IndexMap(const std::vector<NK::Guid>& ids)
{
    auto own = std::make_shared<IdTable>(ids.size());
    entryOfIndex.reserve(ids.size());
    for (NK::UIndex i = 0; i < ids.size(); ++i) {
        const NK::UInt32 number = own->FindOrAdd(ids[i]);
        if ((*own)[number].firstOld == IdTable::NoIndex)
            (*own)[number].firstOld = static_cast<NK::UInt32>(i);
        entryOfIndex.push_back(number);
    }
    table = std::move(own);
}

}  // namespace WZ::Diff
