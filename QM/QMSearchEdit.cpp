#include "QM/QMSearchEdit.hpp"

namespace QM {

SearchEdit::SearchEdit(const Panel& panel, const Rect& rect, UpdateMode updateMode)
    : Item(panel, rect, ItemType::SearchEdit), updateMode(updateMode)
{
}

void SearchEdit::SetText(const NK::UniString& newText)
{
    Item::SetText(newText);
    countedText = newText;
}

void SearchEdit::SetHintText(const NK::UniString& hint)
{
    Record(Op::SetText);
    hintText = hint;
}

bool SearchEdit::AcceptsUser()
{
    if (!IsEnabled() || !IsVisible())
        return false;
    if (!HasFocus())
        SimulateUserFocus();
    return true;
}

void SearchEdit::UserEdit(const NK::UniString& newText)
{
    Item::SetText(newText);
    if (updateMode == UpdateMode::Instant)
        Commit();
}

void SearchEdit::Commit()
{
    NK::UniString text = GetText();
    if (text == countedText)
        return;
    bool wasEmpty = countedText.IsEmpty();
    countedText = text;
    SearchEditChangeEvent event {*this, text, Origin::User};
    if (text.IsEmpty()) {
        NotifyAll<SearchEditObserver>([&](SearchEditObserver& o) { o.SearchEnded(event); });
        return;
    }
    if (wasEmpty)
        NotifyAll<SearchEditObserver>([&](SearchEditObserver& o) { o.SearchStarted(event); });
    NotifyAll<SearchEditObserver>([&](SearchEditObserver& o) { o.SearchTextChanged(event); });
}

bool SearchEdit::SimulateUserType(const NK::UniString& characters)
{
    if (!AcceptsUser())
        return false;
    const std::u16string& units = characters.GetUtf16();
    for (std::size_t i = 0; i < units.size(); ++i) {
        // A surrogate pair is one character: it arrives in one change.
        std::size_t length = (i + 1 < units.size() && units[i] >= 0xD800 && units[i] <= 0xDBFF) ? 2 : 1;
        UserEdit(GetText() + NK::UniString(units.substr(i, length)));
        i += length - 1;
    }
    return true;
}

bool SearchEdit::SimulateUserReplaceText(const NK::UniString& newText)
{
    if (!AcceptsUser())
        return false;
    UserEdit(newText);
    return true;
}

bool SearchEdit::SimulateUserBackspace(NK::UIndex count)
{
    if (!AcceptsUser())
        return false;
    for (NK::UIndex i = 0; i < count && !GetText().IsEmpty(); ++i) {
        std::u16string units = GetText().GetUtf16();
        std::size_t cut = 1;
        if (units.size() >= 2 && units.back() >= 0xDC00 && units.back() <= 0xDFFF && units[units.size() - 2] >= 0xD800 &&
            units[units.size() - 2] <= 0xDBFF)
            cut = 2;
        units.resize(units.size() - cut);
        UserEdit(NK::UniString(units));
    }
    return true;
}

bool SearchEdit::SimulateUserClear()
{
    if (!AcceptsUser())
        return false;
    Item::SetText({});
    Commit();
    return true;
}

bool SearchEdit::SimulateUserPressEnter()
{
    if (!AcceptsUser())
        return false;
    Commit();
    return true;
}

void SearchEdit::RenderContent(NK::Array<std::string>& lines, const std::string& indent) const
{
    if (GetText().IsEmpty() && !hintText.IsEmpty())
        lines.Push(indent + "hint \"" + hintText.ToUtf8() + "\"");
    if (updateMode == UpdateMode::OnEnter && GetText() != countedText)
        lines.Push(indent + "not yet searched: \"" + GetText().ToUtf8() + "\"");
}

}  // namespace QM
