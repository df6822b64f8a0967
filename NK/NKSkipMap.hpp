// NK::SkipSet and NK::SkipMap: ordered set and map, iterating ascending by key.
#pragma once

#include "NK/NKTypes.hpp"

#include <initializer_list>
#include <map>
#include <set>
#include <stdexcept>
#include <utility>

namespace NK {

template <typename T>
class SkipSet {
public:
    using const_iterator = typename std::set<T>::const_iterator;
    using iterator = const_iterator;

    SkipSet() = default;
    SkipSet(std::initializer_list<T> init) : store(init) {}

    UIndex GetSize() const noexcept { return store.size(); }
    bool IsEmpty() const noexcept { return store.empty(); }
    void Clear() noexcept { store.clear(); }
    bool Add(const T& item) { return store.insert(item).second; }
    bool Delete(const T& item) { return store.erase(item) > 0; }
    bool Contains(const T& item) const { return store.count(item) > 0; }
    const T& GetFirst() const { Check(); return *store.begin(); }
    const T& GetLast() const { Check(); return *store.rbegin(); }

    const_iterator begin() const noexcept { return store.begin(); }
    const_iterator end() const noexcept { return store.end(); }
    auto rbegin() const noexcept { return store.rbegin(); }
    auto rend() const noexcept { return store.rend(); }

    bool operator==(const SkipSet& other) const = default;

private:
    void Check() const
    {
        if (store.empty())
            throw std::out_of_range("NK::SkipSet is empty");
    }
    std::set<T> store;
};

template <typename K, typename V>
class SkipMap {
public:
    using iterator = typename std::map<K, V>::iterator;
    using const_iterator = typename std::map<K, V>::const_iterator;

    SkipMap() = default;

    UIndex GetSize() const noexcept { return store.size(); }
    bool IsEmpty() const noexcept { return store.empty(); }
    void Clear() noexcept { store.clear(); }
    bool Add(const K& key, V value) { return store.try_emplace(key, std::move(value)).second; }
    void Put(const K& key, V value) { store.insert_or_assign(key, std::move(value)); }
    bool Delete(const K& key) { return store.erase(key) > 0; }
    bool ContainsKey(const K& key) const { return store.count(key) > 0; }
    V& Get(const K& key)
    {
        auto it = store.find(key);
        if (it == store.end())
            throw std::out_of_range("NK::SkipMap::Get: key not present");
        return it->second;
    }
    const V& Get(const K& key) const
    {
        auto it = store.find(key);
        if (it == store.end())
            throw std::out_of_range("NK::SkipMap::Get: key not present");
        return it->second;
    }
    V* GetPtr(const K& key)
    {
        auto it = store.find(key);
        return it == store.end() ? nullptr : &it->second;
    }
    const V* GetPtr(const K& key) const
    {
        auto it = store.find(key);
        return it == store.end() ? nullptr : &it->second;
    }
    V& operator[](const K& key) { return store[key]; }

    iterator begin() noexcept { return store.begin(); }
    iterator end() noexcept { return store.end(); }
    const_iterator begin() const noexcept { return store.begin(); }
    const_iterator end() const noexcept { return store.end(); }

private:
    std::map<K, V> store;
};

}  // namespace NK
