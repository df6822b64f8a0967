// WZ::Folderable::Layout: places the controls of one view of a foldered data view inside the
// data view's rectangle, and keeps what the user may change about that placement (a splitter
// position, whether the search field is shown) in a layout state that is written to and read
// from a channel as part of the view's state.
//
// A layout borrows its controls from a LayoutResource (the data view). ApplyLayout places them
// in a rectangle, which the layout remembers so that a change of its state (a dragged splitter,
// an applied state) places them again at once. Show and Hide switch the visibility of what the
// layout places, as its view appears and disappears.
//
// Layout states are values of the layout kind that made them: ApplyState with a state of another
// kind is reported ("state kind matches layout") and changes nothing. Read returns the channel's
// error, or -7003 for a value the layout cannot take; on an error the state is left as it was.
#pragma once

#include "NK/NKArray.hpp"
#include "NK/NKChannel.hpp"
#include "NK/NKPointers.hpp"
#include "NK/NKTypes.hpp"
#include "QM/QMGeometry.hpp"
#include "WZSources/CompoundControls/FolderedDataView/Views/WZFDVLayoutResource.hpp"

namespace WZ::Layouting {
class VerticalLinearLayout;
}  // namespace WZ::Layouting

namespace WZ::Folderable {

class Layout {
public:
    class LayoutState {
    public:
        virtual NK::ErrCode Write(NK::OChannel& channel) const = 0;
        virtual NK::ErrCode Read(NK::IChannel& channel) = 0;
        virtual NK::Owner<LayoutState> Clone() const = 0;
        virtual bool IsEqual(const LayoutState& other) const = 0;
        virtual ~LayoutState();
    };

    explicit Layout(LayoutResource& resource) : resource(resource) {}
    Layout(const Layout&) = delete;
    Layout& operator=(const Layout&) = delete;
    virtual ~Layout();

    virtual NK::Owner<LayoutState> CreateDefaultState() const = 0;
    virtual NK::Owner<LayoutState> GetState() const = 0;
    virtual void ApplyState(const LayoutState& state) = 0;

    // Places the controls inside rect and remembers it.
    virtual void ApplyLayout(const QM::Rect& rect) = 0;
    // The toolkit items that this layout places (those the resource has).
    virtual NK::Array<QM::Item*> GetPlacedItems() const = 0;
    virtual void Show();
    virtual void Hide();

    // The rectangle of the last ApplyLayout; empty before the first.
    const QM::Rect& GetRect() const noexcept { return rect; }

protected:
    LayoutResource& GetResource() const noexcept { return resource; }
    void SetRect(const QM::Rect& newRect) noexcept { rect = newRect; }
    // Adds the resource's list box to a column, filling the room left; it is moved and sized
    // through the resource's list box view when there is one (its columns follow), else directly.
    void AddListBox(Layouting::VerticalLinearLayout& column) const;
    // Places the controls again in the remembered rectangle, if there is one.
    void ReApply();

private:
    LayoutResource& resource;
    QM::Rect rect;
};

}  // namespace WZ::Folderable
