// WZ::Folderable::SortWithClientOrder: sorts the siblings of a level with a comparator that a
// client supplies. A client's comparator may be no strict weak order at all (`<=`, answers
// that change from call to call); the order of the result is then unspecified, but the sort
// ends, reads and writes nothing outside the array, and keeps every item exactly once.
//
// It is a bottom-up merge sort over item numbers: a merge only ever compares the heads of its
// two runs, and every run boundary comes from the array's size, never from what the comparator
// answered. For a strict weak order it is stable and does O(n log n) comparisons. The items are
// moved into their new places only when every comparison is done, so a comparator that throws
// leaves the array as it was.
#pragma once

#include "NK/NKArray.hpp"
#include "NK/NKTypes.hpp"

#include <algorithm>
#include <utility>
#include <vector>

namespace WZ::Folderable {

template <typename T, typename Less>
void SortWithClientOrder(NK::Array<T>& items, Less&& less)
{
    const std::size_t count = items.GetSize();
    if (count < 2)
        return;
    std::vector<std::size_t> order(count);
    for (std::size_t i = 0; i < count; ++i)
        order[i] = i;
    std::vector<std::size_t> merged(count);
    T* content = items.GetContent();
    for (std::size_t width = 1; width < count; width *= 2) {
        for (std::size_t begin = 0; begin < count; begin += 2 * width) {
            const std::size_t middle = std::min(begin + width, count);
            const std::size_t end = std::min(begin + 2 * width, count);
            std::size_t left = begin;
            std::size_t right = middle;
            std::size_t out = begin;
            while (left < middle && right < end) {
                // The right head goes first only when it is strictly less: equal items keep
                // their order.
                if (less(content[order[right]], content[order[left]]))
                    merged[out++] = order[right++];
                else
                    merged[out++] = order[left++];
            }
            while (left < middle)
                merged[out++] = order[left++];
            while (right < end)
                merged[out++] = order[right++];
        }
        order.swap(merged);
    }
    NK::Array<T> sorted;
    sorted.SetCapacity(count);
    for (std::size_t index : order)
        sorted.Push(std::move(content[index]));
    items = std::move(sorted);
}

}  // namespace WZ::Folderable
