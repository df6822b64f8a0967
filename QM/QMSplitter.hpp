// QM::Splitter: the bar between two panes. A Vertical splitter is a vertical bar that the user
// drags left and right (panes beside each other); a Horizontal one is dragged up and down. Its
// position is the bar's leading edge on the drag axis (its left, or its top), in the panel's
// coordinates, and always lies within its limits [minimum, maximum]; the host places the
// panes around the bar when it hears that the bar moved.
//
// The program's SetPosition outside the limits is a precondition report with nothing changed;
// a user's drag stops at the limits, as the mouse can go further than the bar. Narrowing the
// limits moves a bar that lies outside them to the nearest limit. Every change of the position
// notifies QM::SplitterObserver::SplitterMoved once, synchronously (the event's origin tells
// program from user); a drag that ends where it began notifies nothing.
#pragma once

#include "QM/QMItem.hpp"

namespace QM {

class Splitter;

struct SplitterMoveEvent {
    const Splitter& source;
    short oldPosition;
    short newPosition;
    Origin origin;

    const Splitter* GetSource() const noexcept { return &source; }
};

class SplitterObserver : public virtual NK::EventObserver {
public:
    virtual void SplitterMoved(const SplitterMoveEvent&) {}
};

class Splitter : public Item {
public:
    enum class Orientation : NK::UInt8 { Vertical, Horizontal };

    // The limits start as wide as coordinates go; the bar's rectangle gives the position.
    Splitter(const Panel& panel, const Rect& rect, Orientation orientation = Orientation::Vertical);

    Orientation GetOrientation() const noexcept { return orientation; }

    short GetPosition() const noexcept;
    void SetPosition(short position);

    short GetMinimum() const noexcept { return minimum; }
    short GetMaximum() const noexcept { return maximum; }
    // minimum > maximum is a precondition report with nothing changed.
    void SetLimits(short newMinimum, short newMaximum);

    // The user drags the bar by `delta` pixels along its axis and lets go; returns the position
    // where it stopped. A disabled or hidden splitter does not move.
    short SimulateUserDrag(int delta);

protected:
    void RenderContent(NK::Array<std::string>& lines, const std::string& indent) const override;

private:
    void MoveBar(short position, Origin origin);

    Orientation orientation;
    short minimum;
    short maximum;
};

}  // namespace QM
