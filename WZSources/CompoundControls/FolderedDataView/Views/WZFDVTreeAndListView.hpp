// WZ::Folderable::Views::TreeAndListView: the view that shows the forest as a folder tree beside
// a list of the chosen folder's children, with a pop-up of the path from the top of the forest
// down to the chosen folder and an up button that chooses the chosen folder's parent. Which
// items the tree shows is its tree item factory's filter's business (typically the folders).
//
// What it promises:
// - The chosen folder survives rebuilds by id: a rebuild keeps the node the tree had selected;
//   when that is gone, the remembered folder (treeSelection) if the tree still shows it, else
//   the first top-level folder of the tree is chosen. The chosen folder is selected in the tree with the
//   path to it opened, the pop-up shows its path (top-level first) and the up button is enabled
//   exactly when it has a parent.
// - Its selection is the list's selected items or, outside a search and with no row selected,
//   the chosen folder alone. Clicking into the tree after working in the list clears the list
//   selection, so the folder is the selection again. Selection events are sent once per change;
//   focus moving between the tree and the list is a change (of the current control's selection).
// - A selection given to the view (SetSelection, switching views) chooses the parent folder of
//   its first item and selects the items in the list. A first item at the top level has no
//   folder that lists it: it is dropped and the first top-level folder is chosen.
// - A search lists every match of the whole forest; at its end the list shows the chosen
//   folder's children again with the selection from before the search, or, when a row was picked
//   during the search, the picked item in its own folder.
// - The open folders of the tree are kept while another view is shown (the first time, the
//   first level opens).
//
// ListAndTreeFocus tracks which of the two controls had the focus last while it is enabled;
// PopUpViewItemFactory makes the pop-up's entries (by default the tree item's name and icon).
#pragma once

#include "NK/NKArray.hpp"
#include "NK/NKHashTable.hpp"
#include "NK/NKPointers.hpp"
#include "QM/QMButton.hpp"
#include "QM/QMItem.hpp"
#include "QM/QMTreeView.hpp"
#include "WZSources/CompoundControls/FolderedDataView/Views/WZFDVListBoxBaseView.hpp"
#include "WZSources/CompoundControls/FolderedDataView/WZFolderablePopUpView.hpp"
#include "WZSources/CompoundControls/FolderedDataView/WZFolderableTreeView.hpp"
#include "WZSources/CompoundControls/FolderedDataView/WZTreeItemFactory.hpp"

#include <utility>

namespace WZ::Folderable::Views {

class ListAndTreeFocusDelegate {
public:
    virtual void ListAndTreeFocusChanged() = 0;
    virtual ~ListAndTreeFocusDelegate();
};

class ListAndTreeFocus : protected QM::ItemObserver {
public:
    enum class Status : NK::Int16 { Tree = 0, List = 1 };

    ListAndTreeFocus() = default;
    ListAndTreeFocus(const ListAndTreeFocus&) = delete;
    ListAndTreeFocus& operator=(const ListAndTreeFocus&) = delete;
    ~ListAndTreeFocus() override;

    // The two controls whose focus is tracked (borrowed; either may be null).
    void SetControls(QM::Item* tree, QM::Item* list);

    Status GetLastFocus() const noexcept { return lastFocus; }
    // The last focus before the focus gain that was reported last (what the delegate compares).
    Status GetPreviousFocus() const noexcept { return previousFocus; }
    // Records without telling the delegate.
    void SetLastFocus(Status status) noexcept { lastFocus = status; }

    // Tracking starts and stops listening to the controls' focus events.
    void Enable();
    void Disable();
    bool IsEnabled() const noexcept { return enabled; }

    void SetDelegate(ListAndTreeFocusDelegate* newDelegate) noexcept { delegate = newDelegate; }

protected:
    void NotifyFocusChanged();

private:
    void ItemFocusChanged(const QM::FocusChangeEventArg& event) override;
    void ItemFocusGained(const QM::Item& item);

