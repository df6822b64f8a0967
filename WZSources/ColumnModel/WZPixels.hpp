// Conversions of lengths into the toolkit's signed 16-bit pixels. Every result is held at the ends
// of the 16-bit range instead of wrapping, and NaN counts as 0, so that a damaged width can never
// turn into undefined behaviour or a position on the far side of the dialog.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace WZ::Pixels {

inline constexpr short Max = 32767;
inline constexpr short Min = -32768;

// An integer held in the 16-bit range.
inline short Saturated(std::int64_t value)
{
    return static_cast<short>(std::clamp<std::int64_t>(value, Min, Max));
}

// A float truncated toward zero and held in the 16-bit range.
inline short Truncated(float value)
{
    if (std::isnan(value))
        return 0;
    return static_cast<short>(std::clamp(std::trunc(value), static_cast<float>(Min), static_cast<float>(Max)));
}

inline short Add(short a, short b)
{
    return Saturated(static_cast<std::int64_t>(a) + b);
}

// A length as a layout or a distribution takes it: 0 for NaN and for anything negative, at most
// the largest 16-bit length.
inline float Length(float value)
{
    if (!(value > 0.0f))
        return 0.0f;
    return std::min(value, static_cast<float>(Max));
}

// Whether a stored width can be taken as it is: finite and within 0 … 32767.
inline bool IsValidLength(float value)
{
    return value >= 0.0f && value <= static_cast<float>(Max);
}

}  // namespace WZ::Pixels
