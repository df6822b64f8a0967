// Log lines: a fixed format with '%' placeholders ("%%" is a literal percent sign), the type
// names of its parameters ("Int16", "UInt16", "Int32", "UInt32", "Int64", "UInt64", "Bool",
// "Double", "String", "UniString", "Guid"), a module and a category. Lines are usually
// file-scope statics. Write(args...) puts the arguments in for the placeholders, in order, and
// sends one record (level, module, category, final text) to the process log sink.
// A wrong number or kind of arguments is reported as a failed precondition; the record is sent
// anyway (a log must not get lost), with placeholders that got no argument left as "%".
#pragma once

#include "NK/NKGuid.hpp"
#include "NK/NKTypes.hpp"
#include "NK/NKUniString.hpp"

#include <concepts>
#include <functional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace NK {

enum class LogLevel { Info, Warning, Error };

const char* GetLogLevelName(LogLevel level) noexcept;  // "Info", "Warning", "Error"

struct LogRecord {
    LogLevel level = LogLevel::Info;
    std::string module;
    std::string category;
    std::string text;  // UTF-8

    bool operator==(const LogRecord&) const = default;
};

using LogSink = std::function<void(const LogRecord&)>;

// Replaces the sink; returns the previous one. Null restores the default sink, which writes
// "[Level] module/category: text" to stderr.
LogSink SetLogSink(LogSink sink);
void DefaultLogSink(const LogRecord& record);

// One argument of a log line, as given.
using LogValue = std::variant<Int64, UInt64, bool, double, std::string, UniString, Guid>;

class LogLine {
public:
    LogLine(std::string format, std::vector<std::string> parameterTypes, std::string module, std::string category = {},
            LogLevel level = LogLevel::Info);
    virtual ~LogLine() = default;

    template <typename... Args>
    void Write(const Args&... args) const
    {
        Send(std::vector<LogValue> {ToLogValue(args)...});
    }
    // The text Write would send.
    template <typename... Args>
    std::string Format(const Args&... args) const
    {
        return FormatValues(std::vector<LogValue> {ToLogValue(args)...});
    }

    const std::string& GetFormat() const noexcept { return format; }
    const std::vector<std::string>& GetParameterTypes() const noexcept { return parameterTypes; }
    const std::string& GetModule() const noexcept { return module; }
    const std::string& GetCategory() const noexcept { return category; }
    LogLevel GetLevel() const noexcept { return level; }

private:
    template <typename T>
    static LogValue ToLogValue(const T& value)
    {
        if constexpr (std::same_as<T, bool>)
            return value;
        else if constexpr (std::signed_integral<T>)
            return static_cast<Int64>(value);
        else if constexpr (std::unsigned_integral<T>)
            return static_cast<UInt64>(value);
        else if constexpr (std::floating_point<T>)
            return static_cast<double>(value);
        else if constexpr (std::same_as<T, UniString> || std::same_as<T, Guid>)
            return value;
        else if constexpr (std::same_as<T, const char*> || std::same_as<T, char*>)
            return std::string(value != nullptr ? value : "(null)");
        else
            return std::string(std::string_view(value));
    }

    std::string FormatValues(const std::vector<LogValue>& values) const;
    void Send(const std::vector<LogValue>& values) const;

    std::string format;
    std::vector<std::string> parameterTypes;
    std::string module;
    std::string category;
    LogLevel level;
};

class WarningLogLine : public LogLine {
public:
    WarningLogLine(std::string format, std::vector<std::string> parameterTypes, std::string module, std::string category = {})
        : LogLine(std::move(format), std::move(parameterTypes), std::move(module), std::move(category), LogLevel::Warning)
    {
    }
};

class ErrorLogLine : public LogLine {
public:
    ErrorLogLine(std::string format, std::vector<std::string> parameterTypes, std::string module, std::string category = {})
        : LogLine(std::move(format), std::move(parameterTypes), std::move(module), std::move(category), LogLevel::Error)
    {
    }
};

// Collects the records sent while alive (forwarding none); puts the previous sink back after.
class LogCapture {
public:
    LogCapture();
    ~LogCapture();
    LogCapture(const LogCapture&) = delete;
    LogCapture& operator=(const LogCapture&) = delete;

    const std::vector<LogRecord>& GetRecords() const noexcept { return records; }
    std::vector<std::string> GetTexts() const;
    void Clear() noexcept { records.clear(); }

private:
    std::vector<LogRecord> records;
    LogSink previous;
};

}  // namespace NK
