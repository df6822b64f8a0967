// WZ::Folderable::TreeViewDecorator: writes a foldered tree item into its tree node: the normal
// icon when the item has one, then the text (the display name), then the font style. Colours and
// tooltip stay as the node has them: the foldered tree shows neither.
#pragma once

#include "WZSources/CompoundControls/FolderedDataView/WZFolderableTreeItem.hpp"
#include "WZSources/Diff/WZTreeViewDecorator.hpp"

namespace WZ::Folderable {

class TreeViewDecorator : public WZ::TreeViewDecorator<TreeItem> {
public:
    ~TreeViewDecorator() override;
    void Decorate(WZ::TreeNodeAccessor& node, const TreeItem& item) override;
};

}  // namespace WZ::Folderable
