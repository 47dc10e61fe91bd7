// A failed operation that the program may ignore, report or end a handler with. Any other exception
// is a mistake in the program and must surface.
#pragma once

#include <stdexcept>
#include <string>

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

}  // namespace sys
