#include "WZSources/Diff/WZTreeNodeAccessor.hpp"

namespace WZ {

TreeNodeAccessor::TreeNodeAccessor(QM::TreeView& treeView, int item) : treeView(treeView), item(item) {}

void TreeNodeAccessor::SetText(const NK::UniString& text)
{
    treeView.SetItemText(item, text);
}

void TreeNodeAccessor::SetNormalIcon(const QM::Icon& icon)
{
    treeView.SetItemNormalIcon(item, icon);
}

void TreeNodeAccessor::SetFontStyle(QM::Font::Style style)
{
    treeView.SetItemFontStyle(item, style);
}

void TreeNodeAccessor::SetTextColor(const QM::Color& color)
{
    treeView.SetItemColor(item, color);
}

void TreeNodeAccessor::ResetTextColor()
{
    treeView.ResetItemColor(item);
}

void TreeNodeAccessor::SetBackgroundColor(const QM::Color& color)
{
    treeView.SetItemBackgroundColor(item, color);
}

void TreeNodeAccessor::ResetBackgroundColor()
{
    treeView.ResetItemBackgroundColor(item);
}

}  // namespace WZ