    QM::Item* tree = nullptr;
    QM::Item* list = nullptr;
    Status lastFocus = Status::Tree;
    Status previousFocus = Status::Tree;
    bool enabled = false;
    ListAndTreeFocusDelegate* delegate = nullptr;
};

class TreeAndListView : public ListBoxBaseView,
                        private PopUpViewDelegate,
                        private ListAndTreeFocusDelegate,
                        protected QM::TreeViewObserver,
                        protected QM::ButtonObserver {
public:
    class PopUpViewItemFactory {
    public:
        // Without a tree item factory the entries show the items' ids.
        explicit PopUpViewItemFactory(TreeItemFactory* names = nullptr) : names(names) {}
        virtual ~PopUpViewItemFactory();

        // By default the name and icon that the tree item factory gives the item.
        virtual NK::Owner<PopUpItem> CreateItem(const ModelItem& item);
        NK::Array<NK::Owner<PopUpItem>> CreateItems(const NK::Array<const ModelItem*>& items);

    private:
        TreeItemFactory* names;
    };

    // The ids of the open folders, kept while another view is shown.
    class InMemoryViewState : public View::InMemoryViewState {
    public:
        ~InMemoryViewState() override;
        // The first time there are items (and no open ids were kept yet), the top-level items
        // are opened. Made once: folders the user closed later stay closed, even all of them.
        void InitStateIfNeeded(const NK::Array<NK::Owner<ModelItem>>& items) override;

        const NK::HashSet<NK::Guid>& GetExpandedIds() const noexcept { return expandedIds; }
        void SetExpandedIds(NK::HashSet<NK::Guid> ids) { expandedIds = std::move(ids); }

    private:
        NK::HashSet<NK::Guid> expandedIds;
        bool initialised = false;
    };

    // The folder to choose and the items to select in its list.
    using FolderAndSelection = std::pair<const ModelItem*, Selection>;

    TreeAndListView(NK::Owner<Layout> layout, ViewResource& resource);
    TreeAndListView(NK::Owner<Layout> layout, ViewResource& resource, NK::Owner<TreeItemFactory> treeItemFactory);
    ~TreeAndListView() override;

    const ModelItem* GetTreeSelection() const noexcept { return treeSelection; }
    // The folder a rebuild chooses when the node the tree had selected is gone (null: the first
    // top-level folder).
    void SetTreeSelection(const ModelItem* folder) noexcept { treeSelection = folder; }

    void SetTreeItemFactory(NK::Owner<TreeItemFactory> factory);
    TreeItemFactory* GetTreeItemFactory() const noexcept { return treeItemFactory.Get(); }
    void SetPopUpItemFactory(NK::Owner<PopUpViewItemFactory> factory);

    ListAndTreeFocus::Status GetLastFocus() const noexcept { return focus.GetLastFocus(); }

    FolderAndSelection CalculateSelection(const Selection& selection) const;
    // Chooses the folder (computed from the selection when null) and selects the items in its list.
    void SetSelection(const ModelItem* folder, const Selection& selection);

    void SetSelection(const Selection& selection) override;
    Selection GetSelection() const override;
    void Refresh() override;
    void WillAppear(const OpenData& openData) override;
    void WillDisappear() override;
    void EnableSelectionHandling() override;
    void DisableSelectionHandling() override;
    NK::Array<const ModelItem*> GetItemsForCurrentControl() const override;
    View::InMemoryViewState* GetInMemoryViewState() override { return &inMemoryState; }
    void UpdateInMemoryViewState() override;
    // Empties the tree, the pop-up and (when hidden) the list; the chosen folder is found again
    // in the new forest by its id.
    void ForgetItems() override;

    // The rebuilds, each with drawing of its control off until it is done.
    void RefreshTreeAndPopup();
    void RefreshListBox();
    void RefreshParentItemsInPopUp();
    void RefreshUpButtonStatus();

protected:
    NK::Array<NK::Guid> GetSelectedIds() const override;
    void RefreshForSearch() override;
    void ListSelectionChanged(QM::Origin origin) override;
    void SearchEnded(const QM::SearchEditChangeEvent& event) override;

private:
    void PopUpViewSelectionChanged(const PopUpItem& item) override;
    void ListAndTreeFocusChanged() override;
    using QM::ListBoxObserver::SelectionChanged;  // the list's, handled by the list box base view
    void SelectionChanged(const QM::TreeViewSelectionEvent& event) override;
    void ButtonClicked(const QM::ButtonClickEvent& event) override;

    TreeView* GetTree() const { return GetResource().GetTreeDataView(); }
    // The first top-level item as the tree orders it (the forest's first without a tree).
    const ModelItem* GetFirstTopLevelItem() const;
    // Selects the folder's node with the path to it opened; the tree's own events are not heard.
    void ShowFolderInTree(const ModelItem& folder);
    // The user chose another folder (up button, pop-up): everything follows, one event.
    void ChooseFolder(const ModelItem& folder);
    void ShowFolderAndSelection(const ModelItem* folder, const Selection& selection);
    void AttachControls();
    void DetachControls();
    void StopObservingTree();

    const ModelItem* treeSelection = nullptr;
    NK::Owner<PopUpViewItemFactory> popUpItemFactory;
    NK::Owner<TreeItemFactory> treeItemFactory;
    bool popUpItemFactoryIsDefault = false;
    ListAndTreeFocus focus;
    InMemoryViewState inMemoryState;
    QM::TreeView* observedTree = nullptr;
    QM::Button* observedUpButton = nullptr;
};

}  // namespace WZ::Folderable::Views
