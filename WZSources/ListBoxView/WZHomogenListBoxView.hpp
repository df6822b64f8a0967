// WZ::HomogenListBoxView<ListSetup>: a columned list of one kind of item over one toolkit list
// box. The client describes its columns once — an id, a header, a width model and a decorator
// that fills the column's cell — and then hands over a complete new list of items whenever its
// data changes; the view shows one row per item in the order given, changing only the rows
// whose items were inserted, deleted, moved or changed (WZ::SmartListBoxUpdater), and keeps the
// selection by id when asked to.
//
//   struct FileList { using Item = FileRow; };        // column ids are short
//   WZ::HomogenListBoxView<FileList> view(listBox);
//   view.AddTextColumn(1, "Name", NK::NewOwned<WZ::ProportionalColumn>(60, 200),
//                      [](const FileRow& f) { return f.name; });
//   view.AddTextColumn(2, "Size", NK::NewOwned<WZ::FixedColumn>(70),
//                      [](const FileRow& f) { return f.sizeText; });
//   view.SetupColumns();
//   view.SetItems(std::move(rows));                    // NK::Array<NK::Owner<FileRow>>
//
// The view owns the rows it shows; each row's id leads back to it (GetItem) and, when ListSetup
// names a ModelItem type, to the client's model item (WZ::ModelItemSource, through the resolver
// the client sets).
#pragma once

#include "WZSources/Diff/WZSmartListBoxUpdater.hpp"
#include "WZSources/ListBoxView/WZListBoxLayout.hpp"
#include "WZSources/ListBoxView/WZModelItemSource.hpp"
#include "WZSources/ListBoxView/WZUntypedListBoxView.hpp"

#include <functional>

namespace WZ {

namespace ListSetupTypes {

// The view's base that leads rows to model items, or an empty one when the setup has no model.
struct NoModelItemSource {
protected:
    virtual bool ShowsId(const NK::Guid&) const = 0;
    virtual NK::Guid GetIdOfRow(short row) const = 0;
    ~NoModelItemSource() = default;
};

template <typename S>
struct ModelItemSourceOf {
    using Type = NoModelItemSource;
};
template <typename S>
    requires requires { typename S::ModelItem; }
struct ModelItemSourceOf<S> {
    using Type = ModelItemSource<typename S::Item, typename S::ModelItem>;
};

}  // namespace ListSetupTypes

template <typename ListSetup>
class HomogenListBoxView : public UntypedListBoxView, public ListSetupTypes::ModelItemSourceOf<ListSetup>::Type {
public:
    using Layout = ListBoxLayout<ListSetup>;
    using Item = typename Layout::Item;
    using ColumnId = typename Layout::ColumnId;
    using HeaderId = typename Layout::HeaderId;
    using Manager = typename Layout::Manager;
    using Column = typename Manager::Column;
    using Header = typename Manager::Header;
    using ColumnState = typename Manager::State;
    using SelectionKeeper = SmartListBoxUpdater::SelectionKeeper;

    explicit HomogenListBoxView(QM::ListBox& listBox)
        : UntypedListBoxView(listBox, NK::NewOwned<Layout>()),
          updater(&listBox, &GetLayout(), NK::NewOwned<SmartListBoxUpdater::DefaultDeallocator>())
    {
    }

    Layout& GetLayout() const { return static_cast<Layout&>(GetBaseLayout()); }
    Manager& GetColumnManager() const { return GetLayout().GetColumnManager(); }
    const SmartListBoxUpdater& GetUpdater() const noexcept { return updater; }

    // Columns. Call SetupColumns once they are described, and again after changing them.
    Header& AddHeader(HeaderId id, const NK::UniString& title) { return GetColumnManager().AddHeader(id, title); }
    Column& AddColumn(ColumnId id, Header& header, NK::Owner<IColumn> width, NK::Owner<RowDecorator<Item>> decorator)
    {
        Column& column = GetColumnManager().AddColumn(id, header, std::move(width));
        GetLayout().SetDecorator(id, std::move(decorator));
        return column;
    }
    // A column under a header of its own, which takes the column's id.
    Column& AddColumn(ColumnId id, const NK::UniString& title, NK::Owner<IColumn> width,
                      NK::Owner<RowDecorator<Item>> decorator)
        requires std::same_as<ColumnId, HeaderId>
    {
        return AddColumn(id, AddHeader(id, title), std::move(width), std::move(decorator));
    }
    Column& AddTextColumn(ColumnId id, const NK::UniString& title, NK::Owner<IColumn> width,
                          std::function<NK::UniString(const Item&)> text)
        requires std::same_as<ColumnId, HeaderId>
    {
        return AddColumn(id, title, std::move(width), MakeTextDecorator<Item>(std::move(text)));
    }

