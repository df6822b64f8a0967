#include "WZSources/CompoundControls/FolderedDataView/WZFolderableHierarchicalItemId.hpp"

#include "WZSources/CompoundControls/FolderedDataView/WZFolderableHierarchicalTreeItem.hpp"

namespace WZ::Folderable {

HierarchicalItemId::HierarchicalItemId(HierarchicalTreeItem& row) : id(row.GetId()), item(&row) {}

bool HierarchicalTreeItemContentComparator::operator()(const HierarchicalItemId& a, const HierarchicalItemId& b) const
{
    if (a.item == b.item)
        return true;
    if (a.item == nullptr || b.item == nullptr)
        return false;
    return a.item->IsEqual(static_cast<const WZ::TreeDiffable&>(*b.item));
}

}  // namespace WZ::Folderable
