#include "WZSources/ListBoxView/WZUntypedListBoxView.hpp"

namespace WZ {

UntypedListBoxView::DrawSuspender::DrawSuspender(QM::ListBox& listBox) : listBox(&listBox)
{
    listBox.DisableDraw();
}

UntypedListBoxView::DrawSuspender::DrawSuspender(DrawSuspender&& other) noexcept : listBox(other.listBox)
{
    other.listBox = nullptr;
}

UntypedListBoxView::DrawSuspender::~DrawSuspender()
{
    if (listBox == nullptr)
        return;
    listBox->EnableDraw();
    listBox->Redraw();
}

UntypedListBoxView::UntypedListBoxView(QM::ListBox& listBox, NK::Owner<LayoutBase> layout)
    : listBox(listBox), layout(std::move(layout))
{
    listBox.Attach(*this);
}

UntypedListBoxView::~UntypedListBoxView()
{
    listBox.Detach(*this);
}

void UntypedListBoxView::SetupColumns()
{
    DrawSuspender suspender(listBox);
    layout->SetupListBox(listBox);
    layout->DoLayout(listBox);
    ColumnsChanged();
}

void UntypedListBoxView::MoveAndResize(short x, short y, short width, short height)
{
    listBox.MoveAndResize(x, y, width, height);
    Relayout();
}

void UntypedListBoxView::Resize(short width, short height)
{
    listBox.Resize(width, height);
    Relayout();
}

void UntypedListBoxView::Relayout()
{
    DrawSuspender suspender(listBox);
    LayoutColumns();
}

void UntypedListBoxView::LayoutColumns()
{
    layout->DoLayout(listBox);
}

void UntypedListBoxView::HeaderItemResized(const QM::ListBoxHeaderEvent& event)
{
    layout->GetBaseColumnManager().HeaderResized(listBox, event.headerItem, listBox.GetHeaderItemSize(event.headerItem));
}

void UntypedListBoxView::HeaderItemDragged(const QM::ListBoxHeaderDragEvent& event)
{
    DrawSuspender suspender(listBox);
    layout->GetBaseColumnManager().HeaderDragged(listBox, event.fromItem, event.toItem);
    ColumnsChanged();
}

}  // namespace WZ
