// WZ::SmartListBoxUpdater keeps a list box showing an array of items. The client hands over the
// complete new array with SetItems; the updater compares it by id with the array it shows and
// changes only what differs: it deletes the rows of deleted items (bottom-up), inserts rows for
// inserted items (ascending, each at its final row), and rewrites in place the rows of moved and
// changed items. Rows are never moved in the control. Every row carries an attached record
// naming its item, so rows map back to items and ids; the updater assumes that it is the list
// box's only writer. Rows that were in the list box before the updater's first SetItems stay
// below the updater's rows.
//
// Selection survives by id: SetItems returns a SelectionKeeper, made before any row changed,
// whose RestoreByItemIds selects the rows of the remembered ids that are still shown.
//
// What SetItems does not show. A null entry is reported and dropped. A list box holds at most
// QM::ListBox::MaxRowCount (32,767) rows, less the rows of other writers: of a longer array the
// updater shows the first rows that fit, reports the overflow once per SetItems ("newItems fit
// the list box's rows"), and drops the rest, so that GetItems, the row map and the rows always
// agree. A dropped item is one the updater lets go: with a deallocator it is deallocated at once
// (the caller handed it over and gets nothing back to free); without one it stays the caller's.
//
// With a deallocator the updater owns its items: every item object it lets go (the old array's
// on SetItems, the dropped ones, all shown ones on destruction) is passed to Deallocate exactly
// once. An item object that is both in the old and in the new array stays shown and is not
// deallocated; one given several times is deallocated once. Draw suppression around an update is
// the owning view's business.
#pragma once

#include "NK/NKArray.hpp"
#include "NK/NKGuid.hpp"
#include "NK/NKPointers.hpp"
#include "QM/QMListBox.hpp"
#include "WZSources/Diff/WZDiffable.hpp"
#include "WZSources/Diff/WZIndexMap.hpp"
#include "WZSources/Diff/WZListBoxDecorator.hpp"

namespace WZ {

class SmartListBoxUpdater {
public:
    class ItemDeallocator {
    public:
        virtual void Deallocate(const Diffable* item) = 0;
        virtual ~ItemDeallocator();
    };

    // Deletes the item through its virtual destructor.
    class DefaultDeallocator : public ItemDeallocator {
    public:
        void Deallocate(const Diffable* item) override;
    };

    class SelectionKeeper {
    public:
        enum class Restored { All = 0, Partial = 1, Nothing = 2 };

        // Remembers the list box's selected rows and their ids as the updater maps them now.
        SelectionKeeper(QM::ListBox* listBox, const SmartListBoxUpdater* updater);
        SelectionKeeper(SelectionKeeper&&) noexcept = default;
        SelectionKeeper& operator=(SelectionKeeper&&) noexcept = default;

        const NK::Array<short>& GetSelectedRows() const noexcept { return selectedRows; }
        const NK::Array<NK::Guid>& GetSelectedItemIds() const noexcept { return selectedItemIds; }

        // Clears the selection, then selects the row of every remembered id still shown: All when
        // every id was found, Nothing when none was (or none was remembered), else Partial.
        Restored RestoreByItemIds();

    private:
        NK::Array<short> selectedRows;
        NK::Array<NK::Guid> selectedItemIds;
        QM::ListBox* listBox;
        const SmartListBoxUpdater* updater;
    };

    // Starts with no items; does not touch the list box.
    SmartListBoxUpdater(QM::ListBox* listBox, ListBoxDecorator* decorator, NK::Owner<ItemDeallocator> deallocator);
    SmartListBoxUpdater(const SmartListBoxUpdater&) = delete;
    SmartListBoxUpdater& operator=(const SmartListBoxUpdater&) = delete;
    // Lets go of the shown items; the rows stay in the list box.
    virtual ~SmartListBoxUpdater();

    SelectionKeeper SetItems(NK::Array<const Diffable*>&& newItems);

    const NK::Array<const Diffable*>& GetItems() const noexcept { return items; }
    // The item of the row's attached record; throws NK::NullReferenceException when the row has none.
    const Diffable* GetItem(short row) const;
    const Diffable* GetItem(const NK::Guid& id) const;
    // The row of the id, 0 when it is not shown.
    short GetRow(const NK::Guid& id) const;
    short GetRow(const Diffable* item) const;
    // The id shown in the row, the null Guid when there is none.
    NK::Guid GetId(short row) const;
    bool HasItem(const NK::Guid& id) const;
    bool HasItem(short row) const;
    // Those of `ids`, in their order, that are shown.
    NK::Array<NK::Guid> GetContained(const NK::Array<NK::Guid>& ids) const;
    NK::Array<NK::Guid> GetSelectedItemIds() const;
    NK::Array<const Diffable*> GetSelectedItems() const;
    // Redecorates the row of the id from its attached record.
    void UpdateItem(const NK::Guid& id) const;

private:
    // Drops the null entries and what does not fit into the rows left to the updater, with one
    // report each; returns the dropped non-null items.
    NK::Array<const Diffable*> TakeUnshowable(NK::Array<const Diffable*>& newItems) const;
    // Deallocates the distinct items of `released` that are not in `kept`.
    void LetGo(NK::Array<const Diffable*> released, const NK::Array<const Diffable*>& kept);
    enum class RowKind { New, Existing };
    // Writes the item into its row: a new row is inserted first, an existing one of the other
    // kind (separator or not) is replaced; the item is decorated unless it is a separator, and
    // the row gets a fresh record naming it.
    void WriteRow(short row, const Diffable& item, RowKind kind);

    // Row r shows the id at index r - 1; an id shown in several rows maps back to the first.
    NK::Owner<Diff::IndexMap> rowMap;
    NK::Array<const Diffable*> items;
    QM::ListBox* listBox;
    ListBoxDecorator* decorator;
    NK::Owner<ItemDeallocator> deallocator;
};

}  // namespace WZ
