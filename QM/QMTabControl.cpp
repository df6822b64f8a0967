#include "QM/QMTabControl.hpp"

#include "QM/QMTextRenderer.hpp"

#define NK_SOURCE_PATH "QM\\QMTabControl"
#include "NK/NKAssert.hpp"

#include <algorithm>

namespace QM {

TabControl::TabControl(const Panel& panel, const Rect& rect) : Item(panel, rect, ItemType::TabControl) {}

TabControl::~TabControl()
{
    for (TabPage* page : pages)
        page->owner = nullptr;
}

TabPage* TabControl::GetTabPage(short index) const noexcept
{
    if (index < 1 || static_cast<std::size_t>(index) > pages.size())
        return nullptr;
    return pages[static_cast<std::size_t>(index) - 1];
}

short TabControl::GetTabIndex(const TabPage& page) const noexcept
{
    auto it = std::find(pages.begin(), pages.end(), &page);
    return it == pages.end() ? 0 : static_cast<short>(it - pages.begin() + 1);
}

void TabControl::AddPage(TabPage& page)
{
    pages.push_back(&page);
    if (activeIndex == 0)
        ChangeActiveTab(1, Origin::Program);
}

void TabControl::RemovePage(TabPage& page)
{
    short index = GetTabIndex(page);
    if (index == 0)
        return;
    pages.erase(pages.begin() + (index - 1));
    if (index < activeIndex) {
        --activeIndex;  // the same page stays active under its new number
    } else if (index == activeIndex) {
        activeIndex = 0;
        if (!pages.empty())
            ChangeActiveTab(std::min<short>(index, GetTabCount()), Origin::Program);
    }
}

void TabControl::ChangeActiveTab(short index, Origin origin)
{
    Record(Op::Select);
    if (!NK_PRECOND(index >= 1 && index <= GetTabCount()) || index == activeIndex)
        return;
    short oldIndex = activeIndex;
    if (TabPage* old = GetActiveTabPage())
        old->ChangeOpenState(false, true, origin);
    activeIndex = index;
    GetActiveTabPage()->ChangeOpenState(true, true, origin);
    TabChangeEvent event {*this, oldIndex, index, origin};
    NotifyAll<TabControlObserver>([&](TabControlObserver& o) { o.ActiveTabChanged(event); });
}

void TabControl::RenderContent(NK::Array<std::string>& lines, const std::string& indent) const
{
    for (short index = 1; index <= GetTabCount(); ++index) {
        const TabPage& page = *GetTabPage(index);
        lines.Push(indent + (index == activeIndex ? "* " : "  ") + "[" + page.GetTitle().ToUtf8() + "]");
        if (index == activeIndex)
            TextRenderer::AppendPanelItems(page, lines, indent + "    ");
    }
}

TabPage::TabPage(TabControl& owner, const NK::UniString& title)
    : Panel(owner.GetRect().GetWidth(), owner.GetRect().GetHeight()), owner(&owner), title(title)
{
    owner.AddPage(*this);
}

TabPage::~TabPage()
{
    if (owner != nullptr)
        owner->RemovePage(*this);
}

std::string TabPage::GetHeading() const
{
    return "TabPage \"" + title.ToUtf8() + "\" " + std::to_string(GetClientWidth()) + "x" +
           std::to_string(GetClientHeight()) + (IsOpen() ? " open" : " closed");
}

}  // namespace QM
