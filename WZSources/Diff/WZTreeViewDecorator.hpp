// Decorators write a tree node's look for its item. The updater calls the untyped interface;
// clients derive from TreeViewDecorator<Item> and write only the typed Decorate, which receives
// the node through a TreeNodeAccessor and the item already cast to Item (unchecked: a decorator
// is only ever given the items of its own tree).
#pragma once

#include "QM/QMTreeView.hpp"
#include "WZSources/Diff/WZDiffable.hpp"
#include "WZSources/Diff/WZTreeNodeAccessor.hpp"

namespace WZ {

class UntypedTreeViewDecorator {
public:
    virtual void Decorate(QM::TreeView& treeView, int treeItem, const TreeDiffable& item) = 0;
    virtual ~UntypedTreeViewDecorator();
};

template <typename Item>
class TreeViewDecorator : public UntypedTreeViewDecorator {
public:
    virtual void Decorate(TreeNodeAccessor& node, const Item& item) = 0;

private:
    void Decorate(QM::TreeView& treeView, int treeItem, const TreeDiffable& item) final
    {
        TreeNodeAccessor node(treeView, treeItem);
        Decorate(node, static_cast<const Item&>(item));
    }
};

}  // namespace WZ
