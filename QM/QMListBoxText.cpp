// Text form of a QM::ListBox: one line per row, "* " marking a selected row, the tab fields'
// texts (each after its icon) separated by " | ", a separator row as a rule.
#include "QM/QMListBox.hpp"

#include <algorithm>

namespace QM {

namespace {

std::string RenderCell(const NK::UniString& text, const Icon& icon)
{
    std::string cell;
    if (!icon.IsEmpty())
        cell = "[" + icon.ToString() + "]" + (text.IsEmpty() ? "" : " ");
    return cell + text.ToUtf8();
}

void TrimRight(std::string& line)
{
    std::size_t end = line.find_last_not_of(' ');
    line.erase(end == std::string::npos ? 0 : end + 1);
}

}  // namespace

void ListBox::RenderContent(NK::Array<std::string>& lines, const std::string& indent) const
{
    for (int index = 1; index <= GetItemCount(); ++index) {
        const auto row = static_cast<short>(index);
        const Row& r = GetRow(row);
        std::string line = indent + (r.selected ? "* " : "  ");
        if (r.separator) {
            lines.Push(line + "----------");
            continue;
        }
        // Trailing empty fields are left out, inner ones keep their place.
        std::size_t shown = std::min(r.cells.size(), static_cast<std::size_t>(GetTabFieldCount()));
        while (shown > 0 && RenderCell(r.cells[shown - 1].text, r.cells[shown - 1].icon).empty())
            --shown;
        for (std::size_t index = 0; index < shown; ++index) {
            if (index > 0)
                line += " | ";
            line += RenderCell(r.cells[index].text, r.cells[index].icon);
        }
        TrimRight(line);
        if (r.status == ItemStatus::Disabled)
            line += " (disabled)";
        else if (r.status == ItemStatus::Grayed)
            line += " (grayed)";
        lines.Push(line);
    }
}

}  // namespace QM
