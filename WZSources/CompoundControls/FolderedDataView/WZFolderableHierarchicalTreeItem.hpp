// WZ::Folderable::HierarchicalTreeItem: a row of the hierarchical table view. A tree item with
// per-column content that a client showing columns overrides; the defaults show nothing extra.
// Its children are hierarchical rows too (the hierarchical view's factory makes only these),
// which is what GetChildren's narrowing relies on.
#pragma once

#include "WZSources/CompoundControls/FolderedDataView/WZFolderableTreeItem.hpp"

#include <vector>

namespace WZ::Folderable {

class HierarchicalTreeItem : public TreeItem {
public:
    using TreeItem::TreeItem;
    ~HierarchicalTreeItem() override;

    // The text of the column `columnId`; empty by default.
    virtual NK::UniString GetString(const NK::UniString& columnId) const;
    // The icons of the column; none by default.
    virtual std::vector<QM::Icon> GetIcons(const NK::UniString& columnId) const;
    virtual NK::UniString GetTooltipText() const;
    // The row's font style; by default every bit set, meaning "no style of its own". The style
    // stored in the tree item is not consulted here.
    virtual QM::Font::Style GetFontStyle() const;
    virtual NK::Optional<QM::Color> GetBackgroundColor(const NK::UniString& columnId) const;

    NK::Array<HierarchicalTreeItem*> GetChildren();
    NK::Array<const HierarchicalTreeItem*> GetChildren() const;

    static constexpr QM::Font::Style NoFontStyle = static_cast<QM::Font::Style>(0xFF);
};

}  // namespace WZ::Folderable
