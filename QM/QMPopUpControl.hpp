// QM::PopUpControl: a drop-down choice of entries, each a text with an optional icon, numbered
// from 1; the closed control shows the chosen entry (0: none). Entries keep their place when
// others are inserted or deleted around them; the choice follows its entry and becomes 0 when
// its entry is deleted.
//
// Every change of the chosen entry notifies QM::PopUpControlObserver::SelectionChanged once,
// synchronously, also when a program caused it (the event's origin tells which); calls that
// leave the choice as it was notify nothing. Bad entry numbers are precondition reports with
// nothing changed. A user's choice on a disabled or hidden control does nothing.
#pragma once

#include "NK/NKArray.hpp"
#include "QM/QMIcon.hpp"
#include "QM/QMItem.hpp"

namespace QM {

class PopUpControl;

struct PopUpSelectionEvent {
    const PopUpControl& source;
    short entry;  // the chosen entry after the change, 0 for none
    Origin origin;

    const PopUpControl* GetSource() const noexcept { return &source; }
};

class PopUpControlObserver : public virtual NK::EventObserver {
public:
    virtual void SelectionChanged(const PopUpSelectionEvent&) {}
};

class PopUpControl : public Item {
public:
    static constexpr short MaxEntryCount = 32767;

    PopUpControl(const Panel& panel, const Rect& rect);

    // Inserts an entry before entry `before` (count + 1 appends); returns its number, 0 when
    // refused.
    short InsertItem(short before, const NK::UniString& text, const Icon& icon = {});
    short AppendItem(const NK::UniString& text, const Icon& icon = {});
    void DeleteItem(short entry);
    void DeleteAllItems();
    short GetItemCount() const noexcept { return static_cast<short>(entries.GetSize()); }

    void SetItemText(short entry, const NK::UniString& text);
    NK::UniString GetItemText(short entry) const;
    void SetItemIcon(short entry, const Icon& icon);
    Icon GetItemIcon(short entry) const;

    // 0 chooses nothing.
    void SelectItem(short entry) { Choose(entry, Origin::Program); }
    short GetSelectedItem() const noexcept { return selected; }

    // The user opens the list and picks an entry; returns whether the pick reached the control.
    bool SimulateUserSelect(short entry);

protected:
    void RenderContent(NK::Array<std::string>& lines, const std::string& indent) const override;

private:
    struct Entry {
        NK::UniString text;
        Icon icon;
    };

    bool IsEntry(short entry) const noexcept { return entry >= 1 && entry <= GetItemCount(); }
    void Choose(short entry, Origin origin);
    void Notify(Origin origin);

    NK::Array<Entry> entries;
    short selected = 0;
};

}  // namespace QM
