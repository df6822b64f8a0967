#include "WZSources/CompoundControls/FolderedDataView/Views/WZFDVViewResource.hpp"

namespace WZ::Folderable::Views {

namespace {

class EmptyViewResource final : public ViewResource {
public:
    HierarchicalTableView* GetHierarchicalDataView() const override { return nullptr; }
    TreeView* GetTreeDataView() const override { return nullptr; }
    UntypedListBox* GetListBoxDataView() const override { return nullptr; }
    PopUpView* GetPopUpView() const override { return nullptr; }
    QM::SearchEdit* GetSearchField() const override { return nullptr; }
    QM::ListBox* GetListBox() const override { return nullptr; }
    QM::Button* GetUpButton() const override { return nullptr; }
    QM::Rect GetRect() const override { return {}; }
};

}  // namespace

ViewResource::~ViewResource() = default;

ViewResource& ViewResource::GetEmpty()
{
    static EmptyViewResource empty;
    return empty;
}

}  // namespace WZ::Folderable::Views
