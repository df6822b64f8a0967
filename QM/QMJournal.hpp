// QM::Journal: one counter per kind of mutating operation a control received. Every control
// keeps one (Item::GetJournal); tests assert on it ("nothing was deleted, one row was
// inserted") and benchmarks print it beside the time. A call counts once whether or not it
// changed anything, so the journal tells how a component drove the control, not what changed.
#pragma once

#include "NK/NKTypes.hpp"

#include <array>
#include <string>

namespace QM {

enum class Op : NK::UInt8 {
    InsertItem,        // a row or node inserted (also AppendItem)
    InsertSeparator,   // a separator row inserted
    DeleteItem,        // a row or a node with its subtree deleted
    DeleteAllItems,    // the whole content cleared at once
    SetItemObjectData, // an attached record written
    SetText,           // a text written (item, row, tab field, node)
    SetIcon,           // an icon written
    SetStyle,          // font style, colours, status or flags written (or reset)
    SetValue,          // a user value written
    Select,            // a selecting call (one per call, however many rows it selects)
    Deselect,          // a deselecting call
    Expand,
    Collapse,
    DisableDraw,
    EnableDraw,
    Redraw,            // the whole control redrawn
    RedrawItem,        // one row, tab field or node redrawn
    Move,              // position or size changed (Move, Resize, MoveAndResize, SetRect)
    Show,              // visibility written (Show, Hide, SetVisibility)
    Enable,            // enabled state written (Enable, Disable, SetStatus)
    Focus,
    BeginItemEdit,
    Scroll,
    Count              // the number of kinds; not an operation
};

inline constexpr NK::UIndex OpKindCount = static_cast<NK::UIndex>(Op::Count);

// The kind's name as written above ("InsertItem").
const char* GetOpName(Op op) noexcept;

class Journal {
public:
    void Record(Op op) noexcept { ++counts[Index(op)]; }
    NK::UInt64 GetCount(Op op) const noexcept { return counts[Index(op)]; }
    NK::UInt64 GetTotal() const noexcept;
    // Sets every counter to 0.
    void Reset() noexcept { counts.fill(0); }
    // The non-zero counters in kind order: "InsertItem=3 DeleteItem=1"; "" when all are 0.
    std::string ToString() const;

private:
    static constexpr NK::UIndex Index(Op op) noexcept { return static_cast<NK::UIndex>(op); }
    std::array<NK::UInt64, OpKindCount> counts {};
};

}  // namespace QM
