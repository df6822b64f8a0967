// Button, pop-up control and splitter.
#include "NK/NKAssert.hpp"
#include "QM/QMButton.hpp"
#include "QM/QMDialog.hpp"
#include "QM/QMPopUpControl.hpp"
#include "QM/QMSplitter.hpp"
#include "QM/QMTextRenderer.hpp"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using Events = std::vector<std::string>;

const char* By(QM::Origin origin)
{
    return origin == QM::Origin::User ? " by user" : "";
}

class Recorder : public QM::ButtonObserver, public QM::PopUpControlObserver, public QM::SplitterObserver {
public:
    void ButtonClicked(const QM::ButtonClickEvent& e) override { events.push_back("click " + e.GetSource()->GetText().ToUtf8() + By(e.origin)); }
    void SelectionChanged(const QM::PopUpSelectionEvent& e) override { events.push_back("chose " + std::to_string(e.entry) + By(e.origin)); }
    void SplitterMoved(const QM::SplitterMoveEvent& e) override
    {
        events.push_back("moved " + std::to_string(e.oldPosition) + "->" + std::to_string(e.newPosition) + By(e.origin));
    }
    Events events;
};

std::string Render(const QM::Item& item)
{
    return QM::TextRenderer::Join(QM::TextRenderer::RenderItem(item));
}

class ControlsTest : public ::testing::Test {
protected:
    QM::Dialog dialog;
    Recorder recorder;
};

TEST_F(ControlsTest, AButtonClickReachesObserversOnlyWhenTheButtonCanBeClicked)
{
    QM::Button up(dialog, QM::Rect(0, 0, 24, 24), "Up");
    QM::Item list(dialog, QM::Rect());
    up.Attach(recorder);
    list.SetFocus();

    EXPECT_TRUE(up.SimulateUserClick());
    EXPECT_TRUE(list.HasFocus());  // a click leaves the focus where it was
    up.Disable();
    EXPECT_FALSE(up.SimulateUserClick() || up.Click());
    up.Enable(), up.Hide();
    EXPECT_FALSE(up.SimulateUserClick());
    up.Show();
    EXPECT_TRUE(up.Click());
    EXPECT_EQ(recorder.events, (Events {"click Up by user", "click Up"}));

    up.SetIcon(QM::Icon(2, 40));
    EXPECT_EQ(Render(up), "#1 Button \"Up\" (0, 0, 24, 24)\n  [icon(2:40)]\n");
}

TEST_F(ControlsTest, APopUpChoiceFollowsItsEntryAndIsNotifiedOnEveryChange)
{
    QM::PopUpControl path(dialog, QM::Rect(0, 0, 200, 22));
    path.Attach(recorder);
    path.AppendItem("Music");
    path.AppendItem("Albums", QM::Icon(1, 3));
    path.SelectItem(2);
    path.InsertItem(1, "Root");  // the choice moves with its entry, silently
    EXPECT_EQ(path.GetSelectedItem(), 3);
    path.DeleteItem(1);
    EXPECT_EQ(path.GetSelectedItem(), 2);
    EXPECT_TRUE(path.SimulateUserSelect(1));
    EXPECT_TRUE(path.SimulateUserSelect(1));  // the same entry: nothing changes
    EXPECT_EQ(Render(path), "#1 PopUpControl (0, 0, 200, 22)\n  * Music\n    [icon(1:3)] Albums\n");
    path.DeleteItem(1);  // the chosen entry goes: nothing is chosen
    EXPECT_EQ(path.GetSelectedItem(), 0);
    EXPECT_EQ(recorder.events, (Events {"chose 2", "chose 1 by user", "chose 0"}));

    NK::AssertCapture capture;
    EXPECT_EQ(path.InsertItem(5, "Far"), 0);
    path.SelectItem(9);
    path.SetItemText(0, "None");
    EXPECT_EQ(capture.GetReports().size(), 3u);
    EXPECT_EQ(path.GetItemCount(), 1);
    EXPECT_EQ(path.GetItemText(1), NK::UniString("Albums"));

    path.Disable();
    EXPECT_FALSE(path.SimulateUserSelect(1));
}

TEST_F(ControlsTest, ASplitterDragStopsAtItsLimits)
{
    QM::Splitter bar(dialog, QM::Rect(150, 0, 154, 300));
    bar.Attach(recorder);
    bar.SetLimits(80, 260);

    for (const auto& [delta, position] : {std::pair {-200, 80}, {500, 260}, {0, 260}})  // 0: let go where it was
        EXPECT_EQ(bar.SimulateUserDrag(delta), position) << delta;
    bar.SetPosition(100);

    NK::AssertCapture capture;
    bar.SetPosition(300);
    bar.SetLimits(200, 100);
    EXPECT_EQ(capture.GetExpressions(), (Events {"position >= minimum && position <= maximum", "newMinimum <= newMaximum"}));
    EXPECT_EQ(bar.GetPosition(), 100);

    bar.SetLimits(120, 200);  // narrowed past the bar: it moves to the nearest limit
    EXPECT_EQ(bar.GetPosition(), 120);
    EXPECT_EQ(recorder.events, (Events {"moved 150->80 by user", "moved 80->260 by user", "moved 260->100",
                                        "moved 100->120"}));
    EXPECT_EQ(Render(bar), "#1 Splitter (120, 0, 124, 300)\n  vertical at 120 in [120, 200]\n");

    bar.Disable();
    EXPECT_EQ(bar.SimulateUserDrag(50), 120);

    QM::Splitter across(dialog, QM::Rect(0, 100, 400, 104), QM::Splitter::Orientation::Horizontal);
    across.SetLimits(40, 250);
    across.SimulateUserDrag(30);
    EXPECT_EQ(Render(across), "#2 Splitter (0, 130, 400, 134)\n  horizontal at 130 in [40, 250]\n");
}

}  // namespace
