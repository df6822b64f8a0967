#include "WZSources/CompoundControls/FolderedDataView/WZFolderedDataViewObserver.hpp"

#include "WZSources/CompoundControls/FolderedDataView/WZFolderedDataView.hpp"

namespace WZ::Folderable {

FolderedDataViewObserver::FolderedDataViewObserver(FolderedDataView& dataView) : dataView(&dataView)
{
    dataView.AttachFolderedDataViewObserver(*this);
}

FolderedDataViewObserver::~FolderedDataViewObserver() = default;

void FolderedDataViewObserver::SelectionChanged(const Selection&) {}

}  // namespace WZ::Folderable
