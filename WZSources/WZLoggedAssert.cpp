#include "WZSources/WZLoggedAssert.hpp"

#include "NK/NKAssert.hpp"

#include <array>
#include <string>

namespace WZ {

namespace {

std::string LineFormat(const char* level, const char* sourcePath)
{
    return std::string("WZLib ") + level + " assertion failed at " + sourcePath + " %";
}

// File-scope statics: made at load in this order, destroyed at unload in the reverse order.
std::array<LoggedAssertLines, 10> loggedAssertLines {{
    {"WZFDVHierarchicalView", "WZSources\\CompoundControls\\FolderedDataView\\Views\\WZFDVHierarchicalView"},
    {"WZFDVListBoxBaseView", "WZSources\\CompoundControls\\FolderedDataView\\Views\\WZFDVListBoxBaseView"},
    {"WZFDVTreeAndListView", "WZSources\\CompoundControls\\FolderedDataView\\Views\\WZFDVTreeAndListView"},
    {"WZFDVView", "WZSources\\CompoundControls\\FolderedDataView\\Views\\WZFDVView"},
    {"WZFDVSelection", "WZSources\\CompoundControls\\FolderedDataView\\WZFDVSelection"},
    {"WZFolderableHierarchicalView", "WZSources\\CompoundControls\\FolderedDataView\\WZFolderableHierarchicalView"},
    {"WZFolderableListBox", "WZSources\\CompoundControls\\FolderedDataView\\WZFolderableListBox"},
    {"WZFolderableModelItem", "WZSources\\CompoundControls\\FolderedDataView\\WZFolderableModelItem"},
    {"WZFolderablePopUpView", "WZSources\\CompoundControls\\FolderedDataView\\WZFolderablePopUpView"},
    {"WZFolderedDataView", "WZSources\\CompoundControls\\FolderedDataView\\WZFolderedDataView"},
}};

const NK::LogLine autoTestLogLine("%", {"String"}, "NKAutoTester");

const LoggedAssertLines* FindOrReport(std::string_view fileName)
{
    const LoggedAssertLines* lines = GetLoggedAssertLines(fileName);
    NK_PRECOND_TEXT(lines != nullptr, "GetLoggedAssertLines (fileName) != nullptr");
    return lines;
}

}  // namespace

LoggedAssertLines::LoggedAssertLines(const char* fileName, const char* sourcePath)
    : fileName(fileName),
      sourcePath(sourcePath),
      error(LineFormat("error", sourcePath), {"UInt32"}, "WZLib", "Assert"),
      warning(LineFormat("warning", sourcePath), {"UInt32"}, "WZLib", "Assert")
{
}

const LoggedAssertLines* GetLoggedAssertLines(std::string_view fileName)
{
    for (const LoggedAssertLines& lines : loggedAssertLines)
        if (fileName == lines.fileName)
            return &lines;
    return nullptr;
}

NK::Array<const char*> GetLoggedAssertFileNames()
{
    NK::Array<const char*> names;
    for (const LoggedAssertLines& lines : loggedAssertLines)
        names.Push(lines.fileName);
    return names;
}

void LogAssertError(std::string_view fileName, NK::UInt32 line)
{
    if (const LoggedAssertLines* lines = FindOrReport(fileName))
        lines->error.Write(line);
}

void LogAssertWarning(std::string_view fileName, NK::UInt32 line)
{
    if (const LoggedAssertLines* lines = FindOrReport(fileName))
        lines->warning.Write(line);
}

const NK::LogLine& GetAutoTestLogLine()
{
    return autoTestLogLine;
}

}  // namespace WZ
