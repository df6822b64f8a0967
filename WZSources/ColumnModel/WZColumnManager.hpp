// The typed column manager: columns and headers known by client ids (short in the library's own
// list views, or a client's enum), over ColumnManagerBase which does the work.
//
//   WZ::ColumnManager<ColumnId, HeaderId> columns;
//   auto& name = columns.AddHeader(HeaderId::Name, "Name");
//   columns.AddProportionalColumn(ColumnId::Name, name, 40, 200).SetSizeable(true);
//   columns.AddFixedColumn(ColumnId::Size, columns.AddHeader(HeaderId::Size, "Size"), 60)
//       .SetJustification(QM::ListBox::Justification::Right);
//
// A column manager state holds every column's visibility and width by id; ApplyState takes the
// entries whose ids the manager knows and leaves the other columns as they are. After applying
// a state, Setup and Resize bring the list box in step (the list box views do that).
#pragma once

#include "NK/NKHashTable.hpp"
#include "WZSources/ColumnModel/WZColumnIdSource.hpp"
#include "WZSources/ColumnModel/WZColumnManagerBase.hpp"

namespace WZ {

template <typename ColumnId>
class ColumnDescriptor : public ColumnDescriptorBase {
public:
    ColumnDescriptor(ColumnId id, NK::Owner<IColumn> column) : ColumnDescriptorBase(std::move(column)), id(id) {}

    ColumnId GetId() const noexcept { return id; }

    ColumnDescriptor& SetVisible(bool v) { ColumnDescriptorBase::SetVisible(v); return *this; }
    ColumnDescriptor& SetSizeable(bool v) { ColumnDescriptorBase::SetSizeable(v); return *this; }
    ColumnDescriptor& SetOwnerDraw(bool v) { ColumnDescriptorBase::SetOwnerDraw(v); return *this; }
    ColumnDescriptor& SetJustification(QM::ListBox::Justification v) { ColumnDescriptorBase::SetJustification(v); return *this; }
    ColumnDescriptor& SetTruncation(QM::ListBox::Truncation v) { ColumnDescriptorBase::SetTruncation(v); return *this; }

private:
    ColumnId id;
};

template <typename ColumnId, typename HeaderId>
class HeaderDescriptor : public HeaderDescriptorBase {
public:
    HeaderDescriptor(HeaderId id, const NK::UniString& text) : HeaderDescriptorBase(text), id(id) {}

    HeaderId GetId() const noexcept { return id; }

    HeaderDescriptor& SetText(const NK::UniString& v) { HeaderDescriptorBase::SetText(v); return *this; }
    HeaderDescriptor& SetIcon(const QM::Icon& v) { HeaderDescriptorBase::SetIcon(v); return *this; }
    HeaderDescriptor& SetArrowType(QM::ListBox::ArrowType v) { HeaderDescriptorBase::SetArrowType(v); return *this; }
    HeaderDescriptor& SetStyle(QM::Font::Style v) { HeaderDescriptorBase::SetStyle(v); return *this; }

    NK::Array<ColumnDescriptor<ColumnId>*> GetColumns() const { return Typed(GetAllBaseColumns()); }
    NK::Array<ColumnDescriptor<ColumnId>*> GetVisibleColumns() const { return Typed(GetVisibleBaseColumns()); }

private:
    static NK::Array<ColumnDescriptor<ColumnId>*> Typed(const NK::Array<ColumnDescriptorBase*>& base)
    {
        NK::Array<ColumnDescriptor<ColumnId>*> typed;
        for (ColumnDescriptorBase* column : base)
            typed.Push(static_cast<ColumnDescriptor<ColumnId>*>(column));
        return typed;
    }

    HeaderId id;
};

template <typename ColumnId = short, typename HeaderId = short>
class ColumnManager : public ColumnManagerBase {
public:
    using Column = ColumnDescriptor<ColumnId>;
    using Header = HeaderDescriptor<ColumnId, HeaderId>;

    struct ColumnState {
        bool visible = true;
        float width = 0.0f;
        bool operator==(const ColumnState&) const = default;
    };
    // Visibility and width of every column by id, in the manager's column order.
    struct State {
        NK::HashTable<ColumnId, ColumnState> columns;
        bool operator==(const State& other) const { return columns == other.columns; }
    };

