// NK::Preferences: a key onto the process-wide preference store. Open a root key (1, the
// user's preferences) and a section path whose names are separated by backslashes
// ("Dialog Manager\\Improved Info Tag"), read bool, int and string values with a default, write
// them, close. A section need not exist to be opened: reading it gives the defaults, writing
// makes it. A value stored with another type than asked for reads as the default.
//
// The store lives in memory. When the environment variable WZ_PREFERENCES names a JSON file at
// the first use of the store, the store is loaded from it, and each Close of a key that wrote
// saves it back (to a temporary file that then replaces the original). File layout:
//   { "1": { "Dialog Manager": { "AllowInstantSearchInDialogsWithLotOfItems": true },
//            "Dialog Manager\\Improved Info Tag": { "HoverIn Wait Milliseconds": 300 } } }
// that is, root keys, then full section paths, then values (JSON booleans, integers, strings).
// A file that is not such JSON leaves the store empty and is never overwritten.
#pragma once

#include "NK/NKTypes.hpp"
#include "NK/NKUniString.hpp"

#include <string>
#include <vector>

namespace NK {

class Preferences {
public:
    static constexpr int UserRoot = 1;

    Preferences() = default;
    ~Preferences();
    Preferences(const Preferences&) = delete;
    Preferences& operator=(const Preferences&) = delete;

    // ErrInvalidArgument for a root key below 1 or a path with an empty name in it (the empty
    // path is the root key's own section); opening an open key closes it first.
    ErrCode Open(int rootKey, const UniString& sectionPath);
    bool IsOpen() const noexcept { return open; }
    // Saves the store when this key wrote and the store has a file; ErrFileSystem when that
    // fails. Closing a closed key is NoError.
    ErrCode Close();

    bool ReadBool(const UniString& name, bool defaultValue) const;
    Int32 ReadInt(const UniString& name, Int32 defaultValue) const;
    UniString ReadString(const UniString& name, const UniString& defaultValue) const;
    bool Contains(const UniString& name) const;
    std::vector<UniString> GetValueNames() const;

    // ErrNotOpen on a closed key, ErrInvalidArgument for an empty name.
    ErrCode WriteBool(const UniString& name, bool value);
    ErrCode WriteInt(const UniString& name, Int32 value);
    ErrCode WriteString(const UniString& name, const UniString& value);
    // Removing a value that is not there is NoError.
    ErrCode DeleteValue(const UniString& name);

    // The file behind the store, empty when it lives in memory only.
    static std::string GetStoreFile();

private:
    template <typename T>
    ErrCode WriteValue(const UniString& name, const T& value);

    bool open = false;
    bool wrote = false;
    std::string root;
    std::string section;
};

}  // namespace NK
