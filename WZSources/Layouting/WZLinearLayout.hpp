// The two linear layouts: HorizontalLinearLayout places its items side by side, left to right;
// VerticalLinearLayout stacks them, top to bottom. Items are toolkit items, spacing, client
// layoutable objects or nested layouts; every Add returns the new descriptor, which stays owned
// by the layout and lives as long as it does.
//
//   WZ::Layouting::HorizontalLinearLayout row;
//   row.SetGap(8);
//   row.Add(label, HFixedWidth {80}, HFixedHeight {VerticalAlignment::Center, 20});
//   row.Add(edit, HProportionalWidth {1}, HAutoFillHeight {});
//   row.ApplyLayout(QM::Rect(0, 0, 400, 30));
#pragma once

#include "WZSources/Layouting/WZLayoutItemDescriptor.hpp"
#include "WZSources/Layouting/WZLayoutableItem.hpp"
#include "WZSources/Layouting/WZQMItemDescriptor.hpp"
#include "WZSources/Layouting/WZSpacingItem.hpp"
#include "WZSources/Layouting/WZTypedLayoutBase.hpp"

namespace WZ::Layouting {

// The operations both directions share, over their descriptor kind D.
template <typename D>
class LinearLayout : public TypedLayoutBase<D> {
public:
    using MainPolicy = typename D::MainPolicy;
    using CrossPolicy = typename D::CrossPolicy;
    using TypedLayoutBase<D>::Add;

    QMItemDescriptor<D>& Add(QM::Item& item, MainPolicy mainPolicy, CrossPolicy crossPolicy, const Inset& inset = {})
    {
        return Add(NK::NewOwned<QMItemDescriptor<D>>(item, std::move(mainPolicy), std::move(crossPolicy), inset));
    }

    LayoutableItemDescriptor<D>& Add(NK::Owner<ILayoutableItem> item, MainPolicy mainPolicy, CrossPolicy crossPolicy,
                                     const Inset& inset = {})
    {
        return Add(NK::NewOwned<LayoutableItemDescriptor<D>>(std::move(item), std::move(mainPolicy),
                                                             std::move(crossPolicy), inset));
    }

    // Adds a nested layout, owned from now on by its descriptor (GetLayout reaches it).
    template <typename L>
    LayoutItemDescriptor<D, L>& AddLayout(NK::Owner<L> layout, MainPolicy mainPolicy, CrossPolicy crossPolicy,
                                          const Inset& inset = {})
    {
        return Add(NK::NewOwned<LayoutItemDescriptor<D, L>>(std::move(layout), std::move(mainPolicy),
                                                            std::move(crossPolicy), inset));
    }

    SpacingItem<D>& AddSpacing(MainPolicy mainPolicy) { return Add(NK::NewOwned<SpacingItem<D>>(std::move(mainPolicy))); }
};

class HorizontalLinearLayout : public LinearLayout<HItemDescriptor> {};

class VerticalLinearLayout : public LinearLayout<VItemDescriptor> {};

using HVLayoutItemDescriptor = LayoutItemDescriptor<HItemDescriptor, VerticalLinearLayout>;
using VHLayoutItemDescriptor = LayoutItemDescriptor<VItemDescriptor, HorizontalLinearLayout>;

}  // namespace WZ::Layouting
