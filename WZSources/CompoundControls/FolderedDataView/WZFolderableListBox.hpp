// WZ::Folderable::ListItemFactory: turns model items into the rows of the foldered data view's
// list box. CreateItems filters the items (the filter's FilterItems), lets the client create a
// row for each survivor (CreateItem, which every client overrides) and sorts the rows with the
// comparator (a comparator that is no strict weak order gives some order, never a crash; rows
// that compare equal come in no fixed order). Without a comparator the rows are reported
// ("comparator != nullptr") and left in filter order. Null model items given to CreateItems or
// to a filter, and null rows from CreateItem, are reported once per call and left out.
//
// The rows are the caller's: the list views hand them to their smart updater with a
// deallocator, which deletes them when they are let go.
//
// Filter keeps, in order, the items whose status is exactly Included (a flat list has no use
// for IncludedIfAnyChild). SearchFilter enters every item that has search texts into a search
// (key: its Guid, text: its texts joined by single spaces) and keeps, in order, the items whose
// key the search finds; an item without search texts is never found. The matching rule is the
// base library's search (NK::Search).
//
// UntypedListBox is the list control of the foldered data view's list-based views: a columned
// homogeneous list view (UntypedListSetup: short column ids, ListBoxItem rows) whose rows lead
// back to the model items they were made from. SetItems takes the rows together with the model
// items they stand for; each row finds its model item by the Guid they share. Row numbers follow
// the toolkit (from 1); GetRow answers InvalidListItemIndex for an id that has no row.
#pragma once

#include "NK/NKArray.hpp"
#include "NK/NKGuid.hpp"
#include "NK/NKPointers.hpp"
#include "NK/NKUniString.hpp"
#include "WZSources/CompoundControls/FolderedDataView/WZFolderableFilterStatus.hpp"
#include "WZSources/CompoundControls/FolderedDataView/WZFolderableListBoxItem.hpp"
#include "WZSources/ListBoxView/WZHomogenListBoxView.hpp"

#include "NK/NKHashTable.hpp"

#include <functional>
#include <vector>

namespace WZ {
class ImprovedHorizontalSplitter;
}

namespace WZ::Folderable {

class ModelItem;

class ListItemFactory {
public:
    class Filter {
    public:
        using Status = FilterStatus;

        virtual NK::Array<const ModelItem*> FilterItems(const NK::Array<const ModelItem*>& items) const;
        // Included for every item unless a subclass says otherwise.
        virtual Status GetStatus(const ModelItem& item) const;
        virtual ~Filter();
    };

    class SearchFilter : public Filter {
    public:
        explicit SearchFilter(const NK::UniString& searchText = {});
        ~SearchFilter() override;

        NK::Array<const ModelItem*> FilterItems(const NK::Array<const ModelItem*>& items) const override;
        // The texts under which the client wants the item to be found.
        virtual NK::Array<NK::UniString> GetSearchTexts(const ModelItem& item) const = 0;

        void SetSearchText(const NK::UniString& text) { searchText = text; }
        const NK::UniString& GetSearchText() const noexcept { return searchText; }

        // The first text, then a single space and each further text.
        static NK::UniString ConcatenateSearchTexts(const NK::Array<NK::UniString>& texts);
        // Whether a one-entry search over the joined texts finds the search text; false for no
        // texts at all.
        static bool IsMatching(const NK::UniString& searchText, const NK::Array<NK::UniString>& texts);
        // The key of IsMatching's one entry: {4B10ACFE-87EE-48CD-BD50-C3B423B85882}.
        static const NK::Guid matchingEntryKey;

    private:
        NK::UniString searchText;
    };

    // True when the first row sorts before the second.
    using Comparator = std::function<bool(const ListBoxItem*, const ListBoxItem*)>;

    ListItemFactory();
    ListItemFactory(const ListItemFactory&) = delete;
    ListItemFactory& operator=(const ListItemFactory&) = delete;

    // The row for one model item; the base stops the program, so every client overrides it.
    virtual const ListBoxItem* CreateItem(const ModelItem& item);
    virtual NK::Array<const ListBoxItem*> CreateItems(const NK::Array<const ModelItem*>& items);
    virtual ~ListItemFactory();

    void SetFilter(NK::Owner<Filter> newFilter);
    void SetComparator(Comparator newComparator);
    const Filter& GetFilter() const { return *filter; }

private:
    // Sorts with the comparator, starting from the order it gave last time: the rows met before
    // are put in their former relative order and kept there when the comparator agrees with
    // every neighbouring pair; the others are sorted apart and merged in. A refresh of much the
    // same rows then costs one comparison per row instead of a full sort.
    void SortRows(NK::Array<const ListBoxItem*>& rows);
    void SortVectorWithClientOrder(std::vector<const ListBoxItem*>& rows) const;

    NK::Owner<Filter> filter;
    Comparator comparator;
    // The position of each row's id in the last full order made (an open-addressing table
    // probed once per row); emptied with a new comparator.
    struct Rank {
        NK::Guid id;
        NK::UInt32 position = NoRank;
    };
    static constexpr NK::UInt32 NoRank = 0xFFFFFFFF;
    NK::UInt32 FindRank(const NK::Guid& id) const;
    void RankInOrder(const std::vector<const ListBoxItem*>& sorted);

    std::vector<Rank> ranks;
    NK::UInt32 rankCount = 0;
};

// The setup of the foldered data view's list: ListBoxItem rows in columns with short ids, each
// row leading back to a model item.
struct UntypedListSetup {
    using Item = ListBoxItem;
    using ColumnId = short;
    using ModelItem = Folderable::ModelItem;
};

class UntypedListBox : public WZ::HomogenListBoxView<UntypedListSetup> {
public:
    static constexpr short InvalidListItemIndex = -1;

    explicit UntypedListBox(QM::ListBox& listBox);
    ~UntypedListBox();

    void Show();
    void Hide();
    bool IsVisible() const;
    // Hands the list box to the splitter, in the pane on its side of the bar, so that it follows
    // the bar when the user moves it.
    void AddToImprovedSplitter(ImprovedHorizontalSplitter& splitter);

    // Shows the rows in this order and takes them over; `models` are the items the rows were
    // made from (a model item without a row is not remembered). The keeper restores the
    // selection by id.
    SelectionKeeper SetItems(NK::Array<const ListBoxItem*>&& rows, const NK::Array<const ModelItem*>& models);

    // Selects exactly the rows of these items (of these ids) that are shown.
    void SelectItems(const NK::Array<const ModelItem*>& items);
    void SelectItems(const NK::Array<NK::Guid>& ids);

    // The model items of all rows, and of the selected rows, in row order.
    NK::Array<const ModelItem*> GetModelItems() const;
    NK::Array<const ModelItem*> GetSelectedModelItems() const;

    // The view that uses the list is shown or hidden: so is the list box.
    void WillAppear();
    void WillDisappear();

    // The row of the id, InvalidListItemIndex when no row shows it.
    short GetRow(const NK::Guid& id) const;

private:
    NK::Array<const ModelItem*> ModelsOf(const NK::Array<const ListBoxItem*>& rows) const;

    // The model item of each row (index row - 1); null where no model was given.
    std::vector<const ModelItem*> modelOfRow;
};

}  // namespace WZ::Folderable
