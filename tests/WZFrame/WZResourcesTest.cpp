#include "NK/NKAssert.hpp"
#include "WZSources/WZResources.hpp"

#include <gtest/gtest.h>

namespace {

TEST(ResourcesTest, CommonStringsCanBeLocalisedAndAMissingStringIsEmptyAndReportedFromTheResourceFile)
{
    NK::AssertCapture reports;
    EXPECT_EQ(WZ::GetResourceCommonFixString(WZ::CommonFixStringIds::Or), NK::UniString("OR"));
    auto module = WZ::GetWZResourceModule();
    NK::Array<NK::UniString> english;
    for (NK::UIndex i = 1; i <= NK::Resources::GetStringCount(module, WZ::CommonStringListId); ++i)
        english.Push(WZ::GetResourceString(WZ::CommonStringListId, static_cast<int>(i)));
    NK::Array<NK::UniString> german = english;
    german[1] = "Abbrechen";
    NK::Resources::SetStringList(module, WZ::CommonStringListId, german);
    EXPECT_EQ(WZ::GetResourceCommonString(WZ::CommonStringIds::Cancel), NK::UniString("Abbrechen"));
    NK::Resources::SetStringList(module, WZ::CommonStringListId, english);
    EXPECT_EQ(WZ::GetResourceCommonString(WZ::CommonStringIds::Cancel), NK::UniString("Cancel"));
    EXPECT_TRUE(reports.GetReports().empty());

    for (int list : {4711, int(WZ::CommonFixStringListId)})
        for (int index : {0, 2})
            EXPECT_TRUE(WZ::GetResourceString(list, index).IsEmpty()) << list << " " << index;
    ASSERT_EQ(reports.GetReports().size(), 4u);
    for (const auto& report : reports.GetReports()) {
        EXPECT_EQ(report.location.file, "WZSources\\WZResources");
        EXPECT_EQ(report.location.function, "WZ::GetResourceString");
    }
}

TEST(ResourcesTest, ShortValueFallsBackToTheDefaultWhenNotANumberAndIconsComeFromTheirModules)
{
    // "40000" is beyond a short; the seventh string is absent.
    NK::Resources::SetStringList(WZ::GetWZResourceModule(), 9000, {"12", " -7 ", "12px", "", "40000", "-32768"});
    const short expected[] = {12, -7, 99, 99, 99, -32768, 99};
    for (int index = 1; index <= 7; ++index)
        EXPECT_EQ(WZ::GetResourceShortValue(9000, index, 99), expected[index - 1]) << index;

    for (auto id : {WZ::IconIds::ClosedFolder, WZ::IconIds::OpenFolder, WZ::IconIds::GenericItem, WZ::IconIds::UpOneLevel,
                    WZ::IconIds::SearchGlass}) {
        QM::Icon icon = WZ::GetResourceIcon(id);
        const bool fromTheHost = id != WZ::IconIds::UpOneLevel && id != WZ::IconIds::SearchGlass;
        EXPECT_EQ(icon.GetModule(), fromTheHost ? -4 : WZ::GetWZResourceModule());
        EXPECT_TRUE(NK::Resources::HasIcon(icon.GetModule(), icon.GetId()));
    }
}

}  // namespace
