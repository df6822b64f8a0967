// Shares a width among fixed and proportional columns.
//
// - When the minimum widths alone fill the width, every column gets its minimum width.
// - When the fixed columns and the proportional minimums do not fit, the proportional columns
//   get their minimums and the widest fixed columns give up width down to a common cap.
// - Otherwise the proportional columns share what the fixed columns leave, in proportion to their
//   current widths, and none of them goes below its minimum.
// - With roundToPixels the widths become whole pixels; when the minimums fit they add up exactly
//   to the width truncated to whole pixels (largest-remainder method). Only columns with a
//   fraction gain a pixel, so whole widths that leave room over stay as they are.
// Widths are lengths of the 16-bit pixel range: the width and every column's widths are taken as
// 0 when NaN or negative and as 32767 when beyond it, so a damaged column cannot stall or wrap
// the distribution (it gets a proper width back).
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
