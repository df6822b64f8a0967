#define NK_SOURCE_PATH "WZSources\\Diff\\WZSmartTreeViewUpdater"

#include "WZSources/Diff/WZSmartTreeViewUpdater.hpp"

#include "NK/NKAssert.hpp"

#include "WZSources/Diff/WZDiff.hpp"
#include "WZSources/Diff/WZItemData.hpp"
#include "WZSources/Diff/WZItemDeallocation.hpp"
#include "WZSources/Diff/WZTreeChildren.hpp"

#include <algorithm>
#include <deque>
#include <vector>

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
    try {
        DeallocateExcept(roots, {});
    } catch (...) {
        NK_ASSERT_TEXT(false, "deallocation of the shown items threw");
    }
}

SmartTreeViewUpdater::UpdateResult SmartTreeViewUpdater::SetRootItems(NK::Array<const TreeDiffable*>&& givenRoots)
{
    NK::Array<const TreeDiffable*> newRoots = std::move(givenRoots);
    Diff::DropNullItems(newRoots);
    Diff::TreeResult changes = TreeDiffing(roots, newRoots);
    UpdateResult result(treeView, *indexMap, accessor);
    result.StoreSelectedChain();

    try {
        UpdateSubTree(QM::TreeView::RootItem, roots, newRoots, changes, result);
        itemMap.Clear();
        MapForest(newRoots);
    } catch (...) {
        Abandon(newRoots);
        throw;
    }

    NK::Array<const TreeDiffable*> oldRoots = std::move(roots);
    roots = std::move(newRoots);
    RebuildIndexMap();
    // Old roots are freed last, once no node and no map refers to them; a root that is shown
    // again is kept.
    DeallocateExcept(oldRoots, roots);
    return result;
}

void SmartTreeViewUpdater::DeallocateExcept(const NK::Array<const TreeDiffable*>& items,
                                            const NK::Array<const TreeDiffable*>& kept)
{
    if (deallocator)
        DeallocateOnceExcept(items, kept, [this](const TreeDiffable* item) { deallocator->Deallocate(item); });
}

void SmartTreeViewUpdater::Abandon(const NK::Array<const TreeDiffable*>& newRoots)
{
    // Neither the old nor the new forest is shown whole: the updater's nodes go, both maps are
    // emptied, and the items it owns (old and new) are freed. Failures while cleaning up are
    // dropped in favour of the exception that is on its way.
    for (int node : accessor.GetChildren(QM::TreeView::RootItem)) {
        try {
            if (treeView.GetItemObjectData(node) != nullptr)
                treeView.DeleteItem(node);
        } catch (...) {
        }
    }
    indexMap->Clear();
    itemMap.Clear();
    NK::Array<const TreeDiffable*> oldRoots = std::move(roots);
    roots.Clear();
    try {
        DeallocateExcept(oldRoots, newRoots);
        DeallocateExcept(newRoots, {});
    } catch (...) {
    }
}

void SmartTreeViewUpdater::WriteNode(int node, const TreeDiffable& item)
{
    decorator.Decorate(treeView, node, item);
    treeView.SetItemObjectData(node, Diff::MakeItemData(item.GetId(), &item));
}

void SmartTreeViewUpdater::WriteNewNode(int node, const TreeDiffable& item)
{
    // A new node that cannot be written goes again, so that no node is left without a record.
    try {
        WriteNode(node, item);
    } catch (...) {
        try {
            treeView.DeleteItem(node);
        } catch (...) {
        }
        throw;
    }
}

void SmartTreeViewUpdater::InsertSubTree(int parent, const NK::Array<const TreeDiffable*>& children)
{
    // Pre-order, depth first, from an explicit stack of levels.
    struct Level {
        int parent;
        NK::Array<const TreeDiffable*> children;
        NK::UIndex next;
    };
    std::vector<Level> levels;
    levels.push_back({parent, children, 0});
    while (!levels.empty()) {
        Level& level = levels.back();
        if (level.next == level.children.GetSize()) {
            levels.pop_back();
            continue;
        }
        const TreeDiffable& child = *level.children[level.next++];
        const int node = treeView.AppendItem(level.parent);
        WriteNewNode(node, child);
        indexMap->Add(node, child.GetId());
        NK::Array<const TreeDiffable*> grandChildren = Diff::ChildrenOf(child);
        if (!grandChildren.IsEmpty())
            levels.push_back({node, std::move(grandChildren), 0});  // `level` is not used after this
    }
}

void SmartTreeViewUpdater::UpdateSubTree(int parent, const NK::Array<const TreeDiffable*>& oldChildren,
                                         const NK::Array<const TreeDiffable*>& newChildren,
                                         const Diff::TreeResult& changes, UpdateResult& result)
{
    // Levels are updated in the order a recursion would take: a level's structure first, then
    // its updates ascending, each one's levels below before the next update.
    using UpdateIterator = NK::SkipMap<NK::UInt64, Diff::TreeResult::Update>::const_iterator;
    struct Level {
        NK::Array<const TreeDiffable*> oldChildren;
        NK::Array<const TreeDiffable*> newChildren;
        NK::Array<int> nodes;  // in step with newChildren
        UpdateIterator next;
        UpdateIterator end;
    };
    std::vector<Level> levels;
    auto enter = [&](int levelParent, NK::Array<const TreeDiffable*> levelOld, NK::Array<const TreeDiffable*> levelNew,
                     const Diff::TreeResult& levelChanges) {
        Level level {std::move(levelOld), std::move(levelNew), {}, levelChanges.updates.begin(), levelChanges.updates.end()};
        if (!UpdateLevel(levelParent, level.oldChildren, level.newChildren, levelChanges, result, level.nodes))
            level.next = level.end;
        levels.push_back(std::move(level));
    };
    enter(parent, oldChildren, newChildren, changes);
    while (!levels.empty()) {
        Level& level = levels.back();
        if (level.next == level.end) {
            levels.pop_back();
            continue;
        }
        const auto& [index, update] = *level.next++;
        const int node = level.nodes[index];
        const TreeDiffable& item = *level.newChildren[index];
        if (update.itemChanged)
            decorator.Decorate(treeView, node, item);
        if (update.subTree) {
            // The partner the comparison paired, which also tells apart siblings of one id.
            const TreeDiffable& oldPartner = *level.oldChildren[update.oldIndex];
            enter(node, Diff::ChildrenOf(oldPartner), Diff::ChildrenOf(item), *update.subTree);  // `level` is stale now
        }
    }
}

