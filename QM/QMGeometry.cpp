#include "QM/QMGeometry.hpp"

namespace QM {

void Rect::MoveTo(short newLeft, short newTop) noexcept
{
    short width = GetWidth();
    short height = GetHeight();
    left = newLeft;
    top = newTop;
    right = static_cast<short>(newLeft + width);
    bottom = static_cast<short>(newTop + height);
}

void Rect::SetSize(short width, short height) noexcept
{
    right = static_cast<short>(left + width);
    bottom = static_cast<short>(top + height);
}

std::string Rect::ToString() const
{
    return "(" + std::to_string(left) + ", " + std::to_string(top) + ", " + std::to_string(right) + ", " +
           std::to_string(bottom) + ")";
}

}  // namespace QM
