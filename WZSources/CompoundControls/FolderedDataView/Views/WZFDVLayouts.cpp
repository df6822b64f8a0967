#include "WZSources/CompoundControls/FolderedDataView/Views/WZFDVLayouts.hpp"

#include "NK/NKAssert.hpp"
#include "QM/QMListBox.hpp"
#include "QM/QMSearchEdit.hpp"
#include "WZSources/Layouting/WZLinearLayout.hpp"

namespace WZ::Folderable {

// ---- state ------------------------------------------------------------------------------

NK::ErrCode NormalLayout::LayoutState::Write(NK::OChannel& channel) const
{
    return channel.Write(searchFieldVisible);
}

NK::ErrCode NormalLayout::LayoutState::Read(NK::IChannel& channel)
{
    bool visible = true;
    if (NK::ErrCode error = channel.Read(visible); error != NK::NoError)
        return error;
    searchFieldVisible = visible;
    return NK::NoError;
}

NK::Owner<Layout::LayoutState> NormalLayout::LayoutState::Clone() const
{
    return NK::NewOwned<LayoutState>(searchFieldVisible);
}

bool NormalLayout::LayoutState::IsEqual(const Layout::LayoutState& other) const
{
    const auto* normal = dynamic_cast<const LayoutState*>(&other);
    return normal != nullptr && typeid(other) == typeid(*this) && normal->searchFieldVisible == searchFieldVisible;
}

// ---- layout -----------------------------------------------------------------------------

NormalLayout::NormalLayout(LayoutResource& resource, QM::Item* content) : Layout(resource), content(content) {}

NormalLayout::~NormalLayout() = default;

NK::Owner<Layout::LayoutState> NormalLayout::CreateDefaultState() const
{
    return NK::NewOwned<LayoutState>(true);
}

NK::Owner<Layout::LayoutState> NormalLayout::GetState() const
{
    return NK::NewOwned<LayoutState>(searchFieldVisible);
}

void NormalLayout::ApplyState(const Layout::LayoutState& state)
{
    const auto* normal = dynamic_cast<const LayoutState*>(&state);
    if (!NK_PRECOND_TEXT(normal != nullptr, "normal != nullptr"))
        return;
    ApplyNormalState(*normal);
    ReApply();
}

void NormalLayout::ApplyNormalState(const LayoutState& state)
{
    searchFieldVisible = state.IsSearchFieldVisible();
    if (QM::SearchEdit* searchField = GetResource().GetSearchField(); searchField != nullptr && shownNow)
        searchField->SetVisibility(searchFieldVisible);
}

void NormalLayout::SetSearchFieldVisible(bool visible)
{
    ApplyNormalState(LayoutState(visible));
    ReApply();
}

void NormalLayout::ApplyLayout(const QM::Rect& rect)
{
    SetRect(rect);
    Layouting::VerticalLinearLayout column;
    column.SetGap(gap);
    if (QM::SearchEdit* searchField = GetResource().GetSearchField(); searchField != nullptr && searchFieldVisible)
        column.Add(*searchField, Layouting::VFixedHeight {searchFieldHeight}, Layouting::VAutoFillWidth {});
    AddContent(column);
    column.ApplyLayout(rect);
}

void NormalLayout::AddContent(Layouting::VerticalLinearLayout& column) const
{
    if (content != nullptr && content == GetResource().GetListBox())
        AddListBox(column);
    else if (content != nullptr)
        column.Add(*content, Layouting::VProportionalHeight {1.0f}, Layouting::VAutoFillWidth {});
}

NK::Array<QM::Item*> NormalLayout::GetPlacedItems() const
{
    NK::Array<QM::Item*> items;
    if (QM::SearchEdit* searchField = GetResource().GetSearchField())
        items.Push(searchField);
    if (content != nullptr)
        items.Push(content);
    return items;
}

void NormalLayout::Show()
{
    shownNow = true;
    Layout::Show();
    if (QM::SearchEdit* searchField = GetResource().GetSearchField(); searchField != nullptr && !searchFieldVisible)
        searchField->Hide();
}

void NormalLayout::Hide()
{
    shownNow = false;
    Layout::Hide();
}

FlatListLayout::FlatListLayout(LayoutResource& resource) : NormalLayout(resource, resource.GetListBox()) {}

HierarchicalLayout::HierarchicalLayout(LayoutResource& resource) : NormalLayout(resource, resource.GetHierarchicalTable())
{
}

}  // namespace WZ::Folderable
