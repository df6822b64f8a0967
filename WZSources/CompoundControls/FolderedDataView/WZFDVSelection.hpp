// WZ::Folderable::Selection: the selected model items of a foldered data view, in the order the
// view reports them. Two selections are equal when they hold the same item addresses in the same
// order: the same items in another order are another selection.
#pragma once

#include "NK/NKArray.hpp"

#include <initializer_list>
#include <utility>

namespace WZ::Folderable {

class ModelItem;

class Selection {
public:
    Selection() = default;
    explicit Selection(NK::Array<const ModelItem*> items) : items(std::move(items)) {}
    Selection(std::initializer_list<const ModelItem*> items) : items(items) {}

    bool IsEmpty() const noexcept { return items.IsEmpty(); }
    NK::UIndex GetSize() const noexcept { return items.GetSize(); }
    const NK::Array<const ModelItem*>& GetItems() const noexcept { return items; }

    bool operator==(const Selection& other) const;
    bool operator!=(const Selection& other) const { return !(*this == other); }

private:
    NK::Array<const ModelItem*> items;
};

}  // namespace WZ::Folderable
