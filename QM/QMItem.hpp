// QM::Item: one control of a panel (a dialog, a tab page). The host creates items on a panel,
// which numbers them from 1 in the order of creation and never reuses a number; the panel
// only borrows them: an item leaves its panel when destroyed, and a panel destroyed first
// leaves its items without a panel (GetPanel() null, GetId() unchanged).
// Every state change notifies the item's observers synchronously, whether a program or a
// simulated user caused it; the event tells which (QM::Origin). Every mutating call is
// counted in the item's journal. Observer interfaces of the toolkit derive virtually from
// NK::EventObserver, so one object may observe several kinds of events of one control.
#pragma once

#include "NK/NKEvents.hpp"
#include "NK/NKUniString.hpp"
#include "QM/QMGeometry.hpp"
#include "QM/QMJournal.hpp"

#include <string>

namespace QM {

class Item;
class Panel;

// What an item is; the text renderer prints its name.
enum class ItemType : NK::UInt8 {
    UserItem,
    StaticText,
    Button,
    Edit,
    SearchEdit,
    ListBox,
    TreeView,
    TabControl,
    ListView,
    TableView,
    PopUpControl,
    Splitter,
};

const char* GetItemTypeName(ItemType type) noexcept;

// Who caused a state change.
enum class Origin : NK::UInt8 { Program, User };

struct VisibilityChangeEventArg {
    const Item& source;
    bool isVisible;
    Origin origin;
};

struct FocusChangeEventArg {
    const Item& source;
    bool hasFocus;
    Origin origin;
};

class ItemObserver : public virtual NK::EventObserver {
public:
    virtual void ItemVisibilityChanged(const VisibilityChangeEventArg&) {}
    virtual void ItemFocusChanged(const FocusChangeEventArg&) {}
};

class Item : public NK::EventSource {
public:
    Item(const Panel& panel, const Rect& rect, ItemType type = ItemType::UserItem);
    ~Item() override;

    // Number within the panel, from 1.
    short GetId() const noexcept { return id; }
    ItemType GetType() const noexcept { return type; }
    // The panel the item lives on; null once the panel is gone.
    const Panel* GetPanel() const noexcept { return panel; }

    Rect GetRect() const noexcept { return rect; }
    void SetRect(const Rect& newRect);
    void Move(short x, short y);
    void Resize(short width, short height);
    void MoveAndResize(short x, short y, short width, short height);

    void Show() { SetVisibility(true); }
    void Hide() { SetVisibility(false); }
    void SetVisibility(bool visible);
    bool IsVisible() const noexcept { return visible; }

    void Enable() { SetStatus(true); }
    void Disable() { SetStatus(false); }
    void SetStatus(bool enabled);
    bool IsEnabled() const noexcept { return enabled; }

    NK::UniString GetText() const { return text; }
    void SetText(const NK::UniString& newText);

    // Takes the focus from the panel's focused item.
    void SetFocus() { ChangeFocus(Origin::Program); }
    void SimulateUserFocus() { ChangeFocus(Origin::User); }
    bool HasFocus() const noexcept;

    // Repaints the item; the journal counts it (a headless control has nothing to paint).
    void Redraw() const { journal.Record(Op::Redraw); }

    const Journal& GetJournal() const noexcept { return journal; }
    void ResetJournal() const noexcept { journal.Reset(); }

    // The item as text lines (see QMTextRenderer.hpp): a heading line, then the content
    // indented by `indent` plus two blanks. Controls override RenderContent.
    void Render(NK::Array<std::string>& lines, const std::string& indent) const;

protected:
    // Lines of the control's content below its heading; nothing for a plain item.
    virtual void RenderContent(NK::Array<std::string>& lines, const std::string& indent) const;
    void Record(Op op) const noexcept { journal.Record(op); }

private:
    friend class Panel;
    void ChangeFocus(Origin origin);
    void NotifyFocus(bool hasFocus, Origin origin);

    const Panel* panel;
    short id;
    ItemType type;
    Rect rect;
    bool visible = true;
    bool enabled = true;
    NK::UniString text;
    mutable Journal journal;
};

}  // namespace QM
