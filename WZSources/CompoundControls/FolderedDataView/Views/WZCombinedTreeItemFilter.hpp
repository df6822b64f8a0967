// WZ::Folderable::Views::CombinedTreeItemFilter: the hierarchical view's filter while a search
// runs over an item filter. It borrows both: the status is the search filter's, except that it
// is Excluded when the search filter excludes the item or when the item filter's status is
// anything but exactly Included.
#pragma once

#include "WZSources/CompoundControls/FolderedDataView/WZTreeItemFactory.hpp"

namespace WZ::Folderable::Views {

class CombinedTreeItemFilter : public TreeItemFactory::Filter {
public:
    // Both filters must outlive this one.
    CombinedTreeItemFilter(const TreeItemFactory::Filter& itemFilter, const TreeItemFactory::SearchFilter& searchFilter);
    ~CombinedTreeItemFilter() override;

    Status GetStatus(const ModelItem& item) const override;

private:
    const TreeItemFactory::Filter& itemFilter;
    const TreeItemFactory::SearchFilter& searchFilter;
};

}  // namespace WZ::Folderable::Views
