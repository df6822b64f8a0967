// NK::FileLocation: a path value (empty means "no location"). Composing a location never
// touches the file system; Exists, IsFolder and the free functions below do.
// Special folders: GetSpecialFolder(SpecialFolder::UserData) (= 2) is the per-user data folder,
// $XDG_DATA_HOME when it is an absolute path, else ~/.local/share; 1 is the home folder and 3
// the folder for temporary files. Any other number gives the empty location.
// GenerateUnusedName gives the first of "base.ext", "base (2).ext", "base (3).ext", ... that
// does not exist in the folder (the empty location when the base is empty or none is free).
#pragma once

#include "NK/NKTypes.hpp"
#include "NK/NKUniString.hpp"

#include <filesystem>
#include <string>

namespace NK {

class FileLocation {
public:
    FileLocation() = default;
    explicit FileLocation(std::filesystem::path path) : path(std::move(path)) {}
    explicit FileLocation(const UniString& path);
    explicit FileLocation(const char* utf8Path);
    explicit FileLocation(const std::string& utf8Path) : path(utf8Path) {}

    bool IsEmpty() const noexcept { return path.empty(); }
    const std::filesystem::path& GetPath() const noexcept { return path; }
    UniString ToUniString() const;
    std::string ToString() const { return path.string(); }

    // This location with one more name at its end ("a/b" + "c" gives "a/b/c").
    FileLocation AppendName(const UniString& name) const;
    FileLocation& AppendToLocal(const UniString& name);
    // The containing folder; empty for a location of one name.
    FileLocation GetParent() const;
    // The last name ("report.dat"), its extension without the dot ("dat", empty when none) and
    // the name without the extension ("report").
    UniString GetFileName() const;
    UniString GetExtension() const;
    UniString GetBaseName() const;

    bool Exists() const;
    bool IsFolder() const;

    bool operator==(const FileLocation& other) const = default;

private:
    std::filesystem::path path;
};

// Kept for code that names the type by its short name.
using Location = FileLocation;

namespace SpecialFolder {
inline constexpr int Home = 1;
inline constexpr int UserData = 2;
inline constexpr int Temporary = 3;
}  // namespace SpecialFolder

FileLocation GetSpecialFolder(int folderId);

// Makes the folder and any missing parents; an existing folder is fine. ErrFileSystem when a
// part exists as a file or cannot be made, ErrInvalidArgument for the empty location.
ErrCode CreateFolder(const FileLocation& folder);

// Removes a file (not a folder). A file that is not there is NoError.
ErrCode DeleteFile(const FileLocation& file);

// The extension may be given with or without its dot, or empty for names without one.
FileLocation GenerateUnusedName(const FileLocation& folder, const UniString& baseName, const UniString& extension);

}  // namespace NK
