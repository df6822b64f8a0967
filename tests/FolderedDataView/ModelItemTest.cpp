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
    ModelItem& Singles() { return *forest[1]; }
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
    EXPECT_EQ(asserts.GetReports()[0].location.function, "WZ::Folderable::ModelItem::AddChild");
    ASSERT_EQ(log.GetRecords().size(), 1u);
    EXPECT_TRUE(log.GetRecords()[0].text.starts_with(
        "WZLib error assertion failed at WZSources\\CompoundControls\\FolderedDataView\\WZFolderableModelItem "));
    EXPECT_EQ(blueTrain->GetParent(), forest[1].Get());
    EXPECT_EQ(Names(ModelItem::ToPtrArrayRecursive(forest)), "Albums Jazz Blue Train Folk Singles Blue Train");

    Jazz().GetChildren()[0].Release();  // held twice now: give one hold up
}

// A cycle would make every later walk endless; a null child would crash the first one.
TEST_F(ModelItemTest, ANullChildOrACycleIsRefusedWithTheForestUnchanged)
{
    struct Case {
        const char* what;
        ModelItem* child;
        const char* expression;
    };
    const Case cases[] = {
        {"null", nullptr, "child != nullptr"},
        {"itself", &BlueTrain(), "!child->IsSelfOrAncestorOf (*this)"},
        {"its parent", &Jazz(), "!child->IsSelfOrAncestorOf (*this)"},
        {"its top-level ancestor", &Albums(), "!child->IsSelfOrAncestorOf (*this)"},
    };
    for (const Case& c : cases) {
        NK::AssertCapture asserts;
        const ModelItem* parentBefore = c.child != nullptr ? c.child->GetParent() : nullptr;
        BlueTrain().AddChild(NK::Owner<ModelItem>(c.child));  // the refused owner is let go of, not deleted
        EXPECT_EQ(asserts.GetExpressions(), std::vector<std::string> {c.expression}) << c.what;
        EXPECT_TRUE(BlueTrain().GetChildren().IsEmpty()) << c.what;
        if (c.child != nullptr) {
            EXPECT_EQ(c.child->GetParent(), parentBefore) << c.what;
        }
    }
    EXPECT_EQ(Names(ModelItem::ToPtrArrayRecursive(forest)), "Albums Jazz Blue Train Folk Singles");
    EXPECT_FALSE(Jazz().IsSelfOrAncestorOf(Singles())) << "another branch is no ancestor";
}

TEST_F(ModelItemTest, FindsTheFirstItemOfAnIdInPreOrder)
{
    const NK::Guid shared = NK::Guid::FromNumber(7, 7);
    auto folder = NK::NewOwned<NamedItem>("folder");
    auto middle = NK::NewOwned<NamedItem>("middle");
    middle->AddChild(NK::NewOwned<NamedItem>("deep", shared));
    folder->AddChild(std::move(middle));
    NK::Array<NK::Owner<ModelItem>> twins;
    twins.Push(std::move(folder));
    twins.Push(NK::NewOwned<NamedItem>("shallow", shared));

    ASSERT_NE(FindModelItemById(twins, shared), nullptr);
    EXPECT_EQ(AsNamed(*FindModelItemById(twins, shared)).GetName(), "deep") << "the deeper one comes first in pre-order";
    EXPECT_EQ(FindModelItemById(forest, IdOf("Folk")), Albums().GetChildren()[1].Get());
    EXPECT_EQ(FindModelItemById(forest, NK::Guid::FromNumber(1, 2)), nullptr);
}

// Walks and deletion keep their own stacks; a call per level would overflow the call stack.
TEST(ModelItemDeepChainTest, AChainTwoHundredThousandDeepIsWalkedSearchedAndDeleted)
{
    constexpr int Depth = 200000;
    NK::Array<NK::Owner<ModelItem>> chain;
    chain.Push(NK::NewOwned<NamedItem>("track", NK::Guid::FromNumber(1, 0)));
    ModelItem* bottom = chain[0].Get();
    for (int level = 1; level < Depth; ++level) {  // top-down, the way a client fills folders
        auto next = NK::NewOwned<NamedItem>("track", NK::Guid::FromNumber(1, static_cast<NK::UInt64>(level)));
        ModelItem* added = next.Get();
        bottom->AddChild(std::move(next));
        bottom = added;
    }
    EXPECT_EQ(ModelItem::ToPtrArrayRecursive(chain).GetSize(), static_cast<NK::UIndex>(Depth));
    EXPECT_EQ(FindModelItemById(chain, NK::Guid::FromNumber(1, Depth - 1)), bottom);

    NK::AssertCapture asserts;
    bottom->AddChild(NK::Owner<ModelItem>(chain[0].Get()));
    EXPECT_EQ(asserts.GetExpressions().size(), 1u) << "the top of the chain is refused at its bottom";
}

}  // namespace
