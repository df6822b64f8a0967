#include "QM/QMSplitter.hpp"

#define NK_SOURCE_PATH "QM\\QMSplitter"
#include "NK/NKAssert.hpp"

#include <algorithm>
#include <limits>

namespace QM {

Splitter::Splitter(const Panel& panel, const Rect& rect, Orientation orientation)
    : Item(panel, rect, ItemType::Splitter),
      orientation(orientation),
      minimum(std::numeric_limits<short>::min()),
      maximum(std::numeric_limits<short>::max())
{
}

short Splitter::GetPosition() const noexcept
{
    return orientation == Orientation::Vertical ? GetRect().GetLeft() : GetRect().GetTop();
}

void Splitter::SetPosition(short position)
{
    if (!NK_PRECOND(position >= minimum && position <= maximum)) {
        Record(Op::Move);
        return;
    }
    MoveBar(position, Origin::Program);
}

void Splitter::SetLimits(short newMinimum, short newMaximum)
{
    Record(Op::SetValue);
    if (!NK_PRECOND(newMinimum <= newMaximum))
        return;
    minimum = newMinimum;
    maximum = newMaximum;
    short position = GetPosition();
    if (position < minimum || position > maximum)
        MoveBar(std::clamp(position, minimum, maximum), Origin::Program);
}

short Splitter::SimulateUserDrag(int delta)
{
    if (!IsEnabled() || !IsVisible())
        return GetPosition();
    int target = std::clamp(GetPosition() + delta, static_cast<int>(minimum), static_cast<int>(maximum));
    MoveBar(static_cast<short>(target), Origin::User);
    return GetPosition();
}

void Splitter::MoveBar(short position, Origin origin)
{
    short old = GetPosition();
    Rect rect = GetRect();
    if (orientation == Orientation::Vertical)
        Move(position, rect.GetTop());
    else
        Move(rect.GetLeft(), position);
    if (old == position)
        return;
    SplitterMoveEvent event {*this, old, position, origin};
    NotifyAll<SplitterObserver>([&](SplitterObserver& o) { o.SplitterMoved(event); });
}

void Splitter::RenderContent(NK::Array<std::string>& lines, const std::string& indent) const
{
    std::string line = indent + (orientation == Orientation::Vertical ? "vertical" : "horizontal");
    line += " at " + std::to_string(GetPosition());
    if (minimum != std::numeric_limits<short>::min() || maximum != std::numeric_limits<short>::max())
        line += " in [" + std::to_string(minimum) + ", " + std::to_string(maximum) + "]";
    lines.Push(line);
}

}  // namespace QM
