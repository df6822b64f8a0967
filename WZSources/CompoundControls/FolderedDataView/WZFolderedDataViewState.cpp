#include "WZSources/CompoundControls/FolderedDataView/WZFolderedDataViewState.hpp"

namespace WZ::Folderable {

FolderedDataView::State::~State() = default;

const Views::View::ViewState* FolderedDataView::State::GetViewState(ViewMode mode) const
{
    const NK::Owner<Views::View::ViewState>* viewState = viewStates.GetPtr(mode);
    return viewState != nullptr ? viewState->Get() : nullptr;
}

void FolderedDataView::State::PutViewState(ViewMode mode, NK::Owner<Views::View::ViewState> viewState)
{
    viewStates.Put(mode, std::move(viewState));
}

NK::ErrCode FolderedDataView::State::Write(NK::OChannel& channel) const
{
    if (NK::ErrCode error = channel.Write(static_cast<NK::Int16>(viewMode)); error != NK::NoError)
        return error;
    if (NK::ErrCode error = channel.Write(static_cast<NK::UInt16>(viewStates.GetSize())); error != NK::NoError)
        return error;
    for (const auto& entry : viewStates)
        if (NK::ErrCode error = channel.Write(static_cast<NK::UInt16>(entry.first)); error != NK::NoError)
            return error;
    for (const auto& entry : viewStates) {
        if (entry.second == nullptr)
            return NK::ErrNullChannelOrElement;
        if (NK::ErrCode error = entry.second->Write(channel); error != NK::NoError)
            return error;
    }
    return channel.GetStatus();
}

NK::ErrCode FolderedDataView::State::Read(NK::IChannel& channel)
{
    NK::Int16 mode = 0;
    if (NK::ErrCode error = channel.Read(mode); error != NK::NoError)
        return error;
    NK::UInt16 count = 0;
    if (NK::ErrCode error = channel.Read(count); error != NK::NoError)
        return error;
    NK::Array<Views::View::ViewState*> targets;
    for (NK::UInt16 i = 0; i < count; ++i) {
        NK::UInt16 stateMode = 0;
        if (NK::ErrCode error = channel.Read(stateMode); error != NK::NoError)
            return error;
        NK::Owner<Views::View::ViewState>* target = viewStates.GetPtr(static_cast<ViewMode>(stateMode));
        if (target == nullptr || *target == nullptr)
            return NK::ErrMissingElement;
        targets.Push(target->Get());
    }
    for (Views::View::ViewState* target : targets)
        if (NK::ErrCode error = target->Read(channel); error != NK::NoError)
            return error;
    // The current mode needs no view state of its own: a data view may be in a mode under which
    // no view is registered, and what it wrote must read back.
    viewMode = static_cast<ViewMode>(mode);
    return channel.GetStatus();
}

}  // namespace WZ::Folderable
