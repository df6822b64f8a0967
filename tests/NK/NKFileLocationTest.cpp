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
    const NK::FileLocation file = NK::FileLocation("/data/WZFilterableTreeView").AppendName("tree_c12.dat");
    EXPECT_EQ(file.ToString(), "/data/WZFilterableTreeView/tree_c12.dat");
    EXPECT_EQ(file.GetFileName(), NK::UniString("tree_c12.dat"));
    EXPECT_EQ(file.GetExtension(), NK::UniString("dat"));
    EXPECT_EQ(file.GetBaseName(), NK::UniString("tree_c12"));
    EXPECT_EQ(file.GetParent(), NK::FileLocation("/data/WZFilterableTreeView"));
    EXPECT_EQ(NK::FileLocation("/data/folder/").GetParent(), NK::FileLocation("/data"));
    EXPECT_EQ(NK::FileLocation("noextension").GetExtension(), NK::UniString(""));
    EXPECT_TRUE(NK::FileLocation().IsEmpty());
    EXPECT_FALSE(file.Exists());
}

TEST_F(FileLocationTest, FoldersAreCreatedWithTheirParents)
{
    const NK::FileLocation nested = folder.AppendName("a").AppendName("b");
    EXPECT_EQ(NK::CreateFolder(nested), NK::NoError);
    EXPECT_TRUE(nested.IsFolder());
    EXPECT_EQ(NK::CreateFolder(nested), NK::NoError);
    Touch("a/file");
    EXPECT_EQ(NK::CreateFolder(folder.AppendName("a").AppendName("file")), NK::ErrFileSystem);
    EXPECT_EQ(NK::CreateFolder(NK::FileLocation()), NK::ErrInvalidArgument);
    EXPECT_EQ(NK::DeleteFile(folder.AppendName("a").AppendName("file")), NK::NoError);
    EXPECT_FALSE(folder.AppendName("a").AppendName("file").Exists());
    EXPECT_EQ(NK::DeleteFile(nested), NK::ErrInvalidArgument);
}

TEST_F(FileLocationTest, UnusedNamesCountUpFromTwo)
{
    ASSERT_EQ(NK::CreateFolder(folder), NK::NoError);
    EXPECT_EQ(NK::GenerateUnusedName(folder, "c12", "dat"), folder.AppendName("c12.dat"));
    Touch("c12.dat");
    EXPECT_EQ(NK::GenerateUnusedName(folder, "c12", ".dat"), folder.AppendName("c12 (2).dat"));
    Touch("c12 (2).dat");
    Touch("c12 (4).dat");
    EXPECT_EQ(NK::GenerateUnusedName(folder, "c12", "dat"), folder.AppendName("c12 (3).dat"));
    // A folder takes its name too; no extension gives bare names.
    std::filesystem::create_directory(folder.AppendName("notes").GetPath());
    EXPECT_EQ(NK::GenerateUnusedName(folder, "notes", ""), folder.AppendName("notes (2)"));
    EXPECT_TRUE(NK::GenerateUnusedName(folder, "", "dat").IsEmpty());
}

TEST_F(FileLocationTest, TheUserDataFolderFollowsXdgDataHome)
{
    const char* saved = std::getenv("XDG_DATA_HOME");
    const std::string savedValue = saved != nullptr ? saved : "";
    ::setenv("XDG_DATA_HOME", "/srv/userdata", 1);
    EXPECT_EQ(NK::GetSpecialFolder(NK::SpecialFolder::UserData), NK::FileLocation("/srv/userdata"));
    ::setenv("XDG_DATA_HOME", "relative/is/ignored", 1);
    EXPECT_EQ(NK::GetSpecialFolder(2), NK::GetSpecialFolder(NK::SpecialFolder::Home).AppendName(".local").AppendName("share"));
    ::unsetenv("XDG_DATA_HOME");
    EXPECT_EQ(NK::GetSpecialFolder(2).GetFileName(), NK::UniString("share"));
    EXPECT_TRUE(NK::GetSpecialFolder(99).IsEmpty());
    if (saved != nullptr)
        ::setenv("XDG_DATA_HOME", savedValue.c_str(), 1);
}

}  // namespace
