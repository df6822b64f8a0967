// WZ::Folderable::LayoutResource: what gives the layouts of a foldered data view the toolkit
// items they place. The data view is the resource of all its layouts; a layout finds null where
// the resource has no such control and then leaves that place empty.
#pragma once

namespace QM {
class Button;
class Item;
class ListBox;
class PopUpControl;
class SearchEdit;
class Splitter;
class TreeView;
}  // namespace QM

namespace WZ {
class UntypedListBoxView;
}  // namespace WZ

namespace WZ::Folderable {

class LayoutResource {
public:
    virtual QM::SearchEdit* GetSearchField() const = 0;
    virtual QM::ListBox* GetListBox() const = 0;
    // The columned view over the list box, when the resource has one: the layouts then move and
    // size the list box through it, so that its columns follow the new width. Null by default.
    virtual UntypedListBoxView* GetListBoxView() const;
    virtual QM::Button* GetUpButton() const = 0;
    // The toolkit item of the hierarchical table.
    virtual QM::Item* GetHierarchicalTable() const = 0;
    // The toolkit tree of the tree-and-list view.
    virtual QM::TreeView* GetTreeView() const = 0;
    // The pop-up of the chosen folder's ancestors.
    virtual QM::PopUpControl* GetPopUpControl() const = 0;
    // The bar between the tree and the list.
    virtual QM::Splitter* GetSplitter() const = 0;
    virtual ~LayoutResource();
};

}  // namespace WZ::Folderable
