// A failed operation that the program may ignore, report or end a handler with. Any other exception
// is a mistake in the program and must surface.
#pragma once

#include <stdexcept>
#include <string>
#include <utility>

namespace sys
{

/// Why an operation failed. The numbers are the classic run-time error numbers of Basic.
enum class ErrorNumber
{
    InvalidCall = 5,
    SubscriptOutOfRange = 9,
    FileNotFound = 53,
    InputPastEnd = 62,
    PermissionDenied = 70,
    FileError = 75,
    PathNotFound = 76,
    ObjectNotSet = 91,
    NoSuchMember = 438,
    ObjectFailed = 440,
    CannotRemoveRow = 30015,
};

class RuntimeError : public std::runtime_error
{
public:
    RuntimeError(ErrorNumber number, const std::string& description)
        : std::runtime_error(description), number_(number)
    {}

    ErrorNumber number() const { return number_; }
    std::string description() const { return what(); }

private:
    ErrorNumber number_;
};

/// Does something; an error that it raises begins with what was being done.
template <class Action>
void naming(const std::string& what, const Action& action)
{
    try {
        action();
    }
    catch (const RuntimeError& error) {
        throw RuntimeError(error.number(), what + ": " + error.description());
    }
}

/// What the disk refused, why, and of which file or folder: the path is last, for where it is shown
/// long texts are cut.
class DiskError : public RuntimeError
{
public:
    DiskError(ErrorNumber number, const std::string& what, std::string reason,
              const std::string& path)
        : RuntimeError(number, what + ": " + reason + ": " + path), reason_(std::move(reason))
    {}

    const std::string& reason() const { return reason_; }

private:
    std::string reason_;
};

}  // namespace sys
