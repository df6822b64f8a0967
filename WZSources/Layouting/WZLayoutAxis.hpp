// The two axes of linear layouts. A horizontal layout runs along x with widths and sizes its
// items' heights across; a vertical one is the same with the axes exchanged. The layout pass is
// written once over these traits.
#pragma once

#include "QM/QMGeometry.hpp"
#include "WZSources/ColumnModel/WZPixels.hpp"
#include "WZSources/Layouting/WZItemDescriptor.hpp"

namespace WZ::Layouting {

template <typename D>
struct LayoutAxis;

template <>
struct LayoutAxis<HItemDescriptor> {
    static short MainLength(const QM::Rect& r) { return r.GetWidth(); }
    static short CrossLength(const QM::Rect& r) { return r.GetHeight(); }
    static short MainStart(const QM::Rect& r) { return r.GetLeft(); }
    static short CrossStart(const QM::Rect& r) { return r.GetTop(); }
    static short Before(const Inset& inset) { return inset.left; }
    static short After(const Inset& inset) { return inset.right; }
    static short CrossBefore(const Inset& inset) { return inset.top; }
    static short CrossAfter(const Inset& inset) { return inset.bottom; }
    static short CrossSize(const HItemDescriptor& d, short available) { return d.GetHeight(available); }
    static short CrossOffset(const HItemDescriptor& d, short available) { return d.GetY(available); }
    static float FixedSize(const HFixedWidth& policy) { return Pixels::Length(policy.width); }
    static float Weight(const HProportionalWidth& policy) { return Pixels::Length(policy.weight); }
    static QM::Rect MakeRect(short main, short cross, short mainLength, short crossLength)
    {
        return QM::Rect(main, cross, Pixels::Add(main, mainLength), Pixels::Add(cross, crossLength));
    }
};

template <>
struct LayoutAxis<VItemDescriptor> {
    static short MainLength(const QM::Rect& r) { return r.GetHeight(); }
    static short CrossLength(const QM::Rect& r) { return r.GetWidth(); }
    static short MainStart(const QM::Rect& r) { return r.GetTop(); }
    static short CrossStart(const QM::Rect& r) { return r.GetLeft(); }
    static short Before(const Inset& inset) { return inset.top; }
    static short After(const Inset& inset) { return inset.bottom; }
    static short CrossBefore(const Inset& inset) { return inset.left; }
    static short CrossAfter(const Inset& inset) { return inset.right; }
    static short CrossSize(const VItemDescriptor& d, short available) { return d.GetWidth(available); }
    static short CrossOffset(const VItemDescriptor& d, short available) { return d.GetX(available); }
    static float FixedSize(const VFixedHeight& policy) { return Pixels::Length(policy.height); }
    static float Weight(const VProportionalHeight& policy) { return Pixels::Length(policy.weight); }
    static QM::Rect MakeRect(short main, short cross, short mainLength, short crossLength)
    {
        return QM::Rect(cross, main, Pixels::Add(cross, crossLength), Pixels::Add(main, mainLength));
    }
};

}  // namespace WZ::Layouting
