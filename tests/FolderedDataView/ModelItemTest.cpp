#include "FDVTestModel.hpp"

#include "NK/NKLogLine.hpp"

#include <gtest/gtest.h>

namespace {

using namespace FDVTest;
using WZ::Folderable::FindModelItemById;

class ModelItemTest : public ::testing::Test {
protected:
    // Albums(Jazz(Blue Train), Folk), Singles
    NK::Array<NK::Owner<ModelItem>> forest = BuildForest({{"Albums", {{"Jazz", {{"Blue Train"}}}, {"Folk"}}}, {"Singles"}});
    ModelItem& Albums() { return *forest[0]; }
    ModelItem& Jazz() { return *Albums().GetChildren()[0]; }
    ModelItem& BlueTrain() { return *Jazz().GetChildren()[0]; }
};

TEST_F(ModelItemTest, CollectsTheForestInPreOrderWithParentLinks)
{
    EXPECT_EQ(Names(ModelItem::ToPtrArrayRecursive(forest)), "Albums Jazz Blue Train Folk Singles");
    EXPECT_EQ(Names(Albums().GetChildrenPtrRecursive()), "Jazz Blue Train Folk");
    EXPECT_EQ(Names(Albums().GetChildrenPtr()), "Jazz Folk");
    NK::Array<const ModelItem*> out = {forest[1].Get()};
    ModelItem::CollectChildrenPtrRecursive(Albums().GetChildren(), out);
    EXPECT_EQ(Names(out), "Singles Jazz Blue Train Folk") << "collecting appends to what the array holds";
    EXPECT_EQ(Albums().GetParent(), nullptr);
    EXPECT_EQ(BlueTrain().GetParent(), &Jazz());
}

TEST_F(ModelItemTest, AddingAnItemThatHasAParentIsReportedAndTakenAnyway)
{
    NK::AssertCapture asserts;
    NK::LogCapture log;
    ModelItem* blueTrain = &BlueTrain();
    forest[1]->AddChild(NK::Owner<ModelItem>(blueTrain));
    EXPECT_EQ(asserts.GetExpressions(), std::vector<std::string> {"child->parent == nullptr"});
    EXPECT_EQ(log.GetRecords().size(), 1u) << "the failed check writes the error line";
    EXPECT_EQ(blueTrain->GetParent(), forest[1].Get());
    EXPECT_EQ(Names(ModelItem::ToPtrArrayRecursive(forest)), "Albums Jazz Blue Train Folk Singles Blue Train");
    Jazz().GetChildren()[0].Release();  // held twice now: give one hold up
}

// A cycle would make every later walk endless; a null child would crash the first one.
TEST_F(ModelItemTest, ANullChildOrACycleIsRefusedWithTheForestUnchanged)
{
    const std::pair<ModelItem*, const char*> cases[] = {
        {nullptr, "child != nullptr"},
        {&BlueTrain(), "!child->IsSelfOrAncestorOf (*this)"},
        {&Jazz(), "!child->IsSelfOrAncestorOf (*this)"},
        {&Albums(), "!child->IsSelfOrAncestorOf (*this)"},
    };
    for (const auto& [child, expression] : cases) {
        NK::AssertCapture asserts;
        const ModelItem* parentBefore = child != nullptr ? child->GetParent() : nullptr;
        BlueTrain().AddChild(NK::Owner<ModelItem>(child));  // the refused owner is let go of, not deleted
        EXPECT_EQ(asserts.GetExpressions(), std::vector<std::string> {expression});
        EXPECT_TRUE(BlueTrain().GetChildren().IsEmpty());
        EXPECT_EQ(child != nullptr ? child->GetParent() : nullptr, parentBefore);
    }
    EXPECT_EQ(Names(ModelItem::ToPtrArrayRecursive(forest)), "Albums Jazz Blue Train Folk Singles");
    EXPECT_FALSE(Jazz().IsSelfOrAncestorOf(*forest[1])) << "another branch is no ancestor";
}

TEST_F(ModelItemTest, FindsTheFirstItemOfAnIdInPreOrder)
{
    const NK::Guid shared = NK::Guid::FromNumber(7, 7);
    Jazz().AddChild(NK::NewOwned<NamedItem>("deep", shared));
    forest.Push(NK::NewOwned<NamedItem>("shallow", shared));
    ASSERT_NE(FindModelItemById(forest, shared), nullptr);
    EXPECT_EQ(AsNamed(*FindModelItemById(forest, shared)).GetName(), "deep") << "the deeper one comes first in pre-order";
    EXPECT_EQ(FindModelItemById(forest, IdOf("Folk")), Albums().GetChildren()[1].Get());
    EXPECT_EQ(FindModelItemById(forest, NK::Guid::FromNumber(1, 2)), nullptr);
}

}  // namespace
