// WZ::ListBoxLayout<ListSetup>: the row layout of a homogeneous list view. It owns a typed column
// manager and one row decorator per column id, and writes a row by letting each visible
// column's decorator fill its tab field (visible column i is tab field i).
//
// ListSetup names the types of the list:
//   Item      the row type, derived from WZ::Diffable (required);
//   ColumnId  the columns' ids (short when not given);
//   HeaderId  the headers' ids (the column id type when not given);
//   ModelItem the model item a row leads back to (optional; see WZHomogenListBoxView.hpp).
#pragma once

#include "NK/NKHashTable.hpp"
#include "WZSources/ColumnModel/WZColumnManager.hpp"
#include "WZSources/Diff/WZDiffable.hpp"
#include "WZSources/ListBoxView/WZListBoxLayoutBase.hpp"
#include "WZSources/ListBoxView/WZRowDecorator.hpp"

#include <concepts>

namespace WZ {

namespace ListSetupTypes {

template <typename S>
struct ColumnIdOf {
    using Type = short;
};
template <typename S>
    requires requires { typename S::ColumnId; }
struct ColumnIdOf<S> {
    using Type = typename S::ColumnId;
};

template <typename S>
struct HeaderIdOf {
    using Type = typename ColumnIdOf<S>::Type;
};
template <typename S>
    requires requires { typename S::HeaderId; }
struct HeaderIdOf<S> {
    using Type = typename S::HeaderId;
};

}  // namespace ListSetupTypes

template <typename ListSetup>
class ListBoxLayout : public LayoutBase {
public:
    using Item = typename ListSetup::Item;
    using ColumnId = typename ListSetupTypes::ColumnIdOf<ListSetup>::Type;
    using HeaderId = typename ListSetupTypes::HeaderIdOf<ListSetup>::Type;
    using Manager = ColumnManager<ColumnId, HeaderId>;
    static_assert(std::derived_from<Item, Diffable>, "the rows of a list view are Diffable items");

    Manager& GetColumnManager() noexcept { return manager; }
    const Manager& GetColumnManager() const noexcept { return manager; }
    ColumnManagerBase& GetBaseColumnManager() override { return manager; }

    // The decorator of the column; a second one replaces the first.
    void SetDecorator(ColumnId id, NK::Owner<RowDecorator<Item>> decorator) { decorators.Put(id, std::move(decorator)); }
    const RowDecorator<Item>* GetDecorator(ColumnId id) const
    {
        const NK::Owner<RowDecorator<Item>>* found = decorators.GetPtr(id);
        return found != nullptr ? found->Get() : nullptr;
    }

    void DecorateRow(QM::ListBox& listBox, short row, const Diffable& item) const override
    {
        const Item& typed = static_cast<const Item&>(item);
        short tab = 1;
        for (const auto* column : manager.GetVisibleColumns()) {
            if (const RowDecorator<Item>* decorator = GetDecorator(column->GetId()))
                decorator->DecorateCell(listBox, row, tab, typed);
            ++tab;
        }
    }

private:
    Manager manager;
    NK::HashTable<ColumnId, NK::Owner<RowDecorator<Item>>> decorators;
};

}  // namespace WZ
