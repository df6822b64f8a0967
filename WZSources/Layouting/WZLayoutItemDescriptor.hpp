// A nested layout as an item of another layout. The descriptor owns the nested layout; applying
// a rectangle lays the nested layout out in it. Hiding and showing go to all of its items, and
// it counts as visible while it shows some content.
//   HVLayoutItemDescriptor: a vertical layout inside a horizontal one.
//   VHLayoutItemDescriptor: a horizontal layout inside a vertical one.
#pragma once

#include "NK/NKPointers.hpp"
#include "WZSources/Layouting/WZLayoutBase.hpp"

namespace WZ::Layouting {

template <typename D, typename L>
class LayoutItemDescriptor : public D {
public:
    LayoutItemDescriptor(NK::Owner<L> layout, typename D::MainPolicy mainPolicy, typename D::CrossPolicy crossPolicy,
                         const Inset& inset)
        : D(std::move(mainPolicy), std::move(crossPolicy), inset), layout(std::move(layout))
    {
    }

    L& GetLayout() const { return *layout; }

    void ApplyRect(const QM::Rect& rect) const override { layout->ApplyLayout(rect); }
    ManagedQMItems GetManagedQMItems() const override { return layout->GetManagedQMItems(); }
    void Hide() override { layout->HideAll(); }
    void Show() override { layout->ShowAll(); }
    bool IsVisible() const override { return layout->ContainsVisible(); }
    bool IsValid() const override { return D::IsValid() && layout->IsValid(); }

private:
    NK::Owner<L> layout;
};

}  // namespace WZ::Layouting
