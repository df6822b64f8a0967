// QM::ListBoxColumns: the column geometry of a list box — its tab fields (begin and end
// positions, justification, truncation, owner-draw flag, an item placed on the field) and its
// optional header (items numbered from 1 with size, text, icon, arrow, style, sizeable flag and
// minimum size; synchronisation with the tab fields; pushable and draggable buttons; the header
// button at its right end). QM::ListBox derives from it, so these are list box operations.
//
// Tab fields follow the list box's tab field count (TabFieldCountChanged); a new field starts
// empty at the end of the one before it. Header items and tab fields out of range are
// precondition reports with nothing changed. Every write is counted in the journal.
//
// A user dragging a header divider changes that header item's size (never below its minimum,
// and only when it is sizeable) and notifies QM::ListBoxHeaderObserver::HeaderItemResized.
// While the header is synchronised with the tab fields, the tab fields are laid out again from
// the header item sizes; a client that lays its columns out itself switches that off.
#pragma once

#include "NK/NKEvents.hpp"
#include "NK/NKUniString.hpp"
#include "QM/QMFont.hpp"
#include "QM/QMIcon.hpp"
#include "QM/QMItem.hpp"

#include <vector>

namespace QM {

class ListBoxColumns;

struct ListBoxHeaderEvent {
    const ListBoxColumns& source;
    short headerItem;  // from 1
    Origin origin;
};

struct ListBoxHeaderDragEvent {
    const ListBoxColumns& source;
    short fromItem;  // the header item that was dragged
    short toItem;    // where it was dropped
    Origin origin;
};

class ListBoxHeaderObserver : public virtual NK::EventObserver {
public:
    virtual void HeaderItemResized(const ListBoxHeaderEvent&) {}
    virtual void HeaderItemClicked(const ListBoxHeaderEvent&) {}
    virtual void HeaderItemDragged(const ListBoxHeaderDragEvent&) {}
    virtual void HeaderButtonClicked(const ListBoxHeaderEvent&) {}
};

class ListBoxColumns : public Item {
public:
    enum class Justification : NK::Int32 { Default = -1, Left = 0, Center = 1, Right = 2 };
    enum class Truncation : NK::Int32 { Default = -1, NoTruncation = 0, End = 1, Middle = 2 };
    enum class ArrowType : NK::Int32 { NoArrow = 0, Up = 1, Down = 2 };

    // The width the header button takes at the right end of the header.
    static constexpr short HeaderButtonWidth = 18;

    ListBoxColumns(const Panel& panel, const Rect& rect, ItemType type);

    // The width the columns share: the item's width less the header button, when there is one.
    short GetItemWidth() const noexcept;

    void EnableSeparatorLines(bool enable);
    bool HasSeparatorLines() const noexcept { return separatorLines; }

    // Tab fields, from 1.
    void SetTabFieldBeginEndPosition(short tab, short begin, short end);
    short GetTabFieldBeginPosition(short tab) const;
    short GetTabFieldEndPosition(short tab) const;
    short GetTabFieldWidth(short tab) const;
    void SetTabFieldJustification(short tab, Justification justification);
    Justification GetTabFieldJustification(short tab) const;
    void SetTabFieldTruncation(short tab, Truncation truncation);
    Truncation GetTabFieldTruncation(short tab) const;
    void SetTabFieldOwnerDrawFlag(short tab, bool ownerDraw);
    bool GetTabFieldOwnerDrawFlag(short tab) const;
    // An item shown on the tab field (an edit over a column); borrowed, not owned.
    void SetOnTabItem(short tab, Item* item);
    Item* GetOnTabItem(short tab) const;
    void RemoveOnTabItem(short tab);

    // The header. A list box has one when the host says so; header calls on a list box without
    // one change nothing.
    void SetHasHeader(bool hasHeader);
    bool HasHeader() const noexcept { return header; }
    void SetHeaderSynchronState(bool synchronized);
    bool GetHeaderSynchronState() const noexcept { return headerSynchronized; }
    void SetHeaderPushableButtons(bool pushable);
    bool HasHeaderPushableButtons() const noexcept { return pushableButtons; }
    void SetHeaderDragableButtons(bool dragable);
    bool HasHeaderDragableButtons() const noexcept { return dragableButtons; }

    void SetHeaderItemCount(short count);
    short GetHeaderItemCount() const noexcept { return static_cast<short>(headerItems.size()); }
    void SetHeaderItemSize(short item, short width);
    short GetHeaderItemSize(short item) const;
    void SetHeaderItemText(short item, const NK::UniString& text);
    NK::UniString GetHeaderItemText(short item) const;
    void SetHeaderItemIcon(short item, const Icon& icon);
    Icon GetHeaderItemIcon(short item) const;
    void SetHeaderItemArrowType(short item, ArrowType arrow);
    ArrowType GetHeaderItemArrowType(short item) const;
    void SetHeaderItemStyle(short item, Font::Style style);
    Font::Style GetHeaderItemStyle(short item) const;
    void SetHeaderItemSizeableFlag(short item, bool sizeable);
    bool GetHeaderItemSizeableFlag(short item) const;
    void SetHeaderItemMinSize(short item, short minSize);
    short GetHeaderItemMinSize(short item) const;

    void EnableHeaderButton();
    void DisableHeaderButton();
    bool IsHeaderButtonEnabled() const noexcept { return headerButton; }
    void SetHeaderButtonIcon(const Icon& icon);
    Icon GetHeaderButtonIcon() const noexcept { return headerButtonIcon; }

    // What a user does with the header. Each returns whether anything happened.
    bool SimulateUserDragHeaderDivider(short item, short newWidth);
    bool SimulateUserClickHeaderItem(short item);
    bool SimulateUserDragHeaderItem(short fromItem, short toItem);
    bool SimulateUserClickHeaderButton();

    // The header and the tab fields as text lines: "header: [1] "Name" 0+120 sizeable" and
    // "tabs: 0-120 120-200 (owner-draw)"; the gallery and golden tests print them.
    void RenderColumns(NK::Array<std::string>& lines, const std::string& indent) const;

protected:
    // Keeps one geometry record per tab field of the list box.
    virtual void TabFieldCountChanged(short oldCount, short newCount);

private:
    struct TabField {
        short begin = 0;
        short end = 0;
        Justification justification = Justification::Default;
        Truncation truncation = Truncation::Default;
        bool ownerDraw = false;
        Item* onTabItem = nullptr;
    };
    struct HeaderItem {
        short size = 0;
        NK::UniString text;
        Icon icon;
        ArrowType arrow = ArrowType::NoArrow;
        Font::Style style = Font::Plain;
        bool sizeable = false;
        short minSize = 0;
    };

    TabField* WritableTab(short tab);
    const TabField* ReadableTab(short tab) const;
    HeaderItem* WritableHeaderItem(short item);
    const HeaderItem* ReadableHeaderItem(short item) const;
    void SynchronizeTabsWithHeader();

    std::vector<TabField> tabFields = std::vector<TabField>(1);
    std::vector<HeaderItem> headerItems;
    bool separatorLines = false;
    bool header = false;
    bool headerSynchronized = true;
    bool pushableButtons = false;
    bool dragableButtons = false;
    bool headerButton = false;
    Icon headerButtonIcon;
};

}  // namespace QM
