// QM::Button: a push button with a label (the item's text) and an optional icon. A user's click
// notifies QM::ButtonObserver::ButtonClicked synchronously; a click on a disabled or hidden
// button does nothing, as on screen. A click does not move the keyboard focus, so components
// that track which of their controls had the focus last are not disturbed by tool buttons.
#pragma once

#include "QM/QMIcon.hpp"
#include "QM/QMItem.hpp"

namespace QM {

class Button;

struct ButtonClickEvent {
    const Button& source;
    Origin origin;

    // The clicked button, for comparing with the button a component expects.
    const Button* GetSource() const noexcept { return &source; }
};

class ButtonObserver : public virtual NK::EventObserver {
public:
    virtual void ButtonClicked(const ButtonClickEvent&) {}
};

class Button : public Item {
public:
    Button(const Panel& panel, const Rect& rect, const NK::UniString& label = {});

    void SetIcon(const Icon& newIcon);
    Icon GetIcon() const noexcept { return icon; }

    // The program presses the button: observers hear of it as of a click (origin Program), but
    // only while the button is enabled, like a default button pressed through the keyboard.
    bool Click() { return Press(Origin::Program); }
    // Returns whether the click reached the button (false when it is disabled or hidden).
    bool SimulateUserClick() { return Press(Origin::User); }

protected:
    void RenderContent(NK::Array<std::string>& lines, const std::string& indent) const override;

private:
    bool Press(Origin origin);

    Icon icon;
};

}  // namespace QM
