// QM::SearchEdit: a one-line search field. Its text is the item's text; a hint is shown in
// place of an empty text.
//
// Events (QM::SearchEditObserver), raised synchronously and only for what a user does:
// - SearchStarted when a user's change makes the text non-empty after it was empty;
// - SearchTextChanged after every user change that leaves a non-empty text (so the first
//   letter typed gives SearchStarted, then SearchTextChanged);
// - SearchEnded when a user's change empties the text (typing it away or the clear button);
//   no SearchTextChanged comes with it.
// In Instant mode every user change counts at once; in OnEnter mode typing only edits the text
// and the change counts when the user presses Enter (the clear button counts at once in both).
// A change that leaves the counted text as it was raises nothing.
//
// The program's SetText writes the text silently, as the platform's search fields do: a
// component that sets the text refreshes what depends on it itself. The written text also
// becomes the counted text, so the next user change is compared with it (a user who types
// into a text the program cleared starts a new search).
//
// Typing into the field gives it the focus first (with the focus events of QM::Item). A disabled
// or hidden field ignores the user.
#pragma once

#include "QM/QMItem.hpp"

namespace QM {

class SearchEdit;

struct SearchEditChangeEvent {
    const SearchEdit& source;
    NK::UniString text;  // the field's text after the change
    Origin origin;

    const SearchEdit* GetSource() const noexcept { return &source; }
    const NK::UniString& GetText() const noexcept { return text; }
};

class SearchEditObserver : public virtual NK::EventObserver {
public:
    virtual void SearchStarted(const SearchEditChangeEvent&) {}
    virtual void SearchTextChanged(const SearchEditChangeEvent&) {}
    virtual void SearchEnded(const SearchEditChangeEvent&) {}
};

class SearchEdit : public Item {
public:
    enum class UpdateMode : NK::UInt8 { Instant, OnEnter };

    SearchEdit(const Panel& panel, const Rect& rect, UpdateMode updateMode = UpdateMode::Instant);

    UpdateMode GetUpdateMode() const noexcept { return updateMode; }
    void SetUpdateMode(UpdateMode newMode) noexcept { updateMode = newMode; }

    // Silent write (see above). Hides Item::SetText so that the counted text follows.
    void SetText(const NK::UniString& newText);
    void Clear() { SetText({}); }

    void SetHintText(const NK::UniString& hint);
    NK::UniString GetHintText() const { return hintText; }

    // What a user does. Each returns whether the field took the input.
    // Types the characters one by one at the end of the text: one change per character.
    bool SimulateUserType(const NK::UniString& characters);
    // Replaces the whole text in one change (a paste over a selected text).
    bool SimulateUserReplaceText(const NK::UniString& newText);
    // Deletes the last `count` characters, one change per character (fewer when shorter).
    bool SimulateUserBackspace(NK::UIndex count = 1);
    // The field's clear button: empties the text and counts at once, in both modes.
    bool SimulateUserClear();
    // Enter: in OnEnter mode counts the edited text; in Instant mode there is nothing to count.
    bool SimulateUserPressEnter();

protected:
    void RenderContent(NK::Array<std::string>& lines, const std::string& indent) const override;

private:
    bool AcceptsUser();
    // A user's edit of the text; counts it at once in Instant mode.
    void UserEdit(const NK::UniString& newText);
    // Raises the events for the move from the counted text to the current one.
    void Commit();

    UpdateMode updateMode;
    NK::UniString hintText;
    NK::UniString countedText;  // the text the last events (or the program) left
};

}  // namespace QM
