#include "WZSources/Diff/WZSmartTreeViewUpdater.hpp"

#include "WZSources/Diff/WZDiff.hpp"
#include "WZSources/Diff/WZItemData.hpp"

#include <deque>

namespace WZ {

SmartTreeViewUpdater::ItemDeallocator::~ItemDeallocator() = default;

void SmartTreeViewUpdater::DefaultDeallocator::Deallocate(const TreeDiffable* item)
{
    delete item;
}

SmartTreeViewUpdater::SmartTreeViewUpdater(QM::TreeView& treeView, UntypedTreeViewDecorator& decorator,
                                           NK::Owner<ItemDeallocator> deallocator)
    : accessor(treeView),
      decorator(decorator),
      treeView(treeView),
      indexMap(NK::NewOwned<IndexMap>()),
      deallocator(std::move(deallocator))
{
}

SmartTreeViewUpdater::~SmartTreeViewUpdater()
{
    if (deallocator)
        for (const TreeDiffable* root : roots)
            deallocator->Deallocate(root);
}

SmartTreeViewUpdater::UpdateResult SmartTreeViewUpdater::SetRootItems(NK::Array<const TreeDiffable*>&& newRoots)
{
    Diff::TreeResult changes = TreeDiffing(roots, newRoots);
    UpdateResult result(treeView, *indexMap, accessor);
    result.StoreSelectedChain();

    UpdateSubTree(QM::TreeView::RootItem, roots, newRoots, changes, result);

    itemMap.Clear();
    MapForest(newRoots);

    if (deallocator)
        for (const TreeDiffable* root : roots)
            deallocator->Deallocate(root);

    roots = std::move(newRoots);
    RebuildIndexMap();

    // Nodes that were not written still point at the old items; every node is pointed at the
    // new item of its id.
    for (const auto& entry : indexMap->indexToId) {
        const TreeDiffable* const* item = itemMap.GetPtr(entry.second);
        if (item != nullptr)
            treeView.SetItemObjectData(entry.first, Diff::MakeItemData(entry.second, *item));
    }
    return result;
}

void SmartTreeViewUpdater::WriteNode(int node, const TreeDiffable& item)
{
    decorator.Decorate(treeView, node, item);
    treeView.SetItemObjectData(node, Diff::MakeItemData(item.GetId(), &item));
}

void SmartTreeViewUpdater::InsertSubTree(int parent, const NK::Array<const TreeDiffable*>& children)
{
    for (const TreeDiffable* child : children) {
        const int node = treeView.AppendItem(parent);
        WriteNode(node, *child);
        indexMap->Add(node, child->GetId());
        InsertSubTree(node, child->GetDiffableChildren());
    }
}

void SmartTreeViewUpdater::UpdateSubTree(int parent, const NK::Array<const TreeDiffable*>& oldChildren,
                                         const NK::Array<const TreeDiffable*>& newChildren,
                                         const Diff::TreeResult& changes, UpdateResult& result)
{
    NK::Array<int> nodes = accessor.GetChildren(parent);
    for (auto it = changes.deleted.rbegin(); it != changes.deleted.rend(); ++it)
        treeView.DeleteItem(nodes[*it]);

    for (NK::UInt64 index : changes.inserted) {
        const TreeDiffable& item = *newChildren[index];
        const int node = accessor.GetInsertItem(parent, static_cast<unsigned>(index));
        WriteNode(node, item);
        InsertSubTree(node, item.GetDiffableChildren());
    }

    nodes = accessor.GetChildren(parent);
    for (const Diff::Move& move : changes.moved) {
        const int node = nodes[move.to];
        const TreeDiffable& item = *newChildren[move.to];
        result.StoreExpandeds(accessor.GetAllChildren(node), treeView);
        treeView.CollapseItem(node);
        WriteNode(node, item);
        for (int child : accessor.GetChildren(node))
            treeView.DeleteItem(child);
        InsertSubTree(node, item.GetDiffableChildren());
    }

    if (changes.updates.IsEmpty())
        return;
    NK::HashTable<NK::Guid, NK::UIndex> oldIndexOfId;
    oldIndexOfId.EnsureSize(oldChildren.GetSize());
    for (NK::UIndex index = 0; index < oldChildren.GetSize(); ++index)
        oldIndexOfId.Add(oldChildren[index]->GetId(), index);

    for (const auto& [index, update] : changes.updates) {
        const int node = nodes[index];
        const TreeDiffable& item = *newChildren[index];
        if (update.itemChanged)
            decorator.Decorate(treeView, node, item);
        if (update.subTree) {
            const TreeDiffable& oldPartner = *oldChildren[oldIndexOfId.Get(item.GetId())];
            UpdateSubTree(node, oldPartner.GetDiffableChildren(), item.GetDiffableChildren(), *update.subTree, result);
        }
    }
}

void SmartTreeViewUpdater::MapForest(const NK::Array<const TreeDiffable*>& items)
{
    for (const TreeDiffable* item : items) {
        itemMap.Add(item->GetId(), item);
        MapForest(item->GetDiffableChildren());
    }
}

void SmartTreeViewUpdater::RebuildIndexMap()
{
    indexMap->Clear();
    std::deque<int> pending {QM::TreeView::RootItem};
    while (!pending.empty()) {
        const int parent = pending.front();
        pending.pop_front();
        for (int node = accessor.GetFirstChildItem(parent); node != QM::TreeView::NoItem;
             node = accessor.GetNextSiblingItem(node)) {
            indexMap->Add(node, Diff::ReadItemData(treeView.GetItemObjectData(node)).id);
            pending.push_back(node);
        }
    }
}

const TreeDiffable* SmartTreeViewUpdater::GetTreeViewItem(const NK::Guid& id) const
{
    const TreeDiffable* const* item = itemMap.GetPtr(id);
    return item != nullptr ? *item : nullptr;
}

const TreeDiffable* SmartTreeViewUpdater::GetTreeViewItem(int treeItem) const
{
    const NK::Guid* id = indexMap->FindId(treeItem);
    return id != nullptr ? GetTreeViewItem(*id) : nullptr;
}

NK::Guid SmartTreeViewUpdater::GetTreeViewItemId(int treeItem) const
{
    return indexMap->GetId(treeItem);
}

int SmartTreeViewUpdater::GetTreeViewItemId(const NK::Guid& id) const
{
    return indexMap->GetIndex(id, QM::TreeView::NoItem);
}

bool SmartTreeViewUpdater::HasTreeViewItem(const NK::Guid& id) const
{
    return indexMap->HasId(id);
}

bool SmartTreeViewUpdater::HasTreeViewItem(int treeItem) const
{
    return indexMap->HasIndex(treeItem);
}

NK::Array<int> SmartTreeViewUpdater::GetSelectedTreeItems() const
{
    return treeView.GetSelectedItems();
}

NK::Array<NK::Guid> SmartTreeViewUpdater::GetSelectedItemIds() const
{
    NK::Array<NK::Guid> ids;
    for (int node : treeView.GetSelectedItems())
        if (const NK::Guid* id = indexMap->FindId(node))
            ids.Push(*id);
    return ids;
}

NK::Array<const TreeDiffable*> SmartTreeViewUpdater::GetSelectedItems() const
{
    NK::Array<const TreeDiffable*> items;
    for (int node : treeView.GetSelectedItems())
        if (const TreeDiffable* item = GetTreeViewItem(node))
            items.Push(item);
    return items;
}

void SmartTreeViewUpdater::RedecorateItem(int treeItem)
{
    if (treeItem == QM::TreeView::RootItem || !treeView.IsExistingItem(treeItem))
        return;
    const Diff::ItemData& data = Diff::ReadItemData(treeView.GetItemObjectData(treeItem));
    decorator.Decorate(treeView, treeItem, *static_cast<const TreeDiffable*>(data.item));
}

void SmartTreeViewUpdater::RedecorateItem(const NK::Guid& id)
{
    RedecorateItem(GetTreeViewItemId(id));
}

void SmartTreeViewUpdater::SelectItem(int treeItem)
{
    treeView.SelectItem(treeItem);
}

void SmartTreeViewUpdater::SelectItem(const NK::Guid& id)
{
    const int node = GetTreeViewItemId(id);
    if (node != QM::TreeView::NoItem)
        SelectItem(node);
}

SmartTreeViewUpdater::UpdateResult::UpdateResult(QM::TreeView& treeView, const IndexMap& indexMap,
                                                 const TreeViewAccessor& accessor)
    : treeView(&treeView), indexMap(&indexMap), accessor(&accessor)
{
}

void SmartTreeViewUpdater::UpdateResult::StoreSelectedChain()
{
    selectedChain.Clear();
    NK::Array<int> selected = treeView->GetSelectedItems();
    if (selected.GetSize() != 1)
        return;
    for (int node = selected[0]; node != QM::TreeView::RootItem && accessor->IsExistingItem(node);
         node = accessor->GetParentItem(node)) {
        if (const NK::Guid* id = indexMap->FindId(node))
            selectedChain.Push(*id);
    }
}

void SmartTreeViewUpdater::UpdateResult::StoreExpandeds(const NK::Array<int>& nodes, const QM::TreeView& view)
{
    for (int node : nodes)
        if (view.IsItemExpanded(node))
            expandeds.Add(Diff::ReadItemData(view.GetItemObjectData(node)).id);
}

void SmartTreeViewUpdater::UpdateResult::RestoreExpandeds()
{
    for (const NK::Guid& id : expandeds)
        if (const int* node = indexMap->FindIndex(id))
            treeView->ExpandItem(*node);
}

SmartTreeViewUpdater::UpdateResult::SelectionRestoreResult SmartTreeViewUpdater::UpdateResult::RestoreSelection()
{
    for (NK::UIndex k = 0; k < selectedChain.GetSize(); ++k) {
        if (const int* node = indexMap->FindIndex(selectedChain[k])) {
            treeView->SelectItem(*node);
            return k == 0 ? SelectionRestoreResult::SameItem : SelectionRestoreResult::Ancestor;
        }
    }
    return SelectionRestoreResult::Nothing;
}

}  // namespace WZ
