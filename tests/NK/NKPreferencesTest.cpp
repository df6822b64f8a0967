// The in-memory store (no WZ_PREFERENCES in this process); each test uses sections of its own.
#include "NK/NKAssert.hpp"
#include "NK/NKPreferences.hpp"

#include <gtest/gtest.h>

#include <cstdlib>

namespace {

// Before main, so before the store's first use: these tests must never touch a user's file.
const bool storeInMemory = (::unsetenv("WZ_PREFERENCES"), true);

TEST(PreferencesTest, WrittenValuesAreSeenByLaterKeysOfTheSameRootAndSectionOnly)
{
    EXPECT_TRUE(storeInMemory);
    EXPECT_EQ(NK::Preferences::GetStoreFile(), "");
    {
        NK::Preferences key;
        ASSERT_EQ(key.Open(1, "Player\\Playback"), NK::NoError);
        EXPECT_EQ(key.ReadInt("Fade Milliseconds", 250), 250);
        EXPECT_EQ(key.WriteInt("Fade Milliseconds", 300), NK::NoError);
        EXPECT_EQ(key.WriteBool("Shuffle", true), NK::NoError);
        EXPECT_EQ(key.WriteString("Name", NK::UniString(u"caf\u00E9")), NK::NoError);
        EXPECT_EQ(key.WriteInt("Fade Milliseconds", -5), NK::NoError);
    }  // closed by the destructor
    NK::Preferences key, parent, otherRoot;
    key.Open(1, "Player\\Playback");
    parent.Open(1, "Player");
    otherRoot.Open(2, "Player\\Playback");
    EXPECT_EQ(key.ReadInt("Fade Milliseconds", 0), -5);
    EXPECT_TRUE(key.ReadBool("Shuffle", false));
    EXPECT_EQ(key.ReadString("Name", ""), NK::UniString(u"caf\u00E9"));
    EXPECT_EQ(key.GetValueNames(), (std::vector<NK::UniString> {"Fade Milliseconds", "Name", "Shuffle"}));
    EXPECT_EQ(parent.ReadInt("Fade Milliseconds", 0), 0);
    EXPECT_EQ(otherRoot.ReadInt("Fade Milliseconds", 0), 0);
    // A value of another type reads as the default.
    EXPECT_EQ(key.ReadInt("Name", 7), 7);
    EXPECT_FALSE(key.ReadBool("Fade Milliseconds", false));
    EXPECT_EQ(key.ReadString("Shuffle", "text"), NK::UniString("text"));
    EXPECT_EQ(key.DeleteValue("Name"), NK::NoError);
    EXPECT_EQ(key.DeleteValue("Name"), NK::NoError);
    EXPECT_EQ(key.ReadString("Name", "gone"), NK::UniString("gone"));
}

TEST(PreferencesTest, BadRootsPathsAndClosedKeysAreRefused)
{
    NK::Preferences key;
    for (const char* path : {"Player\\\\Playback", "\\Player", "Player\\"})
        EXPECT_EQ(key.Open(1, path), NK::ErrInvalidArgument) << path;
    EXPECT_EQ(key.Open(0, "Player"), NK::ErrInvalidArgument);
    EXPECT_EQ(key.WriteInt("Value", 1), NK::ErrNotOpen);
    NK::AssertCapture asserts;
    EXPECT_EQ(key.ReadInt("Value", 4), 4);
    EXPECT_EQ(asserts.GetExpressions(), std::vector<std::string> {"open"});

    EXPECT_EQ(key.Open(1, "Refusal Test"), NK::NoError);
    EXPECT_EQ(key.WriteInt("", 1), NK::ErrInvalidArgument);
    EXPECT_TRUE(key.GetValueNames().empty());
}

}  // namespace
