// QM::Font::Style: the style flags of an item's text. Plain is no flag; Bold, Italic and
// Underline combine with | and are tested with Has.
#pragma once

#include "NK/NKTypes.hpp"

#include <string>

namespace QM {

class Font {
public:
    enum Style : NK::UInt8 {
        Plain = 0,
        Bold = 1,
        Italic = 2,
        Underline = 4,
    };

    static constexpr bool Has(Style style, Style flag) noexcept { return (style & flag) == flag && flag != Plain; }
    // "bold+italic", "plain" for no flag.
    static std::string ToString(Style style);
};

constexpr Font::Style operator|(Font::Style a, Font::Style b) noexcept
{
    return static_cast<Font::Style>(static_cast<NK::UInt8>(a) | static_cast<NK::UInt8>(b));
}

constexpr Font::Style operator&(Font::Style a, Font::Style b) noexcept
{
    return static_cast<Font::Style>(static_cast<NK::UInt8>(a) & static_cast<NK::UInt8>(b));
}

}  // namespace QM
