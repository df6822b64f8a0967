#define NK_SOURCE_PATH "WZSources\\Diff\\TreeView\\WZTreeView"

#include "WZSources/Diff/TreeView/WZTreeView.hpp"

#include "NK/NKAssert.hpp"

namespace WZ {

UntypedTreeView::UntypedTreeView() = default;

UntypedTreeView::~UntypedTreeView() = default;

void UntypedTreeView::Setup(QM::TreeView& treeView, NK::Owner<UntypedTreeViewDecorator> decorator,
                            NK::Owner<SmartTreeViewUpdater::ItemDeallocator> deallocator)
{
    NK_PRECOND_TEXT(this->treeView == nullptr, "this->treeView == nullptr");
    NK_PRECOND_TEXT(this->decorator == nullptr, "this->decorator == nullptr");
    NK_PRECOND_TEXT(updater == nullptr, "updater == nullptr");
    if (!NK_PRECOND(decorator != nullptr))
        return;

    // The new updater is made before the old one goes, which still refers to the old decorator.
    auto newUpdater = NK::NewOwned<SmartTreeViewUpdater>(treeView, *decorator, std::move(deallocator));
    this->treeView = &treeView;
    updater = std::move(newUpdater);
    this->decorator = std::move(decorator);
}

}  // namespace WZ
