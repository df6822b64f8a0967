#include "WZSources/Layouting/WZQMItemDescriptor.hpp"

#include "QM/QMItem.hpp"
#include "WZSources/ColumnModel/WZPixels.hpp"

#include <algorithm>

namespace WZ::Layouting {

template <typename D>
void QMItemDescriptor<D>::ApplyRect(const QM::Rect& rect) const
{
    short width = std::max<short>(0, rect.GetWidth());
    short height = std::max<short>(0, rect.GetHeight());
    QM::Rect target(rect.GetLeft(), rect.GetTop(), Pixels::Add(rect.GetLeft(), width), Pixels::Add(rect.GetTop(), height));
    if (item.GetRect() == target)
        return;
    item.MoveAndResize(rect.GetLeft(), rect.GetTop(), width, height);
}

template <typename D>
ManagedQMItems QMItemDescriptor<D>::GetManagedQMItems() const
{
    ManagedQMItems items;
    items.Add(&item);
    return items;
}

template <typename D>
void QMItemDescriptor<D>::Hide()
{
    item.Hide();
}

template <typename D>
void QMItemDescriptor<D>::Show()
{
    item.Show();
}

template <typename D>
bool QMItemDescriptor<D>::IsVisible() const
{
    return item.IsVisible();
}

template class QMItemDescriptor<HItemDescriptor>;
template class QMItemDescriptor<VItemDescriptor>;

}  // namespace WZ::Layouting
