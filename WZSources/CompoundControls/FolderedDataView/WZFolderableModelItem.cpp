#define NK_SOURCE_PATH "WZSources\\CompoundControls\\FolderedDataView\\WZFolderableModelItem"
#include "WZSources/CompoundControls/FolderedDataView/WZFolderableModelItem.hpp"

#include "NK/NKAssert.hpp"
#include "NK/NKOwnedTree.hpp"
#include "WZSources/WZLoggedAssert.hpp"

#include <vector>

namespace WZ::Folderable {

namespace {

constexpr const char* LogFile = "WZFolderableModelItem";

using Forest = NK::Array<NK::Owner<ModelItem>>;

// Visits the forest in pre-order with a stack of its own; `visit` returns false to stop.
template <typename Visit>
void WalkPreOrder(const Forest& forest, Visit&& visit)
{
    struct Level {
        const Forest* items;
        NK::UIndex next;
    };
    std::vector<Level> stack {{&forest, 0}};
    while (!stack.empty()) {
        Level& level = stack.back();
        if (level.next == level.items->GetSize()) {
            stack.pop_back();
            continue;
        }
        const ModelItem* item = (*level.items)[level.next++].Get();
        if (item == nullptr)
            continue;
        if (!visit(*item))
            return;
        if (!item->GetChildren().IsEmpty())
            stack.push_back({&item->GetChildren(), 0});
    }
}

}  // namespace

ModelItem::ModelItem(ModelItem&& other) noexcept : parent(other.parent), children(std::move(other.children))
{
}

ModelItem::~ModelItem()
{
    NK::DestroyOwnedTree(std::move(children), [](ModelItem& item, Forest& pending) {
        for (NK::Owner<ModelItem>& child : item.children)
            pending.Push(std::move(child));
        item.children.Clear();
    });
}

void ModelItem::AddChild(NK::Owner<ModelItem> child)
{
    if (!NK_PRECOND_TEXT(child != nullptr, "child != nullptr")) {
        LogAssertError(LogFile, __LINE__);
        return;
    }
    if (!NK_PRECOND_TEXT(!child->IsSelfOrAncestorOf(*this), "!child->IsSelfOrAncestorOf (*this)")) {
        LogAssertError(LogFile, __LINE__);
        // The child is held where it already is (or this item could not be reached any more);
        // deleting it here would delete a part of this very tree.
        child.Release();
        return;
    }
    // Taking a child that another item holds leaves it in two arrays (and deleted twice); the
    // report exists to catch that, and the child is still taken so nothing is lost here.
    if (!NK_PRECOND_TEXT(child->parent == nullptr, "child->parent == nullptr"))
        LogAssertError(LogFile, __LINE__);
    child->SetParent(this);
    children.Push(std::move(child));
}

bool ModelItem::IsSelfOrAncestorOf(const ModelItem& item) const
{
    // Walks up from `item` and down through this item's subtree in turns and stops as soon as
    // either walk ends: building a forest top-down (small subtrees added to deep items) and
    // bottom-up (big subtrees added to parentless items) both cost a few steps per call.
    const ModelItem* up = &item;
    struct Level {
        const Forest* items;
        NK::UIndex next;
    };
    std::vector<Level> down {{&children, 0}};
    while (true) {
        if (up == this)
            return true;
        up = up->parent;
        if (up == nullptr)
            return false;
        while (!down.empty() && down.back().next == down.back().items->GetSize())
            down.pop_back();
        if (down.empty())
            return false;
        const ModelItem* below = (*down.back().items)[down.back().next++].Get();
        if (below == &item)
            return true;
        if (below != nullptr && !below->children.IsEmpty())
            down.push_back({&below->children, 0});
    }
}

NK::Array<const ModelItem*> ModelItem::GetChildrenPtr() const
{
    return ToPtrArray(children);
}

NK::Array<const ModelItem*> ModelItem::GetChildrenPtrRecursive() const
{
    return ToPtrArrayRecursive(children);
}

NK::Array<const ModelItem*> ModelItem::ToPtrArray(const NK::Array<NK::Owner<ModelItem>>& items)
{
    NK::Array<const ModelItem*> result;
    result.SetCapacity(items.GetSize());
    for (const NK::Owner<ModelItem>& item : items)
        if (item != nullptr)
            result.Push(item.Get());
    return result;
}

NK::Array<const ModelItem*> ModelItem::ToPtrArrayRecursive(const NK::Array<NK::Owner<ModelItem>>& items)
{
    NK::Array<const ModelItem*> result;
    CollectChildrenPtrRecursive(items, result);
    return result;
}

void ModelItem::CollectChildrenPtrRecursive(const NK::Array<NK::Owner<ModelItem>>& items,
                                            NK::Array<const ModelItem*>& out)
{
    WalkPreOrder(items, [&out](const ModelItem& item) {
        out.Push(&item);
        return true;
    });
}

const ModelItem* FindModelItemById(const NK::Array<NK::Owner<ModelItem>>& forest, const NK::Guid& id)
{
    const ModelItem* found = nullptr;
    WalkPreOrder(forest, [&found, &id](const ModelItem& item) {
        if (item.GetId() != id)
            return true;
        found = &item;
        return false;
    });
    return found;
}

}  // namespace WZ::Folderable
