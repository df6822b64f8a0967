// Exceptions of the base library. Each carries a message and the source that raised it.
#pragma once

#include <stdexcept>
#include <string>

namespace NK {

class Exception : public std::runtime_error {
public:
    explicit Exception(const std::string& message, std::string source = {})
        : std::runtime_error(message), messageText(message), source(std::move(source))
    {
    }
    const std::string& GetMessage() const noexcept { return messageText; }
    const std::string& GetSource() const noexcept { return source; }

private:
    std::string messageText;
    std::string source;
};

// Dereferencing an empty Ref or Owner, or reading a record that is not there.
class NullReferenceException : public Exception {
public:
    explicit NullReferenceException(std::string source = {}) : Exception("Null reference.", std::move(source)) {}
};

// An argument outside what the operation accepts, e.g. an iterator of another container.
class IllegalArgumentException : public Exception {
public:
    explicit IllegalArgumentException(const std::string& message = "Error: Invalid iterator!", std::string source = {})
        : Exception(message, std::move(source))
    {
    }
};

// A reference to an object that is no longer (or never was) valid here.
class IllegalReferenceException : public Exception {
public:
    explicit IllegalReferenceException(const std::string& message = "Illegal reference.", std::string source = {})
        : Exception(message, std::move(source))
    {
    }
};

}  // namespace NK