    // A header with that id; an id given twice is a precondition failure and returns the
    // header that has it.
    Header& AddHeader(HeaderId id, const NK::UniString& text = {})
    {
        if (Header* present = GetHeader(id); !IdIsNew(present == nullptr, "header id is new"))
            return *present;
        Header& added = static_cast<Header&>(AddBaseHeader(NK::NewOwned<Header>(id, text)));
        headerById.Add(id, &added);
        return added;
    }

    // A column under `header`; an id given twice is a precondition failure and returns the column
    // that has it.
    Column& AddColumn(ColumnId id, Header& header, NK::Owner<IColumn> column)
    {
        if (Column* present = GetColumn(id); !IdIsNew(present == nullptr, "column id is new"))
            return *present;
        Column& added = static_cast<Column&>(AddBaseColumn(NK::NewOwned<Column>(id, std::move(column)), &header));
        columnById.Add(id, &added);
        return added;
    }
    Column& AddFixedColumn(ColumnId id, Header& header, float width)
    {
        return AddColumn(id, header, NK::NewOwned<FixedColumn>(width));
    }
    Column& AddProportionalColumn(ColumnId id, Header& header, float minWidth, float width)
    {
        return AddColumn(id, header, NK::NewOwned<ProportionalColumn>(minWidth, width));
    }

    Column* GetColumn(ColumnId id) const
    {
        Column* const* found = columnById.GetPtr(id);
        return found != nullptr ? *found : nullptr;
    }
    Header* GetHeader(HeaderId id) const
    {
        Header* const* found = headerById.GetPtr(id);
        return found != nullptr ? *found : nullptr;
    }
    NK::Array<Column*> GetColumns() const { return TypedColumns(GetAllBaseColumns()); }
    NK::Array<Column*> GetVisibleColumns() const { return TypedColumns(GetVisibleBaseColumns()); }
    NK::Array<Header*> GetHeaders() const { return TypedHeaders(GetAllBaseHeaders()); }
    NK::Array<Header*> GetVisibleHeaders() const { return TypedHeaders(GetVisibleBaseHeaders()); }

    // The tab field (from 1) showing the column; 0 when it is hidden or unknown.
    short GetTabIndex(ColumnId id) const
    {
        NK::Array<ColumnDescriptorBase*> visible = GetVisibleBaseColumns();
        const Column* column = GetColumn(id);
        NK::UIndex index = visible.FindFirst(static_cast<ColumnDescriptorBase*>(const_cast<Column*>(column)));
        return column == nullptr || index == NK::MaxUIndex ? 0 : static_cast<short>(index + 1);
    }
    // The column shown in a tab field (from 1); null when there is none.
    Column* GetColumnOfTab(short tab) const
    {
        NK::Array<ColumnDescriptorBase*> visible = GetVisibleBaseColumns();
        if (tab < 1 || static_cast<NK::UIndex>(tab) > visible.GetSize())
            return nullptr;
        return static_cast<Column*>(visible[static_cast<NK::UIndex>(tab) - 1]);
    }

    State GetState() const
    {
        State state;
        for (Column* column : GetColumns())
            state.columns.Add(column->GetId(), ColumnState {column->IsVisible(), column->GetWidth()});
        return state;
    }

    // A width that is not a length of the 16-bit range (NaN, infinite, negative, past 32767) is
    // reported ("width is a pixel length") and that column's width is left as it is.
    void ApplyState(const State& state)
    {
        for (const auto& entry : state.columns) {
            Column* column = GetColumn(entry.first);
            if (column == nullptr)
                continue;
            column->SetVisible(entry.second.visible);
            if (!IsValidWidth(entry.second.width))
                continue;
            if (column->GetWidth() != entry.second.width)
                column->SetWidth(entry.second.width);
        }
    }

private:
    static NK::Array<Column*> TypedColumns(const NK::Array<ColumnDescriptorBase*>& base)
    {
        NK::Array<Column*> typed;
        for (ColumnDescriptorBase* column : base)
            typed.Push(static_cast<Column*>(column));
        return typed;
    }
    static NK::Array<Header*> TypedHeaders(const NK::Array<HeaderDescriptorBase*>& base)
    {
        NK::Array<Header*> typed;
        for (HeaderDescriptorBase* header : base)
            typed.Push(static_cast<Header*>(header));
        return typed;
    }

    NK::HashTable<ColumnId, Column*> columnById;
    NK::HashTable<HeaderId, Header*> headerById;
};

}  // namespace WZ
