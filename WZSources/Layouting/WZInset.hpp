// The space an item or a layout keeps free on each side, in dialog pixels. Layouts and items take
// only non-negative insets: a negative side is reported and taken as 0.
#pragma once

namespace WZ::Layouting {

struct Inset {
    short left = 0;
    short top = 0;
    short right = 0;
    short bottom = 0;

    bool operator==(const Inset&) const = default;

    bool IsNonNegative() const noexcept { return left >= 0 && top >= 0 && right >= 0 && bottom >= 0; }
    // The inset with every negative side taken as 0.
    Inset NonNegative() const noexcept
    {
        auto side = [](short value) { return value < 0 ? short {0} : value; };
        return Inset {side(left), side(top), side(right), side(bottom)};
    }
};

}  // namespace WZ::Layouting
