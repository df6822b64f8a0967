#include "NK/NKResources.hpp"

#include <map>
#include <mutex>
#include <set>
#include <string>

namespace NK::Resources {

namespace {

struct Module {
    std::string name;
    std::map<int, Array<UniString>> stringLists;
    std::set<int> icons;
};

struct Registry {
    std::mutex mutex;
    std::map<ModuleHandle, Module> modules;
    ModuleHandle nextHandle = 1;
};

Registry& GetRegistry()
{
    static Registry registry;
    return registry;
}

Module& EnsureModule(Registry& registry, ModuleHandle module)
{
    return registry.modules[module];
}

}  // namespace

ModuleHandle RegisterModule(const char* name)
{
    Registry& registry = GetRegistry();
    std::lock_guard lock(registry.mutex);
    for (auto& [handle, module] : registry.modules)
        if (module.name == name)
            return handle;
    ModuleHandle handle = registry.nextHandle++;
    registry.modules[handle].name = name;
    return handle;
}

void UnregisterModule(ModuleHandle module)
{
    Registry& registry = GetRegistry();
    std::lock_guard lock(registry.mutex);
    registry.modules.erase(module);
}

bool IsModule(ModuleHandle module)
{
    Registry& registry = GetRegistry();
    std::lock_guard lock(registry.mutex);
    return registry.modules.count(module) > 0;
}

void SetStringList(ModuleHandle module, int listId, Array<UniString> strings)
{
    Registry& registry = GetRegistry();
    std::lock_guard lock(registry.mutex);
    EnsureModule(registry, module).stringLists[listId] = std::move(strings);
}

void AddIcon(ModuleHandle module, int iconId)
{
    Registry& registry = GetRegistry();
    std::lock_guard lock(registry.mutex);
    EnsureModule(registry, module).icons.insert(iconId);
}

bool HasIcon(ModuleHandle module, int iconId)
{
    Registry& registry = GetRegistry();
    std::lock_guard lock(registry.mutex);
    auto it = registry.modules.find(module);
    return it != registry.modules.end() && it->second.icons.count(iconId) > 0;
}

std::optional<UniString> GetString(ModuleHandle module, int listId, int index, const SourceLocation& caller)
{
    {
        Registry& registry = GetRegistry();
        std::lock_guard lock(registry.mutex);
        auto moduleIt = registry.modules.find(module);
        if (moduleIt != registry.modules.end()) {
            auto listIt = moduleIt->second.stringLists.find(listId);
            if (listIt != moduleIt->second.stringLists.end() && index >= 1 &&
                static_cast<UIndex>(index) <= listIt->second.GetSize())
                return listIt->second[static_cast<UIndex>(index - 1)];
        }
    }
    AssertImpl::AssertFailed(caller, AssertImpl::GetAssertData(),
                             "string resource " + std::to_string(listId) + "/" + std::to_string(index) + " not found");
    return std::nullopt;
}

UIndex GetStringCount(ModuleHandle module, int listId)
{
    Registry& registry = GetRegistry();
    std::lock_guard lock(registry.mutex);
    auto moduleIt = registry.modules.find(module);
    if (moduleIt == registry.modules.end())
        return 0;
    auto listIt = moduleIt->second.stringLists.find(listId);
    return listIt == moduleIt->second.stringLists.end() ? 0 : listIt->second.GetSize();
}

}  // namespace NK::Resources
