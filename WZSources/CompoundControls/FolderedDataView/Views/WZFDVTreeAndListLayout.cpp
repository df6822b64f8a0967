#include "WZSources/CompoundControls/FolderedDataView/Views/WZFDVTreeAndListLayout.hpp"

#include "NK/NKAssert.hpp"
#include "QM/QMButton.hpp"
#include "QM/QMListBox.hpp"
#include "QM/QMPopUpControl.hpp"
#include "QM/QMTreeView.hpp"
#include "WZSources/ColumnModel/WZPixels.hpp"
#include "WZSources/Layouting/WZLinearLayout.hpp"

#include <algorithm>

namespace WZ::Folderable {

// ---- state ------------------------------------------------------------------------------

NK::ErrCode TreeAndListLayout::LayoutState::Write(NK::OChannel& channel) const
{
    if (NK::ErrCode error = NormalLayout::LayoutState::Write(channel); error != NK::NoError)
        return error;
    return channel.Write(static_cast<NK::Int16>(splitterState.treeWidth));
}

NK::ErrCode TreeAndListLayout::LayoutState::Read(NK::IChannel& channel)
{
    // Read into a copy, so that a failure leaves this state as it was.
    NormalLayout::LayoutState normalPart(IsSearchFieldVisible());
    if (NK::ErrCode error = normalPart.Read(channel); error != NK::NoError)
        return error;
    NK::Int16 treeWidth = 0;
    if (NK::ErrCode error = channel.Read(treeWidth); error != NK::NoError)
        return error;
    if (treeWidth < 0)
        return NK::ErrMissingElement;
    SetSearchFieldVisible(normalPart.IsSearchFieldVisible());
    splitterState.treeWidth = treeWidth;
    return NK::NoError;
}

NK::Owner<Layout::LayoutState> TreeAndListLayout::LayoutState::Clone() const
{
    return NK::NewOwned<LayoutState>(IsSearchFieldVisible(), splitterState);
}

bool TreeAndListLayout::LayoutState::IsEqual(const Layout::LayoutState& other) const
{
    const auto* treeAndList = dynamic_cast<const LayoutState*>(&other);
    return treeAndList != nullptr && treeAndList->IsSearchFieldVisible() == IsSearchFieldVisible() &&
           treeAndList->splitterState == splitterState;
}

// ---- layout -----------------------------------------------------------------------------

TreeAndListLayout::TreeAndListLayout(LayoutResource& resource) : NormalLayout(resource, nullptr)
{
    if (QM::Splitter* splitter = resource.GetSplitter())
        splitter->Attach(static_cast<QM::SplitterObserver&>(*this));
}

TreeAndListLayout::~TreeAndListLayout()
{
    if (QM::Splitter* splitter = GetResource().GetSplitter())
        splitter->Detach(static_cast<QM::SplitterObserver&>(*this));
}

NK::Owner<Layout::LayoutState> TreeAndListLayout::CreateDefaultState() const
{
    return NK::NewOwned<LayoutState>(true, SplitterState {});
}

NK::Owner<Layout::LayoutState> TreeAndListLayout::GetState() const
{
    return NK::NewOwned<LayoutState>(IsSearchFieldVisible(), splitterState);
}

void TreeAndListLayout::ApplyState(const Layout::LayoutState& state)
{
    const auto* treeAndList = dynamic_cast<const LayoutState*>(&state);
    if (!NK_PRECOND_TEXT(treeAndList != nullptr, "treeAndList != nullptr"))
        return;
    ApplyNormalState(*treeAndList);
    splitterState = treeAndList->GetSplitterState();
    ReApply();
}

short TreeAndListLayout::GetFittingTreeWidth() const
{
    const short widest = Pixels::Saturated(GetRect().GetWidth() - minListWidth - splitterWidth);
    return std::clamp(splitterState.treeWidth, minTreeWidth, std::max(minTreeWidth, widest));
}

void TreeAndListLayout::ApplyLayout(const QM::Rect& rect)
{
    placing = true;
    SetRect(rect);
    if (QM::Splitter* splitter = GetResource().GetSplitter()) {
        const short minimum = Pixels::Add(rect.GetLeft(), minTreeWidth);
        const short maximum = Pixels::Saturated(rect.GetRight() - minListWidth - splitterWidth);
        splitter->SetLimits(minimum, std::max(minimum, maximum));
    }
    NormalLayout::ApplyLayout(rect);
    placing = false;
}

void TreeAndListLayout::AddContent(Layouting::VerticalLinearLayout& column) const
{
    using namespace Layouting;
    LayoutResource& resource = GetResource();

    auto header = NK::NewOwned<HorizontalLinearLayout>();
    header->SetGap(NormalLayout::gap);
    if (QM::Button* upButton = resource.GetUpButton())
        header->Add(*upButton, HFixedWidth {upButtonWidth}, HAutoFillHeight {});
    if (QM::PopUpControl* popUp = resource.GetPopUpControl())
        header->Add(*popUp, HProportionalWidth {1.0f}, HAutoFillHeight {});

    auto right = NK::NewOwned<VerticalLinearLayout>();
    right->SetGap(NormalLayout::gap);
    right->AddLayout(std::move(header), VFixedHeight {headerHeight}, VAutoFillWidth {});
    AddListBox(*right);

    auto row = NK::NewOwned<HorizontalLinearLayout>();
    if (QM::TreeView* tree = resource.GetTreeView())
        row->Add(*tree, HFixedWidth {GetFittingTreeWidth()}, HAutoFillHeight {});
    if (QM::Splitter* splitter = resource.GetSplitter())
        row->Add(*splitter, HFixedWidth {splitterWidth}, HAutoFillHeight {});
    row->AddLayout(std::move(right), HProportionalWidth {1.0f}, HAutoFillHeight {});

    column.AddLayout(std::move(row), VProportionalHeight {1.0f}, VAutoFillWidth {});
}

NK::Array<QM::Item*> TreeAndListLayout::GetPlacedItems() const
{
    NK::Array<QM::Item*> items = NormalLayout::GetPlacedItems();
    LayoutResource& resource = GetResource();
    QM::Item* controls[] = {resource.GetTreeView(), resource.GetSplitter(), resource.GetUpButton(),
                            resource.GetPopUpControl(), resource.GetListBox()};
    for (QM::Item* item : controls)
        if (item != nullptr)
            items.Push(item);
    return items;
}

void TreeAndListLayout::SplitterMoved(const QM::SplitterMoveEvent& event)
{
    if (placing || GetRect().IsEmpty())
        return;
    splitterState.treeWidth = Pixels::Saturated(std::max(0, event.newPosition - GetRect().GetLeft()));
    ReApply();
}

}  // namespace WZ::Folderable
