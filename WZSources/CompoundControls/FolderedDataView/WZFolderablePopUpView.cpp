#define NK_SOURCE_PATH "WZSources\\CompoundControls\\FolderedDataView\\WZFolderablePopUpView"
#include "WZSources/CompoundControls/FolderedDataView/WZFolderablePopUpView.hpp"

#include "NK/NKAssert.hpp"
#include "WZSources/WZLoggedAssert.hpp"

#include <algorithm>

namespace WZ::Folderable {

namespace {

constexpr const char* LogFile = "WZFolderablePopUpView";

}  // namespace

PopUpViewDelegate::~PopUpViewDelegate() = default;

PopUpView::PopUpView(QM::PopUpControl& control) : control(control)
{
    control.Attach(*this);
}

PopUpView::~PopUpView()
{
    control.Detach(*this);
}

void PopUpView::SetItems(NK::Array<NK::Owner<PopUpItem>> newItems)
{
    writing = true;
    // Entries that stay as they were are not written again: walking up and down a path changes
    // only its end.
    const short common = static_cast<short>(std::min(items.GetSize(), newItems.GetSize()));
    short kept = 0;
    while (kept < common && items[kept]->GetText() == newItems[kept]->GetText() &&
           items[kept]->GetIcon() == newItems[kept]->GetIcon())
        ++kept;
    for (short entry = control.GetItemCount(); entry > kept; --entry)
        control.DeleteItem(entry);
    for (NK::UIndex i = static_cast<NK::UIndex>(kept); i < newItems.GetSize(); ++i)
        control.AppendItem(newItems[i]->GetText(), newItems[i]->GetIcon());
    items = std::move(newItems);
    control.SelectItem(control.GetItemCount());
    writing = false;
}

const PopUpItem* PopUpView::GetSelectedItem() const
{
    const short entry = control.GetSelectedItem();
    if (entry < 1 || static_cast<NK::UIndex>(entry) > items.GetSize())
        return nullptr;
    return items[static_cast<NK::UIndex>(entry) - 1].Get();
}

void PopUpView::SelectionChanged(const QM::PopUpSelectionEvent& event)
{
    if (writing || event.entry == 0)
        return;
    if (!NK_PRECOND_TEXT(static_cast<NK::UIndex>(event.entry) <= items.GetSize(),
                         "event.entry <= items.GetSize ()")) {
        LogAssertError(LogFile, __LINE__);
        return;
    }
    if (!NK_PRECOND_TEXT(delegate != nullptr, "delegate != nullptr")) {
        LogAssertWarning(LogFile, __LINE__);
        return;
    }
    delegate->PopUpViewSelectionChanged(*items[static_cast<NK::UIndex>(event.entry) - 1]);
}

}  // namespace WZ::Folderable
