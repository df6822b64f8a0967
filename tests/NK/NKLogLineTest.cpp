#include "NK/NKAssert.hpp"
#include "NK/NKLogLine.hpp"

#include <gtest/gtest.h>

namespace {

TEST(LogLineTest, ErrorAndWarningLinesSendFormattedRecords)
{
    const NK::ErrorLogLine error("WZLib error assertion failed at WZSources\\Folder\\WZFile %", {"UInt32"}, "WZLib", "Assert");
    const NK::WarningLogLine warning("WZLib warning assertion failed at WZSources\\Folder\\WZFile %", {"UInt32"}, "WZLib", "Assert");
    NK::LogCapture capture;
    error.Write(NK::UInt32(412));
    warning.Write(7u);
    ASSERT_EQ(capture.GetRecords().size(), 2u);
    EXPECT_EQ(capture.GetRecords()[0],
              (NK::LogRecord {NK::LogLevel::Error, "WZLib", "Assert", "WZLib error assertion failed at WZSources\\Folder\\WZFile 412"}));
    EXPECT_EQ(capture.GetRecords()[1].level, NK::LogLevel::Warning);
    EXPECT_EQ(capture.GetRecords()[1].text, "WZLib warning assertion failed at WZSources\\Folder\\WZFile 7");
}

TEST(LogLineTest, ParametersGoInOrderAndDoublePercentIsLiteral)
{
    const NK::LogLine line("% of % (%%) % % %", {"Int16", "String", "Bool", "UniString", "Double"}, "NK", "Test");
    EXPECT_EQ(line.Format(-3, "all", true, NK::UniString(u"\u00E9t\u00E9"), 0.5), "-3 of all (%) true \u00E9t\u00E9 0.5");
    const NK::LogLine autoTest("%", {"UniString"}, "NKAutoTester");
    NK::LogCapture capture;
    autoTest.Write(NK::UniString("step 3"));
    ASSERT_EQ(capture.GetRecords().size(), 1u);
    EXPECT_EQ(capture.GetRecords()[0].level, NK::LogLevel::Info);
    EXPECT_EQ(capture.GetRecords()[0].module, "NKAutoTester");
    EXPECT_EQ(capture.GetTexts(), std::vector<std::string> {"step 3"});
}

TEST(LogLineTest, WrongArgumentsAreReportedButTheRecordIsStillSent)
{
    const NK::ErrorLogLine line("line % in %", {"UInt16", "String"}, "NK");
    NK::AssertCapture asserts;
    NK::LogCapture logs;
    line.Write(70000);  // too large for UInt16, and the second argument is missing
    line.Write(-1, "file", 3);
    EXPECT_EQ(logs.GetTexts(), (std::vector<std::string> {"line 70000 in %", "line -1 in file"}));
    EXPECT_EQ(asserts.GetExpressions(), (std::vector<std::string> {"values.size() == parameterTypes.size()", "argument 1 fits UInt16",
                                                                   "values.size() == parameterTypes.size()", "argument 1 fits UInt16"}));

    asserts.Clear();
    const NK::LogLine unknownType("%", {"Float128"}, "NK");
    EXPECT_EQ(asserts.GetExpressions(), std::vector<std::string> {"IsKnownType (Float128)"});
}

TEST(LogLineTest, CaptureRestoresThePreviousSink)
{
    const NK::LogLine line("%", {"Int32"}, "NK");
    NK::LogCapture outer;
    {
        NK::LogCapture inner;
        line.Write(1);
        EXPECT_EQ(inner.GetTexts(), std::vector<std::string> {"1"});
    }
    line.Write(2);
    EXPECT_EQ(outer.GetTexts(), std::vector<std::string> {"2"});
}

}  // namespace
