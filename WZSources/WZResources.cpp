#include "WZSources/WZResources.hpp"

#include <limits>

namespace WZ {

namespace {

// The resource system's diagnostics name this file, not the compiler's path of it.
constexpr const char* resourceSourceName = "WZSources\\WZResources";

NK::SourceLocation Caller(const char* function, int line)
{
    return NK::SourceLocation {resourceSourceName, function, line};
}

// The texts of the library's own module. List 301 is the English text; a localisation replaces it
// through NK::Resources::SetStringList on the library's module.
void FillLibraryModule(NK::ModuleHandle module)
{
    NK::Resources::SetStringList(module, CommonFixStringListId, {"OR"});
    NK::Resources::SetStringList(module, PlaceholderResourceId, {"", "0"});
    NK::Resources::SetStringList(module, CommonStringListId,
                                 {"OK", "Cancel", "Close", "Search", "Search Results", "Name", "Type", "Up One Level",
                                  "No Items", "New Folder", "Untitled", "Expand All", "Collapse All", "All Items"});
    for (IconIds icon : {IconIds::UpOneLevel, IconIds::ColumnSettings, IconIds::SearchGlass, IconIds::Placeholder})
        NK::Resources::AddIcon(module, static_cast<int>(icon));
    for (IconIds icon : {IconIds::ClosedFolder, IconIds::OpenFolder, IconIds::GenericItem})
        NK::Resources::AddIcon(NK::SharedResourceModule, static_cast<int>(icon));
}

NK::UniString LookUp(int resourceId, int index, const char* function, int line)
{
    auto text = NK::Resources::GetString(GetWZResourceModule(), resourceId, index, Caller(function, line));
    return text ? *text : NK::UniString();
}

}  // namespace

NK::ModuleHandle GetWZResourceModule()
{
    static const NK::ModuleHandle module = [] {
        NK::ModuleHandle handle = NK::Resources::RegisterModule("WZ");
        FillLibraryModule(handle);
        return handle;
    }();
    return module;
}

namespace {

// The library's module is filled when the library is loaded, so that the shared module's icons
// are known before anybody asks the library for one.
const NK::ModuleHandle moduleAtLoad = GetWZResourceModule();

}  // namespace

NK::UniString GetResourceString(int resourceId, int index)
{
    return LookUp(resourceId, index, "WZ::GetResourceString", __LINE__);
}

NK::UniString GetResourceCommonString(CommonStringIds id)
{
    return LookUp(CommonStringListId, static_cast<int>(id), "WZ::GetResourceCommonString", __LINE__);
}

NK::UniString GetResourceCommonFixString(CommonFixStringIds id)
{
    return LookUp(CommonFixStringListId, static_cast<int>(id), "WZ::GetResourceCommonFixString", __LINE__);
}

short GetResourceShortValue(int resourceId, int index, short defaultValue)
{
    NK::Int64 value = 0;
    NK::UniString text = LookUp(resourceId, index, "WZ::GetResourceShortValue", __LINE__);
    if (!text.ToInt(value) || value < std::numeric_limits<short>::min() || value > std::numeric_limits<short>::max())
        return defaultValue;
    return static_cast<short>(value);
}

QM::Icon GetResourceIcon(IconIds id)
{
    int iconId = static_cast<int>(id);
    bool shared = id == IconIds::ClosedFolder || id == IconIds::OpenFolder || id == IconIds::GenericItem;
    return QM::Icon(shared ? NK::SharedResourceModule : GetWZResourceModule(), iconId);
}

}  // namespace WZ
