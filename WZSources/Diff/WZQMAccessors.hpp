// Thin forwarders over a tree view and over a dialog item, for views that drive their controls
// through a replaceable interface (tests and wrappers derive from them). Both hold a plain
// pointer that may be swapped; with none set, the calls do nothing and the queries give
// empty answers (0, -1, an empty rectangle, false).
#pragma once

#include "QM/QMGeometry.hpp"
#include "QM/QMItem.hpp"
#include "QM/QMTreeView.hpp"

namespace WZ {

class QMTreeViewAccessor {
public:
    explicit QMTreeViewAccessor(QM::TreeView* treeView = nullptr);
    virtual ~QMTreeViewAccessor();

    virtual void BeginItemEdit(int item);
    virtual void DisableDraw();
    virtual void EnableDraw();
    virtual int GetSelectedCount() const;
    // The index-th selected node (from 1); -1 when there is none.
    virtual int GetSelectedItem(int index) const;
    virtual void RedrawItem(int item);
    void SetTreeView(QM::TreeView* newTreeView) noexcept { treeView = newTreeView; }
    QM::TreeView* GetTreeView() const noexcept { return treeView; }

private:
    QM::TreeView* treeView;
};

class QMItemAccessor {
public:
    explicit QMItemAccessor(QM::Item* item = nullptr);
    virtual ~QMItemAccessor();

    virtual QM::Rect GetRect() const;
    virtual void Hide();
    virtual void Show();
    virtual bool IsVisible() const;
    virtual void SetVisibility(bool visible);
    virtual void Move(short x, short y);
    virtual void Resize(short width, short height);
    virtual void MoveAndResize(short x, short y, short width, short height);
    virtual void Redraw() const;
    void SetItem(QM::Item* newItem) noexcept { item = newItem; }
    QM::Item* GetItem() const noexcept { return item; }

private:
    QM::Item* item;
};

}  // namespace WZ
