#define NK_SOURCE_PATH "WZSources\\ColumnModel\\WZHeaderDescriptorBase"
#include "WZSources/ColumnModel/WZHeaderDescriptorBase.hpp"

#include "WZSources/ColumnModel/WZColumnDescriptorBase.hpp"
#include "WZSources/ColumnModel/WZPixels.hpp"
#include "WZSources/ColumnModel/WZResizeColumns.hpp"

#include "NK/NKAssert.hpp"

#include <cmath>

namespace WZ {

HeaderDescriptorBase::HeaderDescriptorBase(const NK::UniString& text) : text(text) {}

HeaderDescriptorBase::~HeaderDescriptorBase() = default;

HeaderDescriptorBase& HeaderDescriptorBase::SetText(const NK::UniString& newText)
{
    text = newText;
    return *this;
}

HeaderDescriptorBase& HeaderDescriptorBase::SetIcon(const QM::Icon& newIcon)
{
    icon = newIcon;
    return *this;
}

HeaderDescriptorBase& HeaderDescriptorBase::SetArrowType(QM::ListBox::ArrowType newArrowType)
{
    arrowType = newArrowType;
    return *this;
}

HeaderDescriptorBase& HeaderDescriptorBase::SetStyle(QM::Font::Style newStyle)
{
    style = newStyle;
    return *this;
}

void HeaderDescriptorBase::AddBaseColumn(ColumnDescriptorBase& column)
{
    if (!NK_PRECOND(column.header == nullptr))
        return;
    column.header = this;
    columns.Push(&column);
}

NK::Array<ColumnDescriptorBase*> HeaderDescriptorBase::GetVisibleBaseColumns() const
{
    NK::Array<ColumnDescriptorBase*> visible;
    for (ColumnDescriptorBase* column : columns)
        if (column->IsVisible())
            visible.Push(column);
    return visible;
}

bool HeaderDescriptorBase::IsVisible() const
{
    for (const ColumnDescriptorBase* column : columns)
        if (column->IsVisible())
            return true;
    return false;
}

bool HeaderDescriptorBase::IsFixed() const
{
    for (const ColumnDescriptorBase* column : columns)
        if (column->IsVisible() && !column->IsFixed())
            return false;
    return true;
}

bool HeaderDescriptorBase::IsSizeable() const
{
    for (const ColumnDescriptorBase* column : columns)
        if (column->IsVisible() && column->IsSizeable())
            return true;
    return false;
}

short HeaderDescriptorBase::GetWidth() const
{
    short sum = 0;
    for (const ColumnDescriptorBase* column : columns)
        if (column->IsVisible())
            sum = Pixels::Add(sum, Pixels::Truncated(column->GetWidth()));
    return sum;
}

short HeaderDescriptorBase::GetMinWidth() const
{
    short sum = 0;
    for (const ColumnDescriptorBase* column : columns)
        if (column->IsVisible())
            sum = Pixels::Add(sum, Pixels::Truncated(column->GetMinWidth()));
    return sum;
}

void HeaderDescriptorBase::Resize(short width) const
{
    NK::Array<ColumnDescriptorBase*> visible = GetVisibleBaseColumns();
    ResizeColumns([&visible](size_t i) { return &visible[i]->GetColumn(); }, visible.GetSize(), width, true);
}

}  // namespace WZ
