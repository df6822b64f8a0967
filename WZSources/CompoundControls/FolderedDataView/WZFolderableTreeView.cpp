#define NK_SOURCE_PATH "WZSources\\CompoundControls\\FolderedDataView\\WZFolderableTreeView"
#include "WZSources/CompoundControls/FolderedDataView/WZFolderableTreeView.hpp"

#include "NK/NKAssert.hpp"
#include "WZSources/CompoundControls/FolderedDataView/WZFolderableTreeViewDecorator.hpp"

namespace WZ::Folderable {

namespace {

// Calls fn for every node below `parent`, parents before their children.
template <typename Fn>
void ForEachNode(const QM::TreeView& tree, int parent, Fn&& fn)
{
    for (int node = tree.GetItem(parent, QM::TreeView::FirstChild); node != QM::TreeView::NoItem;
         node = tree.GetItem(node, QM::TreeView::NextSibling)) {
        fn(node);
        ForEachNode(tree, node, fn);
    }
}

}  // namespace

TreeView::TreeView(QM::TreeView& treeView)
{
    NK_PRECOND_TEXT(treeView.GetSelectionType() == QM::TreeView::SelectionType::Single,
                    "treeView.GetSelectionType () == QM::TreeView::SelectionType::Single");
    Setup(treeView, NK::NewOwned<Folderable::TreeViewDecorator>(),
          NK::NewOwned<SmartTreeViewUpdater::DefaultDeallocator>());
}

TreeView::~TreeView() = default;

SmartTreeViewUpdater::UpdateResult TreeView::SetItems(NK::Array<NK::Owner<TreeItem>> roots)
{
    NK::Array<const TreeItem*> shown;
    shown.SetCapacity(roots.GetSize());
    for (NK::Owner<TreeItem>& root : roots)
        shown.Push(root.Release());
    return SetRootItems(std::move(shown));
}

NK::Array<const ModelItem*> TreeView::GetSelectedModelItems()
{
    NK::Array<const ModelItem*> models;
    for (const TreeItem* item : GetSelectedItems())
        models.Push(&item->GetModel());
    return models;
}

void TreeView::SelectItem(const NK::Guid& id)
{
    GetUpdater()->SelectItem(id);
}

bool TreeView::HasItem(const NK::Guid& id) const
{
    return GetUpdater()->HasTreeViewItem(id);
}

int TreeView::GetNode(const NK::Guid& id) const
{
    return GetUpdater()->GetTreeViewItemId(id);
}

NK::HashSet<NK::Guid> TreeView::GetExpandedItemIds() const
{
    NK::HashSet<NK::Guid> ids;
    const QM::TreeView& tree = GetControl();
    ForEachNode(tree, QM::TreeView::RootItem, [&](int node) {
        if (tree.IsItemExpanded(node))
            ids.Add(GetUpdater()->GetTreeViewItemId(node));
    });
    return ids;
}

void TreeView::RestoreExpandedItemsByIds(const NK::HashSet<NK::Guid>& ids)
{
    // Only nodes whose state differs are touched, so a rebuild that kept the tree as it was
    // opens and closes nothing.
    QM::TreeView& tree = GetControl();
    NK::Array<int> toCollapse;
    ForEachNode(tree, QM::TreeView::RootItem, [&](int node) {
        if (tree.IsItemExpanded(node) && !ids.Contains(GetUpdater()->GetTreeViewItemId(node)))
            toCollapse.Push(node);
    });
    for (int node : toCollapse)
        tree.CollapseItem(node);
    for (const NK::Guid& id : ids) {
        const int node = GetNode(id);
        if (node != QM::TreeView::NoItem && !tree.IsItemExpanded(node))
            tree.ExpandItem(node);
    }
}

}  // namespace WZ::Folderable
