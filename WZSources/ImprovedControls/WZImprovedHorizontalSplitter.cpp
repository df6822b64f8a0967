#define NK_SOURCE_PATH "WZSources\\ImprovedControls\\WZImprovedHorizontalSplitter"
#include "WZSources/ImprovedControls/WZImprovedHorizontalSplitter.hpp"

#include "NK/NKAssert.hpp"

#include <algorithm>
#include <initializer_list>

namespace WZ {

ImprovedHorizontalSplitter::ImprovedHorizontalSplitter(QM::Splitter& splitter)
    : splitter(splitter),
      following(NK_PRECOND_TEXT(splitter.GetOrientation() == QM::Splitter::Orientation::Vertical,
                                "splitter.GetOrientation () == Vertical"))
{
    if (following)
        splitter.Attach(static_cast<QM::SplitterObserver&>(*this));
}

ImprovedHorizontalSplitter::~ImprovedHorizontalSplitter()
{
    if (following)
        splitter.Detach(static_cast<QM::SplitterObserver&>(*this));
}

void ImprovedHorizontalSplitter::AddItem(QM::Item& item)
{
    const QM::Rect rect = item.GetRect();
    const QM::Rect bar = splitter.GetRect();
    const bool leftOfBar = rect.GetLeft() + rect.GetRight() < bar.GetLeft() + bar.GetRight();
    AddItem(item, leftOfBar ? Pane::Left : Pane::Right);
}

void ImprovedHorizontalSplitter::AddItem(QM::Item& item, Pane pane)
{
    RemoveItem(item);
    (pane == Pane::Left ? leftItems : rightItems).Push(&item);
}

void ImprovedHorizontalSplitter::RemoveItem(QM::Item& item)
{
    for (NK::Array<QM::Item*>* items : {&leftItems, &rightItems}) {
        const NK::UIndex index = items->FindFirst(&item);
        if (index != NK::MaxUIndex)
            items->Delete(index);
    }
}

void ImprovedHorizontalSplitter::SplitterMoved(const QM::SplitterMoveEvent& event)
{
    // Computed in int: a drag across the whole coordinate range must not wrap.
    const int delta = event.newPosition - event.oldPosition;
    for (QM::Item* item : leftItems) {
        const QM::Rect rect = item->GetRect();
        const int right = std::clamp<int>(rect.GetRight() + delta, rect.GetLeft(), 0x7FFF);
        item->Resize(static_cast<short>(right - rect.GetLeft()), rect.GetHeight());
    }
    for (QM::Item* item : rightItems) {
        const QM::Rect rect = item->GetRect();
        const int left = std::clamp<int>(rect.GetLeft() + delta, -0x8000, rect.GetRight());
        item->MoveAndResize(static_cast<short>(left), rect.GetTop(), static_cast<short>(rect.GetRight() - left),
                            rect.GetHeight());
    }
}

}  // namespace WZ
