// WZ::UntypedTreeView binds a tree view to a decorator and a smart updater, which it owns; the
// typed face WZ::TreeView<Item, Decorator> adds operations that speak of the client's own item
// and decorator types. Setup binds once: a second Setup reports that the tree view, decorator
// and updater were already set, then removes the nodes of the old updater (which frees the
// items it owns) and replaces the decorator and the updater.
#pragma once

#include "NK/NKArray.hpp"
#include "NK/NKGuid.hpp"
#include "NK/NKPointers.hpp"
#include "QM/QMTreeView.hpp"
#include "WZSources/Diff/WZSmartTreeViewUpdater.hpp"
#include "WZSources/Diff/WZTreeViewDecorator.hpp"

#include <utility>

namespace WZ {

class UntypedTreeView {
public:
    UntypedTreeView();
    UntypedTreeView(const UntypedTreeView&) = delete;
    UntypedTreeView& operator=(const UntypedTreeView&) = delete;
    virtual ~UntypedTreeView();

    void Setup(QM::TreeView& treeView, NK::Owner<UntypedTreeViewDecorator> decorator,
               NK::Owner<SmartTreeViewUpdater::ItemDeallocator> deallocator);

    // Null before Setup.
    SmartTreeViewUpdater* GetUpdater() const noexcept { return updater.Get(); }
    QM::TreeView* GetTreeView() const noexcept { return treeView; }

protected:
    UntypedTreeViewDecorator* GetUntypedDecorator() const noexcept { return decorator.Get(); }

private:
    QM::TreeView* treeView = nullptr;
    NK::Owner<SmartTreeViewUpdater> updater;
    NK::Owner<UntypedTreeViewDecorator> decorator;
};

template <typename Item, typename Decorator>
class TreeView : public UntypedTreeView {
public:
    using ItemDeallocator = SmartTreeViewUpdater::ItemDeallocator;

    // The shown item of the id or node; null when there is none.
    const Item* GetItem(const NK::Guid& id) const { return Cast(GetUpdater()->GetTreeViewItem(id)); }
    const Item* GetItem(int treeItem) const { return Cast(GetUpdater()->GetTreeViewItem(treeItem)); }

    NK::Array<const Item*> GetRootItems() const { return CastAll(GetUpdater()->GetRootItems()); }
    NK::Array<const Item*> GetSelectedItems() { return CastAll(GetUpdater()->GetSelectedItems()); }

    SmartTreeViewUpdater::UpdateResult SetRootItems(NK::Array<const Item*>&& roots)
    {
        NK::Array<const TreeDiffable*> untyped;
        untyped.SetCapacity(roots.GetSize());
        for (const Item* root : roots)
            untyped.Push(root);
        roots.Clear();
        return GetUpdater()->SetRootItems(std::move(untyped));
    }

    Decorator* GetDecorator() const noexcept { return static_cast<Decorator*>(GetUntypedDecorator()); }

protected:
    virtual void Setup(QM::TreeView& treeView, NK::Owner<Decorator> decorator, NK::Owner<ItemDeallocator> deallocator)
    {
        UntypedTreeView::Setup(treeView, NK::Owner<UntypedTreeViewDecorator>(std::move(decorator)),
                               std::move(deallocator));
    }

private:
    static const Item* Cast(const TreeDiffable* item) { return static_cast<const Item*>(item); }
    static NK::Array<const Item*> CastAll(const NK::Array<const TreeDiffable*>& items)
    {
        NK::Array<const Item*> typed;
        typed.SetCapacity(items.GetSize());
        for (const TreeDiffable* item : items)
            typed.Push(Cast(item));
        return typed;
    }
};

}  // namespace WZ
