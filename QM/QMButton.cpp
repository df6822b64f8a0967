#include "QM/QMButton.hpp"

namespace QM {

Button::Button(const Panel& panel, const Rect& rect, const NK::UniString& label) : Item(panel, rect, ItemType::Button)
{
    if (!label.IsEmpty())
        SetText(label);
    ResetJournal();
}

void Button::SetIcon(const Icon& newIcon)
{
    Record(Op::SetIcon);
    icon = newIcon;
}

bool Button::Press(Origin origin)
{
    if (!IsEnabled() || !IsVisible())
        return false;
    ButtonClickEvent event {*this, origin};
    NotifyAll<ButtonObserver>([&](ButtonObserver& o) { o.ButtonClicked(event); });
    return true;
}

void Button::RenderContent(NK::Array<std::string>& lines, const std::string& indent) const
{
    if (!icon.IsEmpty())
        lines.Push(indent + "[" + icon.ToString() + "]");
}

}  // namespace QM
