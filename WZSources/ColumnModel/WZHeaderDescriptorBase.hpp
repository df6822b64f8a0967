// One header item of a columned list box, spanning one or more consecutive columns. Its look
// (text, icon, arrow, style) is its own; whether it is shown, fixed or sizeable, and how wide it
// is, follow from its visible columns every time they are asked for:
//   visible  — at least one visible column;
//   fixed    — every visible column is fixed (also when none is visible);
//   sizeable — at least one visible column is sizeable;
//   width / minimum width — the visible columns' whole-pixel widths / minimums, summed in 16 bits.
// The header borrows its columns; the column manager owns both.
#pragma once

#include "NK/NKArray.hpp"
#include "NK/NKUniString.hpp"
#include "QM/QMFont.hpp"
#include "QM/QMIcon.hpp"
#include "QM/QMListBox.hpp"

namespace WZ {

class ColumnDescriptorBase;

class HeaderDescriptorBase {
public:
    explicit HeaderDescriptorBase(const NK::UniString& text = {});
    HeaderDescriptorBase(const HeaderDescriptorBase&) = delete;
    HeaderDescriptorBase& operator=(const HeaderDescriptorBase&) = delete;
    virtual ~HeaderDescriptorBase();

    const NK::UniString& GetText() const noexcept { return text; }
    HeaderDescriptorBase& SetText(const NK::UniString& newText);
    const QM::Icon& GetIcon() const noexcept { return icon; }
    HeaderDescriptorBase& SetIcon(const QM::Icon& newIcon);
    QM::ListBox::ArrowType GetArrowType() const noexcept { return arrowType; }
    HeaderDescriptorBase& SetArrowType(QM::ListBox::ArrowType newArrowType);
    QM::Font::Style GetStyle() const noexcept { return style; }
    HeaderDescriptorBase& SetStyle(QM::Font::Style newStyle);

    // Puts the column under this header, after its other columns. A column is under one header.
    void AddBaseColumn(ColumnDescriptorBase& column);
    const NK::Array<ColumnDescriptorBase*>& GetAllBaseColumns() const noexcept { return columns; }
    NK::Array<ColumnDescriptorBase*> GetVisibleBaseColumns() const;
    NK::UIndex GetColumnCount() const noexcept { return columns.GetSize(); }

    bool IsVisible() const;
    bool IsFixed() const;
    bool IsSizeable() const;
    short GetWidth() const;
    short GetMinWidth() const;

    // Shares `width` among the visible columns in whole pixels.
    void Resize(short width) const;

private:
    NK::UniString text;
    QM::Icon icon;
    QM::ListBox::ArrowType arrowType = QM::ListBox::ArrowType::NoArrow;
    QM::Font::Style style = QM::Font::Plain;
    NK::Array<ColumnDescriptorBase*> columns;
};

}  // namespace WZ
