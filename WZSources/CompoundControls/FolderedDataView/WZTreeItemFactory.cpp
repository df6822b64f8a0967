#define NK_SOURCE_PATH "WZSources\\CompoundControls\\FolderedDataView\\WZTreeItemFactory"
#include "WZSources/CompoundControls/FolderedDataView/WZTreeItemFactory.hpp"

#include "NK/NKAssert.hpp"
#include "WZSources/CompoundControls/FolderedDataView/WZFolderableListBox.hpp"
#include "WZSources/CompoundControls/FolderedDataView/WZFolderableModelItem.hpp"
#include "WZSources/CompoundControls/FolderedDataView/WZFolderableSort.hpp"

#include <algorithm>
#include <numeric>
#include <string>
#include <vector>

namespace WZ::Folderable {

namespace {

// The default order by collation keys made once per item: the same order as comparing every
// pair with NK::NaturalIsLess, at a fraction of the cost for a level of many siblings.
void SortByDisplayNameKeys(NK::Array<NK::Owner<TreeItem>>& items)
{
    std::vector<std::string> keys;
    keys.reserve(items.GetSize());
    for (const NK::Owner<TreeItem>& item : items)
        keys.push_back(NK::NaturalSortKey(item->GetDisplayName(), 1));
    std::vector<NK::UIndex> order(items.GetSize());
    std::iota(order.begin(), order.end(), NK::UIndex {0});
    std::sort(order.begin(), order.end(), [&keys](NK::UIndex a, NK::UIndex b) { return keys[a] < keys[b]; });
    NK::Array<NK::Owner<TreeItem>> sorted;
    sorted.SetCapacity(items.GetSize());
    for (NK::UIndex index : order)
        sorted.Push(std::move(items[index]));
    items = std::move(sorted);
}

}  // namespace

TreeItemFactory::Filter::Status TreeItemFactory::Filter::GetStatus(const ModelItem&) const
{
    return Status::Included;
}

TreeItemFactory::Filter::~Filter() = default;

TreeItemFactory::Filter::Status TreeItemFactory::SearchFilter::GetStatus(const ModelItem& item) const
{
    const NK::Array<NK::UniString> texts = GetSearchTexts(item);
    if (texts.IsEmpty())
        return Status::IncludedIfAnyChild;
    // An empty search text matches every entry; no search needs to be run to know it.
    if (searchText.IsEmpty())
        return Status::Included;
    return ListItemFactory::SearchFilter::IsMatching(searchText, texts) ? Status::Included : Status::IncludedIfAnyChild;
}

TreeItemFactory::SearchFilter::~SearchFilter() = default;

void TreeItemFactory::SearchFilter::SetSearchText(const NK::UniString& text)
{
    searchText = text;
}

TreeItemFactory::TreeItemFactory() : itemComparator(&TreeItemFactory::CompareDisplayNames) {}

TreeItemFactory::~TreeItemFactory() = default;

bool TreeItemFactory::CompareDisplayNames(const TreeItem& a, const TreeItem& b)
{
    return NK::NaturalIsLess(a.GetDisplayName(), b.GetDisplayName(), 1);
}

void TreeItemFactory::SetItemFilter(ItemFilter filter)
{
    itemFilter = std::move(filter);
}

void TreeItemFactory::SetItemComparator(const ItemComparator& comparator)
{
    itemComparator = comparator;
}

const TreeItemFactory::Filter* TreeItemFactory::GetItemFilterPtr() const
{
    if (!NK_PRECOND_TEXT(!std::holds_alternative<std::monostate>(itemFilter),
                         "!std::holds_alternative<std::monostate> (itemFilter)"))
        NK_UNREACHABLE();
    if (const auto* owned = std::get_if<NK::Owner<Filter>>(&itemFilter))
        return owned->Get();
    return std::get<const Filter*>(itemFilter);
}

NK::Array<NK::Owner<TreeItem>> TreeItemFactory::CreateTree(const NK::Array<const ModelItem*>& items)
{
    const Filter* filter = GetItemFilterPtr();
    // One level per model item being built: its children are visited first, then the item's
    // own tree item is made and handed to the level above. The bottom level is the given array.
    struct Level {
        const ModelItem* item;  // null for the given array
        Filter::Status status;
        NK::Array<const ModelItem*> models;
        NK::UIndex next;
        NK::Array<NK::Owner<TreeItem>> built;
    };
    std::vector<Level> stack;
    stack.push_back({nullptr, Filter::Status::Included, items, 0, {}});
    while (true) {
        Level& level = stack.back();
        if (level.next < level.models.GetSize()) {
            const ModelItem* item = level.models[level.next++];
            if (!NK_PRECOND_TEXT(item != nullptr, "item != nullptr"))
                continue;
            const Filter::Status status = filter != nullptr ? filter->GetStatus(*item) : Filter::Status::Included;
            if (status != Filter::Status::Excluded)
                stack.push_back({item, status, ModelItem::ToPtrArray(item->GetChildren()), 0, {}});
            continue;
        }
        if (stack.size() == 1)
            break;
        Level done = std::move(level);
        stack.pop_back();
        if (done.status == Filter::Status::IncludedIfAnyChild && done.built.IsEmpty())
            continue;
        NK::Owner<TreeItem> treeItem = CreateItem(*done.item);
        if (!NK_PRECOND_TEXT(treeItem != nullptr, "treeItem != nullptr"))
            continue;
        SortTreeItems(done.built);
        treeItem->SetChildren(std::move(done.built));
        stack.back().built.Push(std::move(treeItem));
    }
    NK::Array<NK::Owner<TreeItem>> roots = std::move(stack.back().built);
    SortTreeItems(roots);
    return roots;
}

void TreeItemFactory::SortTreeItems(NK::Array<NK::Owner<TreeItem>>& items) const
{
    if (!itemComparator || items.GetSize() < 2)
        return;
    using Function = bool (*)(const TreeItem&, const TreeItem&);
    // A key costs about as much as a handful of pair comparisons, so short levels compare pairs.
    constexpr NK::UIndex KeyedSortMinimum = 16;
    const Function* function = itemComparator.target<Function>();
    if (function != nullptr && *function == &CompareDisplayNames && items.GetSize() >= KeyedSortMinimum) {
        SortByDisplayNameKeys(items);
        return;
    }
    SortWithClientOrder(items, [this](const NK::Owner<TreeItem>& a, const NK::Owner<TreeItem>& b) {
        return itemComparator(*a, *b);
    });
}

}  // namespace WZ::Folderable
