// One column of a columned list box: whether it is shown, whether the user may resize it,
// whether the client draws its cells, how its tab field justifies and truncates text, and its
// width model (a fixed or a proportional column). Setters return the descriptor so that calls
// chain: AddColumn(...).SetSizeable(true).SetJustification(Justification::Right).
#pragma once

#include "NK/NKPointers.hpp"
#include "QM/QMListBox.hpp"
#include "WZSources/ColumnModel/WZColumn.hpp"

namespace WZ {

class HeaderDescriptorBase;

class ColumnDescriptorBase {
public:
    explicit ColumnDescriptorBase(NK::Owner<IColumn> column);
    ColumnDescriptorBase(const ColumnDescriptorBase&) = delete;
    ColumnDescriptorBase& operator=(const ColumnDescriptorBase&) = delete;
    virtual ~ColumnDescriptorBase();

    ColumnDescriptorBase& SetVisible(bool isVisible);
    ColumnDescriptorBase& SetSizeable(bool isSizeable);
    ColumnDescriptorBase& SetOwnerDraw(bool isOwnerDraw);
    ColumnDescriptorBase& SetJustification(QM::ListBox::Justification newJustification);
    ColumnDescriptorBase& SetTruncation(QM::ListBox::Truncation newTruncation);

    bool IsVisible() const noexcept { return visible; }
    bool IsSizeable() const noexcept { return sizeable; }
    bool IsOwnerDraw() const noexcept { return ownerDraw; }
    QM::ListBox::Justification GetJustification() const noexcept { return justification; }
    QM::ListBox::Truncation GetTruncation() const noexcept { return truncation; }

    // The width model.
    bool IsFixed() const { return column->IsFixed(); }
    float GetMinWidth() const { return column->GetMinWidth(); }
    float GetInitialWidth() const { return column->GetInitialWidth(); }
    float GetWidth() const { return column->GetWidth(); }
    void SetWidth(float width) { column->SetWidth(width); }
    IColumn& GetColumn() const { return *column; }

    // The header the column is under; null until a header takes it.
    HeaderDescriptorBase* GetHeader() const noexcept { return header; }

private:
    friend class HeaderDescriptorBase;

    bool visible = true;
    bool sizeable = false;
    bool ownerDraw = false;
    QM::ListBox::Justification justification = QM::ListBox::Justification::Default;
    QM::ListBox::Truncation truncation = QM::ListBox::Truncation::Default;
    NK::Owner<IColumn> column;
    HeaderDescriptorBase* header = nullptr;
};

}  // namespace WZ
