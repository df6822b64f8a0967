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
  "1": { "Player": { "Shuffle": false }, "Player\\Playback": { "Fade Milliseconds": 300, "Library": "music.db" } },
  "2": { "Recipes": { "Servings": 3 } }
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

TEST(PreferenceFileTest, ValuesComeFromTheFileByRootKeyAndSection)
{
    EXPECT_EQ(NK::Preferences::GetStoreFile(), PreferenceFile());
    NK::Preferences player, playback, recipes;
    ASSERT_EQ(player.Open(1, "Player"), NK::NoError);
    playback.Open(1, "Player\\Playback");
    EXPECT_FALSE(player.ReadBool("Shuffle", true));
    EXPECT_EQ(playback.ReadInt("Fade Milliseconds", 250), 300);
    EXPECT_EQ(playback.ReadString("Library", ""), NK::UniString("music.db"));
    recipes.Open(1, "Recipes");
    EXPECT_EQ(recipes.ReadInt("Servings", 1), 1);  // stored under root key 2 only
    recipes.Open(2, "Recipes");
    EXPECT_EQ(recipes.ReadInt("Servings", 1), 3);
}

TEST(PreferenceFileTest, ClosingAKeyThatWroteSavesTheWholeStoreAndOneThatOnlyReadLeavesTheFileAlone)
{
    const auto earlier = std::filesystem::last_write_time(PreferenceFile()) - std::chrono::hours(1);
    std::filesystem::last_write_time(PreferenceFile(), earlier);
    NK::Preferences reader;
    reader.Open(1, "Player");
    reader.ReadBool("Shuffle", true);
    EXPECT_EQ(reader.Close(), NK::NoError);
    EXPECT_EQ(std::filesystem::last_write_time(PreferenceFile()), earlier);

    NK::Preferences recipes;
    recipes.Open(1, "Recipes");
    EXPECT_EQ(recipes.WriteBool("Metric", true), NK::NoError);
    EXPECT_EQ(recipes.WriteInt("Servings", 4), NK::NoError);
    EXPECT_FALSE(ReadFile()["1"].contains("Recipes"));  // not before Close
    EXPECT_EQ(recipes.Close(), NK::NoError);
    const nlohmann::json saved = ReadFile();
    EXPECT_EQ(saved["1"]["Recipes"]["Metric"], true);
    EXPECT_EQ(saved["1"]["Recipes"]["Servings"], 4);
    EXPECT_EQ(saved["1"]["Player\\Playback"]["Library"], "music.db");
    EXPECT_EQ(saved["2"]["Recipes"]["Servings"], 3);
    EXPECT_FALSE(std::filesystem::exists(PreferenceFile() + ".tmp"));
}

}  // namespace
