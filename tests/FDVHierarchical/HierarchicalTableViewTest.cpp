#include "HierarchicalTestBench.hpp"

#include <gtest/gtest.h>

namespace {

using namespace FDVHierarchicalTest;
using GuidSet = HierarchicalTableView::GuidSet;

class FolderableHierarchicalTableTest : public ::testing::Test {
protected:
    FolderableHierarchicalTableTest() { Load(SampleForest()); }

    // Rows for the forest, as the hierarchical view's factory would make them.
    NK::Array<NK::Owner<HierarchicalTreeItem>> Rows(const NK::Array<NK::Owner<ModelItem>>& forest, TreeItemFactory& rowFactory)
    {
        rowFactory.SetItemFilter(static_cast<const TreeItemFactory::Filter*>(nullptr));
        NK::Array<NK::Owner<HierarchicalTreeItem>> rows;
        for (NK::Owner<TreeItem>& item : rowFactory.CreateTree(ModelItem::ToPtrArray(forest)))
            rows.Push(NK::Owner<HierarchicalTreeItem>(static_cast<HierarchicalTreeItem*>(item.Release())));
        return rows;
    }
    HierarchicalTableView::UpdateResult Load(const std::vector<Node>& nodes)
    {
        // The previous forest stays alive until the rows made from it are gone.
        previousForest = std::move(forest);
        forest = BuildForest(nodes);
        return table.SetItems(Rows(forest, factory));
    }
    std::string Selected() const { return FDVTest::Names(table.GetSelectedModelItems()); }
    NameList Expanded() const
    {
        NameList names;
        for (const auto& node : table.GetExpandedNodes())
            names.push_back(node.item->GetDisplayName().ToUtf8());
        return names;
    }

