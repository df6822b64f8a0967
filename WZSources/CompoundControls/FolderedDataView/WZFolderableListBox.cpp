#define NK_SOURCE_PATH "WZSources\\CompoundControls\\FolderedDataView\\WZFolderableListBox"
#include "WZSources/CompoundControls/FolderedDataView/WZFolderableListBox.hpp"

#include "NK/NKAssert.hpp"
#include "NK/NKSearch.hpp"
#include "WZSources/CompoundControls/FolderedDataView/WZFolderableModelItem.hpp"
#include "WZSources/CompoundControls/FolderedDataView/WZFolderableSort.hpp"
#include "WZSources/ImprovedControls/WZImprovedHorizontalSplitter.hpp"
#include "WZSources/WZLoggedAssert.hpp"

#include <algorithm>
#include <iterator>
#include <vector>

namespace WZ::Folderable {

namespace {

constexpr const char* LogFile = "WZFolderableListBox";

// The entries of `items` that are not null; a null entry is reported once per call.
NK::Array<const ModelItem*> WithoutNulls(NK::Array<const ModelItem*> items)
{
    NK_PRECOND_TEXT(NK::DeleteNullEntries(items) == 0, "items hold no null model item");
    return items;
}

}  // namespace

NK::Array<const ModelItem*> ListItemFactory::Filter::FilterItems(const NK::Array<const ModelItem*>& items) const
{
    NK::Array<const ModelItem*> result;
    for (const ModelItem* item : WithoutNulls(items))
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
    const NK::Array<const ModelItem*> given = WithoutNulls(items);
    // A search text without words finds every entry: only the items without texts drop out,
    // and no search needs to be made to know it.
    if (NK::Search::SplitIntoWords(searchText).IsEmpty()) {
        NK::Array<const ModelItem*> result;
        result.SetCapacity(given.GetSize());
        for (const ModelItem* item : given)
            if (!GetSearchTexts(*item).IsEmpty())
                result.Push(item);
        return result;
    }
    NK::Search search;
    search.Reserve(given.GetSize());
    for (const ModelItem* item : given) {
        const NK::Array<NK::UniString> texts = GetSearchTexts(*item);
        // Entered as ConcatenateSearchTexts would join them, without building the joined text.
        if (!texts.IsEmpty())
            search.AddEntry(item->GetId(), texts);
    }
    const NK::SearchResult found = search.Run(searchText);
    NK::Array<const ModelItem*> result;
    result.SetCapacity(found.GetMatchCount());
    for (const ModelItem* item : given)
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
    const NK::Array<const ModelItem*> kept = filter->FilterItems(WithoutNulls(items));
    NK::Array<const ListBoxItem*> rows;
    rows.SetCapacity(kept.GetSize());
    bool allMade = true;
    for (const ModelItem* item : kept) {
        const ListBoxItem* row = item != nullptr ? CreateItem(*item) : nullptr;
        if (row != nullptr)
            rows.Push(row);
        else
            allMade = false;
    }
    NK_PRECOND_TEXT(allMade, "CreateItem makes a row of every filtered item");
    if (comparator)
        SortRows(rows);
    return rows;
}

void ListItemFactory::SortVectorWithClientOrder(std::vector<const ListBoxItem*>& rows) const
{
    // The client's comparator may be no strict weak order: the safe sort gives some order then.
    NK::Array<const ListBoxItem*> sorted;
    sorted.AsStdVector() = std::move(rows);
    SortWithClientOrder(sorted, comparator);
    rows = std::move(sorted.AsStdVector());
}

void ListItemFactory::SortRows(NK::Array<const ListBoxItem*>& rows)
{
    if (rows.GetSize() < 2)
        return;
    // The rows met before, placed by their former position; the rest (and a second row of one
    // id) go apart.
    std::vector<const ListBoxItem*> placed(rankCount, nullptr);
    std::vector<const ListBoxItem*> unranked;
    for (const ListBoxItem* row : rows) {
        const NK::UInt32 rank = FindRank(row->GetId());
        if (rank != NoRank && placed[rank] == nullptr)
            placed[rank] = row;
        else
            unranked.push_back(row);
    }
    std::vector<const ListBoxItem*> ranked;
    ranked.reserve(rows.GetSize() - unranked.size());
    for (const ListBoxItem* row : placed)
        if (row != nullptr)
            ranked.push_back(row);

    // The rows lie scattered in memory in their sorted order: each is fetched a few rows ahead
    // of its comparison.
    constexpr std::size_t Ahead = 8;
    bool orderHeld = true;
    for (std::size_t i = 1; orderHeld && i < ranked.size(); ++i) {
        if (i + Ahead < ranked.size())
            __builtin_prefetch(ranked[i + Ahead]);
        orderHeld = !comparator(ranked[i], ranked[i - 1]);
    }
    if (!orderHeld)
        SortVectorWithClientOrder(ranked);
    std::vector<const ListBoxItem*>& sorted = rows.AsStdVector();
    if (unranked.empty()) {
        sorted = std::move(ranked);
    } else {
        SortVectorWithClientOrder(unranked);
        sorted.clear();
        std::merge(ranked.begin(), ranked.end(), unranked.begin(), unranked.end(), std::back_inserter(sorted),
                   comparator);
    }
    // A subset in the former order keeps the ranks valid; anything new gets ranks of its own.
    if (!orderHeld || !unranked.empty())
        RankInOrder(sorted);
}

namespace {

std::size_t RankSlotOf(const NK::Guid& id, std::size_t mask)
{
    const NK::UInt64 mixed = (id.GetLow() ^ (id.GetHigh() * 0xC2B2AE3D27D4EB4Full)) * 0x9E3779B97F4A7C15ull;
    return static_cast<std::size_t>(mixed >> 20) & mask;
}

}  // namespace

NK::UInt32 ListItemFactory::FindRank(const NK::Guid& id) const
{
    if (ranks.empty())
        return NoRank;
    const std::size_t mask = ranks.size() - 1;
    for (std::size_t slot = RankSlotOf(id, mask);; slot = (slot + 1) & mask) {
        const Rank& rank = ranks[slot];
        if (rank.position == NoRank || rank.id == id)
            return rank.position;
    }
}

void ListItemFactory::RankInOrder(const std::vector<const ListBoxItem*>& sorted)
{
    std::size_t capacity = 16;
    while (capacity < 2 * sorted.size())
        capacity *= 2;
    ranks.assign(capacity, Rank());
    rankCount = 0;
    const std::size_t mask = capacity - 1;
    for (const ListBoxItem* row : sorted) {
        const NK::Guid id = row->GetId();
        for (std::size_t slot = RankSlotOf(id, mask);; slot = (slot + 1) & mask) {
            Rank& rank = ranks[slot];
            if (rank.position != NoRank && rank.id != id)
                continue;
            if (rank.position == NoRank)  // a second row of an id keeps the first one's rank
                rank = Rank {id, rankCount++};
            break;
        }
    }
}

void ListItemFactory::SetFilter(NK::Owner<Filter> newFilter)
{
    filter = std::move(newFilter);
}

void ListItemFactory::SetComparator(Comparator newComparator)
{
    comparator = std::move(newComparator);
    ranks.clear();
    rankCount = 0;
}

UntypedListBox::UntypedListBox(QM::ListBox& listBox) : HomogenListBoxView(listBox)
{
    SetModelItemResolver([this](const NK::Guid& id) -> const ModelItem* {
        const short row = HomogenListBoxView::GetRow(id);
        return row >= 1 && static_cast<std::size_t>(row) <= modelOfRow.size() ? modelOfRow[static_cast<std::size_t>(row) - 1]
                                                                              : nullptr;
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
    // Kept by row, only for the ids shown, so that no row leads to an item of a forest that went
    // away; a row's model is found through the updater's row of its id.
    modelOfRow.assign(GetItemCount(), nullptr);
    for (const ModelItem* model : models) {
        const short row = model != nullptr ? HomogenListBoxView::GetRow(model->GetId()) : short {0};
        if (row >= 1 && modelOfRow[static_cast<std::size_t>(row) - 1] == nullptr)
            modelOfRow[static_cast<std::size_t>(row) - 1] = model;
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
