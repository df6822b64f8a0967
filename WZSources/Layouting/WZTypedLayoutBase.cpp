#include "WZSources/Layouting/WZTypedLayoutBase.hpp"

#include "WZSources/ColumnModel/WZResizeColumns.hpp"
#include "WZSources/Layouting/WZLayoutAxis.hpp"

#include <algorithm>
#include <cmath>
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

short To16(int value)
{
    return static_cast<short>(value);
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

    const Inset& margin = GetMargin();
    int n = static_cast<int>(visible.size());
    int insets = 0;
    for (const D* item : visible)
        insets += Axis::Before(item->GetInset()) + Axis::After(item->GetInset());
    short available = To16(Axis::MainLength(rect) - ((n - 1) * GetGap() + Axis::After(margin) + Axis::Before(margin)) - insets);

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

    short crossStart = To16(Axis::CrossStart(rect) + Axis::CrossBefore(margin));
    short crossAvailable = To16(Axis::CrossLength(rect) - Axis::CrossAfter(margin) - Axis::CrossBefore(margin));
    int position = Axis::MainStart(rect) + Axis::Before(margin);
    for (size_t i = 0; i < columns.size(); ++i) {
        const PassColumn<D>& entry = columns[i];
        short length = To16(static_cast<int>(std::trunc(entry.column->GetWidth())));
        if (entry.item == nullptr) {
            if (i == 0)
                position += length;
            continue;
        }
        const D& item = *entry.item;
        position += Axis::Before(item.GetInset());
        item.ApplyRect(Axis::MakeRect(To16(position), To16(crossStart + Axis::CrossOffset(item, crossAvailable)), length,
                                      Axis::CrossSize(item, crossAvailable)));
        position += Axis::After(item.GetInset()) + GetGap() + length;
    }
}

template class TypedLayoutBase<HItemDescriptor>;
template class TypedLayoutBase<VItemDescriptor>;

}  // namespace WZ::Layouting
