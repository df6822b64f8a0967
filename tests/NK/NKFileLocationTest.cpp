#include "NK/NKFileChannel.hpp"
#include "NK/NKFileLocation.hpp"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include <unistd.h>

namespace {

class FileLocationTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        // One folder per test and process: CTest runs the tests of this fixture in parallel.
        const std::string name = std::string("nk_location_") + ::testing::UnitTest::GetInstance()->current_test_info()->name() +
                                 "_" + std::to_string(::getpid());
        folder = NK::FileLocation(::testing::TempDir()).AppendName(name.c_str());
        std::filesystem::remove_all(folder.GetPath());
    }
    void TearDown() override { std::filesystem::remove_all(folder.GetPath()); }

    void Touch(const NK::UniString& name) const { std::ofstream(folder.AppendName(name).GetPath()) << "x"; }

    NK::FileLocation folder;
};

TEST_F(FileLocationTest, PathPiecesAreReadWithoutTouchingTheDisk)
{
    const NK::FileLocation file = NK::FileLocation("/archive/letters").AppendName("invoice.2024.pdf");
    EXPECT_EQ(file.ToString(), "/archive/letters/invoice.2024.pdf");
    EXPECT_EQ(file.GetExtension(), NK::UniString("pdf"));
    EXPECT_EQ(file.GetBaseName(), NK::UniString("invoice.2024"));
    EXPECT_EQ(NK::FileLocation("/archive/letters/").GetParent(), NK::FileLocation("/archive"));
    EXPECT_EQ(NK::FileLocation("noextension").GetExtension(), NK::UniString(""));
    EXPECT_FALSE(file.Exists());
}

TEST_F(FileLocationTest, FoldersAreCreatedWithTheirParentsAndUnusedNamesCountUpFromTwo)
{
    const NK::FileLocation nested = folder.AppendName("a").AppendName("b");
    EXPECT_EQ(NK::CreateFolder(nested), NK::NoError);
    EXPECT_EQ(NK::CreateFolder(nested), NK::NoError);
    Touch("a/file");
    EXPECT_EQ(NK::CreateFolder(folder.AppendName("a").AppendName("file")), NK::ErrFileSystem);
    EXPECT_EQ(NK::CreateFolder(NK::FileLocation()), NK::ErrInvalidArgument);
    EXPECT_EQ(NK::DeleteFile(folder.AppendName("a").AppendName("file")), NK::NoError);
    EXPECT_FALSE(folder.AppendName("a").AppendName("file").Exists());
    EXPECT_EQ(NK::DeleteFile(nested), NK::ErrInvalidArgument);

    EXPECT_EQ(NK::GenerateUnusedName(folder, "notes", "txt"), folder.AppendName("notes.txt"));
    Touch("notes.txt");
    Touch("notes (2).txt");
    Touch("notes (4).txt");
    EXPECT_EQ(NK::GenerateUnusedName(folder, "notes", ".txt"), folder.AppendName("notes (3).txt"));
    // A folder takes its name too; no extension gives bare names.
    EXPECT_EQ(NK::GenerateUnusedName(folder, "a", ""), folder.AppendName("a (2)"));
    EXPECT_TRUE(NK::GenerateUnusedName(folder, "", "txt").IsEmpty());
}

TEST_F(FileLocationTest, TheUserDataFolderFollowsAnAbsoluteXdgDataHome)
{
    const char* saved = std::getenv("XDG_DATA_HOME");
    const std::string savedValue = saved != nullptr ? saved : "";
    ::setenv("XDG_DATA_HOME", "/srv/userdata", 1);
    EXPECT_EQ(NK::GetSpecialFolder(NK::SpecialFolder::UserData), NK::FileLocation("/srv/userdata"));
    ::setenv("XDG_DATA_HOME", "relative/is/ignored", 1);
    EXPECT_EQ(NK::GetSpecialFolder(2), NK::GetSpecialFolder(NK::SpecialFolder::Home).AppendName(".local").AppendName("share"));
    EXPECT_TRUE(NK::GetSpecialFolder(99).IsEmpty());
    if (saved != nullptr)
        ::setenv("XDG_DATA_HOME", savedValue.c_str(), 1);
    else
        ::unsetenv("XDG_DATA_HOME");
}

}  // namespace
