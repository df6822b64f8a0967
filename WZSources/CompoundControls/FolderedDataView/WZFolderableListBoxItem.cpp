#include "WZSources/CompoundControls/FolderedDataView/WZFolderableListBoxItem.hpp"

namespace WZ::Folderable {

ListBoxItem::ListBoxItem(const NK::Guid& id) : id(id) {}

ListBoxItem::~ListBoxItem() = default;

NK::Guid ListBoxItem::GetId() const
{
    return id;
}

bool ListBoxItem::IsSeparator() const
{
    return false;
}

}  // namespace WZ::Folderable
