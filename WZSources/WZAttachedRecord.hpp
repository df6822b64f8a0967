// The attached-record pattern: a component hangs a small NK::Object-derived record on a toolkit
// row or node as its object data, shared through NK::Ref, and reads it back later. Reading a
// position that carries no record of the expected type throws NK::NullReferenceException
// ("Null reference."): the component assumed it was the control's only writer.
// Works with any control that has SetItemObjectData/GetItemObjectData (list box rows, tree nodes).
#pragma once

#include "NK/NKExceptions.hpp"
#include "NK/NKPointers.hpp"

#include <utility>

namespace WZ {

template <typename Record, typename Control, typename Position, typename... Args>
const Record& AttachRecord(Control& control, Position position, Args&&... args)
{
    NK::Ref<Record> record = NK::NewRef<Record>(std::forward<Args>(args)...);
    const Record& result = *record;
    control.SetItemObjectData(position, NK::Ref<NK::Object>(std::move(record)));
    return result;
}

// The record at the position; throws NK::NullReferenceException when there is none of that type.
template <typename Record, typename Control, typename Position>
NK::Ref<Record> GetAttachedRecord(const Control& control, Position position)
{
    NK::Ref<Record> record = NK::DynamicCast<Record>(control.GetItemObjectData(position));
    if (record.IsNull())
        throw NK::NullReferenceException();
    return record;
}

// The record at the position, or an empty Ref when there is none of that type.
template <typename Record, typename Control, typename Position>
NK::Ref<Record> FindAttachedRecord(const Control& control, Position position)
{
    return NK::DynamicCast<Record>(control.GetItemObjectData(position));
}

}  // namespace WZ
