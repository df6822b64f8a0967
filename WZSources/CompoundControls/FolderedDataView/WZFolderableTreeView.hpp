// WZ::Folderable::TreeView: the folder tree of the tree-and-list view. A typed tree view of
// TreeItems over one single-selection toolkit tree, decorated by Folderable::TreeViewDecorator
// and kept in step by the smart tree view updater, which owns the items it shows (a root and
// everything below it are deleted when the root is let go).
//
// Besides the typed operations it speaks of model items and of ids: the model items of the
// selected nodes, selecting the node of an id, and the ids of the open nodes, which survive any
// rebuild (RestoreExpandedItemsByIds opens the nodes of those ids that are still shown).
#pragma once

#include "NK/NKArray.hpp"
#include "NK/NKGuid.hpp"
#include "NK/NKHashTable.hpp"
#include "NK/NKPointers.hpp"
#include "QM/QMTreeView.hpp"
#include "WZSources/CompoundControls/FolderedDataView/WZFolderableTreeItem.hpp"
#include "WZSources/Diff/TreeView/WZTreeView.hpp"

namespace WZ::Folderable {

class ModelItem;

class TreeView : public WZ::TreeView<TreeItem, WZ::TreeViewDecorator<TreeItem>> {
public:
    // Binds to the tree view, which must have single selection (reported otherwise).
    explicit TreeView(QM::TreeView& treeView);
    ~TreeView() override;

    QM::TreeView& GetControl() const { return *GetTreeView(); }

    // Shows the forest, taking it over; the result restores open nodes and selection by id.
    SmartTreeViewUpdater::UpdateResult SetItems(NK::Array<NK::Owner<TreeItem>> roots);

    NK::Array<const ModelItem*> GetSelectedModelItems();
    // Selects the node of the id alone; nothing when the id is not shown.
    void SelectItem(const NK::Guid& id);
    bool HasItem(const NK::Guid& id) const;
    // The node of the id, QM::TreeView::NoItem when it is not shown.
    int GetNode(const NK::Guid& id) const;

    NK::HashSet<NK::Guid> GetExpandedItemIds() const;
    // Opens exactly the nodes of those ids that are shown and closes every other node.
    void RestoreExpandedItemsByIds(const NK::HashSet<NK::Guid>& ids);
};

}  // namespace WZ::Folderable
