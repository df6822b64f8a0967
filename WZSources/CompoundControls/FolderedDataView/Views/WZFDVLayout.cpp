#include "WZSources/CompoundControls/FolderedDataView/Views/WZFDVLayout.hpp"

#include "QM/QMItem.hpp"

namespace WZ::Folderable {

LayoutResource::~LayoutResource() = default;

Layout::LayoutState::~LayoutState() = default;

Layout::~Layout() = default;

void Layout::Show()
{
    for (QM::Item* item : GetPlacedItems())
        item->Show();
}

void Layout::Hide()
{
    for (QM::Item* item : GetPlacedItems())
        item->Hide();
}

void Layout::ReApply()
{
    if (!rect.IsEmpty())
        ApplyLayout(rect);
}

}  // namespace WZ::Folderable
