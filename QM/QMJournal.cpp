#include "QM/QMJournal.hpp"

namespace QM {

namespace {

constexpr const char* opNames[] = {
    "InsertItem", "InsertSeparator", "DeleteItem", "DeleteAllItems", "SetItemObjectData", "SetText", "SetIcon",
    "SetStyle", "SetValue", "Select", "Deselect", "Expand", "Collapse", "DisableDraw", "EnableDraw", "Redraw",
    "RedrawItem", "Move", "Show", "Enable", "Focus", "BeginItemEdit", "Scroll",
};
static_assert(sizeof(opNames) / sizeof(opNames[0]) == OpKindCount, "every operation kind needs a name");

}  // namespace

const char* GetOpName(Op op) noexcept
{
    auto index = static_cast<NK::UIndex>(op);
    return index < OpKindCount ? opNames[index] : "?";
}

NK::UInt64 Journal::GetTotal() const noexcept
{
    NK::UInt64 total = 0;
    for (NK::UInt64 count : counts)
        total += count;
    return total;
}

std::string Journal::ToString() const
{
    std::string text;
    for (NK::UIndex i = 0; i < OpKindCount; ++i) {
        if (counts[i] == 0)
            continue;
        if (!text.empty())
            text += ' ';
        text += opNames[i];
        text += '=';
        text += std::to_string(counts[i]);
    }
    return text;
}

}  // namespace QM
