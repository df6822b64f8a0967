// The default 8-bit code page of stored strings: Windows-1252. Conversion goes through ICU.
// Decoding never fails: every byte has a character (the five bytes that the code page leaves
// undefined, 0x81 0x8D 0x8F 0x90 0x9D, come back as the C1 controls U+0081 ... so that they
// round-trip). Encoding replaces every character the code page cannot hold by one '?' (a
// surrogate pair counts as one character); CountUnmappable tells a caller beforehand.
#pragma once

#include "NK/NKTypes.hpp"
#include "NK/NKUniString.hpp"

#include <string>
#include <string_view>

namespace NK {

UniString DecodeDefaultCodePage(std::string_view bytes);
std::string EncodeDefaultCodePage(const UniString& text);
// The number of characters that EncodeDefaultCodePage would replace by '?'.
UIndex CountUnmappable(const UniString& text);

}  // namespace NK
