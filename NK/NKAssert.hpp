// Assertion reports. A failed check calls NK::AssertImpl::AssertFailed with the source location
// (path, namespace-qualified function name, line), the kind of check (a precondition on the
// arguments or state, or an internal invariant) and the expression text. The report goes to a
// replaceable sink and execution goes on; only NK_UNREACHABLE stops the program.
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace NK {

struct SourceLocation {
    std::string file;      // source path as written in our sources, e.g. "WZSources\\Diff\\TreeView\\WZTreeView"
    std::string function;  // namespace-qualified, e.g. "WZ::UntypedTreeView::Setup"
    int line = 0;
};

namespace AssertImpl {

enum class Kind { Precondition, Assertion, Unreachable };

struct AssertData {
    Kind kind;
    const char* name;  // "Precondition", "Assertion", "Unreachable"
};

const AssertData& GetPrecondData() noexcept;
const AssertData& GetAssertData() noexcept;
const AssertData& GetUnreachableData() noexcept;

struct Report {
    SourceLocation location;
    Kind kind;
    std::string expression;
};

using Sink = std::function<void(const Report&)>;

// Sends the report to the current sink. Never throws, never stops the program.
void AssertFailed(const SourceLocation& location, const AssertData& data, const std::string& expression);

// Replaces the sink; returns the previous one. The default sink writes a line to stderr.
Sink SetSink(Sink sink);
void DefaultSink(const Report& report);

// Reports and aborts. Used for states that cannot be continued from.
[[noreturn]] void Unreachable(const SourceLocation& location, const std::string& expression);
// Tests replace what "abort" means (e.g. throwing) to check unreachable stops without dying.
using UnreachableHandler = std::function<void(const Report&)>;
UnreachableHandler SetUnreachableHandler(UnreachableHandler handler);

// Qualified name of the enclosing function, from the compiler's pretty function text:
// "void WZ::UntypedTreeView::Setup(QM::TreeView&, ...)" gives "WZ::UntypedTreeView::Setup".
std::string QualifiedFunctionName(const char* prettyFunction);

}  // namespace AssertImpl

// Collects reports while alive (and forwards nothing); restores the previous sink when destroyed.
class AssertCapture {
public:
    AssertCapture();
    ~AssertCapture();
    AssertCapture(const AssertCapture&) = delete;
    AssertCapture& operator=(const AssertCapture&) = delete;

    const std::vector<AssertImpl::Report>& GetReports() const noexcept { return reports; }
    std::vector<std::string> GetExpressions() const;
    void Clear() noexcept { reports.clear(); }

private:
    std::vector<AssertImpl::Report> reports;
    AssertImpl::Sink previous;
};

}  // namespace NK

#ifndef NK_SOURCE_PATH
#define NK_SOURCE_PATH __FILE__
#endif

#define NK_HERE_IN(path) (::NK::SourceLocation {path, ::NK::AssertImpl::QualifiedFunctionName(__PRETTY_FUNCTION__), __LINE__})
#define NK_HERE NK_HERE_IN(NK_SOURCE_PATH)

// Report a failed precondition and go on; yields the condition's value.
#define NK_PRECOND(cond) \
    ((cond) ? true : (::NK::AssertImpl::AssertFailed(NK_HERE, ::NK::AssertImpl::GetPrecondData(), #cond), false))
// Report a failed internal invariant and go on; yields the condition's value.
#define NK_ASSERT(cond) \
    ((cond) ? true : (::NK::AssertImpl::AssertFailed(NK_HERE, ::NK::AssertImpl::GetAssertData(), #cond), false))
// The same with the expression text given explicitly (where the component fixes the text).
#define NK_PRECOND_TEXT(cond, text) \
    ((cond) ? true : (::NK::AssertImpl::AssertFailed(NK_HERE, ::NK::AssertImpl::GetPrecondData(), text), false))
#define NK_ASSERT_TEXT(cond, text) \
    ((cond) ? true : (::NK::AssertImpl::AssertFailed(NK_HERE, ::NK::AssertImpl::GetAssertData(), text), false))
// Report and abort.
#define NK_UNREACHABLE() ::NK::AssertImpl::Unreachable(NK_HERE, "unreachable")
#define NK_UNREACHABLE_TEXT(text) ::NK::AssertImpl::Unreachable(NK_HERE, text)
