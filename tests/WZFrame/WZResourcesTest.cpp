#include "NK/NKAssert.hpp"
#include "WZSources/WZResources.hpp"

#include <gtest/gtest.h>

namespace {

class ResourcesTest : public ::testing::Test {
protected:
    NK::AssertCapture reports;
};

TEST_F(ResourcesTest, FixedStringsStayAndCommonStringsCanBeLocalised)
{
    EXPECT_EQ(WZ::GetResourceCommonFixString(WZ::CommonFixStringIds::Or), NK::UniString("OR"));
    EXPECT_EQ(WZ::GetResourceCommonString(WZ::CommonStringIds::Cancel), NK::UniString("Cancel"));
    auto module = WZ::GetWZResourceModule();
    NK::Array<NK::UniString> english;
    for (NK::UIndex i = 1; i <= NK::Resources::GetStringCount(module, WZ::CommonStringListId); ++i)
        english.Push(WZ::GetResourceString(WZ::CommonStringListId, static_cast<int>(i)));
    NK::Array<NK::UniString> german = english;
    german[1] = "Abbrechen";
    NK::Resources::SetStringList(module, WZ::CommonStringListId, german);
    EXPECT_EQ(WZ::GetResourceCommonString(WZ::CommonStringIds::Cancel), NK::UniString("Abbrechen"));
    NK::Resources::SetStringList(module, WZ::CommonStringListId, english);
    EXPECT_TRUE(reports.GetReports().empty());
}

TEST_F(ResourcesTest, MissingStringIsEmptyAndReportedFromTheResourceFile)
{
    EXPECT_TRUE(WZ::GetResourceString(4711, 1).IsEmpty());
    EXPECT_TRUE(WZ::GetResourceString(WZ::CommonFixStringListId, 2).IsEmpty());
    EXPECT_TRUE(WZ::GetResourceString(WZ::CommonFixStringListId, 0).IsEmpty());
    ASSERT_EQ(reports.GetReports().size(), 3u);
    for (const auto& report : reports.GetReports()) {
        EXPECT_EQ(report.location.file, "WZSources\\WZResources");
        EXPECT_EQ(report.location.function, "WZ::GetResourceString");
        EXPECT_GT(report.location.line, 0);
    }
}

TEST_F(ResourcesTest, ShortValueFallsBackToTheDefaultWhenNotANumber)
{
    auto module = WZ::GetWZResourceModule();
    // "40000" is beyond a short; the seventh string is absent.
    NK::Resources::SetStringList(module, 9000, {"12", " -7 ", "12px", "", "40000", "-32768"});
    const short expected[] = {12, -7, 99, 99, 99, -32768, 99};
    for (int index = 1; index <= 7; ++index)
        EXPECT_EQ(WZ::GetResourceShortValue(9000, index, 99), expected[index - 1]) << index;
}

TEST_F(ResourcesTest, IconsComeFromTheirModules)
{
    for (auto id : {WZ::IconIds::ClosedFolder, WZ::IconIds::OpenFolder, WZ::IconIds::GenericItem}) {
        QM::Icon icon = WZ::GetResourceIcon(id);
        EXPECT_EQ(icon.GetModule(), -4);
        EXPECT_EQ(icon.GetId(), static_cast<int>(id));
        EXPECT_TRUE(NK::Resources::HasIcon(icon.GetModule(), icon.GetId()));
    }
    for (auto id : {WZ::IconIds::UpOneLevel, WZ::IconIds::SearchGlass}) {
        QM::Icon icon = WZ::GetResourceIcon(id);
        EXPECT_EQ(icon.GetModule(), WZ::GetWZResourceModule());
        EXPECT_TRUE(NK::Resources::HasIcon(icon.GetModule(), icon.GetId()));
    }
}

}  // namespace
