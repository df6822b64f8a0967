// WZ::SmartTreeViewUpdater keeps a tree view showing a forest of items. The client hands over
// the complete new roots with SetRootItems; the updater compares them by id, level by level,
// with the forest it shows and changes only what differs: on each level it deletes the nodes of
// deleted items (bottom-up), inserts nodes with their subtrees for inserted items (ascending,
// each at its final place), rewrites the node of every moved item at its new place and rebuilds
// that node's subtree, redecorates changed items, and descends into items whose children
// changed. Every node carries an attached record naming its item.
//
// Expanded states and the selection survive by id through the UpdateResult that SetRootItems
// returns: it remembers the selected node with its ancestors before anything changes, and the
// expanded nodes of every subtree it rebuilds; RestoreExpandeds and RestoreSelection apply them
// to the updated tree. The result refers to the updater and its tree view and must not outlive
// them.
//
// With a deallocator the updater owns its items: after each update every old root that is not
// among the new roots is passed to Deallocate once (the deallocator frees what lies below a
// root), and so are the shown roots on destruction. Handing the same root pointers again keeps
// them.
//
// Every operation that takes a forest walks it with explicit stacks, so trees of any depth are
// handled. Null entries among the roots or in an item's children are reported and left out.
// Siblings that share an id are told apart by occurrence order, as the comparison pairs them.
// When a decorator, an observer of the tree view or the items themselves throw during an
// update, the updater removes its nodes, empties its maps, frees the items it owns (old and
// new) and lets the exception through: it then shows nothing, consistently, until the next
// SetRootItems.
#pragma once

#include "NK/NKArray.hpp"
#include "NK/NKGuid.hpp"
#include "NK/NKHashTable.hpp"
#include "NK/NKPointers.hpp"
#include "QM/QMTreeView.hpp"
#include "WZSources/Diff/WZDiffResult.hpp"
#include "WZSources/Diff/WZDiffable.hpp"
#include "WZSources/Diff/WZTreeViewAccessor.hpp"
#include "WZSources/Diff/WZTreeViewDecorator.hpp"
#include "WZSources/Diff/WZTwoWayMap.hpp"

namespace WZ {

class SmartTreeViewUpdater {
public:
    class ItemDeallocator {
    public:
        virtual void Deallocate(const TreeDiffable* item) = 0;
        virtual ~ItemDeallocator();
    };

    // Deletes the item through its virtual destructor.
    class DefaultDeallocator : public ItemDeallocator {
    public:
        void Deallocate(const TreeDiffable* item) override;
    };

    // Tree node to id and back.
    using IndexMap = TwoWayMap<int>;

    class UpdateResult {
    public:
        enum class SelectionRestoreResult { SameItem = 0, Ancestor = 1, Nothing = 2 };

        UpdateResult(QM::TreeView& treeView, const IndexMap& indexMap, const TreeViewAccessor& accessor);
        UpdateResult(UpdateResult&&) noexcept = default;
        UpdateResult& operator=(UpdateResult&&) noexcept = default;

        // The id of the selected node, then of each ancestor up to the top level; empty unless
        // exactly one node is selected.
        const NK::Array<NK::Guid>& GetSelectedChain() const noexcept { return selectedChain; }
        const NK::HashSet<NK::Guid>& GetExpandeds() const noexcept { return expandeds; }

        void StoreSelectedChain();
        // Adds the ids of the expanded nodes among `nodes`; throws NK::NullReferenceException
        // for an expanded node without a record.
        void StoreExpandeds(const NK::Array<int>& nodes, const QM::TreeView& treeView);

        // Expands the node of every remembered id that is still shown.
        void RestoreExpandeds();
        // Selects the node of the first id of the chain that is still shown: SameItem for the
        // selected node itself, Ancestor for one of its ancestors, Nothing when none is shown.
        // The selection is not cleared beforehand.
        SelectionRestoreResult RestoreSelection();

