#include "WZSources/CompoundControls/FolderedDataView/Views/WZFDVLayout.hpp"

#include "QM/QMItem.hpp"
#include "QM/QMListBox.hpp"
#include "WZSources/ColumnModel/WZPixels.hpp"
#include "WZSources/Layouting/WZLinearLayout.hpp"
#include "WZSources/ListBoxView/WZUntypedListBoxView.hpp"

#include <algorithm>

namespace WZ::Folderable {

namespace {

// The list box as an item of a linear layout, placed through its columned view.
class ListBoxPlacement : public Layouting::ILayoutableItem {
public:
    explicit ListBoxPlacement(UntypedListBoxView& view) : view(view) {}

    void ApplyRect(const QM::Rect& rect) override
    {
        const short width = std::max<short>(0, rect.GetWidth());
        const short height = std::max<short>(0, rect.GetHeight());
        const QM::Rect target(rect.GetLeft(), rect.GetTop(), Pixels::Add(rect.GetLeft(), width),
                              Pixels::Add(rect.GetTop(), height));
        if (view.GetListBox().GetRect() != target)
            view.MoveAndResize(rect.GetLeft(), rect.GetTop(), width, height);
    }
    void SetVisibility(bool visible) override { view.GetListBox().SetVisibility(visible); }
    bool IsVisible() const override { return view.GetListBox().IsVisible(); }
    Layouting::ManagedQMItems GetManagedQMItems() const override
    {
        Layouting::ManagedQMItems items;
        items.Add(&view.GetListBox());
        return items;
    }

private:
    UntypedListBoxView& view;
};

}  // namespace

UntypedListBoxView* LayoutResource::GetListBoxView() const
{
    return nullptr;
}

void Layout::AddListBox(Layouting::VerticalLinearLayout& column) const
{
    using namespace Layouting;
    if (UntypedListBoxView* view = resource.GetListBoxView(); view != nullptr && &view->GetListBox() == resource.GetListBox())
        column.Add(NK::NewOwned<ListBoxPlacement>(*view), VProportionalHeight {1.0f}, VAutoFillWidth {});
    else if (QM::ListBox* listBox = resource.GetListBox())
        column.Add(*listBox, VProportionalHeight {1.0f}, VAutoFillWidth {});
}

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
