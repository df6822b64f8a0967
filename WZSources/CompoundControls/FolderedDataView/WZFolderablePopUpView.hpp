// WZ::Folderable::PopUpView: the pop-up of parent folders above the list of the tree-and-list
// view. It shows one entry per PopUpItem (text and icon), in the order given, and chooses the
// last one, which is the folder whose children the list shows. When anyone but the pop-up view
// itself chooses another entry (a user picking an ancestor), the delegate hears
// PopUpViewSelectionChanged with that entry's item; the pop-up view's own writes are silent.
#pragma once

#include "NK/NKArray.hpp"
#include "NK/NKPointers.hpp"
#include "QM/QMPopUpControl.hpp"
#include "WZSources/CompoundControls/FolderedDataView/WZFolderablePopUpItem.hpp"

namespace WZ::Folderable {

class PopUpViewDelegate {
public:
    virtual void PopUpViewSelectionChanged(const PopUpItem& item) = 0;
    virtual ~PopUpViewDelegate();
};

class PopUpView : protected QM::PopUpControlObserver {
public:
    explicit PopUpView(QM::PopUpControl& control);
    PopUpView(const PopUpView&) = delete;
    PopUpView& operator=(const PopUpView&) = delete;
    ~PopUpView() override;

    QM::PopUpControl& GetControl() const noexcept { return control; }

    // Replaces the entries and chooses the last one (none for no items).
    void SetItems(NK::Array<NK::Owner<PopUpItem>> newItems);
    const NK::Array<NK::Owner<PopUpItem>>& GetItems() const noexcept { return items; }
    // The item of the chosen entry; null when none is chosen.
    const PopUpItem* GetSelectedItem() const;

    // Borrowed; null stops the notifications.
    void SetDelegate(PopUpViewDelegate* newDelegate) noexcept { delegate = newDelegate; }

    void Show() { control.Show(); }
    void Hide() { control.Hide(); }
    bool IsVisible() const noexcept { return control.IsVisible(); }

private:
    void SelectionChanged(const QM::PopUpSelectionEvent& event) override;

    QM::PopUpControl& control;
    NK::Array<NK::Owner<PopUpItem>> items;
    PopUpViewDelegate* delegate = nullptr;
    bool writing = false;  // the pop-up view itself changes the control
};

}  // namespace WZ::Folderable