bool SmartTreeViewUpdater::UpdateLevel(int parent, const NK::Array<const TreeDiffable*>& oldChildren,
                                       const NK::Array<const TreeDiffable*>& newChildren,
                                       const Diff::TreeResult& changes, UpdateResult& result, NK::Array<int>& nodes)
{
    NK::Array<int> oldNodes = accessor.GetChildren(parent);
    if (!NK_ASSERT(oldNodes.GetSize() == oldChildren.GetSize())) {
        // The level was changed behind the updater's back: it is rebuilt.
        for (int node : oldNodes)
            treeView.DeleteItem(node);
        InsertSubTree(parent, newChildren);
        nodes = accessor.GetChildren(parent);
        return false;
    }

    for (auto it = changes.deleted.rbegin(); it != changes.deleted.rend(); ++it)
        treeView.DeleteItem(oldNodes[*it]);

    // The kept nodes take the new indices that are not inserted, in order; the level is then
    // filled ascending, so the node before each insertion is known without walking the level.
    nodes.SetSize(newChildren.GetSize());
    NK::UIndex shown = 0;
    {
        auto deleted = changes.deleted.begin();
        auto inserted = changes.inserted.begin();
        NK::UIndex target = 0;
        for (NK::UIndex old = 0; old < oldNodes.GetSize(); ++old) {
            if (deleted != changes.deleted.end() && *deleted == old) {
                ++deleted;
                continue;
            }
            while (inserted != changes.inserted.end() && *inserted == target) {
                ++inserted;
                ++target;
            }
            nodes[target++] = oldNodes[old];
            ++shown;
        }
    }
    for (NK::UInt64 index : changes.inserted) {
        const TreeDiffable& item = *newChildren[index];
        const int previous = index > 0 ? nodes[index - 1] : QM::TreeView::NoItem;
        const int node = accessor.InsertChild(parent, static_cast<unsigned>(index), shown, previous);
        nodes[index] = node;
        ++shown;
        WriteNewNode(node, item);
        InsertSubTree(node, Diff::ChildrenOf(item));
    }

    for (const Diff::Move& move : changes.moved) {
        const int node = nodes[move.to];
        const TreeDiffable& item = *newChildren[move.to];
        result.StoreExpandeds(accessor.GetAllChildren(node), treeView);
        treeView.CollapseItem(node);
        WriteNode(node, item);
        for (int child : accessor.GetChildren(node))
            treeView.DeleteItem(child);
        InsertSubTree(node, Diff::ChildrenOf(item));
    }
    return true;
}

void SmartTreeViewUpdater::MapForest(const NK::Array<const TreeDiffable*>& items)
{
    std::vector<const TreeDiffable*> pending(items.begin(), items.end());
    std::reverse(pending.begin(), pending.end());
    while (!pending.empty()) {
        const TreeDiffable* item = pending.back();
        pending.pop_back();
        itemMap.Add(item->GetId(), item);
        NK::Array<const TreeDiffable*> children = Diff::ChildrenOf(*item);
        pending.insert(pending.end(), children.AsStdVector().rbegin(), children.AsStdVector().rend());
    }
}

void SmartTreeViewUpdater::RebuildIndexMap()
{
    // Breadth first, so that an id shown at several nodes maps back to the shallowest, earliest
    // one. The nodes now show the new forest, so each node's record is renewed with the item at
    // the same place; a level that does not match (nodes added behind the updater's back) falls
    // back to the records, and nodes without one are left out.
    indexMap->Clear();
    struct Pending {
        int node;
        const TreeDiffable* item;  // null when the node's item is to be found by its record
    };
    std::deque<Pending> pending;
    auto enqueueLevel = [&](int parent, const NK::Array<const TreeDiffable*>* items) {
        NK::Array<int> children = accessor.GetChildren(parent);
        const bool matching = items != nullptr && items->GetSize() == children.GetSize();
        for (NK::UIndex k = 0; k < children.GetSize(); ++k)
            pending.push_back({children[k], matching ? (*items)[k] : nullptr});
    };
    enqueueLevel(QM::TreeView::RootItem, &roots);
    while (!pending.empty()) {
        const Pending entry = pending.front();
        pending.pop_front();
        const TreeDiffable* item = entry.item;
        if (item == nullptr) {
            const auto* record = dynamic_cast<const Diff::ItemData*>(treeView.GetItemObjectData(entry.node).Get());
            if (record == nullptr)
                continue;
            item = GetTreeViewItem(record->id);
            if (item == nullptr)
                continue;
        }
        indexMap->Add(entry.node, item->GetId());
        treeView.SetItemObjectData(entry.node, Diff::MakeItemData(item->GetId(), item));
        const NK::Array<const TreeDiffable*> children = Diff::ChildrenOf(*item);
        enqueueLevel(entry.node, &children);
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
