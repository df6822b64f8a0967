// Text form of a QM::TreeView: one line per displayed node in display order, indented two
// blanks per level, "[+]"/"[-]" before a collapsed/expanded node with children, "* " marking a
// selected node; children of collapsed nodes are not shown.
#include "QM/QMTreeView.hpp"

#include <utility>
#include <vector>

namespace QM {

void TreeView::RenderContent(NK::Array<std::string>& lines, const std::string& indent) const
{
    std::vector<std::pair<int, int>> pending;  // node, depth; last child pushed first
    for (int child = NodeOf(RootItem).lastChild; child != NoItem; child = NodeOf(child).previous)
        pending.emplace_back(child, 0);
    while (!pending.empty()) {
        auto [item, depth] = pending.back();
        pending.pop_back();
        const Node& node = NodeOf(item);
        std::string line = indent + (node.isSelected ? "* " : "  ") + std::string(static_cast<std::size_t>(depth) * 2, ' ');
        if (node.firstChild == NoItem)
            line += "    ";
        else
            line += node.expanded ? "[-] " : "[+] ";
        if (!node.normalIcon.IsEmpty())
            line += "[" + node.normalIcon.ToString() + "] ";
        line += node.text.ToUtf8();
        if (node.status == ItemStatus::Disabled)
            line += " (disabled)";
        else if (node.status == ItemStatus::Grayed)
            line += " (grayed)";
        lines.Push(line);
        if (node.expanded) {
            for (int child = node.lastChild; child != NoItem; child = NodeOf(child).previous)
                pending.emplace_back(child, depth + 1);
        }
    }
}

}  // namespace QM
