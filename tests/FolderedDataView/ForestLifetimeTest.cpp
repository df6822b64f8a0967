// What the data view's views hold of a forest once SetItems has replaced it, and how they bear
// missing factories, null entries and very deep forests.
#include "FDVDataView/DataViewTestBench.hpp"

#include "NK/NKAssert.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <set>
#include <string>
#include <tuple>

namespace {

using namespace FDVDataViewTest;
using WZ::Folderable::TreeItem;

// Recipes(Soups(Minestrone, Borscht), Cakes(Sponge)), Pantry(Flour)
std::vector<Node> Recipes()
{
    return {Node("Recipes", {Node("Soups", {Node("Minestrone"), Node("Borscht")}), Node("Cakes", {Node("Sponge")})}),
            Node("Pantry", {Node("Flour")})};
}

// Every model item that a control or a view of the data view leads to.
std::vector<const ModelItem*> HeldItems(Bench& browser)
{
    std::vector<const ModelItem*> held;
    for (const auto& node : browser.Table().GetAllNodes())
        held.push_back(&node.item->GetModel());
    for (const ModelItem* item : browser.dataView.GetListBoxDataView()->GetModelItems())
        held.push_back(item);
    std::vector<const TreeItem*> pending;
    for (const TreeItem* root : browser.dataView.GetTreeDataView()->GetRootItems())
        pending.push_back(root);
    while (!pending.empty()) {
        const TreeItem* item = pending.back();
        pending.pop_back();
        held.push_back(&item->GetModel());
        for (const auto& child : item->GetChildren())
            pending.push_back(child.Get());
    }
    for (const auto& entry : browser.dataView.GetPopUpView()->GetItems())
        held.push_back(&entry->GetModel());
    if (const ModelItem* folder = browser.TreeAndList().GetTreeSelection())
        held.push_back(folder);
    return held;
}

// How many of the held items are not in the data view's forest.
int HeldOutsideTheForest(Bench& browser)
{
    const NK::Array<const ModelItem*> forest = ModelItem::ToPtrArrayRecursive(browser.dataView.GetItems());
    const std::set<const ModelItem*> current(forest.begin(), forest.end());
    int outside = 0;
    for (const ModelItem* item : HeldItems(browser))
        outside += current.count(item) == 0 ? 1 : 0;
    return outside;
}

// A data view over the recipes whose every view has filled its controls once, showing `mode`.
void ShowAllViewsEndingIn(Bench& browser, ViewMode mode)
{
    browser.dataView.SetItems(BuildForest(Recipes()));
    for (ViewMode each : {ViewMode::FlatList, ViewMode::TreeAndList, ViewMode::Hierarchical, mode})
        browser.dataView.SetViewMode(each);
    browser.dataView.SetSelection(browser.SelectionOf({"Borscht"}));
}

const ViewMode AllModes[] = {ViewMode::Hierarchical, ViewMode::FlatList, ViewMode::TreeAndList};

TEST(ForestLifetimeTest, NoViewHoldsAnItemOfAReplacedForest)
{
    for (ViewMode mode : AllModes) {
        Bench browser;
        ShowAllViewsEndingIn(browser, mode);
        ASSERT_GT(HeldItems(browser).size(), 10u) << "the hidden controls were filled";

        browser.dataView.SetItems(BuildForest(Recipes()));
        EXPECT_EQ(HeldOutsideTheForest(browser), 0) << "current view " << static_cast<int>(mode);
        EXPECT_EQ(browser.Selected(), "Borscht") << "the shown view rebuilt and kept the selection by id";
        // A hidden view shown again builds from the new forest.
        browser.dataView.SetViewMode(mode == ViewMode::Hierarchical ? ViewMode::FlatList : ViewMode::Hierarchical);
        EXPECT_EQ(browser.Selected(), "Borscht");
        EXPECT_EQ(HeldOutsideTheForest(browser), 0);
    }
}

// A view that cannot rebuild still lets go of the old forest.
TEST(ForestLifetimeTest, ARebuildWithoutAFactoryIsReportedAndLeavesNoRowOfTheOldForest)
{
    auto flatList = [](Bench& b) -> FlatListView& { return static_cast<FlatListView&>(*b.dataView.GetView(ViewMode::FlatList)); };
    const std::tuple<ViewMode, std::function<void(Bench&)>, const char*> cases[] = {
        {ViewMode::Hierarchical, [](Bench& b) { b.Hierarchical().SetItemFactory(nullptr); }, "itemFactory != nullptr"},
        {ViewMode::FlatList, [&](Bench& b) { flatList(b).SetListItemFactory(nullptr); }, "listItemFactory != nullptr"},
        {ViewMode::TreeAndList, [](Bench& b) { b.TreeAndList().SetTreeItemFactory(nullptr); }, "treeItemFactory != nullptr"},
    };
    for (const auto& [mode, dropFactory, expression] : cases) {
        Bench browser;
        ShowAllViewsEndingIn(browser, mode);
        dropFactory(browser);
        NK::AssertCapture asserts;
        browser.dataView.SetItems(BuildForest(Recipes()));
        const std::vector<std::string> reported = asserts.GetExpressions();
        EXPECT_NE(std::find(reported.begin(), reported.end(), expression), reported.end()) << expression;
        EXPECT_EQ(HeldOutsideTheForest(browser), 0) << expression;
    }

    Bench browser;
    browser.dataView.SetItems(BuildForest(Recipes()));
    browser.TreeAndList().SetListItemFactory(nullptr);
    NK::AssertCapture asserts;
    EXPECT_TRUE(browser.TreeAndList().CreateListBoxItems(ModelItem::ToPtrArrayRecursive(browser.dataView.GetItems())).IsEmpty());
    EXPECT_EQ(asserts.GetExpressions(), std::vector<std::string> {"listItemFactory != nullptr"});
}

TEST(ForestLifetimeTest, NullTopLevelItemsAreReportedAndLeftOut)
{
    Bench browser;
    browser.dataView.ShowCurrentView();
    NK::Array<NK::Owner<ModelItem>> forest;
    forest.Push(nullptr);
    forest.Push(NK::NewOwned<NamedItem>("Recipes"));
    forest.Push(nullptr);
    NK::AssertCapture asserts;
    browser.dataView.SetItems(std::move(forest));
    EXPECT_EQ(asserts.GetExpressions(), (std::vector<std::string> {"newItems[i] != nullptr", "newItems[i] != nullptr"}));
    EXPECT_EQ(Names(ModelItem::ToPtrArray(browser.dataView.GetItems())), "Recipes");
    EXPECT_EQ(browser.Table().GetNodeCount(), 1);
}

// A chain of folders as deep as a client may hand over: built, shown, selected at its bottom
// and replaced without a call per level anywhere.
TEST(ForestLifetimeTest, TheHierarchicalViewTakesAChainTwoHundredThousandDeep)
{
    constexpr int Depth = 200000;
    Bench browser;
    browser.dataView.ShowCurrentView();
    ModelItem* bottom = nullptr;
    browser.dataView.SetItems(BuildChain(Depth, bottom));
    EXPECT_EQ(browser.Table().GetNodeCount(), Depth);
    browser.dataView.SetSelection(Selection({bottom}));
    EXPECT_EQ(browser.Selected(), "level " + std::to_string(Depth - 1));
    EXPECT_TRUE(browser.Table().IsExpandedItem(IdOf("level 0"))) << "the path to the selection is open";
    browser.dataView.SetItems(BuildForest(Recipes()));
    EXPECT_EQ(browser.Table().GetNodeCount(), 8);
}

}  // namespace
