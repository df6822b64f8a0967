// WZ::Folderable::HierarchicalTableView: the toolkit's hierarchical table view over rows of
// HierarchicalTreeItem, named by the rows' Guids.
//
// - It owns its data provider (the rows, and an index of every row's parent and depth) and its
//   delegate (cell contents from the rows; selection callbacks passed on to a borrowed user
//   delegate, which the hierarchical view detaches while it rebuilds).
// - SetItems replaces the rows. The toolkit reloads from the virtual root and keeps every row
//   whose id and content are unchanged as it was (open, selected); the old rows stay alive until
//   the reload has compared them. The returned UpdateResult holds what was open and what was
//   selected before, so a caller decides whether and when to restore either.
// - Every id-based operation ignores ids that name no row. A forest that repeats an id is
//   reported when a lookup meets the second row ("!nodeFound" in IsExpandedItem, "result ==
//   nullptr" in the node search behind the other lookups); the first row in pre-order answers.
#pragma once

#include "NK/NKArray.hpp"
#include "NK/NKGuid.hpp"
#include "NK/NKHashTable.hpp"
#include "NK/NKPointers.hpp"
#include "NK/NKUniString.hpp"
#include "QM/QMHierarchicalTableView.hpp"
#include "WZSources/CompoundControls/FolderedDataView/WZFolderableHierarchicalItemId.hpp"
#include "WZSources/CompoundControls/FolderedDataView/WZFolderableHierarchicalTreeItem.hpp"

#include <optional>
#include <vector>

namespace WZ::Folderable {

class ModelItem;

using HierarchicalTableViewBase =
    QM::HierarchicalTableView<HierarchicalItemId, HierarchicalTreeItemIdComparator, HierarchicalTreeItemContentComparator>;

class HierarchicalTableView : public HierarchicalTableViewBase {
public:
    using GuidSet = NK::HashSet<NK::Guid>;

    // Told when the table's selection changed, by a user or by the program.
    class UserDelegate {
    public:
        virtual void SelectionChanged() = 0;
        virtual ~UserDelegate();
    };

    class DataProvider : public QM::TableView::Hierarchical::DataProvider<HierarchicalItemId> {
    public:
        // Every row by id: the row, its parent's id (the virtual root's for a top-level row), its
        // depth (0 at the top) and how often the forest holds its id. Rows are also listed level
        // by level, each level in pre-order.
        class ItemIndex {
        public:
            struct Entry {
                NK::Guid id;
                HierarchicalTreeItem* item = nullptr;  // the first row in pre-order with the id
                NK::Guid parentId;
                NK::Int32 depth = 0;
                NK::UInt32 occurrences = 0;
            };

            void Rebuild(const NK::Array<NK::Owner<HierarchicalTreeItem>>& topLevel);
            // The entry of the id; null when no row has it.
            const Entry* Find(const NK::Guid& id) const;
            const NK::Array<NK::Array<NK::Guid>>& GetLevels() const noexcept { return levels; }
            NK::UIndex GetSize() const noexcept { return entries.size(); }

        private:
            void Add(HierarchicalTreeItem& item, const NK::Guid& parentId, NK::Int32 depth);
            std::size_t SlotOf(const NK::Guid& id) const;

            // Entries in pre-order, found through an open-addressed table of entry numbers + 1.
            std::vector<Entry> entries;
            std::vector<NK::UInt32> slots;
            NK::Array<NK::Array<NK::Guid>> levels;
        };

        DataProvider();
        ~DataProvider() override;

        HierarchicalItemId GetVirtualRoot() const override;
        NK::Array<HierarchicalItemId> GetChildren(const HierarchicalItemId& parent) const override;

        // Takes the new rows, rebuilds the index and hands back the old rows, which the caller
        // keeps alive until the table has reloaded.
        NK::Array<NK::Owner<HierarchicalTreeItem>> ReplaceItems(NK::Array<NK::Owner<HierarchicalTreeItem>> newItems);
        const NK::Array<NK::Owner<HierarchicalTreeItem>>& GetItems() const noexcept { return items; }
        const ItemIndex& GetItemIndex() const noexcept { return index; }

        // The ids of every ancestor of the given ids, up to but not including the virtual root.
        // Ids that name no row contribute nothing.
        GuidSet GetAllAncestorsOfItems(const NK::Array<NK::Guid>& ids) const;

    private:
        NK::Array<NK::Owner<HierarchicalTreeItem>> items;
        ItemIndex index;
    };

    // Cell contents from the rows; the user delegate hears of selection changes.
    class Delegate : public QM::TableView::Hierarchical::Delegate<HierarchicalItemId> {
    public:
        explicit Delegate(const HierarchicalTableView& table);
        ~Delegate() override;

