#include "NK/NKAssert.hpp"

#include <gtest/gtest.h>

namespace {

namespace Sample {
struct Widget {
    bool Check(int value) { return NK_PRECOND_TEXT(value > 0, "value > 0"); }
    template <typename T>
    bool Templated(T value)
    {
        return NK_ASSERT(value != T {});
    }
};
}  // namespace Sample

TEST(AssertReportTest, CarriesQualifiedFunctionExpressionAndKindAndTheCaptureRestoresTheSink)
{
    using Kind = NK::AssertImpl::Kind;
    NK::AssertCapture outer;
    {
        NK::AssertCapture capture;
        Sample::Widget widget;
        EXPECT_TRUE(widget.Check(3));
        EXPECT_FALSE(widget.Check(0));
        EXPECT_FALSE(widget.Templated(0));
        struct Stop {};
        auto previous = NK::AssertImpl::SetUnreachableHandler([](const NK::AssertImpl::Report&) { throw Stop {}; });
        EXPECT_THROW(NK_UNREACHABLE_TEXT("no view"), Stop);
        NK::AssertImpl::SetUnreachableHandler(previous);
        std::vector<std::tuple<std::string, Kind, std::string>> seen;
        for (const auto& report : capture.GetReports())
            seen.emplace_back(report.expression, report.kind, report.kind == Kind::Unreachable ? "" : report.location.function);
        EXPECT_EQ(seen, (std::vector<std::tuple<std::string, Kind, std::string>> {
                            {"value > 0", Kind::Precondition, "{anonymous}::Sample::Widget::Check"},
                            {"value != T {}", Kind::Assertion, "{anonymous}::Sample::Widget::Templated"},
                            {"no view", Kind::Unreachable, ""}}));
    }
    NK_ASSERT(2 == 3);
    ASSERT_EQ(outer.GetReports().size(), 1u);
    EXPECT_EQ(outer.GetReports()[0].expression, "2 == 3");
}

TEST(AssertReportTest, QualifiedNameDropsReturnTypeParametersAndTemplateArguments)
{
    using NK::AssertImpl::QualifiedFunctionName;
    const std::pair<const char*, const char*> cases[] = {
        {"void WZ::UntypedTreeView::Setup(QM::TreeView&, NK::Owner<X>)", "WZ::UntypedTreeView::Setup"},
        {"NK::Array<int> WZ::TreeView<Item, D>::GetRootItems() const [with Item = A]", "WZ::TreeView::GetRootItems"},
        {"const WZ::Diffable* WZ::SmartListBoxUpdater::GetItem(short) const", "WZ::SmartListBoxUpdater::GetItem"},
        {"bool WZ::X::operator()(int)", "WZ::X::operator()"},
        {"void (anonymous namespace)::Sample::Run(int)", "{anonymous}::Sample::Run"}};
    for (const auto& [pretty, qualified] : cases)
        EXPECT_EQ(QualifiedFunctionName(pretty), qualified);
}

}  // namespace
