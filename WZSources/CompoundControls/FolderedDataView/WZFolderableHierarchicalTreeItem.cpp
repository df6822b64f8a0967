#include "WZSources/CompoundControls/FolderedDataView/WZFolderableHierarchicalTreeItem.hpp"

namespace WZ::Folderable {

HierarchicalTreeItem::~HierarchicalTreeItem() = default;

NK::UniString HierarchicalTreeItem::GetString(const NK::UniString&) const
{
    return {};
}

std::vector<QM::Icon> HierarchicalTreeItem::GetIcons(const NK::UniString&) const
{
    return {};
}

NK::UniString HierarchicalTreeItem::GetTooltipText() const
{
    return {};
}

QM::Font::Style HierarchicalTreeItem::GetFontStyle() const
{
    return NoFontStyle;
}

NK::Optional<QM::Color> HierarchicalTreeItem::GetBackgroundColor(const NK::UniString&) const
{
    return {};
}

NK::Array<HierarchicalTreeItem*> HierarchicalTreeItem::GetChildren()
{
    NK::Array<HierarchicalTreeItem*> result;
    result.SetCapacity(TreeItem::GetChildren().GetSize());
    for (const NK::Owner<TreeItem>& child : TreeItem::GetChildren())
        result.Push(static_cast<HierarchicalTreeItem*>(child.Get()));
    return result;
}

NK::Array<const HierarchicalTreeItem*> HierarchicalTreeItem::GetChildren() const
{
    NK::Array<const HierarchicalTreeItem*> result;
    result.SetCapacity(TreeItem::GetChildren().GetSize());
    for (const NK::Owner<TreeItem>& child : TreeItem::GetChildren())
        result.Push(static_cast<const HierarchicalTreeItem*>(child.Get()));
    return result;
}

}  // namespace WZ::Folderable
