// The look and data of one QM::TreeView node: texts, icons, style, colours, status, values.
#include "QM/QMTreeView.hpp"

#define NK_SOURCE_PATH "QM\\QMTreeViewItemData"
#include "NK/NKAssert.hpp"

namespace QM {

void TreeView::SetItemText(int item, const NK::UniString& text)
{
    Record(Op::SetText);
    if (Node* node = WritableNode(item))
        node->text = text;
}

NK::UniString TreeView::GetItemText(int item) const
{
    const Node* node = ReadableNode(item);
    return node != nullptr ? node->text : NK::UniString();
}

void TreeView::SetItemNormalIcon(int item, const Icon& icon)
{
    Record(Op::SetIcon);
    if (Node* node = WritableNode(item))
        node->normalIcon = icon;
}

Icon TreeView::GetItemNormalIcon(int item) const
{
    const Node* node = ReadableNode(item);
    return node != nullptr ? node->normalIcon : Icon();
}

void TreeView::SetItemStateIcon(int item, const Icon& icon)
{
    Record(Op::SetIcon);
    if (Node* node = WritableNode(item))
        node->stateIcon = icon;
}

Icon TreeView::GetItemStateIcon(int item) const
{
    const Node* node = ReadableNode(item);
    return node != nullptr ? node->stateIcon : Icon();
}

void TreeView::SetItemOverlayIcon(int item, const Icon& icon)
{
    Record(Op::SetIcon);
    if (Node* node = WritableNode(item))
        node->overlayIcon = icon;
}

Icon TreeView::GetItemOverlayIcon(int item) const
{
    const Node* node = ReadableNode(item);
    return node != nullptr ? node->overlayIcon : Icon();
}

void TreeView::SetItemFontStyle(int item, Font::Style style)
{
    Record(Op::SetStyle);
    if (Node* node = WritableNode(item))
        node->style = style;
}

Font::Style TreeView::GetItemFontStyle(int item) const
{
    const Node* node = ReadableNode(item);
    return node != nullptr ? node->style : Font::Plain;
}

void TreeView::SetItemColor(int item, const Color& color)
{
    Record(Op::SetStyle);
    if (Node* node = WritableNode(item))
        node->color = color;
}

void TreeView::ResetItemColor(int item)
{
    Record(Op::SetStyle);
    if (Node* node = WritableNode(item))
        node->color.reset();
}

std::optional<Color> TreeView::GetItemColor(int item) const
{
    const Node* node = ReadableNode(item);
    return node != nullptr ? node->color : std::nullopt;
}

void TreeView::SetItemBackgroundColor(int item, const Color& color)
{
    Record(Op::SetStyle);
    if (Node* node = WritableNode(item))
        node->background = color;
}

void TreeView::ResetItemBackgroundColor(int item)
{
    Record(Op::SetStyle);
    if (Node* node = WritableNode(item))
        node->background.reset();
}

std::optional<Color> TreeView::GetItemBackgroundColor(int item) const
{
    const Node* node = ReadableNode(item);
    return node != nullptr ? node->background : std::nullopt;
}

void TreeView::SetItemStatus(int item, ItemStatus status)
{
    Record(Op::Enable);
    if (Node* node = WritableNode(item))
        node->status = status;
}

TreeView::ItemStatus TreeView::GetItemStatus(int item) const
{
    const Node* node = ReadableNode(item);
    return node != nullptr ? node->status : ItemStatus::Enabled;
}

void TreeView::SetItemValue(int item, NK::Int64 value)
{
    Record(Op::SetValue);
    if (Node* node = WritableNode(item))
        node->value = value;
}

NK::Int64 TreeView::GetItemValue(int item) const
{
    const Node* node = ReadableNode(item);
    return node != nullptr ? node->value : 0;
}

void TreeView::SetItemObjectData(int item, NK::Ref<NK::Object> data)
{
    Record(Op::SetItemObjectData);
    if (Node* node = WritableNode(item))
        node->objectData = std::move(data);
}

NK::Ref<NK::Object> TreeView::GetItemObjectData(int item) const
{
    const Node* node = ReadableNode(item);
    return node != nullptr ? node->objectData : NK::Ref<NK::Object>();
}

void TreeView::DisableDraw()
{
    Record(Op::DisableDraw);
    ++drawDisabledDepth;
}

void TreeView::EnableDraw()
{
    Record(Op::EnableDraw);
    if (NK_PRECOND(drawDisabledDepth > 0))
        --drawDisabledDepth;
}

void TreeView::RedrawItem(int item) const
{
    Record(Op::RedrawItem);
    NK_PRECOND(IsExistingItem(item));
}

void TreeView::SetScrollPosition(int position)
{
    Record(Op::Scroll);
    if (NK_PRECOND(position >= 0))
        scrollPosition = position;
}

}  // namespace QM
