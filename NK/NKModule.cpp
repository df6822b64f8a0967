#include "NK/NKModule.hpp"

#include <dlfcn.h>

#include <utility>

namespace NK {

namespace {

std::string TakeLoaderError(const char* fallback)
{
    const char* text = ::dlerror();
    return text != nullptr ? std::string(text) : std::string(fallback);
}

}  // namespace

Module::~Module()
{
    Unload();
}

Module::Module(Module&& other) noexcept
    : handle(std::exchange(other.handle, nullptr)), fileName(std::move(other.fileName)), errorText(std::move(other.errorText))
{
}

Module& Module::operator=(Module&& other) noexcept
{
    if (this != &other) {
        Unload();
        handle = std::exchange(other.handle, nullptr);
        fileName = std::move(other.fileName);
        errorText = std::move(other.errorText);
    }
    return *this;
}

ErrCode Module::Load(const std::string& name)
{
    Unload();
    fileName = name;
    if (name.empty()) {
        errorText = "empty module name";
        return ErrModuleLoad;
    }
    ::dlerror();
    handle = ::dlopen(name.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (handle == nullptr) {
        errorText = TakeLoaderError("the module could not be loaded");
        return ErrModuleLoad;
    }
    errorText.clear();
    return NoError;
}

void Module::Unload() noexcept
{
    if (handle != nullptr)
        ::dlclose(handle);
    handle = nullptr;
}

ErrCode Module::FindSymbol(const std::string& name, void*& address)
{
    if (handle == nullptr) {
        errorText = "no module is loaded";
        return ErrNotOpen;
    }
    ::dlerror();
    void* found = ::dlsym(handle, name.c_str());
    // dlerror tells a missing name; a name bound to null is of no use to a caller either.
    if (const char* error = ::dlerror(); error != nullptr) {
        errorText = error;
        return ErrSymbolNotFound;
    }
    if (found == nullptr) {
        errorText = "the symbol " + name + " is null";
        return ErrSymbolNotFound;
    }
    errorText.clear();
    address = found;
    return NoError;
}

}  // namespace NK
