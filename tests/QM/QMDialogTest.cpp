#include "NK/NKAssert.hpp"
#include "QM/QMDialog.hpp"
#include "QM/QMItem.hpp"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace {

class RecordingPanelObserver : public QM::PanelObserver {
public:
    void PanelOpened(const QM::PanelOpenEvent& e) override { events.push_back(std::string("open") + Who(e.origin)); }
    void PanelClosed(const QM::PanelCloseEvent& e) override
    {
        events.push_back(std::string(e.accepted ? "ok" : "cancel") + Who(e.origin));
    }
    void PanelResized(const QM::PanelResizeEvent& e) override
    {
        events.push_back("resize " + std::to_string(e.oldWidth) + "x" + std::to_string(e.oldHeight) + "->" +
                         std::to_string(e.newWidth) + "x" + std::to_string(e.newHeight) + Who(e.origin));
    }
    static const char* Who(QM::Origin origin) { return origin == QM::Origin::User ? " by user" : ""; }
    std::vector<std::string> events;
};

class RecordingItemObserver : public QM::ItemObserver {
public:
    void ItemVisibilityChanged(const QM::VisibilityChangeEventArg& e) override
    {
        events.push_back("#" + std::to_string(e.source.GetId()) + (e.isVisible ? " shown" : " hidden"));
    }
    void ItemFocusChanged(const QM::FocusChangeEventArg& e) override
    {
        events.push_back("#" + std::to_string(e.source.GetId()) + (e.hasFocus ? " gained" : " lost") +
                         (e.origin == QM::Origin::User ? " by user" : ""));
    }
    std::vector<std::string> events;
};

class QMDialogTest : public ::testing::Test {
protected:
    QM::Dialog dialog {"Options", 300, 200, QM::Dialog::GrowType::HGrow};
};

TEST_F(QMDialogTest, NumbersItemsFromOneAndNeverReusesNumbers)
{
    QM::Item first(dialog, QM::Rect(0, 0, 10, 10));
    auto second = std::make_unique<QM::Item>(dialog, QM::Rect(0, 20, 10, 30), QM::ItemType::Button);
    EXPECT_EQ(first.GetId(), 1);
    EXPECT_EQ(second->GetId(), 2);
    EXPECT_EQ(dialog.GetItem(2), second.get());
    EXPECT_EQ(second->GetPanel(), &dialog);

    second.reset();
    EXPECT_EQ(dialog.GetItem(2), nullptr);
    QM::Item third(dialog, QM::Rect());
    EXPECT_EQ(third.GetId(), 3);
    EXPECT_EQ(dialog.GetItems(), (NK::Array<QM::Item*> {&first, &third}));
    EXPECT_EQ(dialog.GetItem(0), nullptr);
}

TEST(QMDialogLifetimeTest, ItemsOutlivingTheirDialogLoseTheirPanel)
{
    auto dialog = std::make_unique<QM::Dialog>();
    QM::Item item(*dialog, QM::Rect());
    item.SetFocus();
    dialog.reset();
    EXPECT_EQ(item.GetPanel(), nullptr);
    EXPECT_EQ(item.GetId(), 1);
    EXPECT_FALSE(item.HasFocus());
    NK::AssertCapture capture;
    item.SetFocus();  // no panel to take the focus from
    EXPECT_EQ(capture.GetReports().size(), 1u);
}

TEST_F(QMDialogTest, GeometryVisibilityAndStatus)
{
    QM::Item item(dialog, QM::Rect(10, 10, 60, 30));
    item.Move(20, 5);
    EXPECT_EQ(item.GetRect(), QM::Rect(20, 5, 70, 25));
    item.Resize(100, 40);
    EXPECT_EQ(item.GetRect(), QM::Rect(20, 5, 120, 45));
    item.MoveAndResize(1, 2, 3, 4);
    EXPECT_EQ(item.GetRect(), QM::Rect(1, 2, 4, 6));

    NK::AssertCapture capture;
    item.Resize(-1, 5);
    EXPECT_EQ(item.GetRect(), QM::Rect(1, 2, 4, 6));
    EXPECT_EQ(capture.GetReports().size(), 1u);

    RecordingItemObserver observer;
    item.Attach(observer);
    item.Hide();
    item.Hide();
    EXPECT_FALSE(item.IsVisible());
    item.SetVisibility(true);
    EXPECT_TRUE(item.IsVisible());
    EXPECT_EQ(observer.events, (std::vector<std::string> {"#1 hidden", "#1 shown"}));

    EXPECT_EQ(item.GetJournal().ToString(), "Move=4 Show=3");  // refused and repeated calls count too
}

TEST_F(QMDialogTest, FocusMovesBetweenItemsAndTellsBoth)
{
    QM::Item a(dialog, QM::Rect());
    QM::Item b(dialog, QM::Rect());
    RecordingItemObserver observer;
    a.Attach(observer);
    b.Attach(observer);
    a.SetFocus();
    b.SimulateUserFocus();
    b.SimulateUserFocus();  // already focused: nothing
    EXPECT_TRUE(b.HasFocus());
    EXPECT_FALSE(a.HasFocus());
    EXPECT_EQ(dialog.GetFocusedItem(), &b);
    EXPECT_EQ(observer.events, (std::vector<std::string> {"#1 gained", "#1 lost by user", "#2 gained by user"}));
}

TEST_F(QMDialogTest, OpenCloseAndResizeNotifyObservers)
{
    RecordingPanelObserver observer;
    dialog.Attach(observer);
    dialog.Open();
    dialog.Open();
    EXPECT_TRUE(dialog.IsOpen());
    EXPECT_TRUE(dialog.SimulateUserResize(500, 900));  // grows horizontally only
    EXPECT_FALSE(dialog.SimulateUserResize(500, 50));
    dialog.SetClientSize(250, 100);
    dialog.SimulateUserClose(false);
    EXPECT_FALSE(dialog.IsOpen());
    dialog.SimulateUserOpen();
    dialog.Close();
    EXPECT_EQ(observer.events, (std::vector<std::string> {"open", "resize 300x200->500x200 by user",
                                                          "resize 500x200->250x100", "cancel by user", "open by user",
                                                          "ok"}));
    EXPECT_EQ(dialog.GetClientRect(), QM::Rect(0, 0, 250, 100));
}

}  // namespace
