// QM::Color: an opaque RGB colour of the drawing layer, 8 bits per channel.
#pragma once

#include "NK/NKTypes.hpp"

#include <string>

namespace QM {

class Color {
public:
    constexpr Color() noexcept = default;
    constexpr Color(NK::UInt8 red, NK::UInt8 green, NK::UInt8 blue) noexcept : red(red), green(green), blue(blue) {}
    // From 0xRRGGBB.
    static constexpr Color FromRGB(NK::UInt32 rgb) noexcept
    {
        return Color(static_cast<NK::UInt8>(rgb >> 16), static_cast<NK::UInt8>(rgb >> 8), static_cast<NK::UInt8>(rgb));
    }

    constexpr NK::UInt8 GetRed() const noexcept { return red; }
    constexpr NK::UInt8 GetGreen() const noexcept { return green; }
    constexpr NK::UInt8 GetBlue() const noexcept { return blue; }
    constexpr NK::UInt32 GetRGB() const noexcept
    {
        return (static_cast<NK::UInt32>(red) << 16) | (static_cast<NK::UInt32>(green) << 8) | blue;
    }

    constexpr bool operator==(const Color&) const noexcept = default;

    // "#rrggbb", lower-case hex.
    std::string ToString() const;

private:
    NK::UInt8 red = 0;
    NK::UInt8 green = 0;
    NK::UInt8 blue = 0;
};

}  // namespace QM
