#define NK_SOURCE_PATH "WZSources\\CompoundControls\\FolderedDataView\\Views\\WZFDVView"
#include "WZSources/CompoundControls/FolderedDataView/Views/WZFDVView.hpp"

#include "NK/NKAssert.hpp"
#include "WZSources/WZLoggedAssert.hpp"

namespace WZ::Folderable::Views {

namespace {

constexpr const char* LogFile = "WZFDVView";

}  // namespace

View::Delegate::~Delegate() = default;

// ---- view state -------------------------------------------------------------------------

View::ViewState::ViewState(NK::Owner<Layout::LayoutState> layoutState) : layoutState(std::move(layoutState)) {}

View::ViewState::~ViewState() = default;

NK::ErrCode View::ViewState::Write(NK::OChannel& channel) const
{
    if (layoutState == nullptr)
        return channel.GetStatus();
    return layoutState->Write(channel);
}

NK::ErrCode View::ViewState::Read(NK::IChannel& channel)
{
    if (layoutState == nullptr)
        return channel.GetStatus();
    return layoutState->Read(channel);
}

NK::ErrCode View::ViewState::ReadLayoutStateCopy(NK::IChannel& channel, NK::Owner<Layout::LayoutState>& copy) const
{
    if (layoutState == nullptr) {
        copy = nullptr;
        return channel.GetStatus();
    }
    copy = layoutState->Clone();
    return copy->Read(channel);
}

View::InMemoryViewState::~InMemoryViewState() = default;

void View::InMemoryViewState::InitStateIfNeeded(const NK::Array<NK::Owner<ModelItem>>&) {}

// ---- view -------------------------------------------------------------------------------

View::View() : resource(ViewResource::GetEmpty()) {}

View::View(NK::Owner<Layout> layout, ViewResource& resource) : layout(std::move(layout)), resource(resource) {}

View::~View()
{
    if (observedSearchField != nullptr)
        observedSearchField->Detach(static_cast<QM::SearchEditObserver&>(*this));
}

NK::Owner<View::ViewState> View::CreateDefaultState() const
{
    return NK::NewOwned<ViewState>(layout != nullptr ? layout->CreateDefaultState() : nullptr);
}

void View::ApplyState(const ViewState&) {}

NK::Owner<View::ViewState> View::GetState() const
{
    return NK::NewOwned<ViewState>(layout != nullptr ? layout->GetState() : nullptr);
}

View::InMemoryViewState* View::GetInMemoryViewState()
{
    return nullptr;
}

void View::UpdateInMemoryViewState() {}

void View::WillAppear(const OpenData&)
{
    shown = true;
    QM::SearchEdit* searchField = resource.GetSearchField();
    if (searchField == nullptr || searchField == observedSearchField)
        return;
    if (observedSearchField != nullptr)
        observedSearchField->Detach(static_cast<QM::SearchEditObserver&>(*this));
    searchField->Attach(static_cast<QM::SearchEditObserver&>(*this));
    observedSearchField = searchField;
}

void View::WillDisappear()
{
    // Kept first, so that a view keeps its open folders while another view is shown.
    UpdateInMemoryViewState();
    if (observedSearchField != nullptr) {
        observedSearchField->Detach(static_cast<QM::SearchEditObserver&>(*this));
        observedSearchField = nullptr;
    }
    shown = false;
}

NK::Array<const ModelItem*> View::GetItemsForCurrentControl() const
{
    return GetSelection().GetItems();
}

void View::ForgetItems() {}

NK::Optional<NK::UniString> View::GetSearchText() const
{
    const QM::SearchEdit* searchField = resource.GetSearchField();
    if (searchField == nullptr)
        return std::nullopt;
    return searchField->GetText();
}

bool View::IsSearchMode() const
{
    const NK::Optional<NK::UniString> text = GetSearchText();
    return text.has_value() && !text->IsEmpty();
}

void View::LeaveSearchMode()
{
    QM::SearchEdit* searchField = resource.GetSearchField();
    if (searchField == nullptr || searchField->GetText().IsEmpty())
        return;
    // The field is written silently; the view shown on it ends the search as if a user had
    // cleared it, so that the rows come back at once. A view that is not shown reads the field
    // when it appears.
    searchField->Clear();
    if (searchField == observedSearchField)
        SearchEnded(QM::SearchEditChangeEvent {*searchField, NK::UniString(), QM::Origin::Program});
}

void View::ApplyLayoutState(const Layout::LayoutState& layoutState)
{
    if (layout != nullptr)
        layout->ApplyState(layoutState);
}

void View::ReLayoutNeeded()
{
    const QM::Rect rect = resource.GetRect();
    if (!NK_ASSERT_TEXT(!rect.IsEmpty(), "!rect.IsEmpty ()")) {
        LogAssertError(LogFile, __LINE__);
        return;
    }
    if (layout != nullptr)
        layout->ApplyLayout(rect);
}

void View::SendSelectionChangedEvent()
{
    if (delegate != nullptr)
        delegate->ViewSelectionChanged();
}

}  // namespace WZ::Folderable::Views
