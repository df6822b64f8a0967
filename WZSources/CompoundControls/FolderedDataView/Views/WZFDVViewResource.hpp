// WZ::Folderable::Views::ViewResource: what gives the views of a foldered data view their
// controls. The data view is the resource of all its views, so the views share one search field,
// one list box and so on; a view asks for what it shows and finds null where the resource has no
// such control. GetRect is the rectangle inside which the views' layouts place the controls; it
// is empty until the data view knows its bounds.
#pragma once

#include "QM/QMGeometry.hpp"

namespace QM {
class Button;
class ListBox;
class SearchEdit;
}  // namespace QM

namespace WZ::Folderable {

class HierarchicalTableView;
class PopUpView;
class TreeView;
class UntypedListBox;

namespace Views {

class ViewResource {
public:
    virtual HierarchicalTableView* GetHierarchicalDataView() const = 0;
    virtual TreeView* GetTreeDataView() const = 0;
    virtual UntypedListBox* GetListBoxDataView() const = 0;
    virtual PopUpView* GetPopUpView() const = 0;
    virtual QM::SearchEdit* GetSearchField() const = 0;
    virtual QM::ListBox* GetListBox() const = 0;
    virtual QM::Button* GetUpButton() const = 0;
    virtual QM::Rect GetRect() const = 0;
    virtual ~ViewResource();

    // A resource without any control and with an empty rectangle, for views that keep their
    // data elsewhere (and for views built before they are given their real resource).
    static ViewResource& GetEmpty();
};

}  // namespace Views
}  // namespace WZ::Folderable
