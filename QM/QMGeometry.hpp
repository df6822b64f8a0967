// Geometry of the toolkit: logical pixels as signed 16-bit values.
#pragma once

#include "NK/NKTypes.hpp"

#include <string>

namespace QM {

struct Point {
    short x = 0;
    short y = 0;
    bool operator==(const Point&) const = default;
};

// A point in device pixels, as mouse events deliver it.
struct NativePoint {
    int x = 0;
    int y = 0;
    bool operator==(const NativePoint&) const = default;
};

class Rect {
public:
    constexpr Rect() = default;
    constexpr Rect(short left, short top, short right, short bottom) : left(left), top(top), right(right), bottom(bottom) {}

    constexpr short GetLeft() const noexcept { return left; }
    constexpr short GetTop() const noexcept { return top; }
    constexpr short GetRight() const noexcept { return right; }
    constexpr short GetBottom() const noexcept { return bottom; }
    constexpr short GetWidth() const noexcept { return static_cast<short>(right - left); }
    constexpr short GetHeight() const noexcept { return static_cast<short>(bottom - top); }
    constexpr Point GetTopLeft() const noexcept { return {left, top}; }

    void SetLeft(short v) noexcept { left = v; }
    void SetTop(short v) noexcept { top = v; }
    void SetRight(short v) noexcept { right = v; }
    void SetBottom(short v) noexcept { bottom = v; }
    // Moves the rectangle keeping its size.
    void MoveTo(short newLeft, short newTop) noexcept;
    void SetSize(short width, short height) noexcept;

    bool Contains(Point p) const noexcept { return p.x >= left && p.x < right && p.y >= top && p.y < bottom; }
    bool Contains(const Rect& r) const noexcept
    {
        return r.left >= left && r.top >= top && r.right <= right && r.bottom <= bottom;
    }
    bool IsEmpty() const noexcept { return right <= left || bottom <= top; }

    std::string ToString() const;
    bool operator==(const Rect&) const = default;

private:
    short left = 0;
    short top = 0;
    short right = 0;
    short bottom = 0;
};

}  // namespace QM
