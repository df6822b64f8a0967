// QM::TabControl and QM::TabPage: a control that shows one of its pages at a time. A page is a
// panel (its items are created on it and numbered within it) that the host creates on the tab
// control; pages are numbered from 1 in the order of creation and borrowed, not owned: a page
// leaves its control when destroyed, and outlives a destroyed control without one.
// The first page becomes active when created. The active page is open and every other page is
// closed, so page observers hear PanelOpened/PanelClosed as the user switches tabs; observers
// of the control hear ActiveTabChanged, with the origin of the switch.
#pragma once

#include "NK/NKArray.hpp"
#include "NK/NKUniString.hpp"
#include "QM/QMItem.hpp"
#include "QM/QMPanel.hpp"

#include <vector>

namespace QM {

class TabControl;
class TabPage;

struct TabChangeEvent {
    const TabControl& source;
    short oldIndex;  // 0 when no page was active
    short newIndex;
    Origin origin;
};

class TabControlObserver : public virtual NK::EventObserver {
public:
    virtual void ActiveTabChanged(const TabChangeEvent&) {}
};

class TabControl : public Item {
public:
    TabControl(const Panel& panel, const Rect& rect);
    ~TabControl() override;

    short GetTabCount() const noexcept { return static_cast<short>(pages.size()); }
    // The page with that number (from 1); null when out of range.
    TabPage* GetTabPage(short index) const noexcept;
    short GetTabIndex(const TabPage& page) const noexcept;
    // 0 when the control has no page.
    short GetActiveTabIndex() const noexcept { return activeIndex; }
    TabPage* GetActiveTabPage() const noexcept { return GetTabPage(activeIndex); }

    void SetActiveTab(short index) { ChangeActiveTab(index, Origin::Program); }
    void SimulateUserSelectTab(short index) { ChangeActiveTab(index, Origin::User); }

protected:
    void RenderContent(NK::Array<std::string>& lines, const std::string& indent) const override;

private:
    friend class TabPage;
    void AddPage(TabPage& page);
    void RemovePage(TabPage& page);
    void ChangeActiveTab(short index, Origin origin);

    std::vector<TabPage*> pages;
    short activeIndex = 0;
};

class TabPage : public Panel {
public:
    TabPage(TabControl& owner, const NK::UniString& title);
    ~TabPage() override;

    // The control the page lives on; null once it is gone.
    TabControl* GetTabControl() const noexcept { return owner; }
    NK::UniString GetTitle() const { return title; }
    void SetTitle(const NK::UniString& newTitle) { title = newTitle; }

    std::string GetHeading() const override;

private:
    friend class TabControl;
    TabControl* owner;
    NK::UniString title;
};

// A page with no behaviour of its own beyond holding items.
using SimpleTab = TabPage;

}  // namespace QM
