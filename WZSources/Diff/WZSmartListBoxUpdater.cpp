#define NK_SOURCE_PATH "WZSources\\Diff\\WZSmartListBoxUpdater"
#include "WZSources/Diff/WZSmartListBoxUpdater.hpp"

#include "NK/NKAssert.hpp"
#include "NK/NKHashTable.hpp"
#include "WZSources/Diff/WZDiff.hpp"
#include "WZSources/Diff/WZItemDeallocation.hpp"
#include "WZSources/Diff/WZItemData.hpp"

#include <algorithm>
#include <utility>
#include <vector>

namespace WZ {

namespace {

short RowOf(NK::UInt64 index)
{
    return static_cast<short>(index + 1);
}

// The new index of each old index of `changed`, walked in ascending order. The k-th old
// occurrence of an id pairs with its k-th new occurrence, so an id met again continues at the
// occurrence after the one used last time. The common case, an id met once, is its first new
// index; the chain of later occurrences is made once, from the new index map, the first time an
// id comes again, so that repeated ids cost linear time however far apart they lie.
class ChangedRowFinder {
public:
    explicit ChangedRowFinder(const Diff::Result& result) : result(result) {}

    NK::Int64 NewIndexOf(NK::UInt64 oldIndex)
    {
        const NK::Guid id = result.oldIndexMap.GetId(static_cast<NK::Int64>(oldIndex));
        const NK::Int64 first = result.newIndexMap.GetIndex(id, -1);
        if (first < 0)
            return -1;
        NK::Int64* last = lastUsed.GetPtr(id);
        if (last == nullptr) {
            lastUsed.Add(id, first);
            return first;
        }
        if (nextOccurrence.empty())
            ChainOccurrences();
        if (*last >= 0)
            *last = nextOccurrence[static_cast<std::size_t>(*last)];
        return *last;
    }

private:
    // nextOccurrence[i]: the next new index after i with the same id, -1 after the last one.
    void ChainOccurrences()
    {
        const NK::UIndex size = result.newIndexMap.GetSize();
        nextOccurrence.assign(size, -1);
        NK::HashTable<NK::Guid, NK::Int64> following;
        following.EnsureSize(size);
        for (NK::UIndex k = size; k-- > 0;) {
            const auto index = static_cast<NK::Int64>(k);
            const NK::Guid id = result.newIndexMap.GetId(index);
            if (NK::Int64* next = following.GetPtr(id)) {
                nextOccurrence[k] = *next;
                *next = index;
            } else {
                following.Add(id, index);
            }
        }
    }

