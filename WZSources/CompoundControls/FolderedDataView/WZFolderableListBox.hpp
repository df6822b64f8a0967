// WZ::Folderable::ListItemFactory: turns model items into the rows of the foldered data view's
// list box. CreateItems filters the items (the filter's FilterItems), lets the client create a
// row for each survivor (CreateItem, which every client overrides) and sorts the rows with the
// comparator (unstable). Without a comparator the rows are reported ("comparator != nullptr")
// and left in filter order.
//
// The rows are the caller's: the list views hand them to their smart updater with a
// deallocator, which deletes them when they are let go.
//
// Filter keeps, in order, the items whose status is exactly Included (a flat list has no use
// for IncludedIfAnyChild). SearchFilter enters every item that has search texts into a search
// (key: its Guid, text: its texts joined by single spaces) and keeps, in order, the items whose
// key the search finds; an item without search texts is never found. The matching rule is the
// base library's search (NK::Search).
#pragma once

#include "NK/NKArray.hpp"
#include "NK/NKGuid.hpp"
#include "NK/NKPointers.hpp"
#include "NK/NKUniString.hpp"
#include "WZSources/CompoundControls/FolderedDataView/WZFolderableFilterStatus.hpp"
#include "WZSources/CompoundControls/FolderedDataView/WZFolderableListBoxItem.hpp"

#include <functional>

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
    NK::Owner<Filter> filter;
    Comparator comparator;
};

}  // namespace WZ::Folderable
