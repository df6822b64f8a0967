#include "FDVTestModel.hpp"

#include "WZSources/CompoundControls/FolderedDataView/WZFolderableHierarchicalItemId.hpp"
#include "WZSources/CompoundControls/FolderedDataView/WZFolderableHierarchicalTreeItem.hpp"
#include "WZSources/CompoundControls/FolderedDataView/WZFolderableTreeViewDecorator.hpp"
#include "QM/QMPanel.hpp"
#include "QM/QMTreeView.hpp"

#include <gtest/gtest.h>

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
    other.toolTip.reset();
    EXPECT_TRUE(base->IsEqual(*Make(other)));

    std::vector<std::pair<const char*, Look>> differences;
    differences.push_back({"name", Look {}});
    differences.back().second.name = "Novels";
    differences.push_back({"no icon", Look {}});
    differences.back().second.icon.reset();
    differences.push_back({"other icon", Look {}});
    differences.back().second.icon = QM::Icon(5, 13);
    differences.push_back({"style", Look {}});
    differences.back().second.style = QM::Font::Italic;
    differences.push_back({"no text colour", Look {}});
    differences.back().second.text.reset();
    differences.push_back({"other text colour", Look {}});
    differences.back().second.text = QM::Color(10, 20, 31);
    differences.push_back({"a background", Look {}});
    differences.back().second.background = QM::Color(0, 0, 0);
    for (const auto& [what, look] : differences) {
        EXPECT_FALSE(base->IsEqual(*Make(look))) << what;
        EXPECT_FALSE(Make(look)->IsEqual(*base)) << what;
    }
}

TEST_F(TreeItemTest, IsNotEqualToATreeItemOfAnotherKind)
{
    struct Foreign : WZ::TreeDiffable {
        NK::Guid GetId() const override { return NK::Guid::FromNumber(0, 1); }
        bool IsEqual(const WZ::TreeDiffable&) const override { return true; }
        NK::Array<const WZ::TreeDiffable*> GetDiffableChildren() const override { return {}; }
    } foreign;
    EXPECT_FALSE(Make(Look {})->IsEqual(foreign));
}

TEST_F(TreeItemTest, HierarchicalRowsShowNoColumnsOfTheirOwnByDefault)
{
    auto row = Make<HierarchicalTreeItem>(Look {});
    EXPECT_EQ(row->GetString("Name"), NK::UniString());
    EXPECT_TRUE(row->GetIcons("Name").empty());
    EXPECT_EQ(row->GetTooltipText(), NK::UniString()) << "the stored tooltip is not the row's";
    EXPECT_EQ(static_cast<int>(row->GetFontStyle()), 0xFF) << "every bit set: no style of its own";
    EXPECT_EQ(static_cast<const TreeItem&>(*row).GetFontStyle(), QM::Font::Bold);
    EXPECT_FALSE(row->GetBackgroundColor("Name").has_value());
}

TEST_F(TreeItemTest, RowIdsCompareByGuidAndContentByItem)
{
    auto row = Make<HierarchicalTreeItem>(Look {});
    auto sameLook = Make<HierarchicalTreeItem>(Look {});
    Look renamed;
    renamed.name = "Atlases";
    auto otherLook = Make<HierarchicalTreeItem>(renamed);

    const HierarchicalItemId root;
    EXPECT_EQ(root.id.ToString(), "{52A9B915-21A6-4926-94B1-A8E678EE2CFB}");
    EXPECT_TRUE(root.IsVirtualRoot());

    const HierarchicalItemId id(*row), sameId(*sameLook), otherId(*otherLook);
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
    EXPECT_EQ(tree.GetItemNormalIcon(node), QM::Icon(5, 12));
    EXPECT_EQ(tree.GetItemFontStyle(node), QM::Font::Bold);
    EXPECT_FALSE(tree.GetItemColor(node).has_value());
    EXPECT_FALSE(tree.GetItemBackgroundColor(node).has_value());

    Look plain;
    plain.name = "Atlases";
    plain.icon.reset();
    plain.style = QM::Font::Plain;
    untyped.Decorate(tree, node, *Make(plain));
    EXPECT_EQ(tree.GetItemText(node), NK::UniString("Atlases"));
    EXPECT_EQ(tree.GetItemNormalIcon(node), QM::Icon(5, 12)) << "an item without icon leaves the node's icon";
    EXPECT_EQ(tree.GetItemFontStyle(node), QM::Font::Plain);
}

}  // namespace
