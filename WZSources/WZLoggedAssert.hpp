// Logged-assertion lines. Each file of the foldered data view owns a pair of log lines, made when
// the library is loaded and destroyed in reverse order when it is unloaded:
//   error:   "WZLib error assertion failed at <source path> %"
//   warning: "WZLib warning assertion failed at <source path> %"
// each with one "UInt32" parameter (the source line), module "WZLib", category "Assert".
// A failed check at error level writes the error line with its line number, at warning level
// the warning line. The library also owns the automated-test log line (module "NKAutoTester",
// format "%").
#pragma once

#include "NK/NKArray.hpp"
#include "NK/NKLogLine.hpp"
#include "NK/NKTypes.hpp"

#include <string_view>

namespace WZ {

struct LoggedAssertLines {
    const char* fileName;    // "WZFDVView"
    const char* sourcePath;  // "WZSources\\CompoundControls\\FolderedDataView\\Views\\WZFDVView"
    NK::ErrorLogLine error;
    NK::WarningLogLine warning;

    LoggedAssertLines(const char* fileName, const char* sourcePath);
};

// The lines of a file, by its name without folder or extension; null for a file that has none.
const LoggedAssertLines* GetLoggedAssertLines(std::string_view fileName);
// The names of the files that own lines, in the order their lines were made.
NK::Array<const char*> GetLoggedAssertFileNames();

// Write the file's error or warning line for a check that failed at `line`. A name that owns no
// lines is itself reported as a failed precondition.
void LogAssertError(std::string_view fileName, NK::UInt32 line);
void LogAssertWarning(std::string_view fileName, NK::UInt32 line);

// The automated-test driver's log line.
const NK::LogLine& GetAutoTestLogLine();

}  // namespace WZ
