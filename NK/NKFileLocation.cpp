#include "NK/NKFileLocation.hpp"

#include <pwd.h>
#include <unistd.h>

#include <cstdlib>
#include <system_error>

namespace NK {

namespace {

std::filesystem::path FromUtf8(const std::string& utf8)
{
    // Paths on this platform are byte strings; UTF-8 is what the rest of the library speaks.
    return std::filesystem::path(utf8);
}

std::filesystem::path HomeFolder()
{
    if (const char* home = std::getenv("HOME"); home != nullptr && *home != '\0')
        return home;
    if (const passwd* entry = ::getpwuid(::getuid()); entry != nullptr && entry->pw_dir != nullptr)
        return entry->pw_dir;
    return {};
}

std::filesystem::path UserDataFolder()
{
    // The XDG base-directory rules ignore relative values.
    if (const char* dataHome = std::getenv("XDG_DATA_HOME"); dataHome != nullptr && *dataHome == '/')
        return dataHome;
    std::filesystem::path home = HomeFolder();
    return home.empty() ? home : home / ".local" / "share";
}

std::filesystem::path TemporaryFolder()
{
    if (const char* tmp = std::getenv("TMPDIR"); tmp != nullptr && *tmp == '/')
        return tmp;
    return "/tmp";
}

// Unused names are searched up to this number: beyond it the folder is not a sane place.
constexpr int MaxUnusedNameAttempts = 100000;

}  // namespace

FileLocation::FileLocation(const UniString& path) : path(FromUtf8(path.ToUtf8())) {}

FileLocation::FileLocation(const char* utf8Path) : path(utf8Path == nullptr ? std::filesystem::path() : FromUtf8(utf8Path)) {}

UniString FileLocation::ToUniString() const
{
    return UniString(path.string());
}

FileLocation FileLocation::AppendName(const UniString& name) const
{
    FileLocation result = *this;
    result.AppendToLocal(name);
    return result;
}

FileLocation& FileLocation::AppendToLocal(const UniString& name)
{
    path /= FromUtf8(name.ToUtf8());
    return *this;
}

FileLocation FileLocation::GetParent() const
{
    std::filesystem::path trimmed = path;
    if (!trimmed.has_filename() && trimmed.has_parent_path() && trimmed != trimmed.root_path())
        trimmed = trimmed.parent_path();  // "a/b/" names the folder "a/b"
    return FileLocation(trimmed.parent_path());
}

UniString FileLocation::GetFileName() const
{
    return UniString(path.filename().string());
}

UniString FileLocation::GetExtension() const
{
    const std::string extension = path.extension().string();
    return UniString(extension.empty() ? extension : extension.substr(1));
}

UniString FileLocation::GetBaseName() const
{
    return UniString(path.stem().string());
}

bool FileLocation::Exists() const
{
    std::error_code error;
    return !path.empty() && std::filesystem::exists(path, error);
}

bool FileLocation::IsFolder() const
{
    std::error_code error;
    return !path.empty() && std::filesystem::is_directory(path, error);
}

FileLocation GetSpecialFolder(int folderId)
{
    switch (folderId) {
    case SpecialFolder::Home:
        return FileLocation(HomeFolder());
    case SpecialFolder::UserData:
        return FileLocation(UserDataFolder());
    case SpecialFolder::Temporary:
        return FileLocation(TemporaryFolder());
    default:
        return {};
    }
}

ErrCode CreateFolder(const FileLocation& folder)
{
    if (folder.IsEmpty())
        return ErrInvalidArgument;
    std::error_code error;
    std::filesystem::create_directories(folder.GetPath(), error);
    return !error && folder.IsFolder() ? NoError : ErrFileSystem;
}

ErrCode DeleteFile(const FileLocation& file)
{
    if (file.IsEmpty())
        return ErrInvalidArgument;
    if (file.IsFolder())
        return ErrInvalidArgument;
    std::error_code error;
    std::filesystem::remove(file.GetPath(), error);
    return error ? ErrFileSystem : NoError;
}

FileLocation GenerateUnusedName(const FileLocation& folder, const UniString& baseName, const UniString& extension)
{
    if (baseName.IsEmpty())
        return {};
    UniString suffix = extension;
    if (suffix.BeginsWith(UniString(".")))
        suffix = suffix.GetSubstring(1);
    if (!suffix.IsEmpty())
        suffix = UniString(".") + suffix;
    for (int number = 1; number <= MaxUnusedNameAttempts; ++number) {
        UniString name = baseName;
        if (number > 1)
            name += UniString(" (") + UniString::FromInt(number) + UniString(")");
        name += suffix;
        FileLocation candidate = folder.AppendName(name);
        std::error_code error;
        // symlink_status: a dangling link still takes the name.
        if (!std::filesystem::exists(std::filesystem::symlink_status(candidate.GetPath(), error)))
            return candidate;
    }
    return {};
}

}  // namespace NK
