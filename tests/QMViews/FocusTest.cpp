// How the focus moves between the new controls when a user works with them: what a component
// that remembers the last focused of its controls relies on.
#include "TableTestModel.hpp"

#include "QM/QMButton.hpp"
#include "QM/QMDialog.hpp"
#include "QM/QMSearchEdit.hpp"

#include <gtest/gtest.h>

namespace {

using namespace QMViewsTest;

class FocusRecorder : public QM::ItemObserver {
public:
    void ItemFocusChanged(const QM::FocusChangeEventArg& e) override
    {
        events.push_back("#" + std::to_string(e.source.GetId()) + (e.hasFocus ? " gained" : " lost") +
                         (e.origin == QM::Origin::User ? " by user" : ""));
    }
    std::vector<std::string> events;
};

TEST(QMViewsFocusTest, ClicksAndTypingMoveTheFocusAndTellBothControls)
{
    QM::Dialog dialog;
    QM::SearchEdit search(dialog, QM::Rect(0, 0, 200, 22));
    Table table(dialog, QM::Rect(0, 30, 200, 300));
    QM::Button up(dialog, QM::Rect(210, 0, 234, 22), "Up");
    Provider provider;
    table.SetDataProvider(&provider);
    provider.Replace(Kids(N(1, "Recipes", Kids(N(2, "Soups"))), N(3, "Notes")), table);
    FocusRecorder recorder;
    for (QM::Item* item : std::initializer_list<QM::Item*> {&search, &table, &up})
        item->Attach(recorder);

    table.SetFocus();
    search.SimulateUserType("gr");      // typing focuses the field once
    table.SimulateUserSelectNode(IdOf(3));
    table.SimulateUserExpand(IdOf(1));  // already focused: no event
    up.SimulateUserClick();             // a button click leaves the focus alone
    search.SimulateUserClear();

    EXPECT_EQ(recorder.events, (std::vector<std::string> {"#2 gained", "#2 lost by user", "#1 gained by user",
                                                          "#1 lost by user", "#2 gained by user", "#2 lost by user",
                                                          "#1 gained by user"}));
    EXPECT_EQ(dialog.GetFocusedItem(), &search);
}

TEST(QMViewsDrawTest, TheTableRedrawsOnceWhenTheOutermostBracketEnds)
{
    QM::Dialog dialog;
    Table table(dialog, QM::Rect(0, 0, 200, 300));
    Provider provider;
    table.SetDataProvider(&provider);
    table.DisableDraw();
    table.DisableDraw();
    provider.Replace(Kids(N(1, "Recipes")), table);  // no redraw while drawing is off
    table.EnableDraw();
    EXPECT_EQ(table.GetJournal().GetCount(QM::Op::Redraw), 0u);
    table.EnableDraw();
    EXPECT_EQ(table.GetJournal().GetCount(QM::Op::Redraw), 1u);
    provider.Replace(Kids(N(1, "Recipes"), N(2, "Notes")), table);
    EXPECT_EQ(table.GetJournal().GetCount(QM::Op::Redraw), 2u);
}

}  // namespace
