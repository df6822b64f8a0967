#include "NK/NKGuid.hpp"

#include "NK/NKUniString.hpp"

#include <cstdio>
#include <random>

namespace NK {

namespace {

int HexValue(char c)
{
    if (c >= '0' && c <= '9')
        return c - '0';
    if (c >= 'a' && c <= 'f')
        return c - 'a' + 10;
    if (c >= 'A' && c <= 'F')
        return c - 'A' + 10;
    return -1;
}

// Reads `digits` hex digits from text at pos; false on any non-hex character.
bool ReadHex(std::string_view text, std::size_t& pos, int digits, UInt64& out)
{
    out = 0;
    for (int i = 0; i < digits; ++i, ++pos) {
        if (pos >= text.size())
            return false;
        int v = HexValue(text[pos]);
        if (v < 0)
            return false;
        out = (out << 4) | static_cast<UInt64>(v);
    }
    return true;
}

bool Expect(std::string_view text, std::size_t& pos, char c)
{
    if (pos >= text.size() || text[pos] != c)
        return false;
    ++pos;
    return true;
}

}  // namespace

Guid::Guid(std::string_view text)
{
    if (auto parsed = Parse(text))
        *this = *parsed;
}

std::optional<Guid> Guid::Parse(std::string_view text)
{
    bool braced = !text.empty() && text.front() == '{';
    if (braced) {
        if (text.size() != 38 || text.back() != '}')
            return std::nullopt;
        text = text.substr(1, 36);
    }
    if (text.size() != 36)
        return std::nullopt;

    std::size_t pos = 0;
    UInt64 d1 = 0, d2 = 0, d3 = 0, d4a = 0, d4b = 0;
    if (!ReadHex(text, pos, 8, d1) || !Expect(text, pos, '-') || !ReadHex(text, pos, 4, d2) ||
        !Expect(text, pos, '-') || !ReadHex(text, pos, 4, d3) || !Expect(text, pos, '-') ||
        !ReadHex(text, pos, 4, d4a) || !Expect(text, pos, '-') || !ReadHex(text, pos, 12, d4b))
        return std::nullopt;

    std::array<UInt8, 8> d4 {};
    d4[0] = static_cast<UInt8>(d4a >> 8);
    d4[1] = static_cast<UInt8>(d4a);
    for (int i = 0; i < 6; ++i)
        d4[2 + i] = static_cast<UInt8>(d4b >> (8 * (5 - i)));
    return Guid(static_cast<UInt32>(d1), static_cast<UInt16>(d2), static_cast<UInt16>(d3), d4);
}

Guid Guid::Generate()
{
    thread_local std::mt19937_64 engine {std::random_device {}()};
    UInt64 high = engine();
    UInt64 low = engine();
    // Version 4, variant 1 (random) bits.
    high = (high & ~0xF000ULL) | 0x4000ULL;
    low = (low & ~(0xC0ULL << 56)) | (0x80ULL << 56);
    return FromNumber(high, low);
}

Guid Guid::FromNumber(UInt64 high, UInt64 low) noexcept
{
    std::array<UInt8, 8> d4 {};
    for (int i = 0; i < 8; ++i)
        d4[i] = static_cast<UInt8>(low >> (8 * (7 - i)));
    return Guid(static_cast<UInt32>(high >> 32), static_cast<UInt16>(high >> 16), static_cast<UInt16>(high), d4);
}

UInt64 Guid::GetHigh() const noexcept
{
    return (static_cast<UInt64>(data1) << 32) | (static_cast<UInt64>(data2) << 16) | data3;
}

UInt64 Guid::GetLow() const noexcept
{
    UInt64 low = 0;
    for (UInt8 b : data4)
        low = (low << 8) | b;
    return low;
}

bool Guid::IsNull() const noexcept
{
    return *this == NullGuid;
}

std::string Guid::ToString() const
{
    char buffer[39];
    std::snprintf(buffer, sizeof buffer, "{%08X-%04X-%04X-%02X%02X-%02X%02X%02X%02X%02X%02X}", data1, data2, data3,
                  data4[0], data4[1], data4[2], data4[3], data4[4], data4[5], data4[6], data4[7]);
    return buffer;
}

UniString Guid::ToUniString() const
{
    return UniString(ToString().c_str());
}

UInt32 Guid::GenerateHashValue() const noexcept
{
    UInt64 h = GetHigh() * 0x9E3779B97F4A7C15ULL ^ GetLow();
    h ^= h >> 29;
    h *= 0xBF58476D1CE4E5B9ULL;
    h ^= h >> 32;
    return static_cast<UInt32>(h);
}

}  // namespace NK
