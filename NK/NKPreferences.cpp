#include "NK/NKPreferences.hpp"

#include "NK/NKAssert.hpp"
#include "NK/NKLogLine.hpp"

#include <nlohmann/json.hpp>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <limits>
#include <mutex>

namespace NK {

namespace {

using Json = nlohmann::json;

// The process-wide store: root keys, then section paths, then values.
class Store {
public:
    static Store& Get()
    {
        static Store store;  // first use reads the file, once per process
        return store;
    }

    std::mutex mutex;
    Json data = Json::object();

    const Json* FindValue(const std::string& root, const std::string& section, const std::string& name) const
    {
        const auto rootEntry = data.find(root);
        if (rootEntry == data.end() || !rootEntry->is_object())
            return nullptr;
        const auto sectionEntry = rootEntry->find(section);
        if (sectionEntry == rootEntry->end() || !sectionEntry->is_object())
            return nullptr;
        const auto valueEntry = sectionEntry->find(name);
        return valueEntry == sectionEntry->end() ? nullptr : &*valueEntry;
    }

    Json& Section(const std::string& root, const std::string& section) { return data[root][section]; }

    const std::string& GetFile() const noexcept { return file; }

    ErrCode Save()
    {
        if (file.empty() || !writable)
            return NoError;
        const std::string temporary = file + ".tmp";
        {
            std::ofstream out(temporary, std::ios::trunc);
            out << data.dump(2) << '\n';
            out.close();
            if (!out) {
                std::remove(temporary.c_str());
                return ErrFileSystem;
            }
        }
        return std::rename(temporary.c_str(), file.c_str()) == 0 ? NoError : ErrFileSystem;
    }

private:
    Store()
    {
        const char* path = std::getenv("WZ_PREFERENCES");
        if (path == nullptr || *path == '\0')
            return;
        file = path;
        std::ifstream in(file);
        if (!in)
            return;  // not there yet: the first save makes it
        Json loaded = Json::parse(in, nullptr, false);
        if (!IsWellFormed(loaded)) {
            // Keep the user's file as it is rather than replace it by an empty store.
            writable = false;
            const WarningLogLine malformedFile("The preference file % is not well-formed and is left unchanged", {"String"}, "NK",
                                               "Preferences");
            malformedFile.Write(file);
            return;
        }
        data = std::move(loaded);
    }

    static bool IsWellFormed(const Json& json)
    {
        if (!json.is_object())
            return false;
        for (const auto& [root, sections] : json.items()) {
            if (!sections.is_object())
                return false;
            for (const auto& [section, values] : sections.items()) {
                if (!values.is_object())
                    return false;
            }
        }
        return true;
    }

    std::string file;
    bool writable = true;
};

// "a\\b\\c" as it is, or nothing when a name in it is empty ("a\\\\b", "\\a", "a\\").
bool IsValidSectionPath(const std::string& path)
{
    if (path.empty())
        return true;
    return path.front() != '\\' && path.back() != '\\' && path.find("\\\\") == std::string::npos;
}

}  // namespace

Preferences::~Preferences()
{
    Close();
}

ErrCode Preferences::Open(int rootKey, const UniString& sectionPath)
{
    Close();
    const std::string path = sectionPath.ToUtf8();
    if (rootKey < 1 || !IsValidSectionPath(path))
        return ErrInvalidArgument;
    Store::Get();  // the store is loaded at the first open, not at the first write
    root = std::to_string(rootKey);
    section = path;
    open = true;
    wrote = false;
    return NoError;
}

ErrCode Preferences::Close()
{
    if (!open)
        return NoError;
    open = false;
    if (!wrote)
        return NoError;
    wrote = false;
    Store& store = Store::Get();
    std::lock_guard lock(store.mutex);
    return store.Save();
}

bool Preferences::ReadBool(const UniString& name, bool defaultValue) const
{
    if (!NK_PRECOND(open))
        return defaultValue;
    Store& store = Store::Get();
    std::lock_guard lock(store.mutex);
    const Json* value = store.FindValue(root, section, name.ToUtf8());
    return value != nullptr && value->is_boolean() ? value->get<bool>() : defaultValue;
}

Int32 Preferences::ReadInt(const UniString& name, Int32 defaultValue) const
{
    if (!NK_PRECOND(open))
        return defaultValue;
    Store& store = Store::Get();
    std::lock_guard lock(store.mutex);
    const Json* value = store.FindValue(root, section, name.ToUtf8());
    if (value == nullptr || !value->is_number_integer())
        return defaultValue;
    if (value->is_number_unsigned())
        return value->get<UInt64>() <= static_cast<UInt64>(std::numeric_limits<Int32>::max()) ? static_cast<Int32>(value->get<UInt64>())
                                                                                               : defaultValue;
    const Int64 number = value->get<Int64>();
    return number >= std::numeric_limits<Int32>::min() && number <= std::numeric_limits<Int32>::max() ? static_cast<Int32>(number)
                                                                                                       : defaultValue;
}

UniString Preferences::ReadString(const UniString& name, const UniString& defaultValue) const
{
    if (!NK_PRECOND(open))
        return defaultValue;
    Store& store = Store::Get();
    std::lock_guard lock(store.mutex);
    const Json* value = store.FindValue(root, section, name.ToUtf8());
    return value != nullptr && value->is_string() ? UniString(value->get<std::string>()) : defaultValue;
}

bool Preferences::Contains(const UniString& name) const
{
    if (!open)
        return false;
    Store& store = Store::Get();
    std::lock_guard lock(store.mutex);
    return store.FindValue(root, section, name.ToUtf8()) != nullptr;
}

std::vector<UniString> Preferences::GetValueNames() const
{
    std::vector<UniString> names;
    if (!open)
        return names;
    Store& store = Store::Get();
    std::lock_guard lock(store.mutex);
    const auto rootEntry = store.data.find(root);
    if (rootEntry == store.data.end())
        return names;
    const auto sectionEntry = rootEntry->find(section);
    if (sectionEntry == rootEntry->end())
        return names;
    for (const auto& [name, value] : sectionEntry->items())
        names.emplace_back(name);
    return names;
}

template <typename T>
ErrCode Preferences::WriteValue(const UniString& name, const T& value)
{
    if (!open)
        return ErrNotOpen;
    if (name.IsEmpty())
        return ErrInvalidArgument;
    Store& store = Store::Get();
    std::lock_guard lock(store.mutex);
    store.Section(root, section)[name.ToUtf8()] = value;
    wrote = true;
    return NoError;
}

ErrCode Preferences::WriteBool(const UniString& name, bool value) { return WriteValue(name, value); }
ErrCode Preferences::WriteInt(const UniString& name, Int32 value) { return WriteValue(name, value); }
ErrCode Preferences::WriteString(const UniString& name, const UniString& value) { return WriteValue(name, value.ToUtf8()); }

ErrCode Preferences::DeleteValue(const UniString& name)
{
    if (!open)
        return ErrNotOpen;
    Store& store = Store::Get();
    std::lock_guard lock(store.mutex);
    if (store.FindValue(root, section, name.ToUtf8()) == nullptr)
        return NoError;
    store.Section(root, section).erase(name.ToUtf8());
    wrote = true;
    return NoError;
}

std::string Preferences::GetStoreFile()
{
    return Store::Get().GetFile();
}

}  // namespace NK
