// Resource modules: numbered string lists and icon ids, looked up by module handle. A library
// registers its own module when it is loaded; a host may add or replace lists (a localisation).
// String indices within a list count from 1. A look-up that finds nothing reports it, for the
// resource system's own diagnostics, at the caller's source file and line.
#pragma once

#include "NK/NKArray.hpp"
#include "NK/NKAssert.hpp"
#include "NK/NKTypes.hpp"
#include "NK/NKUniString.hpp"

#include <optional>

namespace NK {

using ModuleHandle = Int64;

// The toolkit's shared resource module, which carries icons that every library may use.
inline constexpr ModuleHandle SharedResourceModule = -4;

namespace Resources {

// Creates (or finds) the module and returns its handle. Handles of created modules are positive.
ModuleHandle RegisterModule(const char* name);
void UnregisterModule(ModuleHandle module);
bool IsModule(ModuleHandle module);

// Adds or replaces string list `listId` of the module.
void SetStringList(ModuleHandle module, int listId, Array<UniString> strings);
void AddIcon(ModuleHandle module, int iconId);
bool HasIcon(ModuleHandle module, int iconId);

// String `index` (from 1) of list `listId`; nothing when the module, list or index is absent.
// A miss is reported as a failed check located at `caller` (the resource system's diagnostics).
std::optional<UniString> GetString(ModuleHandle module, int listId, int index, const SourceLocation& caller);
UIndex GetStringCount(ModuleHandle module, int listId);

}  // namespace Resources

}  // namespace NK
