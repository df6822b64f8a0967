// LayoutBase: what horizontal and vertical linear layouts share. A layout owns its item
// descriptors in the order they were added; it has an optional delegate told before every pass,
// a gap between adjacent items, a margin inside its rectangle and a gravity. A new layout has no
// items, no delegate, gap 0, margin 0 and gravity Start.
// Laying out is a function of the rectangle given: nothing is remembered between passes.
#pragma once

#include "NK/NKArray.hpp"
#include "NK/NKPointers.hpp"
#include "WZSources/Layouting/WZItemDescriptor.hpp"

namespace QM {
class Dialog;
}

namespace WZ::Layouting {

// Where the items go when none of them takes a proportional share: End packs them at the far end
// of the axis (right, bottom), in reverse order of addition; every other value at the start.
enum class Gravity : NK::Int32 { Start = 0, End = 1 };

class LayoutBase {
public:
    class Delegate {
    public:
        // Called before each pass with the main-axis room left for the items.
        virtual void WillCalculateLayout(const LayoutBase& layout, const QM::Rect& rect, short available) = 0;
        virtual ~Delegate();
    };

    LayoutBase() = default;
    LayoutBase(const LayoutBase&) = delete;
    LayoutBase& operator=(const LayoutBase&) = delete;
    virtual ~LayoutBase();

    virtual void ApplyLayout(const QM::Rect& rect) const = 0;
    // Lays a whole dialog out inside one move/resize bracket of the dialog, so that the toolkit
    // repaints the moved items once.
    void ApplyLayout(QM::Dialog& dialog, const QM::Rect& rect) const;

    // True when some visible item shows content (visible spacing alone does not count).
    bool ContainsVisible() const;
    // The toolkit items placed by this layout and the layouts nested in it.
    ManagedQMItems GetManagedQMItems() const;
    void HideAll();
    void ShowAll();
    // True when every item, nested layouts included, has the policies it needs.
    bool IsValid() const;

    void SetDelegate(Delegate* newDelegate) noexcept { delegate = newDelegate; }
    Delegate* GetDelegate() const noexcept { return delegate; }
    // A negative gap or margin side is reported ("gap >= 0", "margin >= 0") and taken as 0.
    void SetGap(short newGap);
    short GetGap() const noexcept { return gap; }
    void SetMargin(const Inset& newMargin);
    const Inset& GetMargin() const noexcept { return margin; }
    void SetGravity(Gravity newGravity) noexcept { gravity = newGravity; }
    Gravity GetGravity() const noexcept { return gravity; }

    NK::UIndex GetItemCount() const noexcept { return itemDescriptors.GetSize(); }
    ItemDescriptorBase& GetItemDescriptor(NK::UIndex index) const { return *itemDescriptors[index]; }

protected:
    ItemDescriptorBase& AddDescriptor(NK::Owner<ItemDescriptorBase> descriptor);
    void NotifyWillCalculateLayout(const QM::Rect& rect, short available) const;

private:
    NK::Array<NK::Owner<ItemDescriptorBase>> itemDescriptors;
    Delegate* delegate = nullptr;
    short gap = 0;
    Inset margin;
    Gravity gravity = Gravity::Start;
};

}  // namespace WZ::Layouting
