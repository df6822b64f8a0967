#include "WZSources/ColumnModel/WZColumnDescriptorBase.hpp"

namespace WZ {

ColumnDescriptorBase::ColumnDescriptorBase(NK::Owner<IColumn> column) : column(std::move(column)) {}

ColumnDescriptorBase::~ColumnDescriptorBase() = default;

ColumnDescriptorBase& ColumnDescriptorBase::SetVisible(bool isVisible)
{
    visible = isVisible;
    return *this;
}

ColumnDescriptorBase& ColumnDescriptorBase::SetSizeable(bool isSizeable)
{
    sizeable = isSizeable;
    return *this;
}

ColumnDescriptorBase& ColumnDescriptorBase::SetOwnerDraw(bool isOwnerDraw)
{
    ownerDraw = isOwnerDraw;
    return *this;
}

ColumnDescriptorBase& ColumnDescriptorBase::SetJustification(QM::ListBox::Justification newJustification)
{
    justification = newJustification;
    return *this;
}

ColumnDescriptorBase& ColumnDescriptorBase::SetTruncation(QM::ListBox::Truncation newTruncation)
{
    truncation = newTruncation;
    return *this;
}

}  // namespace WZ
