// The space an item or a layout keeps free on each side, in dialog pixels.
#pragma once

namespace WZ::Layouting {

struct Inset {
    short left = 0;
    short top = 0;
    short right = 0;
    short bottom = 0;

    bool operator==(const Inset&) const = default;
};

}  // namespace WZ::Layouting
