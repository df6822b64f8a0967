// NK::Guid: 128-bit identity. Prints as {XXXXXXXX-XXXX-XXXX-XXXX-XXXXXXXXXXXX}; parses with or
// without braces, either case.
#pragma once

#include "NK/NKTypes.hpp"

#include <array>
#include <compare>
#include <optional>
#include <string>
#include <string_view>

namespace NK {

class UniString;

class Guid {
public:
    constexpr Guid() noexcept = default;
    constexpr Guid(UInt32 data1, UInt16 data2, UInt16 data3, std::array<UInt8, 8> data4) noexcept
        : data1(data1), data2(data2), data3(data3), data4(data4)
    {
    }
    // Parses the text; a malformed text gives the null Guid. Use Parse to tell the two apart.
    explicit Guid(std::string_view text);

    static std::optional<Guid> Parse(std::string_view text);
    static Guid Generate();
    // A deterministic Guid built from a number: handy for tests and generated data.
    static Guid FromNumber(UInt64 high, UInt64 low) noexcept;

    bool IsNull() const noexcept;
    std::string ToString() const;
    UniString ToUniString() const;
    UInt32 GenerateHashValue() const noexcept;

    UInt64 GetHigh() const noexcept;
    UInt64 GetLow() const noexcept;

    bool operator==(const Guid&) const noexcept = default;
    std::strong_ordering operator<=>(const Guid&) const noexcept = default;

private:
    UInt32 data1 = 0;
    UInt16 data2 = 0;
    UInt16 data3 = 0;
    std::array<UInt8, 8> data4 {};
};

inline constexpr Guid NullGuid {};

}  // namespace NK
