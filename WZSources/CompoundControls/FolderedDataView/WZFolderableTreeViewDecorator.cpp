#include "WZSources/CompoundControls/FolderedDataView/WZFolderableTreeViewDecorator.hpp"

namespace WZ::Folderable {

TreeViewDecorator::~TreeViewDecorator() = default;

void TreeViewDecorator::Decorate(WZ::TreeNodeAccessor& node, const TreeItem& item)
{
    if (item.HasIcon())
        node.SetNormalIcon(*item.GetIcon());
    node.SetText(item.GetDisplayName());
    node.SetFontStyle(item.GetFontStyle());
}

}  // namespace WZ::Folderable
