#define NK_SOURCE_PATH "WZSources\\CompoundControls\\FolderedDataView\\WZFolderableModelItem"
#include "WZSources/CompoundControls/FolderedDataView/WZFolderableModelItem.hpp"

#include "NK/NKAssert.hpp"
#include "WZSources/WZLoggedAssert.hpp"

namespace WZ::Folderable {

namespace {

constexpr const char* LogFile = "WZFolderableModelItem";

}  // namespace

ModelItem::ModelItem(ModelItem&& other) noexcept : parent(other.parent), children(std::move(other.children))
{
}

ModelItem::~ModelItem() = default;

void ModelItem::AddChild(NK::Owner<ModelItem> child)
{
    // Taking a child that another item holds leaves it in two arrays (and deleted twice); the
    // report exists to catch that, and the child is still taken so nothing is lost here.
    if (!NK_PRECOND_TEXT(child->parent == nullptr, "child->parent == nullptr"))
        LogAssertError(LogFile, __LINE__);
    child->SetParent(this);
    children.Push(std::move(child));
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
    for (const NK::Owner<ModelItem>& item : items) {
        out.Push(item.Get());
        CollectChildrenPtrRecursive(item->children, out);
    }
}

const ModelItem* FindModelItemById(const NK::Array<NK::Owner<ModelItem>>& forest, const NK::Guid& id)
{
    for (const NK::Owner<ModelItem>& item : forest) {
        if (item->GetId() == id)
            return item.Get();
        if (const ModelItem* found = FindModelItemById(item->GetChildren(), id))
            return found;
    }
    return nullptr;
}

}  // namespace WZ::Folderable
