// QM::ListBox: a list of rows numbered from 1, each an ordinary row or a separator. A row keeps
// its attached record, user value, per-tab-field texts and icons, colours, font style, status and
// selection when rows are inserted or deleted around it. Tab fields are numbered from 1; a
// list box starts with one.
//
// Insertion positions: InsertItem(r) puts a new empty row before row r, so that it becomes row r
// and the later rows move down by one; r = count + 1 or QM::ListBox::LastPosition (-65534)
// appends, QM::ListBox::FirstPosition (-65535) puts it first. Any other row number, and any row
// number naming no row elsewhere, is a precondition report with nothing changed.
//
// Selection: single or multiple (fixed at construction). Separators are never selected. Every
// change of the set of selected rows notifies QM::ListBoxObserver::SelectionChanged once,
// synchronously, also when a program caused it (SelectItem, DeleteItem of a selected row...):
// the event's origin tells program from user. Components that must not hear their own changes
// detach or guard themselves. Calls that leave the set as it was notify nothing.
//
// Drawing: DisableDraw/EnableDraw nest; every call is counted in the journal. Geometry of the
// tab fields and the header are kept by extensions: TabFieldCountChanged is their hook.
#pragma once

#include "NK/NKArray.hpp"
#include "NK/NKPointers.hpp"
#include "NK/NKUniString.hpp"
#include "QM/QMColor.hpp"
#include "QM/QMFont.hpp"
#include "QM/QMGapBuffer.hpp"
#include "QM/QMIcon.hpp"
#include "QM/QMItem.hpp"
#include "QM/QMListBoxColumns.hpp"

#include <optional>
#include <vector>

namespace QM {

class ListBox;

struct ListBoxSelectionEvent {
    const ListBox& source;
    Origin origin;
};

struct ListBoxClickEvent {
    const ListBox& source;
    short row;
};

class ListBoxObserver : public virtual NK::EventObserver {
public:
    virtual void SelectionChanged(const ListBoxSelectionEvent&) {}
    virtual void ItemDoubleClicked(const ListBoxClickEvent&) {}
};

class ListBox : public ListBoxColumns {
public:
    enum class SelectionType : NK::UInt8 { Single, Multi };
    enum class ItemStatus : NK::UInt8 { Enabled, Disabled, Grayed };

    static constexpr int FirstPosition = -65535;
    static constexpr int LastPosition = -65534;
    static constexpr short MaxRowCount = 32767;
    static constexpr short DefaultRowHeight = 18;

    ListBox(const Panel& panel, const Rect& rect, SelectionType selectionType = SelectionType::Single);

    SelectionType GetSelectionType() const noexcept { return selectionType; }

    // Structure. The insertions return the new row's number, 0 when refused.
    short InsertItem(int row);
    short InsertSeparator(int row);
    short AppendItem() { return InsertItem(LastPosition); }
    void DeleteItem(short row);
    void DeleteAllItems();
    short GetItemCount() const noexcept { return static_cast<short>(rows.size()); }
    bool IsSeparator(short row) const;

    // Attached record and user value.
    void SetItemObjectData(short row, NK::Ref<NK::Object> data);
    NK::Ref<NK::Object> GetItemObjectData(short row) const;
    void SetItemValue(short row, NK::Int64 value);
    NK::Int64 GetItemValue(short row) const;

    // Tab fields.
    short GetTabFieldCount() const noexcept { return tabFieldCount; }
    void SetTabFieldCount(short count);

    void SetTabItemText(short row, short tab, const NK::UniString& text);
    NK::UniString GetTabItemText(short row, short tab) const;
    void SetTabItemDescription(short row, short tab, const NK::UniString& text);
    NK::UniString GetTabItemDescription(short row, short tab) const;
    void SetTabItemIcon(short row, short tab, const Icon& icon);
    Icon GetTabItemIcon(short row, short tab) const;
    void SetTabItemColor(short row, short tab, const Color& color);
    void ResetTabItemColor(short row, short tab);
    std::optional<Color> GetTabItemColor(short row, short tab) const;
    void SetTabItemBackgroundColor(short row, short tab, const Color& color);
    void ResetTabItemBackgroundColor(short row, short tab);
    std::optional<Color> GetTabItemBackgroundColor(short row, short tab) const;
    void SetTabItemFontStyle(short row, short tab, Font::Style style);
    Font::Style GetTabItemFontStyle(short row, short tab) const;

