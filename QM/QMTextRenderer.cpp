#include "QM/QMTextRenderer.hpp"

#include "QM/QMItem.hpp"
#include "QM/QMPanel.hpp"

namespace QM::TextRenderer {

void AppendPanelItems(const Panel& panel, NK::Array<std::string>& lines, const std::string& indent)
{
    for (const Item* item : panel.GetItems()) {
        if (item->IsVisible())
            item->Render(lines, indent);
    }
}

NK::Array<std::string> RenderPanel(const Panel& panel)
{
    NK::Array<std::string> lines;
    lines.Push(panel.GetHeading());
    AppendPanelItems(panel, lines, "  ");
    return lines;
}

NK::Array<std::string> RenderItem(const Item& item)
{
    NK::Array<std::string> lines;
    item.Render(lines, "");
    return lines;
}

std::string Join(const NK::Array<std::string>& lines)
{
    std::string text;
    for (const std::string& line : lines) {
        text += line;
        text += '\n';
    }
    return text;
}

}  // namespace QM::TextRenderer