        void SetUserDelegate(UserDelegate* newUserDelegate) noexcept { userDelegate = newUserDelegate; }
        UserDelegate* GetUserDelegate() const noexcept { return userDelegate; }

        // The row's string of the column; in the tree column (the first shown one) a row without
        // a string of its own shows its display name, and one without icons its icon.
        NK::UniString GetCellText(const HierarchicalItemId& node, const NK::UniString& columnId) const override;
        NK::Array<QM::Icon> GetCellIcons(const HierarchicalItemId& node, const NK::UniString& columnId) const override;
        NK::UniString GetTooltipText(const HierarchicalItemId& node) const override;
        // A row without a style of its own (HierarchicalTreeItem::NoFontStyle) is plain.
        QM::Font::Style GetFontStyle(const HierarchicalItemId& node) const override;
        std::optional<QM::Color> GetBackgroundColor(const HierarchicalItemId& node,
                                                    const NK::UniString& columnId) const override;
        void SelectionChanged(QM::Origin origin) override;

    private:
        bool IsTreeColumn(const NK::UniString& columnId) const;

        const HierarchicalTableView& table;
        UserDelegate* userDelegate = nullptr;
    };

    // Reopens the rows that were open when it was taken.
    class ExpandRestorer {
    public:
        ExpandRestorer(HierarchicalTableView& table, GuidSet expandedIds);
        void Restore() const;
        const GuidSet& GetExpandedIds() const noexcept { return expandedIds; }

    private:
        HierarchicalTableView& table;
        GuidSet expandedIds;
    };

    // Reselects the rows that were selected when it was taken (nothing when none was).
    class SelectionRestorer {
    public:
        SelectionRestorer(HierarchicalTableView& table, NK::Array<NK::Guid> selectedIds, GuidSet ancestorIds);
        void Restore() const;
        const NK::Array<NK::Guid>& GetSelectedIds() const noexcept { return selectedIds; }
        const GuidSet& GetAncestorIds() const noexcept { return ancestorIds; }

    private:
        HierarchicalTableView& table;
        NK::Array<NK::Guid> selectedIds;
        GuidSet ancestorIds;
    };

    // What SetItems returns: the open rows and the selection from before the rows were replaced.
    struct UpdateResult {
        NK::Owner<ExpandRestorer> expandRestorer;
        NK::Owner<SelectionRestorer> selectionRestorer;
    };

    HierarchicalTableView(const QM::Panel& panel, const QM::Rect& rect);
    ~HierarchicalTableView() override;

    UpdateResult SetItems(NK::Array<NK::Owner<HierarchicalTreeItem>> newItems);
    const DataProvider& GetHierarchicalDataProvider() const noexcept { return *dataProvider; }

    // Expansion by id.
    GuidSet GetExpandedItemIds() const;
    // Collapses every row, then opens the rows of the set and the paths to them, level by level.
    void RestoreExpandedItemsByIds(const GuidSet& ids);
    void ExpandItems(const GuidSet& ids);
    void ExpandItem(const NK::Guid& id);
    void CollapseItem(const NK::Guid& id);
    void ToggleOpenness(const NK::Guid& id);
    bool IsExpandedItem(const NK::Guid& id) const;

    // Replaces the selection with the rows of `ids`; opens the rows of `ancestorIds` so the
    // selection is on display. Several rows are scrolled to the first of them.
    void SelectItems(const NK::Array<NK::Guid>& ids, const GuidSet& ancestorIds);
    // The models of the selected rows, in display order (closed folders included).
    NK::Array<const ModelItem*> GetSelectedModelItems() const;
    // The first displayed row after the last selected one that is not selected; failing that the
    // nearest such row before the first selected one; null when there is none or no selection.
    const ModelItem* GetFirstNonSelectedItemAfterSelection() const;
    // The row's number among the displayed rows; empty when not displayed or unknown.
    std::optional<int> GetRowIndex(const NK::Guid& id) const;
    void ScrollToNode(const NK::Guid& id);
    // Opens the in-place editor on the selected row, when exactly one is selected and the column
    // is one of the table's (or the table has none). Returns whether the editor opened.
    bool ActivateTextEditModeOnSelectedNode(const NK::UniString& columnId);

    // Reports "delegate != nullptr" when the table has lost its own delegate.
    void SetUserDelegate(UserDelegate* userDelegate);
    UserDelegate* GetUserDelegate() const noexcept { return tableDelegate->GetUserDelegate(); }

    // Shown while its view is, hidden otherwise.
    void WillAppear();
    void WillDisappear();

private:
    // The row with the id; null when none. Reports a repeated id.
    HierarchicalTreeItem* FindNode(const NK::Guid& id) const;

    NK::Owner<DataProvider> dataProvider;
    NK::Owner<Delegate> tableDelegate;
};

}  // namespace WZ::Folderable
