#include "WZSources/CompoundControls/FolderedDataView/WZFDVSelection.hpp"

namespace WZ::Folderable {

bool Selection::operator==(const Selection& other) const
{
    if (items.GetSize() != other.items.GetSize())
        return false;
    for (NK::UIndex i = 0; i < items.GetSize(); ++i)
        if (items[i] != other.items[i])
            return false;
    return true;
}

}  // namespace WZ::Folderable
