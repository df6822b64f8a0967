#include "FDVTestModel.hpp"

#include "NK/NKLogLine.hpp"

#include <gtest/gtest.h>

namespace {

using namespace FDVTest;
using WZ::Folderable::FindModelItemById;

class ModelItemTest : public ::testing::Test {
protected:
    // A(B(D), C), E
    NK::Array<NK::Owner<ModelItem>> forest =
        BuildForest({{"A", {{"B", {{"D"}}}, {"C"}}}, {"E"}});
    const ModelItem& A() const { return *forest[0]; }
};

TEST_F(ModelItemTest, CollectsTheForestInPreOrder)
{
    EXPECT_EQ(Names(ModelItem::ToPtrArrayRecursive(forest)), "A B D C E");
    EXPECT_EQ(Names(A().GetChildrenPtrRecursive()), "B D C");
    EXPECT_EQ(Names(A().GetChildrenPtr()), "B C");

    NK::Array<const ModelItem*> out = {forest[1].Get()};
    ModelItem::CollectChildrenPtrRecursive(A().GetChildren(), out);
    EXPECT_EQ(Names(out), "E B D C") << "collecting appends to what the array holds";
}

TEST_F(ModelItemTest, ChildrenPointBackAtTheirParent)
{
    const ModelItem& b = *A().GetChildren()[0];
    EXPECT_EQ(A().GetParent(), nullptr);
    EXPECT_EQ(b.GetParent(), &A());
    EXPECT_EQ(b.GetChildren()[0]->GetParent(), &b);
}

TEST_F(ModelItemTest, AddingAnItemThatHasAParentIsReportedAndTakenAnyway)
{
    NK::AssertCapture asserts;
    NK::LogCapture log;
    ModelItem& b = *forest[0]->GetChildren()[0];
    ModelItem& e = *forest[1];
    ModelItem* d = b.GetChildren()[0].Get();

    e.AddChild(NK::Owner<ModelItem>(d));

    ASSERT_EQ(asserts.GetReports().size(), 1u);
    EXPECT_EQ(asserts.GetReports()[0].expression, "child->parent == nullptr");
    EXPECT_EQ(asserts.GetReports()[0].location.function, "WZ::Folderable::ModelItem::AddChild");
    ASSERT_EQ(log.GetRecords().size(), 1u);
    EXPECT_TRUE(log.GetRecords()[0].text.starts_with(
        "WZLib error assertion failed at WZSources\\CompoundControls\\FolderedDataView\\WZFolderableModelItem "));
    EXPECT_EQ(d->GetParent(), &e);
    EXPECT_EQ(Names(ModelItem::ToPtrArrayRecursive(forest)), "A B D C E D");

    // The item is now held twice; give one hold up so that it is deleted once.
    b.GetChildren()[0].Release();
}

TEST_F(ModelItemTest, FindsTheFirstItemOfAnIdInPreOrder)
{
    const NK::Guid shared = NK::Guid::FromNumber(7, 7);
    NK::Array<NK::Owner<ModelItem>> twins;
    auto deep = NK::NewOwned<NamedItem>("deep", shared);
    auto folder = NK::NewOwned<NamedItem>("folder");
    auto middle = NK::NewOwned<NamedItem>("middle");
    middle->AddChild(std::move(deep));
    folder->AddChild(std::move(middle));
    twins.Push(std::move(folder));
    twins.Push(NK::NewOwned<NamedItem>("shallow", shared));

    const ModelItem* found = FindModelItemById(twins, shared);
    ASSERT_NE(found, nullptr);
    EXPECT_EQ(AsNamed(*found).GetName(), "deep") << "the deeper one comes first in pre-order";

    EXPECT_EQ(FindModelItemById(forest, IdOf("C")), forest[0]->GetChildren()[1].Get());
    EXPECT_EQ(FindModelItemById(forest, NK::Guid::FromNumber(1, 2)), nullptr);
}

}  // namespace