    const Diff::Result& result;
    NK::HashTable<NK::Guid, NK::Int64> lastUsed;
    std::vector<NK::Int64> nextOccurrence;
};

}  // namespace

SmartListBoxUpdater::ItemDeallocator::~ItemDeallocator() = default;

void SmartListBoxUpdater::DefaultDeallocator::Deallocate(const Diffable* item)
{
    delete item;
}

SmartListBoxUpdater::SmartListBoxUpdater(QM::ListBox* listBox, ListBoxDecorator* decorator,
                                         NK::Owner<ItemDeallocator> deallocator)
    : rowMap(NK::NewOwned<Diff::IndexMap>()),
      listBox(listBox),
      decorator(decorator),
      deallocator(std::move(deallocator))
{
    NK_PRECOND(listBox != nullptr);
}

SmartListBoxUpdater::~SmartListBoxUpdater()
{
    try {
        LetGo(std::move(items), {});
    } catch (...) {
        NK_ASSERT_TEXT(false, "the shown items are let go without an exception");
    }
}

NK::Array<const Diffable*> SmartListBoxUpdater::TakeUnshowable(NK::Array<const Diffable*>& newItems) const
{
    NK::Array<const Diffable*> dropped;
    NK_PRECOND_TEXT(NK::DeleteNullEntries(newItems) == 0, "newItems hold no null item");
    // The rows of other writers stay where they are; the updater's own rows fill the rest.
    const NK::UIndex rowCount = static_cast<NK::UIndex>(listBox->GetItemCount());
    const NK::UIndex foreignRows = rowCount > items.GetSize() ? rowCount - items.GetSize() : 0;
    const NK::UIndex capacity = static_cast<NK::UIndex>(QM::ListBox::MaxRowCount) - foreignRows;
    if (!NK_PRECOND_TEXT(newItems.GetSize() <= capacity, "newItems fit the list box's rows")) {
        for (NK::UIndex i = capacity; i < newItems.GetSize(); ++i)
            dropped.Push(newItems[i]);
        newItems.SetSize(capacity);
    }
    return dropped;
}

void SmartListBoxUpdater::LetGo(NK::Array<const Diffable*> released, const NK::Array<const Diffable*>& kept)
{
    if (deallocator)
        DeallocateOnceExcept(released, kept, [this](const Diffable* item) { deallocator->Deallocate(item); });
}

SmartListBoxUpdater::SelectionKeeper SmartListBoxUpdater::SetItems(NK::Array<const Diffable*>&& newItems)
{
    SelectionKeeper keeper(listBox, this);
    NK::Array<const Diffable*> dropped = TakeUnshowable(newItems);
    std::vector<bool> written(newItems.GetSize(), false);

    Diff::Result result = Diffing(items, newItems);

    NK::Array<NK::UInt64> deleted(result.deleted.begin(), result.deleted.end());
    for (NK::UIndex k = deleted.GetSize(); k-- > 0;)
        listBox->DeleteItem(RowOf(deleted[k]));

    for (NK::UInt64 index : result.inserted) {
        const short row = RowOf(index);
        WriteRow(row, *newItems[index], RowKind::New);
        written[index] = true;
    }

    for (const Diff::Move& move : result.moved) {
        const short row = RowOf(move.to);
        WriteRow(row, *newItems[move.to], RowKind::Existing);
        written[move.to] = true;
    }

    ChangedRowFinder changedRows(result);
    for (NK::UInt64 oldIndex : result.changed) {
        const NK::Int64 index = changedRows.NewIndexOf(oldIndex);
        if (!NK_ASSERT(index >= 0 && index < static_cast<NK::Int64>(newItems.GetSize())))
            continue;
        const auto newIndex = static_cast<NK::UIndex>(index);
        const short row = RowOf(newIndex);
        WriteRow(row, *newItems[newIndex], RowKind::Existing);
        written[newIndex] = true;
    }

    NK::Array<const Diffable*> released = std::exchange(items, std::move(newItems));
    released.Append(dropped);
    LetGo(std::move(released), items);
    *rowMap = std::move(result.newIndexMap);

    // Rows that were not written keep their content (equal to the new item's) but must point at
    // the new item objects. Only the updater's own rows: rows of other writers lie below them.
    for (NK::UIndex index = 0; index < items.GetSize(); ++index) {
        if (written[index])
            continue;
        listBox->SetItemObjectData(RowOf(index), Diff::MakeItemData(rowMap->GetId(static_cast<NK::Int64>(index)), items[index]));
    }
    return keeper;
}

const Diffable* SmartListBoxUpdater::GetItem(short row) const
{
    if (row < 1 || row > listBox->GetItemCount())
        throw NK::NullReferenceException();
    return Diff::ReadItemData(listBox->GetItemObjectData(row)).item;
}

const Diffable* SmartListBoxUpdater::GetItem(const NK::Guid& id) const
{
    return GetItem(GetRow(id));
}

short SmartListBoxUpdater::GetRow(const NK::Guid& id) const
{
    return static_cast<short>(rowMap->GetIndex(id, -1) + 1);
}

short SmartListBoxUpdater::GetRow(const Diffable* item) const
{
    return GetRow(item->GetId());
}

NK::Guid SmartListBoxUpdater::GetId(short row) const
{
    return rowMap->GetId(row - 1);
}

bool SmartListBoxUpdater::HasItem(const NK::Guid& id) const
{
    return rowMap->HasId(id);
}

bool SmartListBoxUpdater::HasItem(short row) const
{
    return rowMap->HasIndex(row - 1);
}

NK::Array<NK::Guid> SmartListBoxUpdater::GetContained(const NK::Array<NK::Guid>& ids) const
{
    NK::Array<NK::Guid> contained;
    for (const NK::Guid& id : ids)
        if (HasItem(id))
            contained.Push(id);
    return contained;
}

NK::Array<NK::Guid> SmartListBoxUpdater::GetSelectedItemIds() const
{
    NK::Array<NK::Guid> ids;
    for (short row : listBox->GetSelectedItems())
        ids.Push(GetId(row));
    return ids;
}

NK::Array<const Diffable*> SmartListBoxUpdater::GetSelectedItems() const
{
    NK::Array<const Diffable*> selected;
    for (short row : listBox->GetSelectedItems())
        selected.Push(GetItem(row));
    return selected;
}

void SmartListBoxUpdater::UpdateItem(const NK::Guid& id) const
{
    const short row = GetRow(id);
    const Diffable* item = GetItem(row);
    if (decorator != nullptr)
        decorator->DecorateRow(*listBox, row, *item);
}

void SmartListBoxUpdater::WriteRow(short row, const Diffable& item, RowKind kind)
{
    const bool separator = IsSeparatorItem(item);
    bool insert = kind == RowKind::New;
    if (!insert && listBox->IsSeparator(row) != separator) {
        listBox->DeleteItem(row);
        insert = true;
    }
    if (insert) {
        if (separator)
            listBox->InsertSeparator(row);
        else
            listBox->InsertItem(row);
    }
    if (decorator != nullptr && !separator)
        decorator->DecorateRow(*listBox, row, item);
    listBox->SetItemObjectData(row, Diff::MakeItemData(item.GetId(), &item));
}

SmartListBoxUpdater::SelectionKeeper::SelectionKeeper(QM::ListBox* listBox, const SmartListBoxUpdater* updater)
    : selectedRows(listBox->GetSelectedItems()),
      selectedItemIds(updater->GetSelectedItemIds()),
      listBox(listBox),
      updater(updater)
{
}

SmartListBoxUpdater::SelectionKeeper::Restored SmartListBoxUpdater::SelectionKeeper::RestoreByItemIds()
{
    listBox->DeselectItem(0);
    if (selectedItemIds.IsEmpty())
        return Restored::Nothing;
    bool found = false;
    bool missing = false;
    for (const NK::Guid& id : selectedItemIds) {
        if (updater->HasItem(id)) {
            listBox->SelectItem(updater->GetRow(id));
            found = true;
        } else {
            missing = true;
        }
    }
    if (!missing)
        return Restored::All;
    return found ? Restored::Partial : Restored::Nothing;
}

}  // namespace WZ
