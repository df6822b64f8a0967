// WZ::Folderable::Views::View: the base of the interchangeable views of a foldered data view.
// A view presents the data view's forest (which it borrows through SetCurrentItems) in its own
// controls, reports selection changes to its delegate (the data view) through
// SendSelectionChangedEvent, and offers the data view the selection slots:
// - GetSelection / SetSelection: the view's selected model items;
// - Refresh: rebuild the controls from the forest, keeping what can be kept;
// - EnableSelectionHandling / DisableSelectionHandling: connect to or disconnect from the
//   controls' selection callbacks (a view switches them off while it rebuilds; the outermost
//   selection-change guard switches them on again);
// - GetItemsForCurrentControl: the items of the control that has the focus (by default the
//   selection).
#pragma once

#include "NK/NKArray.hpp"
#include "NK/NKPointers.hpp"
#include "WZSources/CompoundControls/FolderedDataView/WZFDVSelection.hpp"

namespace WZ::Folderable {

class ModelItem;

namespace Views {

class View {
public:
    // What a view reports to: the foldered data view.
    class Delegate {
    public:
        virtual void ViewSelectionChanged() = 0;
        virtual ~Delegate();
    };

    View() = default;
    View(const View&) = delete;
    View& operator=(const View&) = delete;
    virtual ~View();

    virtual void EnableSelectionHandling() = 0;
    virtual void DisableSelectionHandling() = 0;
    virtual Selection GetSelection() const = 0;
    virtual void SetSelection(const Selection& selection) = 0;
    virtual void Refresh() = 0;
    virtual NK::Array<const ModelItem*> GetItemsForCurrentControl() const;

    // Set by the data view when the view is registered.
    void SetDelegate(Delegate* newDelegate) noexcept { delegate = newDelegate; }
    void SetCurrentItems(const NK::Array<NK::Owner<ModelItem>>* items) noexcept { currentItems = items; }

protected:
    // The forest of the data view; null until the view is registered.
    const NK::Array<NK::Owner<ModelItem>>* GetCurrentItems() const noexcept { return currentItems; }
    // Tells the delegate that the view's selection changed; nothing without a delegate.
    void SendSelectionChangedEvent();

private:
    Delegate* delegate = nullptr;
    const NK::Array<NK::Owner<ModelItem>>* currentItems = nullptr;
};

}  // namespace Views
}  // namespace WZ::Folderable
