// Item descriptors: how one item of a linear layout is sized and placed.
//
// ItemDescriptorBase holds the item's own inset and the operations every placed item has.
// TypedItemDescriptorBase adds the main-axis policy (empty, fixed, proportional) and the
// cross-axis policy (empty, fixed with an alignment, fill). HItemDescriptor / VItemDescriptor
// compute the cross-axis size and offset for the items of horizontal / vertical layouts.
// Reading a policy variant that is valueless throws std::bad_variant_access.
#pragma once

#include "NK/NKHashTable.hpp"
#include "QM/QMGeometry.hpp"
#include "WZSources/Layouting/WZInset.hpp"
#include "WZSources/Layouting/WZSizePolicies.hpp"

#include <utility>
#include <variant>

namespace QM {
class Item;
}

namespace WZ::Layouting {

// The toolkit items a layout or an item places.
using ManagedQMItems = NK::HashSet<QM::Item*>;

// Bad sizes are reported when they are given ("inset >= 0", "policy sizes are lengths") and a
// layout pass takes them as the nearest lengths it can use: negative as 0, NaN weights as 0.
class ItemDescriptorBase {
public:
    explicit ItemDescriptorBase(const Inset& inset = {});
    ItemDescriptorBase(const ItemDescriptorBase&) = delete;
    ItemDescriptorBase& operator=(const ItemDescriptorBase&) = delete;
    virtual ~ItemDescriptorBase();

    const Inset& GetInset() const noexcept { return inset; }
    void SetInset(const Inset& newInset);

    // Places the item in the rectangle its layout computed for it.
    virtual void ApplyRect(const QM::Rect& rect) const = 0;
    virtual ManagedQMItems GetManagedQMItems() const = 0;
    virtual void Hide() = 0;
    virtual void Show() = 0;
    // Hidden items take no room in their layout.
    virtual bool IsVisible() const = 0;
    // True when every policy the item needs is set.
    virtual bool IsValid() const = 0;
    // An empty space rather than content; a layout of visible spacing alone shows nothing.
    virtual bool IsSpacing() const { return false; }

private:
    Inset inset;
};

// Reports "policy sizes are lengths" when `usable` is false.
void ReportUnusablePolicy(bool usable);

template <typename MainFixed, typename MainProportional, typename CrossFixed, typename CrossFill>
class TypedItemDescriptorBase : public ItemDescriptorBase {
public:
    using MainFixedPolicy = MainFixed;
    using MainProportionalPolicy = MainProportional;
    using CrossFixedPolicy = CrossFixed;
    using CrossFillPolicy = CrossFill;
    using MainPolicy = std::variant<std::monostate, MainFixed, MainProportional>;
    using CrossPolicy = std::variant<std::monostate, CrossFixed, CrossFill>;

    TypedItemDescriptorBase(MainPolicy mainPolicy, CrossPolicy crossPolicy, const Inset& inset)
        : ItemDescriptorBase(inset), mainPolicy(std::move(mainPolicy)), crossPolicy(std::move(crossPolicy))
    {
        CheckPolicy(this->mainPolicy);
        CheckPolicy(this->crossPolicy);
    }

    const MainPolicy& GetMainPolicy() const noexcept { return mainPolicy; }
    const CrossPolicy& GetCrossPolicy() const noexcept { return crossPolicy; }
    void SetMainPolicy(MainPolicy policy)
    {
        mainPolicy = std::move(policy);
        CheckPolicy(mainPolicy);
    }
    void SetCrossPolicy(CrossPolicy policy)
    {
        crossPolicy = std::move(policy);
        CheckPolicy(crossPolicy);
    }

    bool IsValid() const override { return IsSet(mainPolicy) && IsSet(crossPolicy); }

protected:
    template <typename Variant>
    static bool IsSet(const Variant& policy) noexcept
    {
        return !policy.valueless_by_exception() && !std::holds_alternative<std::monostate>(policy);
    }

private:
    template <typename Variant>
    static void CheckPolicy(const Variant& policy)
    {
        if (!policy.valueless_by_exception())
            ReportUnusablePolicy(std::visit([](const auto& p) { return IsUsable(p); }, policy));
    }

    MainPolicy mainPolicy;
    CrossPolicy crossPolicy;
};

// An item of a horizontal layout: widths along the axis, heights across it.
class HItemDescriptor : public TypedItemDescriptorBase<HFixedWidth, HProportionalWidth, HFixedHeight, HAutoFillHeight> {
public:
    using TypedItemDescriptorBase::TypedItemDescriptorBase;

    short GetHeight(short available) const;
    short GetY(short available) const;
    short GetOwnInsetsForWidth() const;
    short GetOwnInsetsForHeight() const;
};

// An item of a vertical layout: heights along the axis, widths across it.
class VItemDescriptor : public TypedItemDescriptorBase<VFixedHeight, VProportionalHeight, VFixedWidth, VAutoFillWidth> {
public:
    using TypedItemDescriptorBase::TypedItemDescriptorBase;

    short GetWidth(short available) const;
    short GetX(short available) const;
    short GetOwnInsetsForWidth() const;
    short GetOwnInsetsForHeight() const;
};

}  // namespace WZ::Layouting
