// The in-memory store (no WZ_PREFERENCES in this process); each test uses sections of its own.
#include "NK/NKAssert.hpp"
#include "NK/NKPreferences.hpp"

#include <gtest/gtest.h>

#include <cstdlib>

namespace {

// Before main, so before the store's first use: these tests must never touch a user's file.
const bool storeInMemory = (::unsetenv("WZ_PREFERENCES"), true);

TEST(PreferencesTest, MissingValuesReadAsTheirDefaults)
{
    NK::Preferences key;
    ASSERT_EQ(key.Open(NK::Preferences::UserRoot, "Defaults Test\\Nowhere"), NK::NoError);
    EXPECT_TRUE(key.ReadBool("AllowInstantSearchInDialogsWithLotOfItems", true));
    EXPECT_EQ(key.ReadInt("MinVisibleRowNum", 1), 1);
    EXPECT_EQ(key.ReadString("NKAutoTester Library Name", "NKAutoTester.DLL"), NK::UniString("NKAutoTester.DLL"));
    EXPECT_FALSE(key.Contains("MinVisibleRowNum"));
    EXPECT_EQ(key.Close(), NK::NoError);
    EXPECT_TRUE(storeInMemory);
    EXPECT_EQ(NK::Preferences::GetStoreFile(), "");
}

TEST(PreferencesTest, WrittenValuesAreSeenByLaterKeysAndCanBeOverwritten)
{
    {
        NK::Preferences key;
        key.Open(1, "Overwrite Test\\Improved Info Tag");
        EXPECT_EQ(key.WriteInt("HoverIn Wait Milliseconds", 300), NK::NoError);
        EXPECT_EQ(key.WriteBool("Use OwnTooltip Delay For HoverIn WaitTime", true), NK::NoError);
        EXPECT_EQ(key.WriteString("Name", NK::UniString(u"caf\u00E9")), NK::NoError);
        EXPECT_EQ(key.WriteInt("HoverIn Wait Milliseconds", -5), NK::NoError);
    }  // closed by the destructor
    NK::Preferences key;
    key.Open(1, "Overwrite Test\\Improved Info Tag");
    EXPECT_EQ(key.ReadInt("HoverIn Wait Milliseconds", 0), -5);
    EXPECT_TRUE(key.ReadBool("Use OwnTooltip Delay For HoverIn WaitTime", false));
    EXPECT_EQ(key.ReadString("Name", ""), NK::UniString(u"caf\u00E9"));
    EXPECT_EQ(key.GetValueNames(), (std::vector<NK::UniString> {"HoverIn Wait Milliseconds", "Name",
                                                                 "Use OwnTooltip Delay For HoverIn WaitTime"}));
    EXPECT_EQ(key.DeleteValue("Name"), NK::NoError);
    EXPECT_EQ(key.DeleteValue("Name"), NK::NoError);
    EXPECT_EQ(key.ReadString("Name", "gone"), NK::UniString("gone"));
}

TEST(PreferencesTest, SectionsAndRootKeysAreSeparate)
{
    NK::Preferences parent;
    NK::Preferences child;
    NK::Preferences otherRoot;
    parent.Open(1, "Section Test");
    child.Open(1, "Section Test\\Child");
    otherRoot.Open(2, "Section Test");
    parent.WriteInt("Value", 1);
    child.WriteInt("Value", 2);
    EXPECT_EQ(parent.ReadInt("Value", 0), 1);
    EXPECT_EQ(child.ReadInt("Value", 0), 2);
    EXPECT_EQ(otherRoot.ReadInt("Value", 0), 0);
}

TEST(PreferencesTest, AValueOfAnotherTypeReadsAsTheDefault)
{
    NK::Preferences key;
    key.Open(1, "Type Test");
    key.WriteString("Number", "12");
    key.WriteInt("Flag", 1);
    EXPECT_EQ(key.ReadInt("Number", 7), 7);
    EXPECT_FALSE(key.ReadBool("Flag", false));
    EXPECT_EQ(key.ReadString("Flag", "text"), NK::UniString("text"));
}

TEST(PreferencesTest, BadRootsPathsAndClosedKeysAreRefused)
{
    NK::Preferences key;
    EXPECT_EQ(key.Open(0, "Dialog Manager"), NK::ErrInvalidArgument);
    EXPECT_EQ(key.Open(1, "Dialog Manager\\\\Improved Info Tag"), NK::ErrInvalidArgument);
    EXPECT_EQ(key.Open(1, "\\Dialog Manager"), NK::ErrInvalidArgument);
    EXPECT_EQ(key.Open(1, "Dialog Manager\\"), NK::ErrInvalidArgument);
    EXPECT_FALSE(key.IsOpen());
    EXPECT_EQ(key.WriteInt("Value", 1), NK::ErrNotOpen);
    NK::AssertCapture asserts;
    EXPECT_EQ(key.ReadInt("Value", 4), 4);
    EXPECT_EQ(asserts.GetExpressions(), std::vector<std::string> {"open"});

    EXPECT_EQ(key.Open(1, "Refusal Test"), NK::NoError);
    EXPECT_EQ(key.WriteInt("", 1), NK::ErrInvalidArgument);
    EXPECT_TRUE(key.GetValueNames().empty());
}

}  // namespace
