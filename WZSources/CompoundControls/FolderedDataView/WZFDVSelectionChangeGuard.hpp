// WZ::Folderable::SelectionChangeGuard: turns a burst of selection reports of a foldered data
// view into at most one selection-changed event. While any guard of a data view is alive, the
// view's reports are absorbed. Guards nest: the first (outermost) guard remembers the selection
// when it was taken; inner guards only register with it. When the first guard is released it
// switches the current view's selection handling back on, reads the selection and, if it
// differs from the remembered one, sends one event carrying the final selection. A selection
// that changes and changes back sends nothing; without a current view nothing is sent. Nothing
// that the view or an observer throws during the release leaves the destructor: it is reported,
// and the data view is left without an active guard.
//
// Guards are made by FolderedDataView::CreateSelectionGuard, owned by their maker, and released
// innermost first, all before the data view goes away: releasing the first guard while inner
// guards live, or while another guard is the data view's active one, stops the program.
#pragma once

#include "NK/NKHashTable.hpp"
#include "NK/NKPointers.hpp"
#include "WZSources/CompoundControls/FolderedDataView/WZFDVSelection.hpp"

namespace WZ::Folderable {

class FolderedDataView;

class SelectionChangeGuard {
public:
    class GuardImpl {
    public:
        virtual void RegisterNested(GuardImpl* impl) = 0;
        virtual void UnregisterNested(GuardImpl* impl) = 0;
        virtual ~GuardImpl();
    };

    // The outermost guard: makes itself the data view's active guard, keeps the selection at
    // that moment and the live nested guards; notifies when destroyed.
    class FirstGuardImpl : public GuardImpl {
    public:
        FirstGuardImpl(FolderedDataView& dataView, SelectionChangeGuard& owner);
        FirstGuardImpl(const FirstGuardImpl&) = delete;
        FirstGuardImpl& operator=(const FirstGuardImpl&) = delete;
        ~FirstGuardImpl() override;

        // Registering a guard twice, or unregistering one that is not registered, is reported
        // ("nestedGuards.Add (impl)", "nestedGuards.Delete (impl)") and changes nothing.
        void RegisterNested(GuardImpl* impl) override;
        void UnregisterNested(GuardImpl* impl) override;

        const Selection& GetSelectionBefore() const noexcept { return selectionBefore; }
        NK::UIndex GetNestedGuardCount() const noexcept { return nestedGuards.GetSize(); }

    private:
        FolderedDataView& dataView;
        SelectionChangeGuard& owner;
        Selection selectionBefore;
        NK::HashSet<GuardImpl*> nestedGuards;
    };

    // An inner guard: registered with the first guard while it lives; never notifies.
    class NestedGuardImpl : public GuardImpl {
    public:
        explicit NestedGuardImpl(GuardImpl& first);
        NestedGuardImpl(const NestedGuardImpl&) = delete;
        NestedGuardImpl& operator=(const NestedGuardImpl&) = delete;
        ~NestedGuardImpl() override;

        // Guards are all registered with the first one.
        void RegisterNested(GuardImpl* impl) override;
        void UnregisterNested(GuardImpl* impl) override;

    private:
        GuardImpl* first;
    };

    SelectionChangeGuard(const SelectionChangeGuard&) = delete;
    SelectionChangeGuard& operator=(const SelectionChangeGuard&) = delete;
    ~SelectionChangeGuard();

    bool IsFirst() const noexcept;
    GuardImpl& GetImpl() noexcept { return *impl; }

private:
    friend class FolderedDataView;
    explicit SelectionChangeGuard(FolderedDataView& dataView);

    NK::Owner<GuardImpl> impl;
};

}  // namespace WZ::Folderable
