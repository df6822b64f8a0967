// WZ::Folderable::TreeItem: what a tree of a foldered data view shows for one model item. Made
// by the client's TreeItemFactory, it takes its id from the model item and owns its children.
// Content equality (IsEqual) covers what is drawn: display name, font style, icon, text and
// background colours. The tooltip, the children, the id and the model are not compared, so a
// tooltip change alone keeps the row as it is. Deleting a tree item deletes its subtree without
// nesting a call per level, so rows of any depth can be let go of.
#pragma once

#include "NK/NKArray.hpp"
#include "NK/NKGuid.hpp"
#include "NK/NKPointers.hpp"
#include "NK/NKUniString.hpp"
#include "QM/QMColor.hpp"
#include "QM/QMFont.hpp"
#include "QM/QMIcon.hpp"
#include "WZSources/Diff/WZDiffable.hpp"

namespace WZ::Folderable {

class ModelItem;

class TreeItem : public WZ::TreeDiffable {
public:
    TreeItem(const ModelItem& model, const NK::UniString& displayName, const NK::Optional<QM::Icon>& icon,
             QM::Font::Style fontStyle, const NK::Optional<QM::Color>& textColor,
             const NK::Optional<QM::Color>& backgroundColor, const NK::Optional<NK::UniString>& toolTip);
    TreeItem(const TreeItem&) = delete;
    TreeItem& operator=(const TreeItem&) = delete;

    NK::Guid GetId() const override;
    ~TreeItem() override;
    // False when the other is not a TreeItem; otherwise the drawn content compared.
    bool IsEqual(const WZ::TreeDiffable& other) const override;
    NK::Array<const WZ::TreeDiffable*> GetDiffableChildren() const override;

    void SetChildren(NK::Array<NK::Owner<TreeItem>> newChildren);
    const NK::Array<NK::Owner<TreeItem>>& GetChildren() const noexcept { return children; }

    const ModelItem& GetModel() const noexcept { return *model; }
    const NK::UniString& GetDisplayName() const noexcept { return displayName; }
    void SetDisplayName(const NK::UniString& name) { displayName = name; }
    bool HasIcon() const noexcept { return icon.has_value(); }
    const NK::Optional<QM::Icon>& GetIcon() const noexcept { return icon; }
    QM::Font::Style GetFontStyle() const noexcept { return fontStyle; }
    const NK::Optional<QM::Color>& GetTextColor() const noexcept { return textColor; }
    const NK::Optional<QM::Color>& GetBackgroundColor() const noexcept { return backgroundColor; }
    const NK::Optional<NK::UniString>& GetToolTipText() const noexcept { return toolTip; }

private:
    NK::Guid id;
    NK::Array<NK::Owner<TreeItem>> children;
    const ModelItem* model;
    NK::UniString displayName;
    NK::Optional<QM::Icon> icon;
    QM::Font::Style fontStyle;
    NK::Optional<QM::Color> textColor;
    NK::Optional<QM::Color> backgroundColor;
    NK::Optional<NK::UniString> toolTip;
};

}  // namespace WZ::Folderable
