// WZ::RowDecorator<Item>: writes one cell — the tab field of one column — of a list box row for
// its item. A columned list view has one decorator per column; hidden columns are not written.
// Most columns show a text, or an icon and a text, taken from the item: MakeTextDecorator and
// MakeIconTextDecorator build those from a function, MakeRowDecorator from any callable taking
// (QM::ListBox&, short row, short tab, const Item&).
#pragma once

#include "NK/NKPointers.hpp"
#include "NK/NKUniString.hpp"
#include "QM/QMIcon.hpp"
#include "QM/QMListBox.hpp"

#include <functional>
#include <utility>

namespace WZ {

template <typename Item>
class RowDecorator {
public:
    virtual void DecorateCell(QM::ListBox& listBox, short row, short tab, const Item& item) const = 0;
    virtual ~RowDecorator() = default;
};

template <typename Item, typename Fn>
class FunctionRowDecorator : public RowDecorator<Item> {
public:
    explicit FunctionRowDecorator(Fn fn) : fn(std::move(fn)) {}
    void DecorateCell(QM::ListBox& listBox, short row, short tab, const Item& item) const override
    {
        fn(listBox, row, tab, item);
    }

private:
    Fn fn;
};

template <typename Item, typename Fn>
NK::Owner<RowDecorator<Item>> MakeRowDecorator(Fn fn)
{
    return NK::NewOwned<FunctionRowDecorator<Item, Fn>>(std::move(fn));
}

template <typename Item>
NK::Owner<RowDecorator<Item>> MakeTextDecorator(std::function<NK::UniString(const Item&)> text)
{
    return MakeRowDecorator<Item>([text = std::move(text)](QM::ListBox& listBox, short row, short tab, const Item& item) {
        listBox.SetTabItemText(row, tab, text(item));
    });
}

template <typename Item>
NK::Owner<RowDecorator<Item>> MakeIconTextDecorator(std::function<QM::Icon(const Item&)> icon,
                                                    std::function<NK::UniString(const Item&)> text)
{
    return MakeRowDecorator<Item>([icon = std::move(icon), text = std::move(text)](QM::ListBox& listBox, short row,
                                                                                   short tab, const Item& item) {
        listBox.SetTabItemIcon(row, tab, icon(item));
        listBox.SetTabItemText(row, tab, text(item));
    });
}

}  // namespace WZ
