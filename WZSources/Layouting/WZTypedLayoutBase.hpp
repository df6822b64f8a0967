// TypedLayoutBase<D>: a linear layout whose items are descriptors of kind D (HItemDescriptor for
// horizontal layouts, VItemDescriptor for vertical ones) and its layout pass.
//
// The pass, for the visible items in order of addition:
//  - the room along the axis is the rectangle's length less the margin, the gaps between the
//    items and the items' own insets; the delegate hears of it first;
//  - every item with a main-axis policy gets a column (fixed: its size; proportional: its weight
//    as both minimum and width); when no item is proportional a filler column of weight 1 is
//    added after them, and with gravity End the column list is reversed so that the filler comes
//    first and pushes the items, last-added first, to the far end;
//  - the room is shared among the columns in whole pixels (WZ::ResizeColumns), the cross axis
//    by each item's cross policy, and each item gets its rectangle through ApplyRect.
// Items with an empty main-axis policy are neither sized nor moved; a valueless policy variant
// throws std::bad_variant_access.
#pragma once

#include "WZSources/Layouting/WZLayoutBase.hpp"

namespace WZ::Layouting {

template <typename D>
class TypedLayoutBase : public LayoutBase {
public:
    using Descriptor = D;
    using LayoutBase::ApplyLayout;

    void ApplyLayout(const QM::Rect& rect) const override;

    // Adds a descriptor of the client's own kind.
    template <typename Derived>
    Derived& Add(NK::Owner<Derived> descriptor)
    {
        Derived& added = *descriptor;
        AddDescriptor(NK::Owner<ItemDescriptorBase>(std::move(descriptor)));
        return added;
    }

    D& GetItem(NK::UIndex index) const { return static_cast<D&>(GetItemDescriptor(index)); }
};

extern template class TypedLayoutBase<HItemDescriptor>;
extern template class TypedLayoutBase<VItemDescriptor>;

}  // namespace WZ::Layouting
