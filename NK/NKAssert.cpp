#include "NK/NKAssert.hpp"

#include <cstdio>
#include <cstdlib>

namespace NK::AssertImpl {

namespace {

const AssertData precondData {Kind::Precondition, "Precondition"};
const AssertData assertData {Kind::Assertion, "Assertion"};
const AssertData unreachableData {Kind::Unreachable, "Unreachable"};

Sink& CurrentSink()
{
    static Sink sink = DefaultSink;
    return sink;
}

UnreachableHandler& CurrentUnreachableHandler()
{
    static UnreachableHandler handler;
    return handler;
}

}  // namespace

const AssertData& GetPrecondData() noexcept { return precondData; }
const AssertData& GetAssertData() noexcept { return assertData; }
const AssertData& GetUnreachableData() noexcept { return unreachableData; }

void DefaultSink(const Report& report)
{
    const char* kind = report.kind == Kind::Precondition ? "Precondition" : report.kind == Kind::Assertion ? "Assertion" : "Unreachable";
    std::fprintf(stderr, "%s failed: \"%s\" in %s (%s:%d)\n", kind, report.expression.c_str(), report.location.function.c_str(),
                 report.location.file.c_str(), report.location.line);
}

void AssertFailed(const SourceLocation& location, const AssertData& data, const std::string& expression)
{
    try {
        Report report {location, data.kind, expression};
        if (CurrentSink())
            CurrentSink()(report);
    } catch (...) {
        // A report must never disturb the code that made it.
    }
}

Sink SetSink(Sink sink)
{
    Sink previous = std::move(CurrentSink());
    CurrentSink() = sink ? std::move(sink) : Sink(DefaultSink);
    return previous;
}

void Unreachable(const SourceLocation& location, const std::string& expression)
{
    AssertFailed(location, unreachableData, expression);
    if (CurrentUnreachableHandler())
        CurrentUnreachableHandler()(Report {location, Kind::Unreachable, expression});
    std::abort();
}

UnreachableHandler SetUnreachableHandler(UnreachableHandler handler)
{
    UnreachableHandler previous = std::move(CurrentUnreachableHandler());
    CurrentUnreachableHandler() = std::move(handler);
    return previous;
}

std::string QualifiedFunctionName(const char* prettyFunction)
{
    std::string text(prettyFunction);
    // Clang spells the anonymous namespace "(anonymous namespace)", GCC "{anonymous}"; use GCC's,
    // whose spelling has no parenthesis or space to confuse the cuts below.
    static const std::string clangAnonymous = "(anonymous namespace)";
    for (std::size_t at = text.find(clangAnonymous); at != std::string::npos; at = text.find(clangAnonymous, at))
        text.replace(at, clangAnonymous.size(), "{anonymous}");
    // Cut the parameter list: the first '(' at template depth 0 that is not part of "operator()".
    int depth = 0;
    std::size_t end = text.size();
    for (std::size_t i = 0; i < text.size(); ++i) {
        char c = text[i];
        if (c == '<')
            ++depth;
        else if (c == '>' && depth > 0)
            --depth;
        else if (c == '(' && depth == 0) {
            if (i >= 8 && text.compare(i - 8, 8, "operator") == 0 && i + 1 < text.size() && text[i + 1] == ')')
                continue;
            end = i;
            break;
        }
    }
    text.resize(end);
    // Cut the return type: the last space at template depth 0 before the name.
    depth = 0;
    std::size_t start = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        char c = text[i];
        if (c == '<')
            ++depth;
        else if (c == '>' && depth > 0)
            --depth;
        else if (c == ' ' && depth == 0)
            start = i + 1;
    }
    text = text.substr(start);
    // Drop template arguments of the enclosing class so that names read as written in the source.
    std::string result;
    depth = 0;
    for (char c : text) {
        if (c == '<')
            ++depth;
        else if (c == '>' && depth > 0)
            --depth;
        else if (depth == 0)
            result += c;
    }
    while (!result.empty() && (result.front() == '*' || result.front() == '&'))
        result.erase(result.begin());
    return result;
}

}  // namespace NK::AssertImpl

namespace NK {

AssertCapture::AssertCapture()
{
    previous = AssertImpl::SetSink([this](const AssertImpl::Report& report) { reports.push_back(report); });
}

AssertCapture::~AssertCapture()
{
    AssertImpl::SetSink(std::move(previous));
}

std::vector<std::string> AssertCapture::GetExpressions() const
{
    std::vector<std::string> result;
    for (const auto& report : reports)
        result.push_back(report.expression);
    return result;
}

}  // namespace NK
