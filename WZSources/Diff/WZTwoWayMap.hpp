// WZ::TwoWayMap: positions (list indices, list box rows, tree nodes) to ids and back. When one
// id is entered at several positions, the id maps back to the first position entered.
#pragma once

#include "NK/NKGuid.hpp"
#include "NK/NKHashTable.hpp"

namespace WZ {

template <typename Position>
struct TwoWayMap {
    NK::HashTable<Position, NK::Guid> indexToId;
    NK::HashTable<NK::Guid, Position> idToIndex;

    void Add(Position position, const NK::Guid& id)
    {
        indexToId.Put(position, id);
        idToIndex.Add(id, position);
    }
    void Clear() noexcept
    {
        indexToId.Clear();
        idToIndex.Clear();
    }
    void Reserve(NK::UIndex count)
    {
        indexToId.EnsureSize(count);
        idToIndex.EnsureSize(count);
    }

    NK::UIndex GetSize() const noexcept { return indexToId.GetSize(); }
    bool IsEmpty() const noexcept { return indexToId.IsEmpty(); }
    bool HasIndex(Position position) const { return indexToId.ContainsKey(position); }
    bool HasId(const NK::Guid& id) const { return idToIndex.ContainsKey(id); }
    const NK::Guid* FindId(Position position) const { return indexToId.GetPtr(position); }
    const Position* FindIndex(const NK::Guid& id) const { return idToIndex.GetPtr(id); }

    // The id at the position, or the null Guid.
    NK::Guid GetId(Position position) const
    {
        const NK::Guid* id = FindId(position);
        return id != nullptr ? *id : NK::NullGuid;
    }
    // The position of the id, or `missing`.
    Position GetIndex(const NK::Guid& id, Position missing) const
    {
        const Position* position = FindIndex(id);
        return position != nullptr ? *position : missing;
    }
};

}  // namespace WZ
