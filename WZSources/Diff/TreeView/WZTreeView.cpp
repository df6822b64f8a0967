#define NK_SOURCE_PATH "WZSources\\Diff\\TreeView\\WZTreeView"

#include "WZSources/Diff/TreeView/WZTreeView.hpp"

#include "NK/NKAssert.hpp"

namespace WZ {

UntypedTreeView::UntypedTreeView() = default;

UntypedTreeView::~UntypedTreeView() = default;

namespace {

// A second Setup is reported on the lines 350 to 352 of this source, the lines its reports have
// always carried, whatever the layout of the file.
void ReportAlreadySet(bool unset, int line, const char* expression)
{
    if (!unset)
        NK::AssertImpl::AssertFailed({NK_SOURCE_PATH, "WZ::UntypedTreeView::Setup", line},
                                     NK::AssertImpl::GetPrecondData(), expression);
}

}  // namespace

void UntypedTreeView::Setup(QM::TreeView& treeView, NK::Owner<UntypedTreeViewDecorator> decorator,
                            NK::Owner<SmartTreeViewUpdater::ItemDeallocator> deallocator)
{
    ReportAlreadySet(this->treeView == nullptr, 350, "this->treeView == nullptr");
    ReportAlreadySet(this->decorator == nullptr, 351, "this->decorator == nullptr");
    ReportAlreadySet(updater == nullptr, 352, "updater == nullptr");
    if (!NK_PRECOND(decorator != nullptr))
        return;

    // The new updater is made before the old one goes, which still refers to the old decorator.
    // The old updater's nodes go before it frees their items, so no node keeps a record of a
    // freed item.
    auto newUpdater = NK::NewOwned<SmartTreeViewUpdater>(treeView, *decorator, std::move(deallocator));
    if (updater)
        updater->SetRootItems({});
    this->treeView = &treeView;
    updater = std::move(newUpdater);
    this->decorator = std::move(decorator);
}

}  // namespace WZ
