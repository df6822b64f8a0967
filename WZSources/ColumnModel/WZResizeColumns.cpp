#include "WZSources/ColumnModel/WZResizeColumns.hpp"

#include "NK/NKTypes.hpp"
#include "WZSources/ColumnModel/WZPixels.hpp"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <numeric>

namespace WZ {

namespace {

struct ColumnInfo {
    IColumn* column;
    bool fixed;
    float minWidth;
    float initialWidth;
};

using Widths = std::vector<float>;

void SetMinimumWidths(const std::vector<ColumnInfo>& infos, Widths& widths)
{
    for (size_t i = 0; i < infos.size(); ++i)
        widths[i] = infos[i].minWidth;
}

float SumOfCappedFixed(const std::vector<ColumnInfo>& infos, float cap)
{
    float sum = 0.0f;
    for (const ColumnInfo& info : infos)
        if (info.fixed)
            sum += std::min(info.initialWidth, cap);
    return sum;
}

// The cap is lowered in whole pixels from the widest fixed column until the capped fixed columns
// fit into `room`. The capped sum only grows with the cap, so the first fitting step is found by
// bisection over the number of steps instead of one step at a time. The widths are 16-bit lengths
// (see ResizeColumns), so a few dozen halvings always settle it; the loop is bounded all the same.
float FindFixedCap(const std::vector<ColumnInfo>& infos, float room)
{
    float widest = 0.0f;
    for (const ColumnInfo& info : infos)
        if (info.fixed)
            widest = std::max(widest, info.initialWidth);
    auto fits = [&](double steps) { return SumOfCappedFixed(infos, static_cast<float>(widest - steps)) <= room; };
    if (fits(0.0))
        return widest;
    // With the cap at 0 every fixed column fits a room of 0.
    double high = std::ceil(static_cast<double>(widest));
    double low = 0.0;  // does not fit
    for (int halvings = 0; halvings < 64 && high - low > 1.0; ++halvings) {
        const double mid = std::floor((low + high) / 2.0);
        if (mid <= low || mid >= high)
            break;
        if (fits(mid))
            high = mid;
        else
            low = mid;
    }
    return static_cast<float>(widest - high);
}

void DistributeTight(const std::vector<ColumnInfo>& infos, float width, float proportionalMin, Widths& widths)
{
    float room = width - proportionalMin;
    float cap = FindFixedCap(infos, room);
    float rest = room - SumOfCappedFixed(infos, cap);
    for (size_t i = 0; i < infos.size(); ++i) {
        const ColumnInfo& info = infos[i];
        if (!info.fixed) {
            widths[i] = info.minWidth;
        } else if (info.initialWidth <= cap) {
            widths[i] = info.initialWidth;
        } else if (rest > 0.0f) {
            widths[i] = cap + 1.0f;
            rest -= 1.0f;
        } else {
            widths[i] = cap;
        }
    }
}

void DistributeRoom(const std::vector<ColumnInfo>& infos, float width, float fixedSum, Widths& widths)
{
    // Proportional columns that all start at zero width share the room equally.
    float proportionalInitial = 0.0f;
    for (const ColumnInfo& info : infos)
        if (!info.fixed)
            proportionalInitial += info.initialWidth;
    bool equalShares = !(proportionalInitial > 0.0f);
    auto weight = [&](const ColumnInfo& info) { return equalShares ? 1.0f : info.initialWidth; };

    std::vector<bool> clamped(infos.size(), false);
    auto clampPass = [&](float factor) {
        bool any = false;
        for (size_t i = 0; i < infos.size(); ++i) {
            if (infos[i].fixed || clamped[i])
                continue;
            if (weight(infos[i]) * factor < infos[i].minWidth) {
                clamped[i] = true;
                any = true;
            }
        }
        return any;
    };

    float weightSum = 0.0f;
    for (const ColumnInfo& info : infos)
        if (!info.fixed)
            weightSum += weight(info);
    float factor = (width - fixedSum) / weightSum;
    if (clampPass(factor)) {
        float share = 0.0f;
        do {
            float taken = fixedSum;
            float unclampedWeight = 0.0f;
            for (size_t i = 0; i < infos.size(); ++i) {
                if (infos[i].fixed)
                    continue;
                if (clamped[i])
                    taken += infos[i].minWidth;
                else
                    unclampedWeight += weight(infos[i]);
            }
            share = width - taken;
            factor = share / unclampedWeight;
        } while (clampPass(factor));
    }
    for (size_t i = 0; i < infos.size(); ++i) {
        const ColumnInfo& info = infos[i];
        if (info.fixed)
            widths[i] = info.initialWidth;
        else if (clamped[i])
            widths[i] = info.minWidth;
        else
            widths[i] = weight(info) * factor;
    }
}

// Largest remainder: the pixels lost by truncation go to the columns with the largest fractions,
// ties in index order. Only a column with a fraction gets a pixel: a distribution that leaves room
// over (fixed columns alone) keeps whole widths as they are, so a relayout never grows them. The
// sums are taken in wide integers, so that many long columns cannot wrap the 16-bit remainder.
void RoundToPixels(float width, Widths& widths)
{
    const std::int64_t wholeWidth = Pixels::Truncated(width);
    std::int64_t truncatedSum = 0;
    std::vector<short> truncated(widths.size());
    std::vector<float> fractions(widths.size());
    for (size_t i = 0; i < widths.size(); ++i) {
        truncated[i] = Pixels::Truncated(widths[i]);
        fractions[i] = widths[i] - truncated[i];
        truncatedSum += truncated[i];
        widths[i] = truncated[i];
    }
    std::vector<size_t> order(widths.size());
    std::iota(order.begin(), order.end(), size_t {0});
    std::stable_sort(order.begin(), order.end(), [&](size_t a, size_t b) { return fractions[a] > fractions[b]; });
    std::int64_t left = wholeWidth - truncatedSum;
    for (size_t i : order) {
        if (left <= 0 || !(fractions[i] > 0.0f))
            break;
        widths[i] = static_cast<float>(Pixels::Add(truncated[i], 1));
        --left;
    }
}

}  // namespace

void ResizeColumns(const std::function<IColumn*(size_t)>& columnAt, size_t count, float requestedWidth,
                   bool roundToPixels)
{
    const float width = Pixels::Length(requestedWidth);
    std::vector<ColumnInfo> infos;
    infos.reserve(count);
    float minSum = 0.0f;
    float fixedSum = 0.0f;
    float proportionalMin = 0.0f;
    for (size_t i = 0; i < count; ++i) {
        IColumn* column = columnAt(i);
        ColumnInfo info {column, column->IsFixed(), Pixels::Length(column->GetMinWidth()),
                         Pixels::Length(column->GetInitialWidth())};
        minSum += info.minWidth;
        if (info.fixed)
            fixedSum += info.initialWidth;
        else
            proportionalMin += info.minWidth;
        infos.push_back(info);
    }

    Widths widths(count, 0.0f);
    if (minSum >= width)
        SetMinimumWidths(infos, widths);
    else if (fixedSum + proportionalMin >= width)
        DistributeTight(infos, width, proportionalMin, widths);
    else
        DistributeRoom(infos, width, fixedSum, widths);

    if (roundToPixels)
        RoundToPixels(width, widths);

    for (size_t i = 0; i < count; ++i)
        if (infos[i].column->GetWidth() != widths[i])
            infos[i].column->SetWidth(widths[i]);
}

void ResizeColumns(const std::vector<IColumn*>& columns, float width, bool roundToPixels)
{
    ResizeColumns([&columns](size_t i) { return columns[i]; }, columns.size(), width, roundToPixels);
}

}  // namespace WZ
