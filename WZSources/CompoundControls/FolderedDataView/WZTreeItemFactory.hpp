// WZ::Folderable::TreeItemFactory: turns model items into the filtered, sorted forest of tree
// items that a tree or the hierarchical table shows. The client implements CreateItem (name,
// icon, style, colours, tooltip from its own data); the factory applies the filter and sorts
// each level of siblings with the comparator.
//
// CreateTree, for each model item in order: the filter's status (a borrowed null filter means
// Included); Excluded skips the item and its subtree unvisited; otherwise the children are built
// first, an IncludedIfAnyChild item with no surviving child is dropped, and the others get a tree
// item with their sorted surviving children. The top level is sorted last. Each level is sorted
// on its own, only with a comparator and at least two items. A client's
// comparator that is no strict weak order gives an unspecified order, never a crash.
//
// The build keeps its own stack, so a model forest of any depth can be built. Null entries of
// the given array (and null rows from CreateItem) are reported ("item != nullptr", "treeItem !=
// nullptr") and left out.
//
// A new factory holds no filter: it must be given one (owned, or borrowed, possibly null) before
// CreateTree; building without one is reported and stops the program. Its comparator orders by
// display name in natural order, ignoring case (CompareDisplayNames).
#pragma once

#include "NK/NKArray.hpp"
#include "NK/NKPointers.hpp"
#include "NK/NKUniString.hpp"
#include "WZSources/CompoundControls/FolderedDataView/WZFolderableFilterStatus.hpp"
#include "WZSources/CompoundControls/FolderedDataView/WZFolderableTreeItem.hpp"

#include <functional>
#include <variant>

namespace WZ::Folderable {

class ModelItem;

class TreeItemFactory {
public:
    class Filter {
    public:
        using Status = FilterStatus;

        // Included for every item unless a subclass says otherwise.
        virtual Status GetStatus(const ModelItem& item) const;
        virtual ~Filter();
    };

    // Keeps the items found under the search text and the folders on the path to them; it never
    // drops a subtree by itself. An item without search texts, or not matching, is kept only
    // for its descendants (IncludedIfAnyChild).
    class SearchFilter : public Filter {
    public:
        Status GetStatus(const ModelItem& item) const override;
        ~SearchFilter() override;
        virtual void SetSearchText(const NK::UniString& text);
        // The texts under which the client wants the item to be found.
        virtual NK::Array<NK::UniString> GetSearchTexts(const ModelItem& item) const = 0;

        const NK::UniString& GetSearchText() const noexcept { return searchText; }

    private:
        NK::UniString searchText;
    };

    // Empty, owned, or borrowed (a borrowed null filter lets every item through).
    using ItemFilter = std::variant<std::monostate, NK::Owner<Filter>, const Filter*>;
    // True when the first item sorts before the second.
    using ItemComparator = std::function<bool(const TreeItem&, const TreeItem&)>;

    TreeItemFactory();
    TreeItemFactory(const TreeItemFactory&) = delete;
    TreeItemFactory& operator=(const TreeItemFactory&) = delete;

    virtual NK::Owner<TreeItem> CreateItem(const ModelItem& item) = 0;
    virtual ~TreeItemFactory();

    NK::Array<NK::Owner<TreeItem>> CreateTree(const NK::Array<const ModelItem*>& items);

    // Replaces the filter; an owned filter held before is deleted.
    void SetItemFilter(ItemFilter filter);
    // Replaces the comparator; an empty function leaves every level in filter order.
    void SetItemComparator(const ItemComparator& comparator);

    // The default order: NK::NaturalIsLess of the display names, case ignored (argument 1).
    static bool CompareDisplayNames(const TreeItem& a, const TreeItem& b);

private:
    const Filter* GetItemFilterPtr() const;
    void SortTreeItems(NK::Array<NK::Owner<TreeItem>>& items) const;

    ItemFilter itemFilter;
    ItemComparator itemComparator;
};

}  // namespace WZ::Folderable
