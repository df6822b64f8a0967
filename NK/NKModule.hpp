// NK::Module: a shared library loaded for the lifetime of the object (dlopen on Load, dlclose
// on Unload or destruction; move-only). A load failure is ErrModuleLoad with the loader's
// explanation in GetErrorText; a missing name is ErrSymbolNotFound. NK::ModuleHandle is the
// signed 64-bit number by which modules (and resource modules) are named across the library.
#pragma once

#include "NK/NKFileLocation.hpp"
#include "NK/NKTypes.hpp"

#include <string>

namespace NK {

using ModuleHandle = Int64;

inline constexpr ModuleHandle NullModuleHandle = 0;

class Module {
public:
    Module() = default;
    ~Module();
    Module(Module&& other) noexcept;
    Module& operator=(Module&& other) noexcept;
    Module(const Module&) = delete;
    Module& operator=(const Module&) = delete;

    // A bare file name is searched the loader's way (LD_LIBRARY_PATH, the system folders); a
    // name with a slash is taken as a path. Loading into a loaded module unloads it first.
    ErrCode Load(const std::string& fileName);
    ErrCode Load(const FileLocation& location) { return Load(location.ToString()); }
    void Unload() noexcept;
    bool IsLoaded() const noexcept { return handle != nullptr; }

    // The address of an exported name, or ErrSymbolNotFound (ErrNotOpen when nothing is
    // loaded); `address` is left untouched on failure.
    ErrCode FindSymbol(const std::string& name, void*& address);
    // The exported function by name, null when missing.
    template <typename Function>
    Function* GetFunction(const std::string& name)
    {
        void* address = nullptr;
        return FindSymbol(name, address) == NoError ? reinterpret_cast<Function*>(address) : nullptr;
    }

    ModuleHandle GetHandle() const noexcept { return reinterpret_cast<ModuleHandle>(handle); }
    const std::string& GetFileName() const noexcept { return fileName; }
    // The loader's explanation of the last failure, empty after a success.
    const std::string& GetErrorText() const noexcept { return errorText; }

private:
    void* handle = nullptr;
    std::string fileName;
    std::string errorText;
};

}  // namespace NK