    private:
        NK::Array<NK::Guid> selectedChain;
        NK::HashSet<NK::Guid> expandeds;
        QM::TreeView* treeView;
        const IndexMap* indexMap;
        const TreeViewAccessor* accessor;
    };

    SmartTreeViewUpdater(QM::TreeView& treeView, UntypedTreeViewDecorator& decorator,
                         NK::Owner<ItemDeallocator> deallocator);
    SmartTreeViewUpdater(const SmartTreeViewUpdater&) = delete;
    SmartTreeViewUpdater& operator=(const SmartTreeViewUpdater&) = delete;
    virtual ~SmartTreeViewUpdater();

    UpdateResult SetRootItems(NK::Array<const TreeDiffable*>&& newRoots);

    const NK::Array<const TreeDiffable*>& GetRootItems() const noexcept { return roots; }
    // The shown item of the id (at any depth), null when there is none.
    const TreeDiffable* GetTreeViewItem(const NK::Guid& id) const;
    // The shown item of the node, null when the node shows none.
    const TreeDiffable* GetTreeViewItem(int treeItem) const;
    // The id of the node, the null Guid when it shows none.
    NK::Guid GetTreeViewItemId(int treeItem) const;
    // The node of the id, -1 when it is not shown.
    int GetTreeViewItemId(const NK::Guid& id) const;
    bool HasTreeViewItem(const NK::Guid& id) const;
    bool HasTreeViewItem(int treeItem) const;

    NK::Array<int> GetSelectedTreeItems() const;
    NK::Array<NK::Guid> GetSelectedItemIds() const;
    NK::Array<const TreeDiffable*> GetSelectedItems() const;

    // Redecorates an existing node from its record (NK::NullReferenceException when it has
    // none); does nothing for a node that does not exist.
    void RedecorateItem(int treeItem);
    void RedecorateItem(const NK::Guid& id);
    void SelectItem(int treeItem);
    // Selects the node of the id; nothing when the id is not shown.
    void SelectItem(const NK::Guid& id);

private:
    void WriteNode(int node, const TreeDiffable& item);
    // WriteNode for a node just inserted, which is deleted again when writing it fails.
    void WriteNewNode(int node, const TreeDiffable& item);
    void InsertSubTree(int parent, const NK::Array<const TreeDiffable*>& children);
    void UpdateSubTree(int parent, const NK::Array<const TreeDiffable*>& oldChildren,
                       const NK::Array<const TreeDiffable*>& newChildren, const Diff::TreeResult& changes,
                       UpdateResult& result);
    // Brings one level in step: deletions, insertions and moves. Fills `nodes` with the level's
    // nodes in step with `newChildren`; false when the level had to be rebuilt whole.
    bool UpdateLevel(int parent, const NK::Array<const TreeDiffable*>& oldChildren,
                     const NK::Array<const TreeDiffable*>& newChildren, const Diff::TreeResult& changes,
                     UpdateResult& result, NK::Array<int>& nodes);
    void MapForest(const NK::Array<const TreeDiffable*>& items);
    // Refills the index map from the nodes, breadth first, and renews every node's record.
    void RebuildIndexMap();
    // Passes each of `items` that is not among `kept` to the deallocator, once.
    void DeallocateExcept(const NK::Array<const TreeDiffable*>& items, const NK::Array<const TreeDiffable*>& kept);
    // After a failed update: removes the updater's nodes, empties its maps and frees what it owns.
    void Abandon(const NK::Array<const TreeDiffable*>& newRoots);

    NK::Array<const TreeDiffable*> roots;
    TreeViewAccessor accessor;
    UntypedTreeViewDecorator& decorator;
    QM::TreeView& treeView;
    NK::Owner<IndexMap> indexMap;
    NK::HashTable<NK::Guid, const TreeDiffable*> itemMap;
    NK::Owner<ItemDeallocator> deallocator;
};

}  // namespace WZ
