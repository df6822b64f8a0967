#include "QM/QMItem.hpp"

#include "QM/QMPanel.hpp"

#define NK_SOURCE_PATH "QM\\QMItem"
#include "NK/NKAssert.hpp"

namespace QM {

namespace {

constexpr const char* itemTypeNames[] = {
    "UserItem", "StaticText", "Button", "Edit", "SearchEdit", "ListBox", "TreeView", "TabControl", "ListView", "TableView",
    "PopUpControl", "Splitter",
};

}  // namespace

const char* GetItemTypeName(ItemType type) noexcept
{
    auto index = static_cast<std::size_t>(type);
    return index < sizeof(itemTypeNames) / sizeof(itemTypeNames[0]) ? itemTypeNames[index] : "Item";
}

Item::Item(const Panel& panel, const Rect& rect, ItemType type) : panel(&panel), id(0), type(type), rect(rect)
{
    id = panel.Register(*this);
}

Item::~Item()
{
    if (panel != nullptr)
        panel->Unregister(*this);
}

void Item::SetRect(const Rect& newRect)
{
    journal.Record(Op::Move);
    rect = newRect;
}

void Item::Move(short x, short y)
{
    journal.Record(Op::Move);
    rect.MoveTo(x, y);
}

void Item::Resize(short width, short height)
{
    journal.Record(Op::Move);
    if (!NK_PRECOND(width >= 0 && height >= 0))
        return;
    rect.SetSize(width, height);
}

void Item::MoveAndResize(short x, short y, short width, short height)
{
    journal.Record(Op::Move);
    if (!NK_PRECOND(width >= 0 && height >= 0))
        return;
    rect = Rect(x, y, static_cast<short>(x + width), static_cast<short>(y + height));
}

void Item::SetVisibility(bool newVisible)
{
    journal.Record(Op::Show);
    if (visible == newVisible)
        return;
    visible = newVisible;
    VisibilityChangeEventArg event {*this, visible, Origin::Program};
    NotifyAll<ItemObserver>([&](ItemObserver& o) { o.ItemVisibilityChanged(event); });
}

void Item::SetStatus(bool newEnabled)
{
    journal.Record(Op::Enable);
    enabled = newEnabled;
}

void Item::SetText(const NK::UniString& newText)
{
    journal.Record(Op::SetText);
    text = newText;
}

bool Item::HasFocus() const noexcept
{
    return panel != nullptr && panel->GetFocusedItem() == this;
}

void Item::ChangeFocus(Origin origin)
{
    journal.Record(Op::Focus);
    if (!NK_PRECOND(panel != nullptr) || HasFocus())
        return;
    Item* previous = panel->TakeFocus(*this);
    if (previous != nullptr)
        previous->NotifyFocus(false, origin);
    NotifyFocus(true, origin);
}

void Item::NotifyFocus(bool hasFocus, Origin origin)
{
    FocusChangeEventArg event {*this, hasFocus, origin};
    NotifyAll<ItemObserver>([&](ItemObserver& o) { o.ItemFocusChanged(event); });
}

void Item::Render(NK::Array<std::string>& lines, const std::string& indent) const
{
    std::string heading = indent + "#" + std::to_string(id) + " " + GetItemTypeName(type);
    if (!text.IsEmpty())
        heading += " \"" + text.ToUtf8() + "\"";
    heading += " " + rect.ToString();
    if (!visible)
        heading += " hidden";
    if (!enabled)
        heading += " disabled";
    if (HasFocus())
        heading += " focused";
    lines.Push(heading);
    RenderContent(lines, indent + "  ");
}

void Item::RenderContent(NK::Array<std::string>&, const std::string&) const {}

}  // namespace QM
