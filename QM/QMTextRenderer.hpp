// QM::TextRenderer: a panel or one control as text lines, for golden tests and the gallery.
// A panel prints its heading, then each visible item (in number order) as a heading line
// "#id Type "text" (left, top, right, bottom)" with its content indented below: list rows with
// their tab texts separated by " | " and separators as a rule, the tree indented with [+]/[-],
// "* " marking selected rows and nodes. Hidden items are left out of a panel; a control
// rendered on its own is printed whatever its visibility (its heading then says "hidden").
#pragma once

#include "NK/NKArray.hpp"

#include <string>

namespace QM {

class Item;
class Panel;

namespace TextRenderer {

NK::Array<std::string> RenderPanel(const Panel& panel);
NK::Array<std::string> RenderItem(const Item& item);
// The lines joined, each ended by a line feed.
std::string Join(const NK::Array<std::string>& lines);
// The items of a panel (visible ones) below `indent`; used by controls holding panels.
void AppendPanelItems(const Panel& panel, NK::Array<std::string>& lines, const std::string& indent);

}  // namespace TextRenderer

}  // namespace QM
