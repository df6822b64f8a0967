#include "QM/QMPopUpControl.hpp"

#define NK_SOURCE_PATH "QM\\QMPopUpControl"
#include "NK/NKAssert.hpp"

namespace QM {

PopUpControl::PopUpControl(const Panel& panel, const Rect& rect) : Item(panel, rect, ItemType::PopUpControl) {}

short PopUpControl::InsertItem(short before, const NK::UniString& text, const Icon& icon)
{
    Record(Op::InsertItem);
    if (!NK_PRECOND(before >= 1 && before <= GetItemCount() + 1) || !NK_PRECOND(GetItemCount() < MaxEntryCount))
        return 0;
    entries.Insert(static_cast<NK::UIndex>(before - 1), Entry {text, icon});
    if (selected >= before)
        ++selected;
    return before;
}

short PopUpControl::AppendItem(const NK::UniString& text, const Icon& icon)
{
    return InsertItem(static_cast<short>(GetItemCount() + 1), text, icon);
}

void PopUpControl::DeleteItem(short entry)
{
    Record(Op::DeleteItem);
    if (!NK_PRECOND(IsEntry(entry)))
        return;
    entries.Delete(static_cast<NK::UIndex>(entry - 1));
    if (selected == entry) {
        selected = 0;
        Notify(Origin::Program);
    } else if (selected > entry) {
        --selected;
    }
}

void PopUpControl::DeleteAllItems()
{
    Record(Op::DeleteAllItems);
    entries.Clear();
    if (selected != 0) {
        selected = 0;
        Notify(Origin::Program);
    }
}

void PopUpControl::SetItemText(short entry, const NK::UniString& text)
{
    Record(Op::SetText);
    if (NK_PRECOND(IsEntry(entry)))
        entries[static_cast<NK::UIndex>(entry - 1)].text = text;
}

NK::UniString PopUpControl::GetItemText(short entry) const
{
    if (!NK_PRECOND(IsEntry(entry)))
        return {};
    return entries[static_cast<NK::UIndex>(entry - 1)].text;
}

void PopUpControl::SetItemIcon(short entry, const Icon& icon)
{
    Record(Op::SetIcon);
    if (NK_PRECOND(IsEntry(entry)))
        entries[static_cast<NK::UIndex>(entry - 1)].icon = icon;
}

Icon PopUpControl::GetItemIcon(short entry) const
{
    if (!NK_PRECOND(IsEntry(entry)))
        return {};
    return entries[static_cast<NK::UIndex>(entry - 1)].icon;
}

void PopUpControl::Choose(short entry, Origin origin)
{
    Record(Op::Select);
    if (!NK_PRECOND(entry == 0 || IsEntry(entry)) || entry == selected)
        return;
    selected = entry;
    Notify(origin);
}

bool PopUpControl::SimulateUserSelect(short entry)
{
    if (!IsEnabled() || !IsVisible() || !NK_PRECOND(IsEntry(entry)))
        return false;
    Choose(entry, Origin::User);
    return true;
}

void PopUpControl::Notify(Origin origin)
{
    PopUpSelectionEvent event {*this, selected, origin};
    NotifyAll<PopUpControlObserver>([&](PopUpControlObserver& o) { o.SelectionChanged(event); });
}

void PopUpControl::RenderContent(NK::Array<std::string>& lines, const std::string& indent) const
{
    short number = 1;
    for (const Entry& entry : entries) {
        std::string line = indent + (number == selected ? "* " : "  ");
        if (!entry.icon.IsEmpty())
            line += "[" + entry.icon.ToString() + "] ";
        lines.Push(line + entry.text.ToUtf8());
        ++number;
    }
}

}  // namespace QM
