#include "NK/NKLogLine.hpp"

#include "NK/NKAssert.hpp"

#include <charconv>
#include <cstdio>
#include <limits>

namespace NK {

namespace {

LogSink& CurrentSink()
{
    static LogSink sink = DefaultLogSink;
    return sink;
}

struct IntegerRange {
    const char* name;
    Int64 min;
    UInt64 max;
};

constexpr IntegerRange integerTypes[] = {
    {"Int16", std::numeric_limits<Int16>::min(), std::numeric_limits<Int16>::max()},
    {"UInt16", 0, std::numeric_limits<UInt16>::max()},
    {"Int32", std::numeric_limits<Int32>::min(), std::numeric_limits<Int32>::max()},
    {"UInt32", 0, std::numeric_limits<UInt32>::max()},
    {"Int64", std::numeric_limits<Int64>::min(), std::numeric_limits<Int64>::max()},
    {"UInt64", 0, std::numeric_limits<UInt64>::max()},
};

const IntegerRange* FindIntegerType(const std::string& name)
{
    for (const IntegerRange& range : integerTypes) {
        if (name == range.name)
            return &range;
    }
    return nullptr;
}

bool IsKnownType(const std::string& name)
{
    return FindIntegerType(name) != nullptr || name == "Bool" || name == "Double" || name == "String" || name == "UniString" || name == "Guid";
}

// Whether the argument fits the declared parameter type.
bool Fits(const std::string& type, const LogValue& value)
{
    if (const IntegerRange* range = FindIntegerType(type)) {
        if (const Int64* signedValue = std::get_if<Int64>(&value))
            return *signedValue >= range->min && (*signedValue < 0 || static_cast<UInt64>(*signedValue) <= range->max);
        if (const UInt64* unsignedValue = std::get_if<UInt64>(&value))
            return *unsignedValue <= range->max;
        return false;
    }
    if (type == "Bool")
        return std::holds_alternative<bool>(value);
    if (type == "Double")
        return std::holds_alternative<double>(value) || std::holds_alternative<Int64>(value) || std::holds_alternative<UInt64>(value);
    if (type == "String" || type == "UniString")
        return std::holds_alternative<std::string>(value) || std::holds_alternative<UniString>(value);
    if (type == "Guid")
        return std::holds_alternative<Guid>(value);
    return false;
}

std::string ToText(const LogValue& value)
{
    struct Visitor {
        std::string operator()(Int64 v) const { return std::to_string(v); }
        std::string operator()(UInt64 v) const { return std::to_string(v); }
        std::string operator()(bool v) const { return v ? "true" : "false"; }
        std::string operator()(double v) const
        {
            char buffer[64];
            const auto result = std::to_chars(buffer, buffer + sizeof buffer, v);
            return std::string(buffer, result.ptr);
        }
        std::string operator()(const std::string& v) const { return v; }
        std::string operator()(const UniString& v) const { return v.ToUtf8(); }
        std::string operator()(const Guid& v) const { return v.ToString(); }
    };
    return std::visit(Visitor {}, value);
}

}  // namespace

const char* GetLogLevelName(LogLevel level) noexcept
{
    switch (level) {
    case LogLevel::Info:
        return "Info";
    case LogLevel::Warning:
        return "Warning";
    case LogLevel::Error:
        return "Error";
    }
    return "Info";
}

void DefaultLogSink(const LogRecord& record)
{
    std::fprintf(stderr, "[%s] %s/%s: %s\n", GetLogLevelName(record.level), record.module.c_str(), record.category.c_str(),
                 record.text.c_str());
}

LogSink SetLogSink(LogSink sink)
{
    LogSink previous = std::move(CurrentSink());
    CurrentSink() = sink ? std::move(sink) : LogSink(DefaultLogSink);
    return previous;
}

LogLine::LogLine(std::string format, std::vector<std::string> parameterTypes, std::string module, std::string category, LogLevel level)
    : format(std::move(format)), parameterTypes(std::move(parameterTypes)), module(std::move(module)), category(std::move(category)),
      level(level)
{
    for (const std::string& type : this->parameterTypes)
        NK_PRECOND_TEXT(IsKnownType(type), "IsKnownType (" + type + ")");
}

std::string LogLine::FormatValues(const std::vector<LogValue>& values) const
{
    std::string text;
    text.reserve(format.size() + 16 * values.size());
    UIndex next = 0;
    for (UIndex i = 0; i < format.size(); ++i) {
        if (format[i] != '%') {
            text += format[i];
        } else if (i + 1 < format.size() && format[i + 1] == '%') {
            text += '%';
            ++i;
        } else if (next < values.size()) {
            text += ToText(values[next++]);
        } else {
            text += '%';
        }
    }
    return text;
}

void LogLine::Send(const std::vector<LogValue>& values) const
{
    NK_PRECOND(values.size() == parameterTypes.size());
    for (UIndex i = 0; i < values.size() && i < parameterTypes.size(); ++i)
        NK_PRECOND_TEXT(Fits(parameterTypes[i], values[i]), "argument " + std::to_string(i + 1) + " fits " + parameterTypes[i]);
    try {
        const LogRecord record {level, module, category, FormatValues(values)};
        if (CurrentSink())
            CurrentSink()(record);
    } catch (...) {
        // Logging must never disturb the code that logs.
    }
}

LogCapture::LogCapture()
{
    previous = SetLogSink([this](const LogRecord& record) { records.push_back(record); });
}

LogCapture::~LogCapture()
{
    SetLogSink(std::move(previous));
}

std::vector<std::string> LogCapture::GetTexts() const
{
    std::vector<std::string> texts;
    for (const LogRecord& record : records)
        texts.push_back(record.text);
    return texts;
}

}  // namespace NK
