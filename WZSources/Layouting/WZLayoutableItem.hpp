// A client object placed by a linear layout: anything that can take a rectangle, be shown and
// hidden, and tell which toolkit items it moves (a composite control, a custom drawn area).
// LayoutableItemDescriptor owns it and makes it an item of a horizontal or vertical layout.
#pragma once

#include "NK/NKPointers.hpp"
#include "WZSources/Layouting/WZItemDescriptor.hpp"

namespace WZ::Layouting {

class ILayoutableItem {
public:
    virtual void ApplyRect(const QM::Rect& rect) = 0;
    virtual void SetVisibility(bool visible) = 0;
    virtual bool IsVisible() const = 0;
    virtual ManagedQMItems GetManagedQMItems() const = 0;
    virtual ~ILayoutableItem();
};

template <typename D>
class LayoutableItemDescriptor : public D {
public:
    LayoutableItemDescriptor(NK::Owner<ILayoutableItem> item, typename D::MainPolicy mainPolicy,
                             typename D::CrossPolicy crossPolicy, const Inset& inset)
        : D(std::move(mainPolicy), std::move(crossPolicy), inset), item(std::move(item))
    {
    }

    ILayoutableItem& GetItem() const { return *item; }

    void ApplyRect(const QM::Rect& rect) const override { item->ApplyRect(rect); }
    ManagedQMItems GetManagedQMItems() const override { return item->GetManagedQMItems(); }
    void Hide() override { item->SetVisibility(false); }
    void Show() override { item->SetVisibility(true); }
    bool IsVisible() const override { return item->IsVisible(); }

private:
    NK::Owner<ILayoutableItem> item;
};

}  // namespace WZ::Layouting
