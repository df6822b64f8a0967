// Size policies of laid-out items. Along the layout's axis an item is fixed or takes a
// proportional share (its weight is also its minimum size); across it, it is fixed with an
// alignment or fills the room less its own inset. An unset policy is the variant's empty
// alternative: such an item is neither sized nor moved along the axis, and is 0 across it.
// The alignment codes differ between the directions (bottom is 2, right is 4), as the toolkit's
// alignment flags do.
#pragma once

#include "NK/NKTypes.hpp"

#include <variant>

namespace WZ::Layouting {

enum class VerticalAlignment : NK::Int32 { Top = 0, Center = 1, Bottom = 2 };
enum class HorizontalAlignment : NK::Int32 { Left = 0, Center = 1, Right = 4 };

// Items of a horizontal layout.
struct HFixedWidth {
    short width = 0;
};
struct HProportionalWidth {
    float weight = 1.0f;
};
struct HFixedHeight {
    VerticalAlignment alignment = VerticalAlignment::Top;
    short height = 0;
};
struct HAutoFillHeight {};

// Items of a vertical layout.
struct VFixedHeight {
    short height = 0;
};
struct VProportionalHeight {
    float weight = 1.0f;
};
struct VFixedWidth {
    HorizontalAlignment alignment = HorizontalAlignment::Left;
    short width = 0;
};
struct VAutoFillWidth {};

// Whether a policy's sizes are lengths a layout can take: sizes not negative, weights finite and
// within 0 … 32767. Layouts take any other as the nearest such length (NaN as 0).
inline bool IsUsable(std::monostate) { return true; }
inline bool IsUsable(const HFixedWidth& p) { return p.width >= 0; }
inline bool IsUsable(const HProportionalWidth& p) { return p.weight >= 0.0f && p.weight <= 32767.0f; }
inline bool IsUsable(const HFixedHeight& p) { return p.height >= 0; }
inline bool IsUsable(const HAutoFillHeight&) { return true; }
inline bool IsUsable(const VFixedHeight& p) { return p.height >= 0; }
inline bool IsUsable(const VProportionalHeight& p) { return p.weight >= 0.0f && p.weight <= 32767.0f; }
inline bool IsUsable(const VFixedWidth& p) { return p.width >= 0; }
inline bool IsUsable(const VAutoFillWidth&) { return true; }

using HMainPolicy = std::variant<std::monostate, HFixedWidth, HProportionalWidth>;
using HCrossPolicy = std::variant<std::monostate, HFixedHeight, HAutoFillHeight>;
using VMainPolicy = std::variant<std::monostate, VFixedHeight, VProportionalHeight>;
using VCrossPolicy = std::variant<std::monostate, VFixedWidth, VAutoFillWidth>;

}  // namespace WZ::Layouting
