#include "NK/NKAssert.hpp"

#include <gtest/gtest.h>

namespace {

namespace Sample {
struct Widget {
    bool Check(int value)
    {
        return NK_PRECOND_TEXT(value > 0, "value > 0");
    }
    template <typename T>
    bool Templated(T value)
    {
        return NK_ASSERT(value != T {});
    }
};
}  // namespace Sample

TEST(AssertReportTest, CarriesQualifiedFunctionExpressionAndKind)
{
    NK::AssertCapture capture;
    Sample::Widget widget;
    EXPECT_TRUE(widget.Check(3));
    EXPECT_FALSE(widget.Check(0));
    EXPECT_FALSE(widget.Templated(0));
    ASSERT_EQ(capture.GetReports().size(), 2u);
    const auto& pre = capture.GetReports()[0];
    EXPECT_EQ(pre.expression, "value > 0");
    EXPECT_EQ(pre.kind, NK::AssertImpl::Kind::Precondition);
    EXPECT_EQ(pre.location.function, "{anonymous}::Sample::Widget::Check");
    const auto& inv = capture.GetReports()[1];
    EXPECT_EQ(inv.expression, "value != T {}");
    EXPECT_EQ(inv.kind, NK::AssertImpl::Kind::Assertion);
    EXPECT_EQ(inv.location.function, "{anonymous}::Sample::Widget::Templated");
}

TEST(AssertReportTest, CaptureRestoresThePreviousSink)
{
    NK::AssertCapture outer;
    {
        NK::AssertCapture inner;
        NK_ASSERT(1 == 2);
        EXPECT_EQ(inner.GetReports().size(), 1u);
    }
    NK_ASSERT(2 == 3);
    ASSERT_EQ(outer.GetReports().size(), 1u);
    EXPECT_EQ(outer.GetReports()[0].expression, "2 == 3");
}

TEST(AssertReportTest, QualifiedNameDropsReturnTypeParametersAndTemplateArguments)
{
    using NK::AssertImpl::QualifiedFunctionName;
    EXPECT_EQ(QualifiedFunctionName("void WZ::UntypedTreeView::Setup(QM::TreeView&, NK::Owner<X>)"),
              "WZ::UntypedTreeView::Setup");
    EXPECT_EQ(QualifiedFunctionName("NK::Array<int> WZ::TreeView<Item, D>::GetRootItems() const [with Item = A]"),
              "WZ::TreeView::GetRootItems");
    EXPECT_EQ(QualifiedFunctionName("const WZ::Diffable* WZ::SmartListBoxUpdater::GetItem(short) const"),
              "WZ::SmartListBoxUpdater::GetItem");
    EXPECT_EQ(QualifiedFunctionName("bool WZ::X::operator()(int)"), "WZ::X::operator()");
    EXPECT_EQ(QualifiedFunctionName("void (anonymous namespace)::Sample::Run(int)"), "{anonymous}::Sample::Run");
}

TEST(AssertReportTest, UnreachableReportsThenCallsTheHandler)
{
    NK::AssertCapture capture;
    struct Stop {};
    auto previous = NK::AssertImpl::SetUnreachableHandler([](const NK::AssertImpl::Report&) { throw Stop {}; });
    EXPECT_THROW(NK_UNREACHABLE_TEXT("no view"), Stop);
    NK::AssertImpl::SetUnreachableHandler(previous);
    ASSERT_EQ(capture.GetReports().size(), 1u);
    EXPECT_EQ(capture.GetReports()[0].kind, NK::AssertImpl::Kind::Unreachable);
    EXPECT_EQ(capture.GetReports()[0].expression, "no view");
}

}  // namespace
