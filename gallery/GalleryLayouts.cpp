// Geometry at work: a dialog laid out by nested linear layouts around a columned list box,
// printed at a wide, a narrow and a too small width, and then a header divider dragged by the
// user, which the list's columns follow.
#include "GalleryScene.hpp"

#include "NK/NKGuid.hpp"
#include "QM/QMDialog.hpp"
#include "QM/QMListBox.hpp"
#include "QM/QMTextRenderer.hpp"
#include "WZSources/Layouting/WZLinearLayout.hpp"
#include "WZSources/ListBoxView/WZHomogenListBoxView.hpp"

#include <ostream>

namespace {

using namespace WZ::Layouting;

struct TrackRow : WZ::Diffable {
    TrackRow(NK::UInt64 number, const char* name, const char* kind, const char* length)
        : id(NK::Guid::FromNumber(0x6E0, number)), name(name), kind(kind), length(length)
    {
    }
    NK::Guid GetId() const override { return id; }
    bool IsEqual(const WZ::Diffable& other) const override
    {
        const auto& row = static_cast<const TrackRow&>(other);
        return row.name == name && row.kind == kind && row.length == length;
    }

    NK::Guid id;
    NK::UniString name;
    NK::UniString kind;
    NK::UniString length;
};

struct TrackList {
    using Item = TrackRow;
};

void PrintDialog(std::ostream& out, const QM::Dialog& dialog, const QM::ListBox& list)
{
    out << QM::TextRenderer::Join(QM::TextRenderer::RenderPanel(dialog));
    NK::Array<std::string> columns;
    list.RenderColumns(columns, "  list columns ");
    out << QM::TextRenderer::Join(columns);
}

}  // namespace

WZ_GALLERY_SCENE("layouts", "nested linear layouts and a columned list box at three widths, then a header divider dragged")
{
    QM::Dialog dialog("Open Track", 520, 260, QM::Dialog::GrowType::HVGrow);
    QM::Item findLabel(dialog, QM::Rect(), QM::ItemType::StaticText);
    findLabel.SetText("Find:");
    QM::Item findEdit(dialog, QM::Rect(), QM::ItemType::SearchEdit);
    QM::Item findButton(dialog, QM::Rect(), QM::ItemType::Button);
    findButton.SetText("Search");
    QM::ListBox list(dialog, QM::Rect());
    list.SetHasHeader(true);
    QM::Item okButton(dialog, QM::Rect(), QM::ItemType::Button);
    okButton.SetText("Open");
    QM::Item cancelButton(dialog, QM::Rect(), QM::ItemType::Button);
    cancelButton.SetText("Cancel");

    // Rows of the dialog: the search row, the list, the buttons packed to the right.
    VerticalLinearLayout root;
    root.SetMargin(Inset {10, 10, 10, 10});
    root.SetGap(8);
    auto& search = root.AddLayout(NK::NewOwned<HorizontalLinearLayout>(), VFixedHeight {22}, VAutoFillWidth {});
    search.GetLayout().SetGap(6);
    search.GetLayout().Add(findLabel, HFixedWidth {40}, HFixedHeight {VerticalAlignment::Center, 16});
    search.GetLayout().Add(findEdit, HProportionalWidth {80}, HAutoFillHeight {});
    search.GetLayout().Add(findButton, HFixedWidth {70}, HAutoFillHeight {});
    root.Add(list, VProportionalHeight {60}, VAutoFillWidth {});
    auto& buttons = root.AddLayout(NK::NewOwned<HorizontalLinearLayout>(), VFixedHeight {24}, VAutoFillWidth {});
    buttons.GetLayout().SetGap(8);
    buttons.GetLayout().SetGravity(Gravity::End);
    buttons.GetLayout().Add(cancelButton, HFixedWidth {80}, HAutoFillHeight {});
    buttons.GetLayout().Add(okButton, HFixedWidth {80}, HAutoFillHeight {});

    // The list: Name grows, Type grows less, Length keeps its width.
    WZ::HomogenListBoxView<TrackList> view(list);
    view.AddTextColumn(1, "Name", NK::NewOwned<WZ::ProportionalColumn>(80, 240), [](const TrackRow& r) { return r.name; })
        .SetSizeable(true);
    view.AddTextColumn(2, "Type", NK::NewOwned<WZ::ProportionalColumn>(50, 120), [](const TrackRow& r) { return r.kind; })
        .SetSizeable(true);
    view.AddTextColumn(3, "Length", NK::NewOwned<WZ::FixedColumn>(60), [](const TrackRow& r) { return r.length; })
        .SetJustification(QM::ListBox::Justification::Right);
    view.GetColumnManager().SetHeaderButtonIconToDefault();
    view.SetupColumns();
    NK::Array<NK::Owner<TrackRow>> rows;
    rows.Push(NK::NewOwned<TrackRow>(1, "Morning Light", "Song", "3:45"));
    rows.Push(NK::NewOwned<TrackRow>(2, "Harbour Lights Live", "Album", "52:10"));
    rows.Push(NK::NewOwned<TrackRow>(3, "Kitchen Radio Hour", "Podcast", "41:02"));
    view.SetItems(std::move(rows));

    auto layOut = [&](short width, const char* title) {
        dialog.SimulateUserResize(width, 260);
        root.ApplyLayout(dialog, dialog.GetClientRect());
        view.Relayout();
        Gallery::Step(out, title);
        PrintDialog(out, dialog, list);
    };
    layOut(520, "wide: 520 pixels, the list's proportional columns share what Length leaves");
    layOut(300, "narrow: 300 pixels, the search edit and the list's columns shrink");
    layOut(150, "below the minimums: every column at its minimum, the items overflow to the right");

    layOut(520, "wide again");
    Gallery::Step(out, "the user drags the divider after Name to 150 pixels: Name's columns take it, the tab fields follow");
    list.SimulateUserDragHeaderDivider(1, 150);
    NK::Array<std::string> columns;
    list.RenderColumns(columns, "  list columns ");
    out << QM::TextRenderer::Join(columns);
    layOut(400, "the dialog narrowed to 400 pixels: the columns keep the dragged proportions");
}
