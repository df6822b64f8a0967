// WZ::Folderable::ModelItem: the node of the forest that a foldered data view shows. The client
// subclasses it to carry its own data and supplies GetId; the item itself knows only its
// identity, its parent and the children it owns. An item that holds children is a folder.
//
// Ownership: an item is owned by its parent's children array or by the forest array that the
// data view keeps; deleting an item deletes its subtree. Everything else holds `const
// ModelItem*`, valid as long as that forest, and remembers items across forests by GetId.
// Pre-order is the order of every recursive collection: an item, then its children's subtrees,
// then its next sibling. Every walk over the forest (collections, search by id, deletion) keeps
// its own stack, so a forest of any depth is walked without exhausting the call stack; null
// entries of a children array are passed over.
#pragma once

#include "NK/NKArray.hpp"
#include "NK/NKGuid.hpp"
#include "NK/NKPointers.hpp"

namespace WZ::Folderable {

class ModelItem {
public:
    ModelItem() = default;
    // Takes over the parent link and children as they stand. The children keep pointing at the
    // moved-from object, so move an item only before children are added or outside any tree.
    ModelItem(ModelItem&& other) noexcept;
    ModelItem(const ModelItem&) = delete;
    ModelItem& operator=(const ModelItem&) = delete;
    ModelItem& operator=(ModelItem&&) = delete;

    virtual ~ModelItem();
    virtual NK::Guid GetId() const = 0;

    // Appends the child and makes this item its parent. A child that already has a parent is
    // reported ("child->parent == nullptr") and taken all the same. Refused with a report, the
    // forest unchanged: a null child ("child != nullptr"), and the item itself or one of its
    // ancestors ("!child->IsSelfOrAncestorOf (*this)"), which would make a cycle that no walk
    // leaves. A refused child is let go of, not deleted: it still belongs where it was.
    void AddChild(NK::Owner<ModelItem> child);

    NK::Array<NK::Owner<ModelItem>>& GetChildren() noexcept { return children; }
    const NK::Array<NK::Owner<ModelItem>>& GetChildren() const noexcept { return children; }
    const ModelItem* GetParent() const noexcept { return parent; }

    NK::Array<const ModelItem*> GetChildrenPtr() const;
    // All descendants in pre-order, the item itself not included.
    NK::Array<const ModelItem*> GetChildrenPtrRecursive() const;

    // The items of the array, not descending.
    static NK::Array<const ModelItem*> ToPtrArray(const NK::Array<NK::Owner<ModelItem>>& items);
    // The whole forest in pre-order.
    static NK::Array<const ModelItem*> ToPtrArrayRecursive(const NK::Array<NK::Owner<ModelItem>>& items);
    // Appends the forest to `out` in pre-order.
    static void CollectChildrenPtrRecursive(const NK::Array<NK::Owner<ModelItem>>& items,
                                            NK::Array<const ModelItem*>& out);

    // Whether this item is `item` or one of its ancestors.
    bool IsSelfOrAncestorOf(const ModelItem& item) const;

private:
    void SetParent(const ModelItem* newParent) noexcept { parent = newParent; }

    const ModelItem* parent = nullptr;
    NK::Array<NK::Owner<ModelItem>> children;
};

// The first item of the forest, in pre-order, whose GetId is `id`; null when there is none.
// Finds a remembered folder again in a new forest.
const ModelItem* FindModelItemById(const NK::Array<NK::Owner<ModelItem>>& forest, const NK::Guid& id);

}  // namespace WZ::Folderable
