// NK::HashTable and NK::HashSet: hashed containers that iterate in insertion order, also after
// Delete (the remaining entries keep their order). Built on tsl::ordered_map / ordered_set.
#pragma once

#include "NK/NKHash.hpp"
#include "NK/NKTypes.hpp"

#include <tsl/ordered_map.h>
#include <tsl/ordered_set.h>

#include <stdexcept>
#include <utility>

namespace NK {

template <typename K, typename V>
class HashTable {
    using Store = tsl::ordered_map<K, V, Hasher>;

public:
    using iterator = typename Store::iterator;
    using const_iterator = typename Store::const_iterator;

    HashTable() = default;

    UIndex GetSize() const noexcept { return store.size(); }
    bool IsEmpty() const noexcept { return store.empty(); }
    void Clear() noexcept { store.clear(); }
    void EnsureSize(UIndex size) { store.reserve(size); }

    // Adds the pair when the key is absent; returns false (and changes nothing) when present.
    bool Add(const K& key, const V& value) { return store.try_emplace(key, value).second; }
    bool Add(const K& key, V&& value) { return store.try_emplace(key, std::move(value)).second; }
    // Adds the pair or replaces the value of a present key (which keeps its place in the order).
    void Put(const K& key, const V& value) { store.insert_or_assign(key, value); }
    void Put(const K& key, V&& value) { store.insert_or_assign(key, std::move(value)); }
    // Removes the key; the order of the other entries is kept. False when absent.
    bool Delete(const K& key) { return store.erase(key) > 0; }

    bool ContainsKey(const K& key) const { return store.find(key) != store.end(); }
    V& Get(const K& key)
    {
        auto it = store.find(key);
        if (it == store.end())
            throw std::out_of_range("NK::HashTable::Get: key not present");
        return it.value();
    }
    const V& Get(const K& key) const
    {
        auto it = store.find(key);
        if (it == store.end())
            throw std::out_of_range("NK::HashTable::Get: key not present");
        return it->second;
    }
    V* GetPtr(const K& key)
    {
        auto it = store.find(key);
        return it == store.end() ? nullptr : &it.value();
    }
    const V* GetPtr(const K& key) const
    {
        auto it = store.find(key);
        return it == store.end() ? nullptr : &it->second;
    }
    // The value of the key, added default-constructed when absent.
    V& operator[](const K& key) { return store[key]; }

    // Iteration yields std::pair-like entries (first = key, second = value) in insertion order.
    iterator begin() noexcept { return store.begin(); }
    iterator end() noexcept { return store.end(); }
    const_iterator begin() const noexcept { return store.begin(); }
    const_iterator end() const noexcept { return store.end(); }

    bool operator==(const HashTable& other) const { return store == other.store; }

private:
    Store store;
};

template <typename T>
class HashSet {
    using Store = tsl::ordered_set<T, Hasher>;

public:
    using iterator = typename Store::const_iterator;
    using const_iterator = typename Store::const_iterator;

    HashSet() = default;
    HashSet(std::initializer_list<T> init)
    {
        for (const T& item : init)
            store.insert(item);
    }

    UIndex GetSize() const noexcept { return store.size(); }
    bool IsEmpty() const noexcept { return store.empty(); }
    void Clear() noexcept { store.clear(); }
    void EnsureSize(UIndex size) { store.reserve(size); }

    bool Add(const T& item) { return store.insert(item).second; }
    bool Add(T&& item) { return store.insert(std::move(item)).second; }
    bool Delete(const T& item) { return store.erase(item) > 0; }
    bool Contains(const T& item) const { return store.find(item) != store.end(); }

    const_iterator begin() const noexcept { return store.begin(); }
    const_iterator end() const noexcept { return store.end(); }

    // Equal when both hold the same members, whatever their order.
    bool operator==(const HashSet& other) const
    {
        if (store.size() != other.store.size())
            return false;
        for (const T& item : store)
            if (!other.Contains(item))
                return false;
        return true;
    }

private:
    Store store;
};

}  // namespace NK
