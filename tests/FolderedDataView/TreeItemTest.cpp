#include "FDVTestModel.hpp"

#include "WZSources/CompoundControls/FolderedDataView/WZFolderableHierarchicalItemId.hpp"
#include "WZSources/CompoundControls/FolderedDataView/WZFolderableHierarchicalTreeItem.hpp"
#include "WZSources/CompoundControls/FolderedDataView/WZFolderableTreeViewDecorator.hpp"
#include "QM/QMPanel.hpp"
#include "QM/QMTreeView.hpp"

#include <gtest/gtest.h>

#include <functional>

namespace {

using namespace FDVTest;
using WZ::Folderable::HierarchicalItemId;
using WZ::Folderable::HierarchicalTreeItem;
using WZ::Folderable::HierarchicalTreeItemContentComparator;
using WZ::Folderable::HierarchicalTreeItemIdComparator;
using WZ::Folderable::TreeItem;

struct Look {
    NK::UniString name = "Cookbooks";
    NK::Optional<QM::Icon> icon = QM::Icon(5, 12);
    QM::Font::Style style = QM::Font::Bold;
    NK::Optional<QM::Color> text = QM::Color(10, 20, 30);
    NK::Optional<QM::Color> background;
    NK::Optional<NK::UniString> toolTip = NK::UniString("Shelf 1");
};

class TreeItemTest : public ::testing::Test {
protected:
    template <typename Item = TreeItem>
    NK::Owner<Item> Make(const Look& look) const
    {
        return NK::NewOwned<Item>(model, look.name, look.icon, look.style, look.text, look.background, look.toolTip);
    }

    NamedItem model {"books"};
};

TEST_F(TreeItemTest, ContentEqualityCoversWhatIsDrawnButNotTheTooltip)
{
    auto base = Make(Look {});
    Look other;
    other.toolTip = NK::UniString("another tooltip");
    EXPECT_TRUE(base->IsEqual(*Make(other))) << "a tooltip change alone is not a content change";

    const std::pair<const char*, std::function<void(Look&)>> differences[] = {
        {"name", [](Look& l) { l.name = "Novels"; }},
        {"no icon", [](Look& l) { l.icon.reset(); }},
        {"other icon", [](Look& l) { l.icon = QM::Icon(5, 13); }},
        {"style", [](Look& l) { l.style = QM::Font::Italic; }},
        {"no text colour", [](Look& l) { l.text.reset(); }},
        {"other text colour", [](Look& l) { l.text = QM::Color(10, 20, 31); }},
        {"a background", [](Look& l) { l.background = QM::Color(0, 0, 0); }},
    };
    for (const auto& [what, change] : differences) {
        Look look;
        change(look);
        EXPECT_FALSE(base->IsEqual(*Make(look))) << what;
        EXPECT_FALSE(Make(look)->IsEqual(*base)) << what;
    }

    struct Foreign : WZ::TreeDiffable {
        NK::Guid GetId() const override { return NK::Guid::FromNumber(0, 1); }
        bool IsEqual(const WZ::TreeDiffable&) const override { return true; }
        NK::Array<const WZ::TreeDiffable*> GetDiffableChildren() const override { return {}; }
    } foreign;
    EXPECT_FALSE(base->IsEqual(foreign)) << "an item of another kind";
}

TEST_F(TreeItemTest, RowIdsCompareByGuidAndContentByItem)
{
    auto row = Make<HierarchicalTreeItem>(Look {});
    auto sameLook = Make<HierarchicalTreeItem>(Look {});
    Look renamed;
    renamed.name = "Atlases";
    auto otherLook = Make<HierarchicalTreeItem>(renamed);

    const HierarchicalItemId root, id(*row), sameId(*sameLook), otherId(*otherLook);
    EXPECT_TRUE(root.IsVirtualRoot());
    EXPECT_FALSE(id.IsVirtualRoot());
    HierarchicalTreeItemIdComparator sameRow;
    EXPECT_TRUE(sameRow(id, otherId)) << "same model item, same Guid";
    EXPECT_FALSE(sameRow(id, root));
    EXPECT_TRUE(sameRow(id, model.GetId()));
    EXPECT_TRUE(sameRow(root, HierarchicalItemId::virtualRootId));

    HierarchicalTreeItemContentComparator sameContent;
    EXPECT_TRUE(sameContent(root, root)) << "both refer to no item: the same object";
    EXPECT_TRUE(sameContent(id, sameId));
    EXPECT_FALSE(sameContent(id, otherId));
    EXPECT_FALSE(sameContent(root, id));
}

TEST_F(TreeItemTest, DecoratorWritesIconNameAndStyleButNoColours)
{
    QM::Panel panel(200, 200);
    QM::TreeView tree(panel, QM::Rect(0, 0, 200, 200));
    const int node = tree.AppendItem(QM::TreeView::RootItem);
    WZ::Folderable::TreeViewDecorator decorator;
    WZ::UntypedTreeViewDecorator& untyped = decorator;

    Look look;
    look.background = QM::Color(1, 2, 3);
    untyped.Decorate(tree, node, *Make(look));
    EXPECT_EQ(tree.GetItemText(node), NK::UniString("Cookbooks"));
    EXPECT_EQ(tree.GetItemFontStyle(node), QM::Font::Bold);
    EXPECT_FALSE(tree.GetItemColor(node).has_value() || tree.GetItemBackgroundColor(node).has_value());

    Look plain;
    plain.icon.reset();
    plain.style = QM::Font::Plain;
    untyped.Decorate(tree, node, *Make(plain));
    EXPECT_EQ(tree.GetItemNormalIcon(node), QM::Icon(5, 12)) << "an item without icon leaves the node's icon";
    EXPECT_EQ(tree.GetItemFontStyle(node), QM::Font::Plain);
}

}  // namespace
