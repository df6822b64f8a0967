#include "WZSources/Diff/WZQMAccessors.hpp"

namespace WZ {

QMTreeViewAccessor::QMTreeViewAccessor(QM::TreeView* treeView) : treeView(treeView) {}

QMTreeViewAccessor::~QMTreeViewAccessor() = default;

void QMTreeViewAccessor::BeginItemEdit(int item)
{
    if (treeView != nullptr)
        treeView->BeginItemEdit(item);
}

void QMTreeViewAccessor::DisableDraw()
{
    if (treeView != nullptr)
        treeView->DisableDraw();
}

void QMTreeViewAccessor::EnableDraw()
{
    if (treeView != nullptr)
        treeView->EnableDraw();
}

int QMTreeViewAccessor::GetSelectedCount() const
{
    return treeView != nullptr ? treeView->GetSelectedCount() : 0;
}

int QMTreeViewAccessor::GetSelectedItem(int index) const
{
    return treeView != nullptr ? treeView->GetSelectedItem(index) : QM::TreeView::NoItem;
}

void QMTreeViewAccessor::RedrawItem(int item)
{
    if (treeView != nullptr)
        treeView->RedrawItem(item);
}

QMItemAccessor::QMItemAccessor(QM::Item* item) : item(item) {}

QMItemAccessor::~QMItemAccessor() = default;

QM::Rect QMItemAccessor::GetRect() const
{
    return item != nullptr ? item->GetRect() : QM::Rect();
}

void QMItemAccessor::Hide()
{
    if (item != nullptr)
        item->Hide();
}

void QMItemAccessor::Show()
{
    if (item != nullptr)
        item->Show();
}

bool QMItemAccessor::IsVisible() const
{
    return item != nullptr && item->IsVisible();
}

void QMItemAccessor::SetVisibility(bool visible)
{
    if (item != nullptr)
        item->SetVisibility(visible);
}

void QMItemAccessor::Move(short x, short y)
{
    if (item != nullptr)
        item->Move(x, y);
}

void QMItemAccessor::Resize(short width, short height)
{
    if (item != nullptr)
        item->Resize(width, height);
}

void QMItemAccessor::MoveAndResize(short x, short y, short width, short height)
{
    if (item != nullptr)
        item->MoveAndResize(x, y, width, height);
}

void QMItemAccessor::Redraw() const
{
    if (item != nullptr)
        item->Redraw();
}

}  // namespace WZ
