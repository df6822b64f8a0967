#include "NK/NKAssert.hpp"
#include "NK/NKLogLine.hpp"

#include <gtest/gtest.h>

namespace {

TEST(LogLineTest, ParametersGoInOrderAndEachLineKindSendsItsLevel)
{
    const NK::LogLine line("% of % (%%) % % %", {"Int16", "String", "Bool", "UniString", "Double"}, "NK", "Test");
    EXPECT_EQ(line.Format(-3, "all", true, NK::UniString(u"\u00E9t\u00E9"), 0.5), "-3 of all (%) true \u00E9t\u00E9 0.5");
    const NK::LogLine info("%", {"UniString"}, "Player", "Step");
    const NK::WarningLogLine warning("w %", {"UInt32"}, "WZLib", "Assert");
    const NK::ErrorLogLine error("e %", {"UInt32"}, "WZLib", "Assert");
    NK::LogCapture outer;
    {
        NK::LogCapture capture;
        info.Write(NK::UniString("step 3"));
        warning.Write(7u);
        error.Write(NK::UInt32(412));
        EXPECT_EQ(capture.GetRecords(), (std::vector<NK::LogRecord> {{NK::LogLevel::Info, "Player", "Step", "step 3"},
                                                                     {NK::LogLevel::Warning, "WZLib", "Assert", "w 7"},
                                                                     {NK::LogLevel::Error, "WZLib", "Assert", "e 412"}}));
    }
    info.Write(NK::UniString("after"));  // the capture restored the previous sink
    EXPECT_EQ(outer.GetTexts(), std::vector<std::string> {"after"});
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

}  // namespace
