// A toolkit item as an item of a linear layout. Applying a rectangle moves and resizes the
// toolkit item (sizes below 0 become 0, so a squeezed layout never asks for a negative size);
// an item already in that rectangle is left alone. Hiding and showing go to the toolkit item.
#pragma once

#include "WZSources/Layouting/WZItemDescriptor.hpp"

namespace WZ::Layouting {

template <typename D>
class QMItemDescriptor : public D {
public:
    QMItemDescriptor(QM::Item& item, typename D::MainPolicy mainPolicy, typename D::CrossPolicy crossPolicy,
                     const Inset& inset)
        : D(std::move(mainPolicy), std::move(crossPolicy), inset), item(item)
    {
    }

    QM::Item& GetQMItem() const noexcept { return item; }

    void ApplyRect(const QM::Rect& rect) const override;
    ManagedQMItems GetManagedQMItems() const override;
    void Hide() override;
    void Show() override;
    bool IsVisible() const override;

private:
    QM::Item& item;
};

extern template class QMItemDescriptor<HItemDescriptor>;
extern template class QMItemDescriptor<VItemDescriptor>;

using HQMItemDescriptor = QMItemDescriptor<HItemDescriptor>;
using VQMItemDescriptor = QMItemDescriptor<VItemDescriptor>;

}  // namespace WZ::Layouting
