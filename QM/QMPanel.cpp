#include "QM/QMPanel.hpp"

#define NK_SOURCE_PATH "QM\\QMPanel"
#include "NK/NKAssert.hpp"

#include <limits>

namespace QM {

Panel::Panel(short clientWidth, short clientHeight)
    : clientWidth(clientWidth < 0 ? 0 : clientWidth), clientHeight(clientHeight < 0 ? 0 : clientHeight)
{
    NK_PRECOND(clientWidth >= 0 && clientHeight >= 0);
}

Panel::~Panel()
{
    for (Item* item : items) {
        if (item != nullptr)
            item->panel = nullptr;
    }
}

Item* Panel::GetItem(short id) const noexcept
{
    if (id < 1 || static_cast<std::size_t>(id) > items.size())
        return nullptr;
    return items[static_cast<std::size_t>(id) - 1];
}

NK::Array<Item*> Panel::GetItems() const
{
    NK::Array<Item*> living;
    for (Item* item : items) {
        if (item != nullptr)
            living.Push(item);
    }
    return living;
}

void Panel::ChangeOpenState(bool newOpen, bool accepted, Origin origin)
{
    if (open == newOpen)
        return;
    open = newOpen;
    if (open)
        NotifyAll<PanelObserver>([&](PanelObserver& o) { o.PanelOpened(PanelOpenEvent {*this, origin}); });
    else
        NotifyAll<PanelObserver>([&](PanelObserver& o) { o.PanelClosed(PanelCloseEvent {*this, accepted, origin}); });
}

void Panel::ChangeClientSize(short width, short height, Origin origin)
{
    if (!NK_PRECOND(width >= 0 && height >= 0))
        return;
    if (width == clientWidth && height == clientHeight)
        return;
    PanelResizeEvent event {*this, clientWidth, clientHeight, width, height, origin};
    clientWidth = width;
    clientHeight = height;
    NotifyAll<PanelObserver>([&](PanelObserver& o) { o.PanelResized(event); });
}

std::string Panel::GetHeading() const
{
    return "Panel " + std::to_string(clientWidth) + "x" + std::to_string(clientHeight) + (open ? " open" : " closed");
}

short Panel::Register(Item& item) const
{
    if (!NK_PRECOND(items.size() < static_cast<std::size_t>(std::numeric_limits<short>::max())))
        return 0;
    items.push_back(&item);
    return static_cast<short>(items.size());
}

void Panel::Unregister(const Item& item) const
{
    if (focused == &item)
        focused = nullptr;
    if (item.id >= 1 && static_cast<std::size_t>(item.id) <= items.size() && items[item.id - 1] == &item)
        items[item.id - 1] = nullptr;
}

Item* Panel::TakeFocus(Item& item) const
{
    Item* previous = focused;
    focused = &item;
    return previous;
}

}  // namespace QM
