// ColumnManagerBase: the columns of a list box, described once and kept in step with the
// toolkit list box.
//
// The manager owns its header descriptors and column descriptors. Columns are kept in header
// order (every header's columns together, headers in their order; columns under no header
// last), which is the order of the tab fields: visible column i is tab field i.
//
//   Setup         configures the list box: separator lines, header flags and items, tab fields
//                 (one per visible column) with their text flags, the header button.
//   UpdateHeaders rewrites the header items' look alone.
//   Resize        shares the list box's item width among the visible columns in whole pixels,
//                 tiles the tab fields from 0 without gaps and sizes the header items to their
//                 columns. Resize(listBox, true) first reads the current tab field widths back
//                 into the columns (so a user's sizing is kept in proportion);
//                 Resize(listBox, keep) does so for every tab field but those in `keep`.
//   HeaderResized after the user dragged a header divider: every visible header's columns share
//                 that header item's current size, and the tab fields are tiled again; the
//                 header items stay as the user left them, unless together they no longer fit
//                 the list box: then the items right of the dragged one, and last the dragged
//                 one, give the excess back (each down to its minimum).
#pragma once

#include "NK/NKArray.hpp"
#include "NK/NKPointers.hpp"
#include "QM/QMGeometry.hpp"
#include "QM/QMIcon.hpp"
#include "WZSources/ColumnModel/WZColumnDescriptorBase.hpp"
#include "WZSources/ColumnModel/WZHeaderDescriptorBase.hpp"

#include <set>

namespace QM {
class ListBox;
}

namespace WZ {

class UntypedListBoxView;

class ColumnManagerBase {
public:
    ColumnManagerBase();
    ColumnManagerBase(const ColumnManagerBase&) = delete;
    ColumnManagerBase& operator=(const ColumnManagerBase&) = delete;
    virtual ~ColumnManagerBase();

    void SetSeparatorLines(bool enable) noexcept { separatorLines = enable; }
    bool HasSeparatorLines() const noexcept { return separatorLines; }
    void SetPushableHeaderButtons(bool pushable) noexcept { pushableHeaderButtons = pushable; }
    bool HasPushableHeaderButtons() const noexcept { return pushableHeaderButtons; }
    void SetDraggableHeaderButtons(bool draggable) noexcept { draggableHeaderButtons = draggable; }
    bool HasDraggableHeaderButtons() const noexcept { return draggableHeaderButtons; }

    void SetHeaderButtonIcon(const QM::Icon& icon) { headerButtonIcon = icon; }
    // The toolkit's column-settings icon: icon 17 of its shared module.
    void SetHeaderButtonIconToDefault();
    const NK::Optional<QM::Icon>& GetHeaderButtonIcon() const noexcept { return headerButtonIcon; }
    // Where the header button sits (its top left corner), e.g. to open its menu below it.
    QM::Point GetHeaderButtonPosition(const QM::ListBox& listBox) const;

    NK::Array<HeaderDescriptorBase*> GetAllBaseHeaders() const;
    NK::Array<ColumnDescriptorBase*> GetAllBaseColumns() const;
    NK::Array<HeaderDescriptorBase*> GetVisibleBaseHeaders() const;
    NK::Array<ColumnDescriptorBase*> GetVisibleBaseColumns() const;

    void Setup(QM::ListBox& listBox) const;
    void UpdateHeaders(QM::ListBox& listBox) const;
    void Resize(QM::ListBox& listBox, bool loadCurrentSizes);
    void Resize(QM::ListBox& listBox, const std::set<short>& keptTabs);
    void HeaderResized(QM::ListBox& listBox, short headerItem, short newSize) const;

protected:
    HeaderDescriptorBase& AddBaseHeader(NK::Owner<HeaderDescriptorBase> header);
    // Adds the column under `header` (null: under no header), after the header's other columns.
    ColumnDescriptorBase& AddBaseColumn(NK::Owner<ColumnDescriptorBase> column, HeaderDescriptorBase* header);

    // Reports a precondition failure with `text` when the id is not new; yields isNew.
    static bool IdIsNew(bool isNew, const char* text);
    // Reports a precondition failure ("width is a pixel length") unless the width is finite and
    // within 0 … 32767; yields whether it is.
    static bool IsValidWidth(float width);

    // The user dropped visible header item `fromItem` at `toItem`: the header with its columns
    // moves there and the list box is set up and laid out again.
    void HeaderDragged(QM::ListBox& listBox, short fromItem, short toItem);
    // Reads the tab field widths back into the visible columns, except for the tab fields in
    // `keptTabs`. Nothing is read while the tab fields do not match the visible columns or were
    // never laid out.
    void LoadListBoxColumnSizes(const QM::ListBox& listBox, const std::set<short>& keptTabs);

private:
    friend class UntypedListBoxView;

    void SortColumnsByHeader();
    void SetupHeaderItems(QM::ListBox& listBox) const;
    void ResizeToListBox(QM::ListBox& listBox) const;
    // Tiles the tab fields from 0 in header order; returns each visible header's covered width.
    NK::Array<short> LayOutTabFields(QM::ListBox& listBox) const;

    bool separatorLines = true;
    bool pushableHeaderButtons = false;
    bool draggableHeaderButtons = false;
    NK::Array<NK::Owner<HeaderDescriptorBase>> headers;
    NK::Array<NK::Owner<ColumnDescriptorBase>> columns;
    NK::Optional<QM::Icon> headerButtonIcon;
};

}  // namespace WZ
