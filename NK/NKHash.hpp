// NK::GenerateHashValue: the one hashing entry point of the hashed containers. A type with a
// member GenerateHashValue() is hashed by it (NK::Guid, WZ::Diff::Move); integers and pointers
// are mixed so that sequential keys spread well; anything else goes through std::hash.
#pragma once

#include "NK/NKTypes.hpp"

#include <concepts>
#include <functional>
#include <type_traits>

namespace NK {

template <typename T>
concept HasMemberHash = requires(const T& value) {
    { value.GenerateHashValue() } -> std::convertible_to<UInt64>;
};

constexpr UInt64 MixHash(UInt64 value) noexcept
{
    // splitmix64 finaliser: cheap and spreads neighbouring integers over the table.
    value ^= value >> 30;
    value *= 0xbf58476d1ce4e5b9ULL;
    value ^= value >> 27;
    value *= 0x94d049bb133111ebULL;
    value ^= value >> 31;
    return value;
}

template <typename T>
UInt64 GenerateHashValue(const T& value)
{
    if constexpr (HasMemberHash<T>)
        return MixHash(static_cast<UInt64>(value.GenerateHashValue()));
    else if constexpr (std::is_integral_v<T> || std::is_enum_v<T>)
        return MixHash(static_cast<UInt64>(value));
    else if constexpr (std::is_pointer_v<T>)
        return MixHash(reinterpret_cast<UInt64>(value));
    else
        return std::hash<T>{}(value);
}

struct Hasher {
    template <typename T>
    std::size_t operator()(const T& value) const
    {
        return static_cast<std::size_t>(GenerateHashValue(value));
    }
};

}  // namespace NK
