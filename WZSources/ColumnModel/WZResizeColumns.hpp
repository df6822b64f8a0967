// Shares a width among fixed and proportional columns.
//
// - When the minimum widths alone fill the width, every column gets its minimum width.
// - When the fixed columns and the proportional minimums do not fit, the proportional columns
//   get their minimums and the widest fixed columns give up width down to a common cap.
// - Otherwise the proportional columns share what the fixed columns leave, in proportion to their
//   current widths, and none of them goes below its minimum.
// - With roundToPixels the widths become whole pixels; when the minimums fit they add up exactly
//   to the width truncated to whole pixels (largest-remainder method, 16-bit arithmetic).
// A column is written through SetWidth only when its new width differs from its current one.
#pragma once

#include "WZSources/ColumnModel/WZColumn.hpp"

#include <cstddef>
#include <functional>
#include <vector>

namespace WZ {

void ResizeColumns(const std::function<IColumn*(size_t)>& columnAt, size_t count, float width, bool roundToPixels);
void ResizeColumns(const std::vector<IColumn*>& columns, float width, bool roundToPixels);

}  // namespace WZ
