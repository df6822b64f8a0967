// WZ::LayoutBase: the row layout of a columned list box view. It owns the column manager and the
// decorators that fill the rows' cells, sets the list box up from the columns, lays the columns
// out over the list box's width (DoLayout), and writes a row's cells for its item (DecorateRow,
// called by the smart list box updater).
#pragma once

#include "WZSources/ColumnModel/WZColumnManagerBase.hpp"
#include "WZSources/Diff/WZListBoxDecorator.hpp"

namespace WZ {

class LayoutBase : public ListBoxDecorator {
public:
    LayoutBase() = default;
    LayoutBase(const LayoutBase&) = delete;
    LayoutBase& operator=(const LayoutBase&) = delete;
    ~LayoutBase() override;

    virtual ColumnManagerBase& GetBaseColumnManager() = 0;
    const ColumnManagerBase& GetBaseColumnManager() const { return const_cast<LayoutBase*>(this)->GetBaseColumnManager(); }

    // Configures the list box's header and tab fields from the columns.
    virtual void SetupListBox(QM::ListBox& listBox);
    // Shares the list box's width among the visible columns and lays the tab fields out.
    virtual void DoLayout(QM::ListBox& listBox);
};

}  // namespace WZ
