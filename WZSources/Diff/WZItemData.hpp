// The record the updaters attach to every row and node they write: the item's id at the time of
// writing and the item itself (not owned). Reading the record of a row or node that has none
// throws NK::NullReferenceException ("Null reference.").
#pragma once

#include "NK/NKGuid.hpp"
#include "NK/NKPointers.hpp"
#include "WZSources/Diff/WZDiffable.hpp"

namespace WZ::Diff {

class ItemData : public NK::Object {
public:
    ItemData(const NK::Guid& id, const Diffable* item) : id(id), item(item) {}

    NK::Guid id;
    const Diffable* item;
};

// The record held by `data`; throws NK::NullReferenceException when it holds none.
inline const ItemData& ReadItemData(const NK::Ref<NK::Object>& data)
{
    const auto* record = dynamic_cast<const ItemData*>(data.Get());
    if (record == nullptr)
        throw NK::NullReferenceException();
    return *record;
}

inline NK::Ref<NK::Object> MakeItemData(const NK::Guid& id, const Diffable* item)
{
    return NK::NewRef<ItemData>(id, item);
}

}  // namespace WZ::Diff
