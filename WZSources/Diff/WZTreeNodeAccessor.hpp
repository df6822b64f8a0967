// WZ::TreeNodeAccessor: the look of one tree node, handed to typed decorators so that they style
// the node without knowing its handle.
#pragma once

#include "NK/NKUniString.hpp"
#include "QM/QMColor.hpp"
#include "QM/QMFont.hpp"
#include "QM/QMIcon.hpp"
#include "QM/QMTreeView.hpp"

namespace WZ {

class TreeNodeAccessor {
public:
    TreeNodeAccessor(QM::TreeView& treeView, int item);

    int GetItem() const noexcept { return item; }

    void SetText(const NK::UniString& text);
    void SetNormalIcon(const QM::Icon& icon);
    void SetFontStyle(QM::Font::Style style);
    void SetTextColor(const QM::Color& color);
    void ResetTextColor();
    void SetBackgroundColor(const QM::Color& color);
    void ResetBackgroundColor();

private:
    QM::TreeView& treeView;
    int item;
};

}  // namespace WZ
