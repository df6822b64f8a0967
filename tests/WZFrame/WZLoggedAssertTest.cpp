#include "NK/NKAssert.hpp"
#include "NK/NKLogLine.hpp"
#include "WZSources/WZLoggedAssert.hpp"

#include <gtest/gtest.h>

#include <string>

namespace {

TEST(LoggedAssertTest, EveryFileOwnsAPairOfLinesThatCarryTheLineNumber)
{
    auto names = WZ::GetLoggedAssertFileNames();
    ASSERT_EQ(names.GetSize(), 10u);
    for (const char* name : names) {
        const WZ::LoggedAssertLines* lines = WZ::GetLoggedAssertLines(name);
        ASSERT_NE(lines, nullptr) << name;
        EXPECT_TRUE(std::string(lines->sourcePath).ends_with(name)) << lines->sourcePath;
    }
    NK::LogCapture log;
    WZ::LogAssertError("WZFDVSelection", 118);
    WZ::LogAssertWarning("WZFDVView", 42);
    EXPECT_EQ(log.GetRecords(),
              (std::vector<NK::LogRecord> {
                  {NK::LogLevel::Error, "WZLib", "Assert",
                   "WZLib error assertion failed at WZSources\\CompoundControls\\FolderedDataView\\WZFDVSelection 118"},
                  {NK::LogLevel::Warning, "WZLib", "Assert",
                   "WZLib warning assertion failed at WZSources\\CompoundControls\\FolderedDataView\\Views\\WZFDVView 42"}}));
}

TEST(LoggedAssertTest, AnUnknownFileIsAPreconditionFailureAndLogsNothing)
{
    NK::LogCapture log;
    NK::AssertCapture asserts;
    EXPECT_EQ(WZ::GetLoggedAssertLines("WZResources"), nullptr);
    WZ::LogAssertError("WZNoSuchFile", 1);
    EXPECT_TRUE(log.GetRecords().empty());
    EXPECT_EQ(asserts.GetExpressions(), std::vector<std::string> {"GetLoggedAssertLines (fileName) != nullptr"});
}

}  // namespace
