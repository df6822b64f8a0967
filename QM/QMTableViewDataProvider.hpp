// What a hierarchical table view asks of its client, over the client's row key type:
// - QM::TableView::Hierarchical::DataProvider<Key>: the rows. The table starts every reload at
//   the virtual root (GetVirtualRoot, a key that names no row of its own) and asks for the
//   children of each row it loads. Keys are values; the table keeps copies. A reload compares
//   the keys it had with the ones it gets, so whatever a key points at must stay alive until
//   the reload that replaces it has returned.
// - QM::TableView::Hierarchical::Delegate<Key>: the cell contents, which the table never stores
//   (it asks when it shows a row), and the callbacks of what happened: selection, expansion,
//   double click, an accepted in-place edit, a column arrangement changed. Every callback has
//   an empty default, so a delegate implements only what it needs.
#pragma once

#include "NK/NKArray.hpp"
#include "NK/NKUniString.hpp"
#include "QM/QMColor.hpp"
#include "QM/QMFont.hpp"
#include "QM/QMIcon.hpp"
#include "QM/QMItem.hpp"

#include <optional>

namespace QM::TableView::Hierarchical {

template <typename Key>
class DataProvider {
public:
    virtual ~DataProvider() = default;

    virtual Key GetVirtualRoot() const = 0;
    // The children of a row (of the virtual root: the top-level rows), in display order.
    virtual NK::Array<Key> GetChildren(const Key& parent) const = 0;
};

template <typename Key>
class Delegate {
public:
    virtual ~Delegate() = default;

    // Contents, asked by column id.
    virtual NK::UniString GetCellText(const Key& /*node*/, const NK::UniString& /*columnId*/) const { return {}; }
    virtual NK::Array<Icon> GetCellIcons(const Key& /*node*/, const NK::UniString& /*columnId*/) const { return {}; }
    virtual NK::UniString GetTooltipText(const Key& /*node*/) const { return {}; }
    virtual Font::Style GetFontStyle(const Key& /*node*/) const { return Font::Plain; }
    virtual std::optional<Color> GetBackgroundColor(const Key& /*node*/, const NK::UniString& /*columnId*/) const
    {
        return std::nullopt;
    }

    // What happened. Selection: once per change of the selected set.
    virtual void SelectionChanged(Origin /*origin*/) {}
    virtual void NodeExpanded(const Key& /*node*/, Origin /*origin*/) {}
    virtual void NodeCollapsed(const Key& /*node*/, Origin /*origin*/) {}
    virtual void NodeDoubleClicked(const Key& /*node*/) {}
    // A user accepted an in-place edit; the table keeps no text, so the delegate applies it.
    virtual void NodeTextEdited(const Key& /*node*/, const NK::UniString& /*newText*/) {}
    virtual void ColumnLayoutChanged(Origin /*origin*/) {}
};

}  // namespace QM::TableView::Hierarchical