    QM::Dialog dialog {"Browser", 400, 300};
    HierarchicalTableView table {dialog, QM::Rect(0, 0, 400, 300)};
    RowFactory factory;
    NK::Array<NK::Owner<ModelItem>> forest;
    NK::Array<NK::Owner<ModelItem>> previousForest;
};

TEST_F(FolderableHierarchicalTableTest, TheItemIndexKnowsEveryRowsParentAndDepth)
{
    const auto& index = table.GetHierarchicalDataProvider().GetItemIndex();
    ASSERT_EQ(index.GetSize(), 8u);
    const auto* detail = index.Find(IdOf("Dumplings"));
    ASSERT_NE(detail, nullptr);
    EXPECT_EQ(detail->parentId, IdOf("Spinach"));
    EXPECT_EQ(detail->depth, 3);
    EXPECT_EQ(index.Find(IdOf("Recipes"))->parentId, WZ::Folderable::HierarchicalItemId::virtualRootId);
    EXPECT_EQ(index.Find(IdOf("Nowhere")), nullptr);

    // Levels from the top, each in display order.
    const auto& levels = index.GetLevels();
    ASSERT_EQ(levels.GetSize(), 4u);
    EXPECT_EQ(levels[0].GetSize(), 2u);
    EXPECT_EQ(levels[1].GetSize(), 3u);  // Vegetables, Stews, Muffins
    EXPECT_EQ(levels[3][0], IdOf("Dumplings"));

    // Ancestors stop below the virtual root; unknown ids add nothing; shared paths appear once.
    GuidSet ancestors = table.GetHierarchicalDataProvider().GetAllAncestorsOfItems(
        {IdOf("Dumplings"), IdOf("Peppers"), IdOf("Muffins"), IdOf("Nowhere")});
    EXPECT_EQ(ancestors.GetSize(), 4u);
    for (const char* name : {"Spinach", "Vegetables", "Recipes", "Nibbles"})
        EXPECT_TRUE(ancestors.Contains(IdOf(name))) << name;
    EXPECT_TRUE(table.GetHierarchicalDataProvider().GetAllAncestorsOfItems({IdOf("Recipes")}).IsEmpty());
}

TEST_F(FolderableHierarchicalTableTest, RowsShowDisplayNamesInTheTreeColumnAndStringsElsewhere)
{
    factory.displayNames["Muffins"] = "Mini muffins";
    Load(SampleForest());
    table.ExpandItem(IdOf("Nibbles"));
    // The first shown column carries the names; the others the rows' own strings.
    table.SetColumns({QM::TableView::Column {"size", "Size", 50, false}, QM::TableView::Column {"name", "Name", 200, true},
                      QM::TableView::Column {"size2", "Size", 50, true}});
    EXPECT_EQ(Render(table), "#1 TableView (0, 0, 400, 300)\n"
                             "  columns: Name (200) | Size (50)\n"
                             "    [-] Nibbles | \n"
                             "          Mini muffins | \n"
                             "    [+] Recipes | \n");
    table.SetColumns({QM::TableView::Column {"name", "Name", 200, true}, QM::TableView::Column {"size", "Size", 50, true}});
    EXPECT_EQ(Render(table), "#1 TableView (0, 0, 400, 300)\n"
                             "  columns: Name (200) | Size (50)\n"
                             "    [-] Nibbles | 7\n"
                             "          Mini muffins | 12\n"
                             "    [+] Recipes | 7\n");
}

TEST_F(FolderableHierarchicalTableTest, SetItemsClearsTheSelectionAndReturnsWhatWasOpenAndSelected)
{
    table.ExpandItem(IdOf("Recipes"));
    table.ExpandItem(IdOf("Vegetables"));
    table.SelectItems({IdOf("Peppers"), IdOf("Stews")}, {});
    ASSERT_EQ(Selected(), "Stews Peppers");  // display order
    factory.displayNames["Vegetables"] = "Vegetables (renamed)";  // changed content: the toolkit resets the row

    HierarchicalTableView::UpdateResult result = Load(SampleForest());

    EXPECT_EQ(Selected(), "");
    EXPECT_FALSE(table.IsExpandedItem(IdOf("Vegetables")));
    EXPECT_TRUE(table.IsExpandedItem(IdOf("Recipes")));  // unchanged rows keep their state
    ASSERT_NE(result.selectionRestorer, nullptr);
    EXPECT_EQ(result.selectionRestorer->GetSelectedIds(), (NK::Array<NK::Guid> {IdOf("Stews"), IdOf("Peppers")}));
    EXPECT_TRUE(result.selectionRestorer->GetAncestorIds().Contains(IdOf("Vegetables")));

    result.expandRestorer->Restore();
    result.selectionRestorer->Restore();
    EXPECT_TRUE(table.IsExpandedItem(IdOf("Vegetables")));
    EXPECT_EQ(Selected(), "Stews Peppers");
    // The selection now names the new forest's items.
    EXPECT_EQ(table.GetSelectedModelItems()[1], Find(forest, "Peppers"));
}

TEST_F(FolderableHierarchicalTableTest, ATooltipChangeAloneKeepsTheRowAsItWas)
{
    table.ExpandItem(IdOf("Recipes"));
    table.ResetJournal();
    factory.toolTip = NK::UniString("new tip");
    Load(SampleForest());

    EXPECT_EQ(table.GetJournal().GetCount(QM::Op::RedrawItem), 0u);
    EXPECT_EQ(table.GetJournal().GetCount(QM::Op::InsertItem), 0u);
    EXPECT_TRUE(table.IsExpandedItem(IdOf("Recipes")));
}

// Restoring ids opens the paths to them and closes the rest; every id-based operation ignores
// ids that name no row, without a report.
TEST_F(FolderableHierarchicalTableTest, ExpansionByIdOpensPathsAndIgnoresUnknownIds)
{
    NK::AssertCapture capture;
    table.ExpandItem(IdOf("Nibbles"));
    table.RestoreExpandedItemsByIds(GuidSet {IdOf("Spinach"), IdOf("Gone")});
    EXPECT_EQ(Expanded(), (NameList {"Recipes", "Vegetables", "Spinach"}));
    table.RestoreExpandedItemsByIds(GuidSet {});
    EXPECT_TRUE(Expanded().empty());

    table.ToggleOpenness(IdOf("Recipes"));
    EXPECT_TRUE(table.IsExpandedItem(IdOf("Recipes")));
    table.ToggleOpenness(IdOf("Recipes"));
    table.ExpandItems(GuidSet {IdOf("Nibbles"), IdOf("Gone")});
    EXPECT_EQ(Expanded(), (NameList {"Nibbles"}));
    table.CollapseItem(IdOf("Nibbles"));
    table.CollapseItem(IdOf("Gone"));
    table.ScrollToNode(IdOf("Gone"));
    EXPECT_FALSE(table.IsExpandedItem(IdOf("Gone")));
    EXPECT_FALSE(table.GetRowIndex(IdOf("Gone")).has_value());
    EXPECT_TRUE(Expanded().empty());
    EXPECT_TRUE(capture.GetReports().empty());
}

TEST_F(FolderableHierarchicalTableTest, SelectingItemsOpensTheirFoldersAndScrollsToTheFirstOfSeveral)
{
    table.SelectItems({IdOf("Dumplings")}, table.GetHierarchicalDataProvider().GetAllAncestorsOfItems({IdOf("Dumplings")}));
    EXPECT_EQ(Selected(), "Dumplings");
    EXPECT_EQ(table.GetRowIndex(IdOf("Dumplings")), std::optional<int>(6));  // Nibbles, Recipes, Stews, Vegetables, Peppers, Spinach, Dumplings

    // Enough rows that the first selected one lies below the visible part.
    std::vector<Node> many;
    for (int i = 0; i < 40; ++i)
        many.push_back(Node("Item" + std::to_string(100 + i)));
    many.push_back(Node("Zfolder", {Node("Zdeep")}));
    Load(many);
    table.SelectItems({IdOf("Zdeep"), IdOf("Item139")}, GuidSet {IdOf("Zfolder")});
    EXPECT_EQ(Selected(), "Item139 Zdeep");
    const int first = *table.GetRowIndex(IdOf("Item139"));
    EXPECT_GE(first, table.GetScrollPosition());
    EXPECT_LT(first, table.GetScrollPosition() + table.GetVisibleRowCount());

    // Ids that name no row are left out; none at all clears the selection.
    table.SelectItems({IdOf("Gone"), IdOf("Item100")}, {});
    EXPECT_EQ(Selected(), "Item100");
    table.SelectItems({}, {});
    EXPECT_EQ(Selected(), "");
}

TEST_F(FolderableHierarchicalTableTest, TheUserDelegateHearsOfSelectionChangesWhileItIsSet)
{
    struct : HierarchicalTableView::UserDelegate {
        void SelectionChanged() override { ++changes; }
        int changes = 0;
    } user;
    table.SetUserDelegate(&user);
    ASSERT_TRUE(table.SimulateUserSelectNode(IdOf("Nibbles")));
    EXPECT_EQ(user.changes, 1);
    table.SetUserDelegate(nullptr);
    ASSERT_TRUE(table.SimulateUserSelectNode(IdOf("Recipes")));
    EXPECT_EQ(user.changes, 1);
    EXPECT_EQ(Selected(), "Recipes");
}

TEST_F(FolderableHierarchicalTableTest, TheFirstNonSelectedRowIsLookedForAfterTheSelectionThenBeforeIt)
{
    EXPECT_EQ(table.GetFirstNonSelectedItemAfterSelection(), nullptr);
    table.ExpandItem(IdOf("Recipes"));  // Nibbles, Recipes, Stews, Vegetables
    table.SelectItems({IdOf("Recipes")}, {});
    EXPECT_EQ(table.GetFirstNonSelectedItemAfterSelection(), Find(forest, "Stews"));
    table.SelectItems({IdOf("Stews"), IdOf("Vegetables")}, {});
    EXPECT_EQ(table.GetFirstNonSelectedItemAfterSelection(), Find(forest, "Recipes"));
    table.SelectItems({IdOf("Nibbles"), IdOf("Recipes"), IdOf("Stews"), IdOf("Vegetables")}, {});
    EXPECT_EQ(table.GetFirstNonSelectedItemAfterSelection(), nullptr);
}

TEST_F(FolderableHierarchicalTableTest, TextEditOpensOnASingleSelectedRowOfAKnownColumn)
{
    EXPECT_FALSE(table.ActivateTextEditModeOnSelectedNode({}));
    table.SelectItems({IdOf("Muffins")}, {});
    EXPECT_TRUE(table.ActivateTextEditModeOnSelectedNode({}));
    ASSERT_TRUE(table.GetEditedNode().has_value());
    EXPECT_EQ(table.GetEditedNode()->id, IdOf("Muffins"));

    table.SetColumns({QM::TableView::Column {"name", "Name", 200, true}});
    NK::AssertCapture capture;
    EXPECT_FALSE(table.ActivateTextEditModeOnSelectedNode("size"));
    EXPECT_EQ(capture.GetReports().size(), 1u);
}

TEST_F(FolderableHierarchicalTableTest, ARepeatedIdIsReportedWhenALookupMeetsIt)
{
    // Two rows named "Twin" share an id.
    Load({Node("A", {Node("Twin", {Node("x")})}), Node("B", {Node("Twin", {Node("y")})})});
    NK::AssertCapture capture;
    table.IsExpandedItem(IdOf("Twin"));
    table.ExpandItem(IdOf("Twin"));
    EXPECT_EQ(capture.GetExpressions(), (std::vector<std::string> {"!nodeFound", "result == nullptr"}));
    EXPECT_TRUE(table.IsNodeExpanded(IdOf("Twin")));
}

}  // namespace
