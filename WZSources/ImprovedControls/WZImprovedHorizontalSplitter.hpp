// WZ::ImprovedHorizontalSplitter: a toolkit splitter bar that divides an area horizontally (a
// vertical bar with panes left and right of it) and keeps the dialog items added to it attached
// to the bar. When the bar moves, by a user's drag or by the program, every item of the left
// pane keeps its left edge and its right edge moves with the bar; every item of the right pane
// keeps its right edge and its left edge moves with the bar. The distance between an item and
// the bar therefore stays what it was when the item was added (or last placed by its host); an
// item is never made narrower than nothing: its moving edge stops at its fixed edge.
//
// An item is added to the pane on whose side of the bar its centre lies, or to a pane named
// explicitly. The splitter and the items are borrowed: they must outlive this object, or the
// items be removed first (dialog items live as long as their dialog, as the components do).
#pragma once

#include "NK/NKArray.hpp"
#include "QM/QMSplitter.hpp"

namespace WZ {

class ImprovedHorizontalSplitter : protected QM::SplitterObserver {
public:
    enum class Pane { Left, Right };

    // The splitter must have a vertical bar ("splitter.GetOrientation () == Vertical" is
    // reported otherwise, and the bar's moves are then not followed).
    explicit ImprovedHorizontalSplitter(QM::Splitter& splitter);
    ImprovedHorizontalSplitter(const ImprovedHorizontalSplitter&) = delete;
    ImprovedHorizontalSplitter& operator=(const ImprovedHorizontalSplitter&) = delete;
    ~ImprovedHorizontalSplitter() override;

    // Adds the item to the pane on its centre's side of the bar. Adding an item that is in a
    // pane already moves it to the new pane.
    void AddItem(QM::Item& item);
    void AddItem(QM::Item& item, Pane pane);
    // Nothing for an item that was not added.
    void RemoveItem(QM::Item& item);

    QM::Splitter& GetSplitter() const noexcept { return splitter; }
    const NK::Array<QM::Item*>& GetItems(Pane pane) const noexcept { return pane == Pane::Left ? leftItems : rightItems; }

private:
    void SplitterMoved(const QM::SplitterMoveEvent& event) override;

    QM::Splitter& splitter;
    bool following;  // the bar is vertical: its moves are followed
    NK::Array<QM::Item*> leftItems;
    NK::Array<QM::Item*> rightItems;
};

}  // namespace WZ
