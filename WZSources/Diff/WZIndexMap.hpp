// WZ::Diff::IndexMap: the two-way map of one sequence of a comparison, index (from 0) to id and
// id to index. An id that occurs several times maps back to its first index. Iteration yields
// (index, id) in ascending index order. The map shares the comparison's id table (which it
// never changes) with the other sequence's map, so making both costs no hashing beyond the
// comparison's own; copies share it too.
#pragma once

#include "NK/NKGuid.hpp"
#include "NK/NKTypes.hpp"
#include "WZSources/Diff/WZIdTable.hpp"

#include <iterator>
#include <memory>
#include <utility>
#include <vector>

namespace WZ::Diff {

class IndexMap {
public:
    enum class Side { Old, New };

    IndexMap() = default;
    // `entryOfIndex[i]` is the table entry of the id at index i.
    IndexMap(std::shared_ptr<const IdTable> table, Side side, std::vector<NK::UInt32> entryOfIndex);
    // A map of the given ids, with a table of its own.
    explicit IndexMap(const std::vector<NK::Guid>& ids);

    NK::UIndex GetSize() const noexcept { return entryOfIndex.size(); }
    bool IsEmpty() const noexcept { return entryOfIndex.empty(); }

    bool HasIndex(NK::Int64 index) const noexcept
    {
        return index >= 0 && static_cast<NK::UIndex>(index) < entryOfIndex.size();
    }
    // The id at the index; null when there is none.
    const NK::Guid* FindId(NK::Int64 index) const noexcept
    {
        return HasIndex(index) ? &(*table)[entryOfIndex[static_cast<NK::UIndex>(index)]].id : nullptr;
    }
    // The id at the index, or the null Guid.
    NK::Guid GetId(NK::Int64 index) const noexcept
    {
        const NK::Guid* id = FindId(index);
        return id != nullptr ? *id : NK::NullGuid;
    }

    bool HasId(const NK::Guid& id) const { return FindIndex(id) >= 0; }
    // The first index of the id, or `missing`.
    NK::Int64 GetIndex(const NK::Guid& id, NK::Int64 missing) const
    {
        const NK::Int64 index = FindIndex(id);
        return index >= 0 ? index : missing;
    }

    class const_iterator {
    public:
        using iterator_category = std::forward_iterator_tag;
        using value_type = std::pair<NK::Int64, NK::Guid>;
        using difference_type = std::ptrdiff_t;
        using pointer = void;
        using reference = value_type;

        const_iterator(const IndexMap* map, NK::Int64 index) : map(map), index(index) {}
        value_type operator*() const { return {index, map->GetId(index)}; }
        const_iterator& operator++() { ++index; return *this; }
        const_iterator operator++(int) { const_iterator before = *this; ++index; return before; }
        bool operator==(const const_iterator& other) const = default;

    private:
        const IndexMap* map;
        NK::Int64 index;
    };

    const_iterator begin() const noexcept { return {this, 0}; }
    const_iterator end() const noexcept { return {this, static_cast<NK::Int64>(entryOfIndex.size())}; }

private:
    NK::Int64 FindIndex(const NK::Guid& id) const
    {
        if (table == nullptr)
            return -1;
        const NK::UInt32 number = table->Find(id);
        if (number == IdTable::NotFound)
            return -1;
        const NK::UInt32 index = side == Side::Old ? (*table)[number].firstOld : (*table)[number].firstNew;
        return index == IdTable::NoIndex ? -1 : static_cast<NK::Int64>(index);
    }

    std::shared_ptr<const IdTable> table;
    Side side = Side::Old;
    std::vector<NK::UInt32> entryOfIndex;
};

}  // namespace WZ::Diff
