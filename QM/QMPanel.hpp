// QM::Panel: a surface that holds items (a dialog, a tab page). It numbers its items from 1 in
// the order they are created and never reuses a number; it borrows them (the host owns its
// items). It is open or closed, has a client size, and keeps which of its items has the focus.
// Observers hear of opening, closing and resizing synchronously; the events say who caused them.
// The panel's bookkeeping of items and focus changes also through a const panel, because items
// are created on, and take the focus of, panels they were handed as const references.
#pragma once

#include "NK/NKArray.hpp"
#include "NK/NKEvents.hpp"
#include "QM/QMGeometry.hpp"
#include "QM/QMItem.hpp"

#include <string>
#include <vector>

namespace QM {

class Panel;

struct PanelOpenEvent {
    const Panel& source;
    Origin origin;
};

struct PanelCloseEvent {
    const Panel& source;
    bool accepted;  // closed with OK (true) or Cancel (false)
    Origin origin;
};

struct PanelResizeEvent {
    const Panel& source;
    short oldWidth;
    short oldHeight;
    short newWidth;
    short newHeight;
    Origin origin;
};

class PanelObserver : public virtual NK::EventObserver {
public:
    virtual void PanelOpened(const PanelOpenEvent&) {}
    virtual void PanelClosed(const PanelCloseEvent&) {}
    virtual void PanelResized(const PanelResizeEvent&) {}
};

class Panel : public NK::EventSource {
public:
    Panel(short clientWidth, short clientHeight);
    ~Panel() override;

    // The highest item number handed out so far (numbers of destroyed items included).
    short GetItemCount() const noexcept { return static_cast<short>(items.size()); }
    // The item with that number; null when out of range or destroyed.
    Item* GetItem(short id) const noexcept;
    // The living items, by number.
    NK::Array<Item*> GetItems() const;

    bool IsOpen() const noexcept { return open; }
    // Opening an open panel, or closing a closed one, does nothing and notifies nothing.
    void Open() { ChangeOpenState(true, true, Origin::Program); }
    void Close(bool accepted = true) { ChangeOpenState(false, accepted, Origin::Program); }

    short GetClientWidth() const noexcept { return clientWidth; }
    short GetClientHeight() const noexcept { return clientHeight; }
    Rect GetClientRect() const noexcept { return Rect(0, 0, clientWidth, clientHeight); }
    // Negative sizes are refused (precondition report, nothing changes).
    void SetClientSize(short width, short height) { ChangeClientSize(width, height, Origin::Program); }

    Item* GetFocusedItem() const noexcept { return focused; }

    // The panel's line in the text form: what it is, its size and whether it is open.
    virtual std::string GetHeading() const;

protected:
    void ChangeOpenState(bool open, bool accepted, Origin origin);
    void ChangeClientSize(short width, short height, Origin origin);

private:
    friend class Item;
    short Register(Item& item) const;
    void Unregister(const Item& item) const;
    // Moves the focus; returns the item that lost it (null when none had it).
    Item* TakeFocus(Item& item) const;

    mutable std::vector<Item*> items;  // item number - 1 -> item, null when destroyed
    mutable Item* focused = nullptr;
    short clientWidth;
    short clientHeight;
    bool open = false;
};

// The observers of a dialog are those of its panel.
using DialogObserver = PanelObserver;

}  // namespace QM
