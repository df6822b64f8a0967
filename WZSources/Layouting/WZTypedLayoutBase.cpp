#include "WZSources/Layouting/WZTypedLayoutBase.hpp"

#include "WZSources/ColumnModel/WZPixels.hpp"
#include "WZSources/ColumnModel/WZResizeColumns.hpp"
#include "WZSources/Layouting/WZLayoutAxis.hpp"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <variant>
#include <vector>

namespace WZ::Layouting {

namespace {

// One column of a pass; `item` is null for the filler.
template <typename D>
struct PassColumn {
    IColumn* column;
    const D* item;
};

short To16(std::int64_t value)
{
    return Pixels::Saturated(value);
}

}  // namespace

template <typename D>
void TypedLayoutBase<D>::ApplyLayout(const QM::Rect& rect) const
{
    using Axis = LayoutAxis<D>;

    std::vector<const D*> visible;
    visible.reserve(GetItemCount());
    for (NK::UIndex i = 0; i < GetItemCount(); ++i)
        if (GetItem(i).IsVisible())
            visible.push_back(&GetItem(i));

    // Gap, margin and insets are never negative (their setters see to it); the sums are taken in
    // wide integers and held in the 16-bit range, so huge values squeeze the items, never wrap.
    const Inset& margin = GetMargin();
    const std::int64_t n = static_cast<std::int64_t>(visible.size());
    std::int64_t insets = 0;
    for (const D* item : visible)
        insets += Axis::Before(item->GetInset()) + Axis::After(item->GetInset());
    const std::int64_t gaps = std::max<std::int64_t>(0, n - 1) * GetGap();
    short available = To16(Axis::MainLength(rect) - (gaps + Axis::After(margin) + Axis::Before(margin)) - insets);

    NotifyWillCalculateLayout(rect, available);

    // The pools are sized up front, so the pointers into them stay valid.
    std::vector<FixedColumn> fixedColumns;
    std::vector<ProportionalColumn> proportionalColumns;
    fixedColumns.reserve(visible.size());
    proportionalColumns.reserve(visible.size() + 1);
    std::vector<PassColumn<D>> columns;
    columns.reserve(visible.size() + 1);
    bool anyProportional = false;
    for (const D* item : visible) {
        std::visit(
            [&](const auto& policy) {
                using Policy = std::decay_t<decltype(policy)>;
                if constexpr (std::is_same_v<Policy, typename D::MainFixedPolicy>) {
                    columns.push_back({&fixedColumns.emplace_back(Axis::FixedSize(policy)), item});
                } else if constexpr (std::is_same_v<Policy, typename D::MainProportionalPolicy>) {
                    columns.push_back({&proportionalColumns.emplace_back(Axis::Weight(policy)), item});
                    anyProportional = true;
                }
            },
            item->GetMainPolicy());
    }
    if (!anyProportional) {
        columns.push_back({&proportionalColumns.emplace_back(1.0f), nullptr});
        if (GetGravity() == Gravity::End)
            std::reverse(columns.begin(), columns.end());
    }

    ResizeColumns([&columns](size_t i) { return columns[i].column; }, columns.size(), available, true);

    short crossStart = To16(std::int64_t {Axis::CrossStart(rect)} + Axis::CrossBefore(margin));
    short crossAvailable = To16(std::max<std::int64_t>(
        0, std::int64_t {Axis::CrossLength(rect)} - Axis::CrossAfter(margin) - Axis::CrossBefore(margin)));
    std::int64_t position = std::int64_t {Axis::MainStart(rect)} + Axis::Before(margin);
    for (size_t i = 0; i < columns.size(); ++i) {
        const PassColumn<D>& entry = columns[i];
        short length = Pixels::Truncated(entry.column->GetWidth());
        if (entry.item == nullptr) {
            if (i == 0)
                position += length;
            continue;
        }
        const D& item = *entry.item;
        position += Axis::Before(item.GetInset());
        item.ApplyRect(Axis::MakeRect(To16(position), To16(std::int64_t {crossStart} + Axis::CrossOffset(item, crossAvailable)),
                                      length, Axis::CrossSize(item, crossAvailable)));
        position += Axis::After(item.GetInset()) + GetGap() + length;
    }
}

template class TypedLayoutBase<HItemDescriptor>;
template class TypedLayoutBase<VItemDescriptor>;

}  // namespace WZ::Layouting
