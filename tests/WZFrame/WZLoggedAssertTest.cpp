#include "NK/NKAssert.hpp"
#include "NK/NKLogLine.hpp"
#include "WZSources/WZLoggedAssert.hpp"

#include <gtest/gtest.h>

#include <string>

namespace {

TEST(LoggedAssertTest, EveryFoldedDataViewFileOwnsAPairOfLines)
{
    auto names = WZ::GetLoggedAssertFileNames();
    ASSERT_EQ(names.GetSize(), 10u);
    for (const char* name : names) {
        const WZ::LoggedAssertLines* lines = WZ::GetLoggedAssertLines(name);
        ASSERT_NE(lines, nullptr) << name;
        std::string path = lines->sourcePath;
        EXPECT_TRUE(path.ends_with(name)) << path;
        EXPECT_EQ(lines->error.GetFormat(), "WZLib error assertion failed at " + path + " %");
        EXPECT_EQ(lines->warning.GetFormat(), "WZLib warning assertion failed at " + path + " %");
    }
    EXPECT_EQ(WZ::GetLoggedAssertLines("WZResources"), nullptr);
}

TEST(LoggedAssertTest, WritesTheLineNumberIntoTheFilesLine)
{
    NK::LogCapture log;
    WZ::LogAssertError("WZFDVSelection", 118);
    WZ::LogAssertWarning("WZFDVView", 42);
    ASSERT_EQ(log.GetRecords().size(), 2u);
    EXPECT_EQ(log.GetRecords()[0].text,
              "WZLib error assertion failed at WZSources\\CompoundControls\\FolderedDataView\\WZFDVSelection 118");
    EXPECT_EQ(log.GetRecords()[0].level, NK::LogLevel::Error);
    EXPECT_EQ(log.GetRecords()[1].text,
              "WZLib warning assertion failed at WZSources\\CompoundControls\\FolderedDataView\\Views\\WZFDVView 42");
    EXPECT_EQ(log.GetRecords()[1].module, "WZLib");
    EXPECT_EQ(log.GetRecords()[1].category, "Assert");
}

TEST(LoggedAssertTest, AnUnknownFileIsAPreconditionFailureAndTheTestDriverLinePassesTextThrough)
{
    NK::LogCapture log;
    NK::AssertCapture asserts;
    WZ::LogAssertError("WZNoSuchFile", 1);
    EXPECT_TRUE(log.GetRecords().empty());
    EXPECT_EQ(asserts.GetExpressions(), std::vector<std::string> {"GetLoggedAssertLines (fileName) != nullptr"});

    WZ::GetAutoTestLogLine().Write(std::string("driver bound"));
    ASSERT_EQ(log.GetRecords().size(), 1u);
    EXPECT_EQ(log.GetRecords()[0].module, "NKAutoTester");
    EXPECT_EQ(log.GetRecords()[0].text, "driver bound");
}

}  // namespace
