#include "QM/QMDialog.hpp"
#include "QM/QMSearchEdit.hpp"
#include "QM/QMTextRenderer.hpp"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

namespace {

using Events = std::vector<std::string>;

class RecordingSearchObserver : public QM::SearchEditObserver, public QM::ItemObserver {
public:
    void SearchStarted(const QM::SearchEditChangeEvent& e) override { Add("started", e); }
    void SearchTextChanged(const QM::SearchEditChangeEvent& e) override { Add("changed", e); }
    void SearchEnded(const QM::SearchEditChangeEvent& e) override { Add("ended", e); }
    void ItemFocusChanged(const QM::FocusChangeEventArg& e) override { events.push_back(e.hasFocus ? "focus" : "blur"); }
    void Add(const std::string& what, const QM::SearchEditChangeEvent& e)
    {
        EXPECT_EQ(e.origin, QM::Origin::User);
        events.push_back(what + " \"" + e.GetText().ToUtf8() + "\"");
    }
    Events events;
};

std::string Render(const QM::SearchEdit& edit)
{
    return QM::TextRenderer::Join(QM::TextRenderer::RenderItem(edit));
}

TEST(SearchEditTest, UserEditsStartChangeAndEndASearch)
{
    using QM::SearchEdit;
    const std::pair<std::function<void(SearchEdit&)>, Events> cases[] = {
        {[](SearchEdit& e) { e.SimulateUserType("wa"), e.SimulateUserBackspace(2); },
         {"focus", "started \"w\"", "changed \"w\"", "changed \"wa\"", "changed \"w\"", "ended \"\""}},
        // Replacing and clearing are one change each; repeating them changes nothing.
        {[](SearchEdit& e) {
             e.SimulateUserReplaceText("soup"), e.SimulateUserReplaceText("soup"), e.SimulateUserReplaceText("bread");
             e.SimulateUserClear(), e.SimulateUserClear();
         },
         {"focus", "started \"soup\"", "changed \"soup\"", "changed \"bread\"", "ended \"\""}},
        // The program writes silently; the user goes on from its text, and after the program
        // cleared the field typing starts anew.
        {[](SearchEdit& e) { e.SetText("roof"), e.SimulateUserType("s"), e.Clear(), e.SimulateUserType("x"); },
         {"focus", "changed \"roofs\"", "started \"x\"", "changed \"x\""}},
        // In on-enter mode only Enter and the clear button count.
        {[](SearchEdit& e) {
             e.SetUpdateMode(SearchEdit::UpdateMode::OnEnter);
             e.SimulateUserType("sou"), e.SimulateUserPressEnter(), e.SimulateUserPressEnter();
             e.SimulateUserBackspace(3), e.SimulateUserType("br"), e.SimulateUserPressEnter(), e.SimulateUserClear();
         },
         {"focus", "started \"sou\"", "changed \"sou\"", "changed \"br\"", "ended \"\""}},
        // A character outside the basic plane is typed and deleted whole.
        {[](SearchEdit& e) { e.SimulateUserType(u"a\U0001F50D"), e.SimulateUserBackspace(); },
         {"focus", "started \"a\"", "changed \"a\"", "changed \"a\U0001F50D\"", "changed \"a\""}},
        {[](SearchEdit& e) {
             e.Disable();
             EXPECT_FALSE(e.SimulateUserType("a"));
             e.Enable(), e.Hide();
             EXPECT_FALSE(e.SimulateUserReplaceText("a") || e.SimulateUserClear() || !e.GetText().IsEmpty());
         },
         {}},
    };
    for (const auto& [act, expected] : cases) {
        QM::Dialog dialog;
        SearchEdit edit {dialog, QM::Rect(0, 0, 200, 22)};
        RecordingSearchObserver observer;
        edit.Attach(observer);
        act(edit);
        EXPECT_EQ(observer.events, expected);
    }
}

TEST(SearchEditTest, TheTextFormShowsTheTextTheHintOrTheUnsearchedText)
{
    QM::Dialog dialog;
    QM::SearchEdit edit {dialog, QM::Rect(0, 0, 200, 22)};
    edit.SetHintText("Search recipes");
    EXPECT_EQ(Render(edit), "#1 SearchEdit (0, 0, 200, 22)\n  hint \"Search recipes\"\n");
    edit.SimulateUserType("pl");
    EXPECT_EQ(Render(edit), "#1 SearchEdit \"pl\" (0, 0, 200, 22) focused\n");
    edit.SetUpdateMode(QM::SearchEdit::UpdateMode::OnEnter);
    edit.SimulateUserType("u");
    EXPECT_NE(Render(edit).find("not yet searched: \"plu\""), std::string::npos);
}

}  // namespace
