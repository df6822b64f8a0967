// Tab fields of a list box: geometry, text layout flags and the items placed on them.
#define NK_SOURCE_PATH "QM\\QMListBoxColumns"
#include "QM/QMListBoxColumns.hpp"

#include "NK/NKAssert.hpp"

#include <algorithm>

namespace QM {

ListBoxColumns::ListBoxColumns(const Panel& panel, const Rect& rect, ItemType type) : Item(panel, rect, type) {}

short ListBoxColumns::GetItemWidth() const noexcept
{
    short width = GetRect().GetWidth();
    if (header && headerButton)
        width = static_cast<short>(width - HeaderButtonWidth);
    return std::max<short>(0, width);
}

void ListBoxColumns::EnableSeparatorLines(bool enable)
{
    Record(Op::SetStyle);
    separatorLines = enable;
}

void ListBoxColumns::TabFieldCountChanged(short, short newCount)
{
    // Fields that come into being start empty where the last one ended.
    std::size_t oldSize = tabFields.size();
    short lastEnd = oldSize > 0 ? tabFields.back().end : 0;
    tabFields.resize(static_cast<std::size_t>(std::max<short>(newCount, 0)));
    for (std::size_t i = oldSize; i < tabFields.size(); ++i)
        tabFields[i].begin = tabFields[i].end = lastEnd;
}

ListBoxColumns::TabField* ListBoxColumns::WritableTab(short tab)
{
    if (!NK_PRECOND(tab >= 1 && static_cast<std::size_t>(tab) <= tabFields.size()))
        return nullptr;
    return &tabFields[static_cast<std::size_t>(tab) - 1];
}

const ListBoxColumns::TabField* ListBoxColumns::ReadableTab(short tab) const
{
    if (!NK_PRECOND(tab >= 1 && static_cast<std::size_t>(tab) <= tabFields.size()))
        return nullptr;
    return &tabFields[static_cast<std::size_t>(tab) - 1];
}

void ListBoxColumns::SetTabFieldBeginEndPosition(short tab, short begin, short end)
{
    Record(Op::SetStyle);
    if (!NK_PRECOND(begin <= end))
        return;
    if (TabField* field = WritableTab(tab)) {
        field->begin = begin;
        field->end = end;
    }
}

short ListBoxColumns::GetTabFieldBeginPosition(short tab) const
{
    const TabField* field = ReadableTab(tab);
    return field != nullptr ? field->begin : 0;
}

short ListBoxColumns::GetTabFieldEndPosition(short tab) const
{
    const TabField* field = ReadableTab(tab);
    return field != nullptr ? field->end : 0;
}

short ListBoxColumns::GetTabFieldWidth(short tab) const
{
    const TabField* field = ReadableTab(tab);
    return field != nullptr ? static_cast<short>(field->end - field->begin) : 0;
}

void ListBoxColumns::SetTabFieldJustification(short tab, Justification justification)
{
    Record(Op::SetStyle);
    if (TabField* field = WritableTab(tab))
        field->justification = justification;
}

ListBoxColumns::Justification ListBoxColumns::GetTabFieldJustification(short tab) const
{
    const TabField* field = ReadableTab(tab);
    return field != nullptr ? field->justification : Justification::Default;
}

void ListBoxColumns::SetTabFieldTruncation(short tab, Truncation truncation)
{
    Record(Op::SetStyle);
    if (TabField* field = WritableTab(tab))
        field->truncation = truncation;
}

ListBoxColumns::Truncation ListBoxColumns::GetTabFieldTruncation(short tab) const
{
    const TabField* field = ReadableTab(tab);
    return field != nullptr ? field->truncation : Truncation::Default;
}

void ListBoxColumns::SetTabFieldOwnerDrawFlag(short tab, bool ownerDraw)
{
    Record(Op::SetStyle);
    if (TabField* field = WritableTab(tab))
        field->ownerDraw = ownerDraw;
}

bool ListBoxColumns::GetTabFieldOwnerDrawFlag(short tab) const
{
    const TabField* field = ReadableTab(tab);
    return field != nullptr && field->ownerDraw;
}

void ListBoxColumns::SetOnTabItem(short tab, Item* item)
{
    Record(Op::SetStyle);
    if (TabField* field = WritableTab(tab))
        field->onTabItem = item;
}

Item* ListBoxColumns::GetOnTabItem(short tab) const
{
    const TabField* field = ReadableTab(tab);
    return field != nullptr ? field->onTabItem : nullptr;
}

void ListBoxColumns::RemoveOnTabItem(short tab)
{
    Record(Op::SetStyle);
    if (TabField* field = WritableTab(tab))
        field->onTabItem = nullptr;
}

}  // namespace QM
