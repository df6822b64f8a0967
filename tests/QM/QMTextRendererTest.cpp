#include "QM/QMDialog.hpp"
#include "QM/QMListBox.hpp"
#include "QM/QMTabControl.hpp"
#include "QM/QMTextRenderer.hpp"
#include "QM/QMTreeView.hpp"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace {

struct PageRecorder : QM::PanelObserver, QM::TabControlObserver {
    void PanelOpened(const QM::PanelOpenEvent& e) override { events.push_back("open " + Title(e.source)); }
    void PanelClosed(const QM::PanelCloseEvent& e) override { events.push_back("close " + Title(e.source)); }
    void ActiveTabChanged(const QM::TabChangeEvent& e) override
    {
        events.push_back("tab " + std::to_string(e.oldIndex) + "->" + std::to_string(e.newIndex) +
                         (e.origin == QM::Origin::User ? " by user" : ""));
    }
    static std::string Title(const QM::Panel& panel)
    {
        return dynamic_cast<const QM::TabPage&>(panel).GetTitle().ToUtf8();
    }
    std::vector<std::string> events;
};

TEST(QMTextRendererTest, PrintsADialogWithItsVisibleControls)
{
    QM::Dialog dialog("Files", 400, 300);
    QM::ListBox list(dialog, QM::Rect(0, 0, 200, 100));
    list.SetTabFieldCount(2);
    short row = list.InsertItem(QM::ListBox::LastPosition);
    list.SetTabItemText(row, 1, "readme.txt");
    list.SetTabItemText(row, 2, "2 KB");
    list.InsertSeparator(QM::ListBox::LastPosition);
    list.SelectItem(row);
    QM::Item hidden(dialog, QM::Rect(0, 0, 1, 1), QM::ItemType::Button);
    hidden.Hide();
    QM::TreeView tree(dialog, QM::Rect(200, 0, 400, 300));
    int folder = tree.AppendItem(0);
    tree.SetItemText(folder, "src");
    tree.SetItemText(tree.AppendItem(folder), "main.cpp");
    tree.ExpandItem(folder);
    QM::Item button(dialog, QM::Rect(300, 270, 390, 295), QM::ItemType::Button);
    button.SetText("Close");
    button.Disable();
    dialog.Open();

    EXPECT_EQ(QM::TextRenderer::Join(QM::TextRenderer::RenderPanel(dialog)),
              "Dialog \"Files\" 400x300 open\n"
              "  #1 ListBox (0, 0, 200, 100)\n"
              "    * readme.txt | 2 KB\n"
              "      ----------\n"
              "  #3 TreeView (200, 0, 400, 300)\n"
              "      [-] src\n"
              "            main.cpp\n"
              "  #4 Button \"Close\" (300, 270, 390, 295) disabled\n");

    EXPECT_EQ(QM::TextRenderer::RenderItem(hidden), (NK::Array<std::string> {"#2 Button (0, 0, 1, 1) hidden"}));
}

TEST(QMTabControlTest, ShowsOnePageAtATimeAndTellsPagesAndObservers)
{
    QM::Dialog dialog("Settings", 300, 200);
    QM::TabControl tabs(dialog, QM::Rect(0, 0, 300, 200));
    PageRecorder recorder;
    tabs.Attach(recorder);
    QM::TabPage general(tabs, "General");
    auto advanced = std::make_unique<QM::TabPage>(tabs, "Advanced");
    QM::TabPage about(tabs, "About");
    for (QM::TabPage* page : {&general, advanced.get(), &about})
        page->Attach(recorder);
    QM::Item option(*advanced, QM::Rect(5, 5, 100, 20), QM::ItemType::Button);
    option.SetText("Expert mode");

    EXPECT_EQ(tabs.GetActiveTabPage(), &general);
    EXPECT_FALSE(advanced->IsOpen());
    tabs.SimulateUserSelectTab(2);
    EXPECT_EQ(QM::TextRenderer::RenderItem(tabs),
              (NK::Array<std::string> {"#1 TabControl (0, 0, 300, 200)", "    [General]", "  * [Advanced]",
                                       "      #1 Button \"Expert mode\" (5, 5, 100, 20)", "    [About]"}));

    advanced.reset();  // the active page goes: the page now second becomes active
    EXPECT_EQ(tabs.GetActiveTabPage(), &about);
    EXPECT_EQ(option.GetPanel(), nullptr);
    tabs.SetActiveTab(1);
    EXPECT_EQ(recorder.events,
              (std::vector<std::string> {"tab 0->1", "close General", "open Advanced", "tab 1->2 by user", "open About", "tab 0->2",
                                         "close About", "open General", "tab 2->1"}));
}

}  // namespace
