#include "WZSources/CompoundControls/FolderedDataView/WZFolderableTreeItem.hpp"

#include "NK/NKOwnedTree.hpp"
#include "WZSources/CompoundControls/FolderedDataView/WZFolderableModelItem.hpp"

namespace WZ::Folderable {

TreeItem::TreeItem(const ModelItem& model, const NK::UniString& displayName, const NK::Optional<QM::Icon>& icon,
                   QM::Font::Style fontStyle, const NK::Optional<QM::Color>& textColor,
                   const NK::Optional<QM::Color>& backgroundColor, const NK::Optional<NK::UniString>& toolTip)
    : id(model.GetId()),
      model(&model),
      displayName(displayName),
      icon(icon),
      fontStyle(fontStyle),
      textColor(textColor),
      backgroundColor(backgroundColor),
      toolTip(toolTip)
{
}

TreeItem::~TreeItem()
{
    NK::DestroyOwnedTree(std::move(children), [](TreeItem& item, NK::Array<NK::Owner<TreeItem>>& pending) {
        for (NK::Owner<TreeItem>& child : item.children)
            pending.Push(std::move(child));
        item.children.Clear();
    });
}

NK::Guid TreeItem::GetId() const
{
    return id;
}

bool TreeItem::IsEqual(const WZ::TreeDiffable& other) const
{
    const auto* item = dynamic_cast<const TreeItem*>(&other);
    if (item == nullptr)
        return false;
    // Optional's == compares presence first, then the values: exactly "both absent, or both
    // present and equal".
    return displayName == item->displayName && fontStyle == item->fontStyle && icon == item->icon &&
           textColor == item->textColor && backgroundColor == item->backgroundColor;
}

NK::Array<const WZ::TreeDiffable*> TreeItem::GetDiffableChildren() const
{
    NK::Array<const WZ::TreeDiffable*> result;
    result.SetCapacity(children.GetSize());
    for (const NK::Owner<TreeItem>& child : children)
        if (child != nullptr)
            result.Push(child.Get());
    return result;
}

void TreeItem::SetChildren(NK::Array<NK::Owner<TreeItem>> newChildren)
{
    children = std::move(newChildren);
}

}  // namespace WZ::Folderable
