// WZ::UntypedListBoxView: a columned view over one toolkit list box. It holds the list box (not
// owned) and its row layout (owned), sets the list box's columns up once, keeps them in step
// when the list box is moved or resized (drawing off, columns laid out, drawing on, one redraw)
// and follows the user's header: a dragged divider shares the header's new size among its
// columns, a dragged header takes its columns along.
#pragma once

#include "NK/NKPointers.hpp"
#include "QM/QMListBox.hpp"
#include "WZSources/ListBoxView/WZListBoxLayoutBase.hpp"

namespace WZ {

class UntypedListBoxView : protected QM::ListBoxHeaderObserver {
public:
    // Keeps drawing of a list box switched off while alive; when it ends, drawing is switched on
    // again and the list box redrawn.
    class DrawSuspender {
    public:
        explicit DrawSuspender(QM::ListBox& listBox);
        ~DrawSuspender();
        DrawSuspender(DrawSuspender&& other) noexcept;
        DrawSuspender(const DrawSuspender&) = delete;
        DrawSuspender& operator=(const DrawSuspender&) = delete;
        DrawSuspender& operator=(DrawSuspender&&) = delete;

    private:
        QM::ListBox* listBox;
    };

    UntypedListBoxView(QM::ListBox& listBox, NK::Owner<LayoutBase> layout);
    ~UntypedListBoxView() override;

    QM::ListBox& GetListBox() const noexcept { return listBox; }
    LayoutBase& GetBaseLayout() const { return *layout; }

    // Sets the columns up and lays them out; again after columns were shown, hidden or added
    // (the rows' cells are then written again).
    void SetupColumns();
    // Moves and resizes the list box and lays the columns out for the new width.
    void MoveAndResize(short x, short y, short width, short height);
    void Resize(short width, short height);
    // Lays the columns out for the list box's current width, with drawing off and one redraw.
    void Relayout();
    // The same without the drawing bracket, for callers that bracket a larger change themselves.
    void LayoutColumns();

protected:
    // The columns changed their order or visibility: the rows' cells must be written again.
    virtual void ColumnsChanged() {}

private:
    void HeaderItemResized(const QM::ListBoxHeaderEvent& event) override;
    void HeaderItemDragged(const QM::ListBoxHeaderDragEvent& event) override;

    QM::ListBox& listBox;
    NK::Owner<LayoutBase> layout;
};

}  // namespace WZ
