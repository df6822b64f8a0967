// WZ::Folderable::FolderedDataView::State: what a foldered data view keeps across sessions: the
// current view mode and, per registered view, that view's persistent state (its layout, its
// columns).
//
// On a channel (little-endian, base-library primitives):
//   viewMode                      Int16
//   n, the number of view states  UInt16
//   n view modes                  UInt16 each, in the order of the state's table
//   n view states                 each view state's own Write, in the same order
// Write returns the channel's error at once when the mode cannot be written and the first
// failing item's error later. Read reads the same layout into this state: every one of the n
// modes must name a view state that this state already holds (it lets that one Read); a mode it
// does not hold ends the read with -7003. The current mode is taken as it is, with or without a
// view state under it, so whatever Write wrote reads back and is written again byte for byte. A
// state is therefore made by the data view's CreateDefaultState, after all views are registered,
// before it is read. A failed Read may leave view states half-read (the mode is set only on
// success); the data view's ReadState reads into a fresh copy for that reason.
#pragma once

#include "NK/NKChannel.hpp"
#include "NK/NKHashTable.hpp"
#include "NK/NKPointers.hpp"
#include "WZSources/CompoundControls/FolderedDataView/WZFolderedDataView.hpp"

namespace WZ::Folderable {

class FolderedDataView::State {
public:
    using ViewStateTable = NK::HashTable<ViewMode, NK::Owner<Views::View::ViewState>>;

    State() = default;
    State(const State&) = delete;
    State& operator=(const State&) = delete;
    virtual ~State();

    virtual NK::ErrCode Read(NK::IChannel& channel);
    virtual NK::ErrCode Write(NK::OChannel& channel) const;

    ViewMode GetViewMode() const noexcept { return viewMode; }
    void SetViewMode(ViewMode mode) noexcept { viewMode = mode; }

    const ViewStateTable& GetViewStates() const noexcept { return viewStates; }
    // The view state kept under the mode; null when there is none.
    const Views::View::ViewState* GetViewState(ViewMode mode) const;
    // Keeps the view state under the mode, replacing (and deleting) what was there.
    void PutViewState(ViewMode mode, NK::Owner<Views::View::ViewState> viewState);

private:
    ViewStateTable viewStates;
    ViewMode viewMode = ViewMode::Initial;
};

}  // namespace WZ::Folderable