    ColumnState GetColumnState() const { return GetColumnManager().GetState(); }
    // Takes the columns' visibility and widths from the state and shows them.
    void ApplyColumnState(const ColumnState& state)
    {
        GetColumnManager().ApplyState(state);
        SetupColumns();
    }

    // Shows these items, one row each in this order; the view owns them from now on. The
    // returned keeper restores the selection by id (RestoreByItemIds).
    SelectionKeeper SetItems(NK::Array<NK::Owner<Item>>&& newItems)
    {
        NK::Array<const Diffable*> rows;
        rows.SetCapacity(newItems.GetSize());
        for (NK::Owner<Item>& item : newItems)
            rows.Push(item.Release());
        DrawSuspender suspender(GetListBox());
        return updater.SetItems(std::move(rows));
    }
    // The same for rows that a factory made and handed out as constant: the view takes them
    // over all the same and deletes them when it lets them go. A caller that switched drawing
    // off itself gets no redraw of its own.
    SelectionKeeper SetItems(NK::Array<const Item*>&& newItems)
    {
        NK::Array<const Diffable*> rows;
        rows.SetCapacity(newItems.GetSize());
        for (const Item* item : newItems)
            rows.Push(item);
        newItems.Clear();
        NK::Optional<DrawSuspender> suspender;
        if (GetListBox().IsDrawEnabled())
            suspender.emplace(GetListBox());
        return updater.SetItems(std::move(rows));
    }

    NK::UIndex GetItemCount() const noexcept { return updater.GetItems().GetSize(); }
    // The item of the row; null when the row shows none.
    const Item* GetItem(short row) const { return updater.HasItem(row) ? Typed(updater.GetItem(row)) : nullptr; }
    const Item* GetItem(const NK::Guid& id) const { return updater.HasItem(id) ? Typed(updater.GetItem(id)) : nullptr; }
    // The row of the id; 0 when it is not shown.
    short GetRow(const NK::Guid& id) const { return updater.GetRow(id); }
    NK::Array<const Item*> GetItems() const { return TypedItems(updater.GetItems()); }
    NK::Array<const Item*> GetSelectedItems() const { return TypedItems(updater.GetSelectedItems()); }
    NK::Array<NK::Guid> GetSelectedItemIds() const { return updater.GetSelectedItemIds(); }
    // Selects exactly the rows of those ids that are shown.
    void SelectItems(const NK::Array<NK::Guid>& ids)
    {
        NK::Array<short> rows;
        for (const NK::Guid& id : updater.GetContained(ids))
            rows.Push(updater.GetRow(id));
        GetListBox().DeselectItem(0);
        if (!rows.IsEmpty())
            GetListBox().SelectItems(rows);
    }

protected:
    void ColumnsChanged() override
    {
        for (const Diffable* item : updater.GetItems())
            if (!IsSeparatorItem(*item))
                updater.UpdateItem(item->GetId());
    }

    bool ShowsId(const NK::Guid& id) const override { return updater.HasItem(id); }
    NK::Guid GetIdOfRow(short row) const override { return updater.HasItem(row) ? updater.GetId(row) : NK::NullGuid; }

private:
    static const Item* Typed(const Diffable* item) { return static_cast<const Item*>(item); }
    static NK::Array<const Item*> TypedItems(const NK::Array<const Diffable*>& items)
    {
        NK::Array<const Item*> typed;
        typed.SetCapacity(items.GetSize());
        for (const Diffable* item : items)
            typed.Push(Typed(item));
        return typed;
    }

    SmartListBoxUpdater updater;
};

}  // namespace WZ
