#include "NK/NKAssert.hpp"
#include "WZSources/WZResources.hpp"

#include <gtest/gtest.h>

namespace {

class ResourcesTest : public ::testing::Test {
protected:
    NK::AssertCapture reports;
};

TEST_F(ResourcesTest, FixedListCarriesOr)
{
    EXPECT_EQ(WZ::GetResourceCommonFixString(WZ::CommonFixStringIds::Or), NK::UniString("OR"));
    EXPECT_EQ(WZ::GetResourceString(WZ::CommonFixStringListId, 1), NK::UniString("OR"));
    EXPECT_TRUE(reports.GetReports().empty());
}

TEST_F(ResourcesTest, CommonStringsCanBeLocalised)
{
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
    NK::Resources::SetStringList(module, 9000, {"12", " -7 ", "12px", "", "40000", "-32768"});
    EXPECT_EQ(WZ::GetResourceShortValue(9000, 1, 99), 12);
    EXPECT_EQ(WZ::GetResourceShortValue(9000, 2, 99), -7);
    EXPECT_EQ(WZ::GetResourceShortValue(9000, 3, 99), 99);
    EXPECT_EQ(WZ::GetResourceShortValue(9000, 4, 99), 99);
    EXPECT_EQ(WZ::GetResourceShortValue(9000, 5, 99), 99);  // beyond a short
    EXPECT_EQ(WZ::GetResourceShortValue(9000, 6, 99), -32768);
    EXPECT_EQ(WZ::GetResourceShortValue(9000, 7, 5), 5);  // absent
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
    EXPECT_EQ(static_cast<int>(WZ::IconIds::UpOneLevel), 19);
    EXPECT_GT(WZ::GetWZResourceModule(), 0);
}

}  // namespace
