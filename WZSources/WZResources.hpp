// The library's resources: its own module with string lists and icons. Strings are counted from
// 1 within a list. A missing string reads as empty and is reported, for the resource system's
// diagnostics, as coming from "WZSources\WZResources" at the line of the look-up.
#pragma once

#include "NK/NKResources.hpp"
#include "NK/NKUniString.hpp"
#include "QM/QMIcon.hpp"
#include "WZSources/WZResourceIds.hpp"

namespace WZ {

NK::ModuleHandle GetWZResourceModule();

NK::UniString GetResourceString(int resourceId, int index);
NK::UniString GetResourceCommonString(CommonStringIds id);
NK::UniString GetResourceCommonFixString(CommonFixStringIds id);
// String `index` of list `resourceId` read as a number; `defaultValue` when it is not one (or
// does not fit a short).
short GetResourceShortValue(int resourceId, int index, short defaultValue);
QM::Icon GetResourceIcon(IconIds id);

}  // namespace WZ
