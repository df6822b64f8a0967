#include "WZSources/CompoundControls/FolderedDataView/Views/WZCombinedTreeItemFilter.hpp"

namespace WZ::Folderable::Views {

CombinedTreeItemFilter::CombinedTreeItemFilter(const TreeItemFactory::Filter& itemFilter,
                                               const TreeItemFactory::SearchFilter& searchFilter)
    : itemFilter(itemFilter), searchFilter(searchFilter)
{
}

CombinedTreeItemFilter::~CombinedTreeItemFilter() = default;

CombinedTreeItemFilter::Status CombinedTreeItemFilter::GetStatus(const ModelItem& item) const
{
    // The item filter is asked first: it is usually the cheaper of the two, and an item it
    // rejects needs no search.
    if (itemFilter.GetStatus(item) != Status::Included)
        return Status::Excluded;
    return searchFilter.GetStatus(item);
}

}  // namespace WZ::Folderable::Views
