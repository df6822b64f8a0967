#define NK_SOURCE_PATH "WZSources\\CompoundControls\\FolderedDataView\\WZFolderableListBox"
#include "WZSources/CompoundControls/FolderedDataView/WZFolderableListBox.hpp"

#include "NK/NKAssert.hpp"
#include "NK/NKSearch.hpp"
#include "WZSources/CompoundControls/FolderedDataView/WZFolderableModelItem.hpp"
#include "WZSources/WZLoggedAssert.hpp"

#include <algorithm>

namespace WZ::Folderable {

namespace {

constexpr const char* LogFile = "WZFolderableListBox";

}  // namespace

NK::Array<const ModelItem*> ListItemFactory::Filter::FilterItems(const NK::Array<const ModelItem*>& items) const
{
    NK::Array<const ModelItem*> result;
    for (const ModelItem* item : items)
        if (GetStatus(*item) == Status::Included)
            result.Push(item);
    return result;
}

ListItemFactory::Filter::Status ListItemFactory::Filter::GetStatus(const ModelItem&) const
{
    return Status::Included;
}

ListItemFactory::Filter::~Filter() = default;

const NK::Guid ListItemFactory::SearchFilter::matchingEntryKey {"{4B10ACFE-87EE-48CD-BD50-C3B423B85882}"};

ListItemFactory::SearchFilter::SearchFilter(const NK::UniString& searchText) : searchText(searchText) {}

ListItemFactory::SearchFilter::~SearchFilter() = default;

NK::Array<const ModelItem*> ListItemFactory::SearchFilter::FilterItems(const NK::Array<const ModelItem*>& items) const
{
    NK::Search search;
    search.Reserve(items.GetSize());
    for (const ModelItem* item : items) {
        const NK::Array<NK::UniString> texts = GetSearchTexts(*item);
        // Entered as ConcatenateSearchTexts would join them, without building the joined text.
        if (!texts.IsEmpty())
            search.AddEntry(item->GetId(), texts);
    }
    const NK::SearchResult found = search.Run(searchText);
    NK::Array<const ModelItem*> result;
    result.SetCapacity(found.GetMatchCount());
    for (const ModelItem* item : items)
        if (found.Contains(item->GetId()))
            result.Push(item);
    return result;
}

NK::UniString ListItemFactory::SearchFilter::ConcatenateSearchTexts(const NK::Array<NK::UniString>& texts)
{
    if (texts.IsEmpty())
        return {};
    const NK::UniString space(u" ");
    NK::UniString joined = texts[0];
    for (NK::UIndex i = 1; i < texts.GetSize(); ++i)
        joined.Append(space).Append(texts[i]);
    return joined;
}

bool ListItemFactory::SearchFilter::IsMatching(const NK::UniString& searchText, const NK::Array<NK::UniString>& texts)
{
    if (texts.IsEmpty())
        return false;
    NK::Search search;
    search.AddEntry(matchingEntryKey, ConcatenateSearchTexts(texts));
    return search.CountMatches(searchText) > 0;
}

ListItemFactory::ListItemFactory() : filter(NK::NewOwned<Filter>()) {}

ListItemFactory::~ListItemFactory() = default;

const ListBoxItem* ListItemFactory::CreateItem(const ModelItem&)
{
    NK_UNREACHABLE_TEXT("ListItemFactory::CreateItem is not overridden");
}

NK::Array<const ListBoxItem*> ListItemFactory::CreateItems(const NK::Array<const ModelItem*>& items)
{
    if (!NK_PRECOND_TEXT(comparator != nullptr, "comparator != nullptr"))
        LogAssertError(LogFile, __LINE__);
    const NK::Array<const ModelItem*> kept = filter->FilterItems(items);
    NK::Array<const ListBoxItem*> rows;
    rows.SetCapacity(kept.GetSize());
    for (const ModelItem* item : kept)
        rows.Push(CreateItem(*item));
    if (comparator)
        std::sort(rows.begin(), rows.end(), comparator);
    return rows;
}

void ListItemFactory::SetFilter(NK::Owner<Filter> newFilter)
{
    filter = std::move(newFilter);
}

void ListItemFactory::SetComparator(Comparator newComparator)
{
    comparator = std::move(newComparator);
}

}  // namespace WZ::Folderable
