#include "WZSources/Diff/WZSmartListBoxUpdater.hpp"

#include "NK/NKAssert.hpp"
#include "NK/NKHashTable.hpp"
#include "WZSources/Diff/WZDiff.hpp"
#include "WZSources/Diff/WZItemData.hpp"

#include <vector>

namespace WZ {

namespace {

short RowOf(NK::UInt64 index)
{
    return static_cast<short>(index + 1);
}

// The new index of each old index of `changed`. The k-th pair of an id is its k-th occurrence in
// the new items, so an id met again continues after the occurrence used last time; the common
// case of an id met once is its first occurrence.
class ChangedRowFinder {
public:
    ChangedRowFinder(const Diff::Result& result, const NK::Array<const Diffable*>& newItems)
        : result(result), newItems(newItems)
    {
    }

    NK::Int64 NewIndexOf(NK::UInt64 oldIndex)
    {
        const NK::Guid id = result.oldIndexMap.GetId(static_cast<NK::Int64>(oldIndex));
        NK::Int64 index = result.newIndexMap.GetIndex(id, -1);
        if (NK::Int64* last = lastUsed.GetPtr(id)) {
            index = *last + 1;
            while (index < static_cast<NK::Int64>(newItems.GetSize()) &&
                   newItems[static_cast<NK::UIndex>(index)]->GetId() != id)
                ++index;
            *last = index;
        } else {
            lastUsed.Add(id, index);
        }
        return index;
    }

private:
    const Diff::Result& result;
    const NK::Array<const Diffable*>& newItems;
    NK::HashTable<NK::Guid, NK::Int64> lastUsed;
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
    if (deallocator)
        for (const Diffable* item : items)
            deallocator->Deallocate(item);
}

SmartListBoxUpdater::SelectionKeeper SmartListBoxUpdater::SetItems(NK::Array<const Diffable*>&& newItems)
{
    SelectionKeeper keeper(listBox, this);
    std::vector<bool> written(newItems.GetSize() + 1, false);

    Diff::Result result = Diffing(items, newItems);

    NK::Array<NK::UInt64> deleted(result.deleted.begin(), result.deleted.end());
    for (NK::UIndex k = deleted.GetSize(); k-- > 0;)
        listBox->DeleteItem(RowOf(deleted[k]));

    for (NK::UInt64 index : result.inserted) {
        const short row = RowOf(index);
        InsertNewEmptyRow(row, *newItems[index]);
        FillRowContent(row, *newItems[index]);
        written[index + 1] = true;
    }

    for (const Diff::Move& move : result.moved) {
        const short row = RowOf(move.to);
        UpdateExistingRowType(row, *newItems[move.to]);
        FillRowContent(row, *newItems[move.to]);
        written[move.to + 1] = true;
    }

    ChangedRowFinder changedRows(result, newItems);
    for (NK::UInt64 oldIndex : result.changed) {
        const NK::Int64 index = changedRows.NewIndexOf(oldIndex);
        if (!NK_ASSERT(index >= 0 && index < static_cast<NK::Int64>(newItems.GetSize())))
            continue;
        const auto newIndex = static_cast<NK::UIndex>(index);
        const short row = RowOf(newIndex);
        UpdateExistingRowType(row, *newItems[newIndex]);
        FillRowContent(row, *newItems[newIndex]);
        written[newIndex + 1] = true;
    }

    if (deallocator)
        for (const Diffable* item : items)
            deallocator->Deallocate(item);

    items = std::move(newItems);
    *rowMap = std::move(result.newIndexMap);

    // Rows that were not written keep their content (equal to the new item's) but must point at
    // the new item objects.
    const short rowCount = listBox->GetItemCount();
    for (short row = 1; row <= rowCount; ++row) {
        const auto index = static_cast<NK::UIndex>(row - 1);
        if (written[static_cast<NK::UIndex>(row)] || index >= items.GetSize())
            continue;
        listBox->SetItemObjectData(row, Diff::MakeItemData(rowMap->GetId(static_cast<NK::Int64>(index)), items[index]));
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

void SmartListBoxUpdater::FillRowContent(short row, const Diffable& item)
{
    if (decorator != nullptr && !IsSeparatorItem(item))
        decorator->DecorateRow(*listBox, row, item);
    listBox->SetItemObjectData(row, Diff::MakeItemData(item.GetId(), &item));
}

void SmartListBoxUpdater::InsertNewEmptyRow(short row, const Diffable& item)
{
    if (IsSeparatorItem(item))
        listBox->InsertSeparator(row);
    else
        listBox->InsertItem(row);
}

void SmartListBoxUpdater::UpdateExistingRowType(short row, const Diffable& item)
{
    if (listBox->IsSeparator(row) == IsSeparatorItem(item))
        return;
    listBox->DeleteItem(row);
    InsertNewEmptyRow(row, item);
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
