#include "WZSources/ColumnModel/WZResizeColumns.hpp"

#include "NK/NKTypes.hpp"

#include <algorithm>
#include <cmath>
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

// Truncation toward zero into 16 bits; values outside the 16-bit range are held at its ends so
// that the conversion stays defined.
NK::Int16 TruncateTo16(float value)
{
    if (std::isnan(value))
        return 0;
    float truncated = std::trunc(value);
    truncated = std::clamp(truncated, -32768.0f, 32767.0f);
    return static_cast<NK::Int16>(truncated);
}

NK::Int16 Add16(NK::Int16 a, NK::Int16 b)
{
    return static_cast<NK::Int16>(static_cast<int>(a) + static_cast<int>(b));
}

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
// bisection over the number of steps instead of one step at a time.
float FindFixedCap(const std::vector<ColumnInfo>& infos, float room)
{
    float widest = 0.0f;
    bool anyFixed = false;
    size_t fixedCount = 0;
    for (const ColumnInfo& info : infos) {
        if (!info.fixed)
            continue;
        widest = anyFixed ? std::max(widest, info.initialWidth) : info.initialWidth;
        anyFixed = true;
        ++fixedCount;
    }
    auto fits = [&](double steps) { return SumOfCappedFixed(infos, static_cast<float>(widest - steps)) <= room; };
    if (!anyFixed || fits(0.0))
        return widest;
    // With the cap at room / fixedCount the capped columns fit whatever their widths; step
    // beyond that until it holds in float arithmetic as well.
    double high = std::max(1.0, std::ceil(static_cast<double>(widest) - static_cast<double>(room) / fixedCount));
    for (int guard = 0; guard < 64 && !fits(high); ++guard)
        high *= 2.0;
    double low = 0.0;  // does not fit
    while (high - low > 1.0) {
        double mid = std::floor((low + high) / 2.0);
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
// ties in index order.
void RoundToPixels(float width, Widths& widths)
{
    NK::Int16 wholeWidth = TruncateTo16(width);
    NK::Int16 truncatedSum = 0;
    std::vector<NK::Int16> truncated(widths.size());
    std::vector<float> fractions(widths.size());
    for (size_t i = 0; i < widths.size(); ++i) {
        truncated[i] = TruncateTo16(widths[i]);
        fractions[i] = widths[i] - truncated[i];
        truncatedSum = Add16(truncatedSum, truncated[i]);
        widths[i] = truncated[i];
    }
    std::vector<size_t> order(widths.size());
    std::iota(order.begin(), order.end(), size_t {0});
    std::stable_sort(order.begin(), order.end(), [&](size_t a, size_t b) { return fractions[a] > fractions[b]; });
    NK::Int16 left = static_cast<NK::Int16>(wholeWidth - truncatedSum);
    for (size_t i : order) {
        if (left <= 0)
            break;
        widths[i] = static_cast<float>(truncated[i] + 1);
        --left;
    }
}

}  // namespace

void ResizeColumns(const std::function<IColumn*(size_t)>& columnAt, size_t count, float width, bool roundToPixels)
{
    std::vector<ColumnInfo> infos;
    infos.reserve(count);
    float minSum = 0.0f;
    float fixedSum = 0.0f;
    float proportionalMin = 0.0f;
    for (size_t i = 0; i < count; ++i) {
        IColumn* column = columnAt(i);
        ColumnInfo info {column, column->IsFixed(), column->GetMinWidth(), column->GetInitialWidth()};
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
