// WZ::Folderable::FolderedDataViewObserver: hears a foldered data view's selection-changed event,
// which carries the whole new selection. Made with a data view, it attaches itself to it; it can
// also be attached and detached explicitly, and detaches itself when destroyed.
#pragma once

#include "NK/NKEvents.hpp"
#include "WZSources/CompoundControls/FolderedDataView/WZFDVSelection.hpp"

namespace WZ::Folderable {

class FolderedDataView;

class FolderedDataViewObserver : public NK::EventObserver {
public:
    FolderedDataViewObserver() = default;
    explicit FolderedDataViewObserver(FolderedDataView& dataView);
    ~FolderedDataViewObserver() override;

    virtual void SelectionChanged(const Selection& selection);

protected:
    // The data view given at construction; null for an observer attached explicitly.
    FolderedDataView* GetDataView() const noexcept { return dataView; }

private:
    FolderedDataView* dataView = nullptr;
};

}  // namespace WZ::Folderable
