#include "QM/QMDialog.hpp"
#include "QM/QMSearchEdit.hpp"
#include "QM/QMTextRenderer.hpp"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

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
    std::vector<std::string> events;
};

class SearchEditTest : public ::testing::Test {
protected:
    SearchEditTest() { edit.Attach(observer); }

    QM::Dialog dialog;
    QM::SearchEdit edit {dialog, QM::Rect(0, 0, 200, 22)};
    RecordingSearchObserver observer;
};

using Events = std::vector<std::string>;

TEST_F(SearchEditTest, TypingStartsChangesAndBackspacingEndsASearch)
{
    EXPECT_TRUE(edit.SimulateUserType("wa"));
    EXPECT_TRUE(edit.SimulateUserBackspace(2));
    EXPECT_EQ(observer.events, (Events {"focus", "started \"w\"", "changed \"w\"", "changed \"wa\"", "changed \"w\"",
                                        "ended \"\""}));
    EXPECT_TRUE(edit.GetText().IsEmpty());
}

TEST_F(SearchEditTest, ReplacingAndClearingCountAsOneChangeEach)
{
    edit.SimulateUserReplaceText("soup");
    edit.SimulateUserReplaceText("soup");  // the same text: nothing
    edit.SimulateUserReplaceText("bread");
    edit.SimulateUserClear();
    edit.SimulateUserClear();  // already empty
    EXPECT_EQ(observer.events, (Events {"focus", "started \"soup\"", "changed \"soup\"", "changed \"bread\"", "ended \"\""}));
}

TEST_F(SearchEditTest, TheProgramWritesTheTextSilently)
{
    edit.SetText("roof");
    EXPECT_EQ(edit.GetText(), NK::UniString("roof"));
    EXPECT_TRUE(observer.events.empty());

    // The user goes on from the program's text: no new start.
    edit.SimulateUserType("s");
    edit.Clear();
    // After the program cleared the field, typing starts a new search.
    edit.SimulateUserType("x");
    EXPECT_EQ(observer.events, (Events {"focus", "changed \"roofs\"", "started \"x\"", "changed \"x\""}));
}

TEST_F(SearchEditTest, InOnEnterModeOnlyEnterAndTheClearButtonCount)
{
    edit.SetUpdateMode(QM::SearchEdit::UpdateMode::OnEnter);
    edit.SimulateUserType("sou");
    EXPECT_EQ(observer.events, (Events {"focus"}));
    EXPECT_NE(QM::TextRenderer::Join(QM::TextRenderer::RenderItem(edit)).find("not yet searched: \"sou\""), std::string::npos);
    edit.SimulateUserPressEnter();
    edit.SimulateUserPressEnter();  // nothing new
    edit.SimulateUserBackspace(3);
    edit.SimulateUserType("br");
    edit.SimulateUserPressEnter();
    edit.SimulateUserClear();
    EXPECT_EQ(observer.events, (Events {"focus", "started \"sou\"", "changed \"sou\"", "changed \"br\"", "ended \"\""}));
}

TEST_F(SearchEditTest, ADisabledOrHiddenFieldIgnoresTheUser)
{
    edit.Disable();
    EXPECT_FALSE(edit.SimulateUserType("a"));
    edit.Enable();
    edit.Hide();
    EXPECT_FALSE(edit.SimulateUserReplaceText("a"));
    EXPECT_FALSE(edit.SimulateUserClear());
    EXPECT_TRUE(observer.events.empty());
    EXPECT_TRUE(edit.GetText().IsEmpty());
    EXPECT_FALSE(edit.HasFocus());
}

TEST_F(SearchEditTest, ACharacterOutsideTheBasicPlaneIsTypedAndDeletedWhole)
{
    edit.SimulateUserType(u"a\U0001F50D");
    EXPECT_EQ(edit.GetText(), NK::UniString(u"a\U0001F50D"));
    edit.SimulateUserBackspace();
    EXPECT_EQ(edit.GetText(), NK::UniString("a"));
    EXPECT_EQ(observer.events.size(), 5u);  // focus, started, three changes
}

TEST_F(SearchEditTest, TheTextFormShowsTheTextOrTheHint)
{
    edit.SetHintText("Search recipes");
    EXPECT_EQ(QM::TextRenderer::Join(QM::TextRenderer::RenderItem(edit)),
              "#1 SearchEdit (0, 0, 200, 22)\n  hint \"Search recipes\"\n");
    edit.SimulateUserType("pl");
    EXPECT_EQ(QM::TextRenderer::Join(QM::TextRenderer::RenderItem(edit)), "#1 SearchEdit \"pl\" (0, 0, 200, 22) focused\n");
}

}  // namespace
