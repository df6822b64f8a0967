// The data view's toolkit controls, the resource getters that hand them to views and layouts,
// and its geometry.
#define NK_SOURCE_PATH "WZSources\\CompoundControls\\FolderedDataView\\WZFolderedDataView"
#include "NK/NKAssert.hpp"
#include "QM/QMButton.hpp"
#include "QM/QMListBox.hpp"
#include "QM/QMPopUpControl.hpp"
#include "QM/QMSearchEdit.hpp"
#include "QM/QMSplitter.hpp"
#include "QM/QMTreeView.hpp"
#include "WZSources/CompoundControls/FolderedDataView/WZFolderableHierarchicalView.hpp"
#include "WZSources/CompoundControls/FolderedDataView/WZFolderableListBox.hpp"
#include "WZSources/CompoundControls/FolderedDataView/WZFolderablePopUpView.hpp"
#include "WZSources/CompoundControls/FolderedDataView/WZFolderableTreeView.hpp"
#include "WZSources/CompoundControls/FolderedDataView/WZFolderedDataView.hpp"
#include "WZSources/CompoundControls/FolderedDataView/WZFolderedDataViewState.hpp"
#include "WZSources/WZLoggedAssert.hpp"

namespace WZ::Folderable {

namespace {

constexpr const char* LogFile = "WZFolderedDataView";

}  // namespace

// In the order of their item numbers in the panel. Every control but the data view's own item
// starts hidden: the layout of the view that appears shows its own.
struct FolderedDataView::Controls {
    Controls(const QM::Panel& panel, const QM::Rect& rect)
        : own(panel, rect),
          searchField(panel, rect),
          table(panel, rect),
          treeControl(panel, rect, QM::TreeView::SelectionType::Single),
          tree(treeControl),
          splitter(panel, rect, QM::Splitter::Orientation::Vertical),
          upButton(panel, rect, "Up"),
          popUpControl(panel, rect),
          popUp(popUpControl),
          listBoxControl(panel, rect, QM::ListBox::SelectionType::Multi),
          listBox(listBoxControl)
    {
        QM::Item* hidden[] = {&searchField, &table, &treeControl, &splitter, &upButton, &popUpControl, &listBoxControl};
        for (QM::Item* item : hidden)
            item->Hide();
    }

    QM::Item own;
    QM::SearchEdit searchField;
    HierarchicalTableView table;
    QM::TreeView treeControl;
    TreeView tree;
    QM::Splitter splitter;
    QM::Button upButton;
    QM::PopUpControl popUpControl;
    PopUpView popUp;
    QM::ListBox listBoxControl;
    UntypedListBox listBox;
};

FolderedDataView::FolderedDataView() = default;

FolderedDataView::FolderedDataView(const QM::Panel& panel, const QM::Rect& rect)
{
    RegisterQMItems(panel, rect);
}

FolderedDataView::~FolderedDataView()
{
    // A guard outliving its data view would release into freed memory.
    if (!NK_ASSERT_TEXT(activeGuard == nullptr, "activeGuard == nullptr"))
        LogAssertError(LogFile, __LINE__);
    // The shown view lets go of the controls while they and the data view are whole (the
    // controls are defined here, so the data view is destroyed here too).
    if (currentViewShown)
        HideShownView(false);
}

void FolderedDataView::RegisterQMItems(const QM::Panel& panel, const QM::Rect& initialRect)
{
    if (!NK_PRECOND_TEXT(controls == nullptr, "controls == nullptr")) {
        LogAssertError(LogFile, __LINE__);
        return;
    }
    controls = NK::NewOwned<Controls>(panel, initialRect);
}

QM::Item* FolderedDataView::ownItem() const
{
    return &controls->own;
}

HierarchicalTableView* FolderedDataView::GetHierarchicalDataView() const
{
    return controls != nullptr ? &controls->table : nullptr;
}

TreeView* FolderedDataView::GetTreeDataView() const
{
    return controls != nullptr ? &controls->tree : nullptr;
}

UntypedListBox* FolderedDataView::GetListBoxDataView() const
{
    return controls != nullptr ? &controls->listBox : nullptr;
}

PopUpView* FolderedDataView::GetPopUpView() const
{
    return controls != nullptr ? &controls->popUp : nullptr;
}

QM::SearchEdit* FolderedDataView::GetSearchField() const
{
    return controls != nullptr ? &controls->searchField : nullptr;
}

QM::ListBox* FolderedDataView::GetListBox() const
{
    return controls != nullptr ? &controls->listBoxControl : nullptr;
}

UntypedListBoxView* FolderedDataView::GetListBoxView() const
{
    return controls != nullptr ? &controls->listBox : nullptr;
}

QM::Button* FolderedDataView::GetUpButton() const
{
    return controls != nullptr ? &controls->upButton : nullptr;
}

QM::Item* FolderedDataView::GetHierarchicalTable() const
{
    return controls != nullptr ? &controls->table : nullptr;
}

QM::TreeView* FolderedDataView::GetTreeView() const
{
    return controls != nullptr ? &controls->treeControl : nullptr;
}

QM::PopUpControl* FolderedDataView::GetPopUpControl() const
{
    return controls != nullptr ? &controls->popUpControl : nullptr;
}

QM::Splitter* FolderedDataView::GetSplitter() const
{
    return controls != nullptr ? &controls->splitter : nullptr;
}

// ---- geometry ---------------------------------------------------------------------------

void FolderedDataView::InitRect()
{
    if (!NK_ASSERT_TEXT(rect.IsEmpty(), "rect.IsEmpty ()"))
        LogAssertError(LogFile, __LINE__);
    if (controls == nullptr)
        return;
    const QM::Rect own = controls->own.GetRect();
    const QM::Rect list = controls->listBoxControl.GetRect();
    rect = QM::Rect(own.GetLeft(), own.GetTop(), list.GetRight(), list.GetBottom());
    if (currentViewShown && !rect.IsEmpty())
        ReLayoutNeeded();
}

void FolderedDataView::Move(short left, short top)
{
    rect.MoveTo(left, top);
    if (controls != nullptr)
        controls->own.SetRect(rect);
    ReLayoutNeeded();
}

void FolderedDataView::Resize(short width, short height)
{
    rect.SetSize(width, height);
    if (controls != nullptr)
        controls->own.SetRect(rect);
    ReLayoutNeeded();
}

void FolderedDataView::ReLayoutNeeded()
{
    if (Views::View* view = GetCurrentView(); view != nullptr && currentViewShown)
        view->ReLayoutNeeded();
}

}  // namespace WZ::Folderable