    // Whole-row look.
    void SetItemColor(short row, const Color& color);
    void ResetItemColor(short row);
    std::optional<Color> GetItemColor(short row) const;
    void SetItemBackgroundColor(short row, const Color& color);
    void ResetItemBackgroundColor(short row);
    std::optional<Color> GetItemBackgroundColor(short row) const;
    void SetItemFontStyle(short row, Font::Style style);
    Font::Style GetItemFontStyle(short row) const;
    void SetItemStatus(short row, ItemStatus status);
    ItemStatus GetItemStatus(short row) const;
    void EnableItem(short row) { SetItemStatus(row, ItemStatus::Enabled); }
    void DisableItem(short row) { SetItemStatus(row, ItemStatus::Disabled); }
    void GrayItem(short row, bool gray) { SetItemStatus(row, gray ? ItemStatus::Grayed : ItemStatus::Enabled); }
    bool IsItemGrayed(short row) const { return GetItemStatus(row) == ItemStatus::Grayed; }
    void SetItemOwnerDrawFlag(short row, bool ownerDraw);
    bool GetItemOwnerDrawFlag(short row) const;

    // Selection (see the header comment).
    void SelectItem(short row);
    void SelectItems(const NK::Array<short>& rows);
    // Deselects the row; 0 deselects every row.
    void DeselectItem(short row);
    bool IsItemSelected(short row) const;
    // The selected rows, ascending.
    NK::Array<short> GetSelectedItems() const;
    // The first selected row, 0 when none.
    short GetSelectedItem() const;
    short GetSelectedCount() const noexcept { return selectedCount; }

    // A user clicks a row: it becomes the only selected one. Clicks on separators and disabled
    // rows do nothing.
    void SimulateUserClickRow(short row);
    // A user selects exactly these rows (ctrl- and shift-clicks); in a single-selection list box
    // only one row may be given.
    void SimulateUserSelectRows(const NK::Array<short>& rows);
    void SimulateUserDoubleClickRow(short row);

    // Drawing and scrolling.
    void DisableDraw();
    void EnableDraw();
    bool IsDrawEnabled() const noexcept { return drawDisabledDepth == 0; }
    void RedrawItem(short row) const;
    void RedrawTabItem(short row, short tab) const;
    // How many rows are scrolled off the top (0 shows row 1 first). Selecting a row scrolls it
    // into view, given the item's height and the row height.
    short GetScrollPosition() const noexcept { return scrollPosition; }
    void SetScrollPosition(short position);
    short GetRowHeight() const noexcept { return rowHeight; }
    void SetRowHeight(short height);

protected:
    struct TabCell {
        NK::UniString text;
        NK::UniString description;
        Icon icon;
        std::optional<Color> color;
        std::optional<Color> background;
        Font::Style style = Font::Plain;
    };
    struct Row {
        bool separator = false;
        bool selected = false;
        bool ownerDraw = false;
        ItemStatus status = ItemStatus::Enabled;
        Font::Style style = Font::Plain;
        NK::Int64 value = 0;
        NK::Ref<NK::Object> objectData;
        std::optional<Color> color;
        std::optional<Color> background;
        std::vector<TabCell> cells;  // grows up to the highest tab field written
    };

    // Called after the number of tab fields changed; extensions keep their geometry in step.
    void TabFieldCountChanged(short oldCount, short newCount) override;
    void RenderContent(NK::Array<std::string>& lines, const std::string& indent) const override;

    bool IsValidRow(short row) const noexcept { return row >= 1 && row <= GetItemCount(); }
    const Row& GetRow(short row) const { return rows[static_cast<std::size_t>(row) - 1]; }

private:
    short InsertRow(int row, bool separator);
    Row* WritableRow(short row);
    const Row* ReadableRow(short row) const;
    TabCell* WritableCell(short row, short tab);
    const TabCell* ReadableCell(short row, short tab) const;

    // Selection helpers: each returns whether the set changed; Notify raises the event.
    bool SetSelected(short row, bool selected);
    bool DeselectAll();
    void ReplaceSelection(const NK::Array<short>& rows, Origin origin);
    void NotifySelectionChanged(Origin origin);
    void ScrollIntoView(short row);

    // Rows in order; a gap buffer, so that an update's bottom-up deletions and top-down
    // insertions do not shift every later row each time.
    GapBuffer<Row> rows;
    SelectionType selectionType;
    short tabFieldCount = 1;
    short selectedCount = 0;
    short scrollPosition = 0;
    short rowHeight = DefaultRowHeight;
    int drawDisabledDepth = 0;
};

}  // namespace QM
