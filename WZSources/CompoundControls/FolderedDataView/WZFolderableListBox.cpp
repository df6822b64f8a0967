#define NK_SOURCE_PATH "WZSources\\CompoundControls\\FolderedDataView\\WZFolderableListBox"
#include "WZSources/CompoundControls/FolderedDataView/WZFolderableListBox.hpp"

#include "NK/NKAssert.hpp"
#include "NK/NKSearch.hpp"
#include "WZSources/CompoundControls/FolderedDataView/WZFolderableModelItem.hpp"
#include "WZSources/CompoundControls/FolderedDataView/WZFolderableSort.hpp"
#include "WZSources/ImprovedControls/WZImprovedHorizontalSplitter.hpp"
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
        SortWithClientOrder(rows, comparator);
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

UntypedListBox::UntypedListBox(QM::ListBox& listBox) : HomogenListBoxView(listBox)
{
    SetModelItemResolver([this](const NK::Guid& id) -> const ModelItem* {
        const ModelItem* const* found = modelsById.GetPtr(id);
        return found != nullptr ? *found : nullptr;
    });
}

UntypedListBox::~UntypedListBox() = default;

void UntypedListBox::Show()
{
    GetListBox().Show();
}

void UntypedListBox::Hide()
{
    GetListBox().Hide();
}

bool UntypedListBox::IsVisible() const
{
    return GetListBox().IsVisible();
}

void UntypedListBox::AddToImprovedSplitter(ImprovedHorizontalSplitter& splitter)
{
    splitter.AddItem(GetListBox());
}

UntypedListBox::SelectionKeeper UntypedListBox::SetItems(NK::Array<const ListBoxItem*>&& rows,
                                                         const NK::Array<const ModelItem*>& models)
{
    SelectionKeeper keeper = HomogenListBoxView::SetItems(std::move(rows));
    // Kept only for the ids shown, so that no row leads to an item of a forest that went away.
    modelsById.Clear();
    modelsById.EnsureSize(GetItemCount());
    for (const ModelItem* model : models) {
        const NK::Guid id = model->GetId();
        if (ShowsId(id))
            modelsById.Add(id, model);
    }
    return keeper;
}

void UntypedListBox::SelectItems(const NK::Array<const ModelItem*>& items)
{
    NK::Array<NK::Guid> ids;
    ids.SetCapacity(items.GetSize());
    for (const ModelItem* item : items)
        ids.Push(item->GetId());
    SelectItems(ids);
}

void UntypedListBox::SelectItems(const NK::Array<NK::Guid>& ids)
{
    HomogenListBoxView::SelectItems(ids);
}

NK::Array<const ModelItem*> UntypedListBox::GetModelItems() const
{
    return ModelsOf(GetItems());
}

NK::Array<const ModelItem*> UntypedListBox::GetSelectedModelItems() const
{
    return ModelsOf(GetSelectedItems());
}

void UntypedListBox::WillAppear()
{
    Show();
}

void UntypedListBox::WillDisappear()
{
    Hide();
}

short UntypedListBox::GetRow(const NK::Guid& id) const
{
    const short row = HomogenListBoxView::GetRow(id);
    return row == 0 ? InvalidListItemIndex : row;
}

NK::Array<const ModelItem*> UntypedListBox::ModelsOf(const NK::Array<const ListBoxItem*>& rows) const
{
    NK::Array<const ModelItem*> models;
    models.SetCapacity(rows.GetSize());
    for (const ListBoxItem* row : rows)
        if (const ModelItem* model = GetModelItem(row->GetId()))
            models.Push(model);
    return models;
}

}  // namespace WZ::Folderable
