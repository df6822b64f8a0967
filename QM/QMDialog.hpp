// QM::Dialog: a top-level panel with a title and a grow type. The host creates its items on it
// (Item(dialog, rect)); the dialog borrows them. Opening and closing notify the panel's
// observers (QM::DialogObserver); SimulateUser* do what a user does and say so in the events.
// A user resize is bounded by the grow type: a direction the dialog cannot grow in keeps its
// size, and a resize that changes nothing notifies nothing.
#pragma once

#include "NK/NKUniString.hpp"
#include "QM/QMPanel.hpp"

namespace QM {

class Dialog : public Panel {
public:
    enum class GrowType : NK::UInt8 { NoGrow, HGrow, VGrow, HVGrow };

    explicit Dialog(const NK::UniString& title = {}, short clientWidth = 400, short clientHeight = 300,
                    GrowType growType = GrowType::NoGrow);

    NK::UniString GetTitle() const { return title; }
    void SetTitle(const NK::UniString& newTitle) { title = newTitle; }

    GrowType GetGrowType() const noexcept { return growType; }
    void SetGrowType(GrowType newGrowType) noexcept { growType = newGrowType; }
    bool CanGrowHorizontally() const noexcept { return growType == GrowType::HGrow || growType == GrowType::HVGrow; }
    bool CanGrowVertically() const noexcept { return growType == GrowType::VGrow || growType == GrowType::HVGrow; }

    void SimulateUserOpen() { ChangeOpenState(true, true, Origin::User); }
    // The user closes with OK (accepted) or Cancel.
    void SimulateUserClose(bool accepted) { ChangeOpenState(false, accepted, Origin::User); }
    // The user drags the dialog's border; returns whether the size changed.
    bool SimulateUserResize(short width, short height);

    std::string GetHeading() const override;

    // Brackets a batch of item moves and resizes (a layout pass) so that the dialog repaints once,
    // when the outermost bracket ends. Brackets nest; an end without a begin is a precondition
    // failure. The dialog counts the outermost brackets it closed.
    void BeginMoveResizeItems() noexcept { ++moveResizeDepth; }
    void EndMoveResizeItems();
    bool IsMovingResizingItems() const noexcept { return moveResizeDepth > 0; }
    NK::UInt64 GetMoveResizeBracketCount() const noexcept { return moveResizeBrackets; }

private:
    NK::UniString title;
    GrowType growType;
    int moveResizeDepth = 0;
    NK::UInt64 moveResizeBrackets = 0;
};

}  // namespace QM
