// The store backed by a JSON file: WZ_PREFERENCES is set before the store is first used, as
// the store reads its file once per process.
#include "NK/NKPreferences.hpp"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <unistd.h>

namespace {

std::string PreferenceFile()
{
    return ::testing::TempDir() + "nk_preferences_" + std::to_string(::getpid()) + ".json";
}

class PreferenceFileEnvironment : public ::testing::Environment {
public:
    void SetUp() override
    {
        std::ofstream(PreferenceFile()) << R"({
  "1": {
    "Dialog Manager": { "AllowInstantSearchInDialogsWithLotOfItems": false },
    "Dialog Manager\\Improved Info Tag": { "HoverIn Wait Milliseconds": 300, "HoverOut Milliseconds": 40 },
    "DevSupport": { "NKAutoTester Library Name": "libDriver.so", "NKAutoTester Support": true }
  },
  "2": { "ToolBox": { "MinVisibleRowNum": 3 } }
})";
        ::setenv("WZ_PREFERENCES", PreferenceFile().c_str(), 1);
    }
    void TearDown() override { std::filesystem::remove(PreferenceFile()); }
};

const auto* const environment = ::testing::AddGlobalTestEnvironment(new PreferenceFileEnvironment);

nlohmann::json ReadFile()
{
    std::ifstream in(PreferenceFile());
    return nlohmann::json::parse(in, nullptr, false);
}

TEST(PreferenceFileTest, ValuesComeFromTheFile)
{
    EXPECT_EQ(NK::Preferences::GetStoreFile(), PreferenceFile());
    NK::Preferences dialogs;
    ASSERT_EQ(dialogs.Open(1, "Dialog Manager"), NK::NoError);
    EXPECT_FALSE(dialogs.ReadBool("AllowInstantSearchInDialogsWithLotOfItems", true));

    NK::Preferences infoTag;
    infoTag.Open(1, "Dialog Manager\\Improved Info Tag");
    EXPECT_EQ(infoTag.ReadInt("HoverIn Wait Milliseconds", 250), 300);
    EXPECT_EQ(infoTag.ReadInt("HoverOut Milliseconds", 0), 40);
    EXPECT_EQ(infoTag.ReadInt("HoverOut Wait Milliseconds", 250), 250);

    NK::Preferences devSupport;
    devSupport.Open(1, "DevSupport");
    EXPECT_EQ(devSupport.ReadString("NKAutoTester Library Name", "NKAutoTester.DLL"), NK::UniString("libDriver.so"));
    EXPECT_TRUE(devSupport.ReadBool("NKAutoTester Support", false));

    NK::Preferences toolBox;
    toolBox.Open(1, "ToolBox");
    EXPECT_EQ(toolBox.ReadInt("MinVisibleRowNum", 1), 1);  // stored under root key 2 only
    toolBox.Open(2, "ToolBox");
    EXPECT_EQ(toolBox.ReadInt("MinVisibleRowNum", 1), 3);
}

TEST(PreferenceFileTest, ClosingAKeyThatWroteSavesTheWholeStore)
{
    NK::Preferences toolBox;
    toolBox.Open(1, "ToolBox");
    EXPECT_EQ(toolBox.WriteBool("SnapToWholeItems", true), NK::NoError);
    EXPECT_EQ(toolBox.WriteInt("Arrow hover in wait time", 150), NK::NoError);
    EXPECT_FALSE(ReadFile()["1"].contains("ToolBox"));  // not before Close
    EXPECT_EQ(toolBox.Close(), NK::NoError);

    const nlohmann::json saved = ReadFile();
    EXPECT_EQ(saved["1"]["ToolBox"]["SnapToWholeItems"], true);
    EXPECT_EQ(saved["1"]["ToolBox"]["Arrow hover in wait time"], 150);
    EXPECT_EQ(saved["1"]["Dialog Manager\\Improved Info Tag"]["HoverIn Wait Milliseconds"], 300);
    EXPECT_EQ(saved["2"]["ToolBox"]["MinVisibleRowNum"], 3);
    EXPECT_FALSE(std::filesystem::exists(PreferenceFile() + ".tmp"));
}

TEST(PreferenceFileTest, AKeyThatOnlyReadLeavesTheFileAlone)
{
    const auto before = std::filesystem::last_write_time(PreferenceFile());
    std::filesystem::last_write_time(PreferenceFile(), before - std::chrono::hours(1));
    NK::Preferences key;
    key.Open(1, "Dialog Manager");
    key.ReadBool("AllowInstantSearchInDialogsWithLotOfItems", true);
    EXPECT_EQ(key.Close(), NK::NoError);
    EXPECT_EQ(std::filesystem::last_write_time(PreferenceFile()), before - std::chrono::hours(1));
}

}  // namespace
