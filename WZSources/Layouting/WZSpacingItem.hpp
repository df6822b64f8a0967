// An empty space of a linear layout: it has a main-axis policy and takes room like an item, but
// places nothing. Hiding it gives its room back to the other items.
#pragma once

#include "WZSources/Layouting/WZItemDescriptor.hpp"

namespace WZ::Layouting {

template <typename D>
class SpacingItem : public D {
public:
    explicit SpacingItem(typename D::MainPolicy mainPolicy) : D(std::move(mainPolicy), {}, Inset {}) {}

    void ApplyRect(const QM::Rect&) const override {}
    ManagedQMItems GetManagedQMItems() const override { return {}; }
    void Hide() override { visible = false; }
    void Show() override { visible = true; }
    bool IsVisible() const override { return visible; }
    bool IsValid() const override { return D::IsSet(D::GetMainPolicy()); }
    bool IsSpacing() const override { return true; }

private:
    bool visible = true;
};

using HSpacingItem = SpacingItem<HItemDescriptor>;
using VSpacingItem = SpacingItem<VItemDescriptor>;

}  // namespace WZ::Layouting
