// The header of a list box: its items, their look, the header button, and what a user does
// with them.
#define NK_SOURCE_PATH "QM\\QMListBoxColumns"
#include "QM/QMListBoxColumns.hpp"

#include "NK/NKAssert.hpp"

#include <algorithm>

namespace QM {

namespace {

const char* ArrowMark(ListBoxColumns::ArrowType arrow)
{
    switch (arrow) {
    case ListBoxColumns::ArrowType::Up:
        return " ^";
    case ListBoxColumns::ArrowType::Down:
        return " v";
    default:
        return "";
    }
}

}  // namespace

void ListBoxColumns::SetHasHeader(bool hasHeader)
{
    Record(Op::SetStyle);
    header = hasHeader;
}

void ListBoxColumns::SetHeaderSynchronState(bool synchronized)
{
    Record(Op::SetStyle);
    headerSynchronized = synchronized;
}

void ListBoxColumns::SetHeaderPushableButtons(bool pushable)
{
    Record(Op::SetStyle);
    pushableButtons = pushable;
}

void ListBoxColumns::SetHeaderDragableButtons(bool dragable)
{
    Record(Op::SetStyle);
    dragableButtons = dragable;
}

void ListBoxColumns::SetHeaderItemCount(short count)
{
    Record(Op::SetStyle);
    if (!header || !NK_PRECOND(count >= 0))
        return;
    headerItems.resize(static_cast<std::size_t>(count));
}

ListBoxColumns::HeaderItem* ListBoxColumns::WritableHeaderItem(short item)
{
    if (!header || !NK_PRECOND(item >= 1 && static_cast<std::size_t>(item) <= headerItems.size()))
        return nullptr;
    return &headerItems[static_cast<std::size_t>(item) - 1];
}

const ListBoxColumns::HeaderItem* ListBoxColumns::ReadableHeaderItem(short item) const
{
    if (!header || !NK_PRECOND(item >= 1 && static_cast<std::size_t>(item) <= headerItems.size()))
        return nullptr;
    return &headerItems[static_cast<std::size_t>(item) - 1];
}

void ListBoxColumns::SetHeaderItemSize(short item, short width)
{
    Record(Op::SetStyle);
    if (!NK_PRECOND(width >= 0))
        return;
    if (HeaderItem* headerItem = WritableHeaderItem(item))
        headerItem->size = width;
}

short ListBoxColumns::GetHeaderItemSize(short item) const
{
    const HeaderItem* headerItem = ReadableHeaderItem(item);
    return headerItem != nullptr ? headerItem->size : 0;
}

void ListBoxColumns::SetHeaderItemText(short item, const NK::UniString& text)
{
    Record(Op::SetText);
    if (HeaderItem* headerItem = WritableHeaderItem(item))
        headerItem->text = text;
}

NK::UniString ListBoxColumns::GetHeaderItemText(short item) const
{
    const HeaderItem* headerItem = ReadableHeaderItem(item);
    return headerItem != nullptr ? headerItem->text : NK::UniString();
}

void ListBoxColumns::SetHeaderItemIcon(short item, const Icon& icon)
{
    Record(Op::SetIcon);
    if (HeaderItem* headerItem = WritableHeaderItem(item))
        headerItem->icon = icon;
}

Icon ListBoxColumns::GetHeaderItemIcon(short item) const
{
    const HeaderItem* headerItem = ReadableHeaderItem(item);
    return headerItem != nullptr ? headerItem->icon : Icon();
}

void ListBoxColumns::SetHeaderItemArrowType(short item, ArrowType arrow)
{
    Record(Op::SetStyle);
    if (HeaderItem* headerItem = WritableHeaderItem(item))
        headerItem->arrow = arrow;
}

ListBoxColumns::ArrowType ListBoxColumns::GetHeaderItemArrowType(short item) const
{
    const HeaderItem* headerItem = ReadableHeaderItem(item);
    return headerItem != nullptr ? headerItem->arrow : ArrowType::NoArrow;
}

void ListBoxColumns::SetHeaderItemStyle(short item, Font::Style style)
{
    Record(Op::SetStyle);
    if (HeaderItem* headerItem = WritableHeaderItem(item))
        headerItem->style = style;
}

Font::Style ListBoxColumns::GetHeaderItemStyle(short item) const
{
    const HeaderItem* headerItem = ReadableHeaderItem(item);
    return headerItem != nullptr ? headerItem->style : Font::Plain;
}

void ListBoxColumns::SetHeaderItemSizeableFlag(short item, bool sizeable)
{
    Record(Op::SetStyle);
    if (HeaderItem* headerItem = WritableHeaderItem(item))
        headerItem->sizeable = sizeable;
}

bool ListBoxColumns::GetHeaderItemSizeableFlag(short item) const
{
    const HeaderItem* headerItem = ReadableHeaderItem(item);
    return headerItem != nullptr && headerItem->sizeable;
}

void ListBoxColumns::SetHeaderItemMinSize(short item, short minSize)
{
    Record(Op::SetStyle);
    if (HeaderItem* headerItem = WritableHeaderItem(item))
        headerItem->minSize = minSize;
}

short ListBoxColumns::GetHeaderItemMinSize(short item) const
{
    const HeaderItem* headerItem = ReadableHeaderItem(item);
    return headerItem != nullptr ? headerItem->minSize : 0;
}

void ListBoxColumns::EnableHeaderButton()
{
    Record(Op::SetStyle);
    headerButton = true;
}

void ListBoxColumns::DisableHeaderButton()
{
    Record(Op::SetStyle);
    headerButton = false;
}

void ListBoxColumns::SetHeaderButtonIcon(const Icon& icon)
{
    Record(Op::SetIcon);
    headerButtonIcon = icon;
}

void ListBoxColumns::SynchronizeTabsWithHeader()
{
    short position = 0;
    std::size_t count = std::min(tabFields.size(), headerItems.size());
    for (std::size_t i = 0; i < count; ++i) {
        tabFields[i].begin = position;
        position = static_cast<short>(position + headerItems[i].size);
        tabFields[i].end = position;
    }
}

bool ListBoxColumns::SimulateUserDragHeaderDivider(short item, short newWidth)
{
    HeaderItem* headerItem = WritableHeaderItem(item);
    if (headerItem == nullptr || !headerItem->sizeable)
        return false;
    short width = std::max<short>({newWidth, headerItem->minSize, 0});
    if (width == headerItem->size)
        return false;
    headerItem->size = width;
    if (headerSynchronized)
        SynchronizeTabsWithHeader();
    ListBoxHeaderEvent event {*this, item, Origin::User};
    NotifyAll<ListBoxHeaderObserver>([&](ListBoxHeaderObserver& o) { o.HeaderItemResized(event); });
    return true;
}

bool ListBoxColumns::SimulateUserClickHeaderItem(short item)
{
    if (!pushableButtons || WritableHeaderItem(item) == nullptr)
        return false;
    ListBoxHeaderEvent event {*this, item, Origin::User};
    NotifyAll<ListBoxHeaderObserver>([&](ListBoxHeaderObserver& o) { o.HeaderItemClicked(event); });
    return true;
}

bool ListBoxColumns::SimulateUserDragHeaderItem(short fromItem, short toItem)
{
    if (!dragableButtons || WritableHeaderItem(fromItem) == nullptr || WritableHeaderItem(toItem) == nullptr ||
        fromItem == toItem)
        return false;
    HeaderItem moved = headerItems[static_cast<std::size_t>(fromItem) - 1];
    headerItems.erase(headerItems.begin() + (fromItem - 1));
    headerItems.insert(headerItems.begin() + (toItem - 1), moved);
    ListBoxHeaderDragEvent event {*this, fromItem, toItem, Origin::User};
    NotifyAll<ListBoxHeaderObserver>([&](ListBoxHeaderObserver& o) { o.HeaderItemDragged(event); });
    return true;
}

bool ListBoxColumns::SimulateUserClickHeaderButton()
{
    if (!header || !headerButton)
        return false;
    ListBoxHeaderEvent event {*this, 0, Origin::User};
    NotifyAll<ListBoxHeaderObserver>([&](ListBoxHeaderObserver& o) { o.HeaderButtonClicked(event); });
    return true;
}

void ListBoxColumns::RenderColumns(NK::Array<std::string>& lines, const std::string& indent) const
{
    if (header) {
        std::string line = indent + "header:";
        for (std::size_t i = 0; i < headerItems.size(); ++i) {
            const HeaderItem& item = headerItems[i];
            line += (i == 0 ? " " : " | ") + std::string("\"") + item.text.ToUtf8() + "\" " + std::to_string(item.size) +
                    ArrowMark(item.arrow);
        }
        if (headerButton)
            line += " [button]";
        lines.Push(line);
    }
    std::string line = indent + "tabs:";
    for (std::size_t i = 0; i < tabFields.size(); ++i)
        line += (i == 0 ? " " : " | ") + std::to_string(tabFields[i].begin) + "-" + std::to_string(tabFields[i].end) +
                (tabFields[i].ownerDraw ? " (owner-draw)" : "");
    lines.Push(line);
}

}  // namespace QM
