#include "WZSources/CompoundControls/FolderedDataView/Views/WZFDVView.hpp"

namespace WZ::Folderable::Views {

View::Delegate::~Delegate() = default;

View::~View() = default;

NK::Array<const ModelItem*> View::GetItemsForCurrentControl() const
{
    return GetSelection().GetItems();
}

void View::SendSelectionChangedEvent()
{
    if (delegate != nullptr)
        delegate->ViewSelectionChanged();
}

}  // namespace WZ::Folderable::Views
