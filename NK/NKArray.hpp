// NK::Array: a growable array indexed from 0 over std::vector. Works with move-only elements.
#pragma once

#include "NK/NKTypes.hpp"

#include <algorithm>
#include <initializer_list>
#include <stdexcept>
#include <utility>
#include <vector>

namespace NK {

template <typename T>
class Array {
public:
    using value_type = T;
    using iterator = typename std::vector<T>::iterator;
    using const_iterator = typename std::vector<T>::const_iterator;

    Array() = default;
    Array(std::initializer_list<T> init) : items(init) {}
    explicit Array(std::vector<T> vec) : items(std::move(vec)) {}
    template <typename It>
    Array(It first, It last) : items(first, last) {}

    UIndex GetSize() const noexcept { return items.size(); }
    bool IsEmpty() const noexcept { return items.empty(); }

    void Push(const T& item) { items.push_back(item); }
    void Push(T&& item) { items.push_back(std::move(item)); }
    template <typename... Args>
    T& PushNew(Args&&... args) { return items.emplace_back(std::forward<Args>(args)...); }
    void Append(const Array& other) { items.insert(items.end(), other.items.begin(), other.items.end()); }

    void Insert(UIndex index, const T& item) { items.insert(items.begin() + CheckedInsertIndex(index), item); }
    void Insert(UIndex index, T&& item) { items.insert(items.begin() + CheckedInsertIndex(index), std::move(item)); }
    void Delete(UIndex index) { items.erase(items.begin() + CheckedIndex(index)); }
    void DeleteLast() { CheckedIndex(0); items.pop_back(); }
    T Pop() { CheckedIndex(0); T last = std::move(items.back()); items.pop_back(); return last; }
    void Clear() noexcept { items.clear(); }
    void SetCapacity(UIndex capacity) { items.reserve(capacity); }
    void SetSize(UIndex size) { items.resize(size); }

    T& operator[](UIndex index) { return items[CheckedIndex(index)]; }
    const T& operator[](UIndex index) const { return items[CheckedIndex(index)]; }
    T& GetFirst() { return items[CheckedIndex(0)]; }
    const T& GetFirst() const { return items[CheckedIndex(0)]; }
    T& GetLast() { return items[CheckedIndex(items.size() - 1)]; }
    const T& GetLast() const { return items[CheckedIndex(items.size() - 1)]; }

    bool Contains(const T& item) const { return std::find(items.begin(), items.end(), item) != items.end(); }
    UIndex FindFirst(const T& item) const
    {
        auto it = std::find(items.begin(), items.end(), item);
        return it == items.end() ? MaxUIndex : static_cast<UIndex>(it - items.begin());
    }
    template <typename Pred>
    UIndex FindFirst(Pred pred) const
    {
        auto it = std::find_if(items.begin(), items.end(), pred);
        return it == items.end() ? MaxUIndex : static_cast<UIndex>(it - items.begin());
    }

    iterator begin() noexcept { return items.begin(); }
    iterator end() noexcept { return items.end(); }
    const_iterator begin() const noexcept { return items.begin(); }
    const_iterator end() const noexcept { return items.end(); }

    T* GetContent() noexcept { return items.data(); }
    const T* GetContent() const noexcept { return items.data(); }
    const std::vector<T>& AsStdVector() const noexcept { return items; }
    std::vector<T>& AsStdVector() noexcept { return items; }

    bool operator==(const Array& other) const = default;

private:
    UIndex CheckedIndex(UIndex index) const
    {
        if (index >= items.size())
            throw std::out_of_range("NK::Array index out of range");
        return index;
    }
    UIndex CheckedInsertIndex(UIndex index) const
    {
        if (index > items.size())
            throw std::out_of_range("NK::Array insert index out of range");
        return index;
    }

    std::vector<T> items;
};

// Deletes the null entries of an array of pointers, keeping the order of the rest; returns how
// many there were, for the caller to report a client's error in its own words.
template <typename T>
UIndex DeleteNullEntries(Array<T>& items)
{
    std::vector<T>& store = items.AsStdVector();
    const UIndex before = store.size();
    std::erase(store, nullptr);
    return before - store.size();
}

}  // namespace NK
