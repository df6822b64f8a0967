// WZ::Diff::IndexSet: the index sets of a comparison's result, an array of the members in the
// order they were added, which is also the order of iteration. A comparison adds most of them
// in ascending order, so adding is an append and a lookup a binary search over the array; once
// a member arrives out of order (the old indices of changed items, when items moved), lookups
// go through a sorted copy made at the first lookup after a change. The copy is made inside a
// const lookup: a set is used from one thread at a time, like the rest of the library.
//
// For moves the order is by new index, then old index: the comparison adds them by new index.
#pragma once

#include "NK/NKHashTable.hpp"
#include "NK/NKTypes.hpp"

#include <algorithm>
#include <functional>
#include <initializer_list>
#include <vector>

namespace WZ::Diff {

template <typename T, typename Less = std::less<T>>
class IndexSet {
public:
    using const_iterator = typename std::vector<T>::const_iterator;
    using iterator = const_iterator;
    using const_reverse_iterator = typename std::vector<T>::const_reverse_iterator;

    IndexSet() = default;
    IndexSet(std::initializer_list<T> init)
    {
        for (const T& member : init)
            Add(member);
    }

    NK::UIndex GetSize() const noexcept { return members.size(); }
    bool IsEmpty() const noexcept { return members.empty(); }
    void Clear() noexcept
    {
        members.clear();
        sorted.clear();
        ascending = true;
    }
    void EnsureSize(NK::UIndex size) { members.reserve(size); }

    // Adds a member at the end of the order; false (and no change) when it is present.
    bool Add(const T& member)
    {
        const bool inOrder = ascending && (members.empty() || Less {}(members.back(), member));
        if (!inOrder && Contains(member))
            return false;
        Append(member);
        return true;
    }
    // Adds a member that the caller knows to be absent, without looking it up.
    void Append(const T& member)
    {
        if (!members.empty() && !Less {}(members.back(), member)) {
            ascending = false;
            sorted.clear();
        }
        members.push_back(member);
    }

    bool Contains(const T& member) const
    {
        if (ascending)
            return std::binary_search(members.begin(), members.end(), member, Less {});
        if (sorted.size() != members.size()) {
            sorted = members;
            std::sort(sorted.begin(), sorted.end(), Less {});
        }
        return std::binary_search(sorted.begin(), sorted.end(), member, Less {});
    }

    const_iterator begin() const noexcept { return members.begin(); }
    const_iterator end() const noexcept { return members.end(); }
    const_reverse_iterator rbegin() const noexcept { return members.rbegin(); }
    const_reverse_iterator rend() const noexcept { return members.rend(); }

    // Equal when both hold the same members, whatever their order.
    bool operator==(const IndexSet& other) const
    {
        if (members.size() != other.members.size())
            return false;
        return std::all_of(members.begin(), members.end(), [&](const T& member) { return other.Contains(member); });
    }

    // The members in a hashed set of the base library, in the same order.
    operator NK::HashSet<T>() const
    {
        NK::HashSet<T> set;
        set.EnsureSize(members.size());
        for (const T& member : members)
            set.Add(member);
        return set;
    }

private:
    std::vector<T> members;
    bool ascending = true;
    mutable std::vector<T> sorted;  // the members sorted, when not ascending; stale when shorter
};

}  // namespace WZ::Diff
