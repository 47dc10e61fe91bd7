// The run-time error that was ignored and not reported yet. A newer error replaces the older one.
#pragma once

#include "system/RuntimeError.h"

#include <optional>
#include <string>
#include <utility>

namespace sys
{

class PendingError
{
public:
    /// Runs one statement. Keeps a RuntimeError and returns false; passes other exceptions on.
    template <class Step>
    bool attempt(Step&& step)
    {
        try {
            std::forward<Step>(step)();
            return true;
        }
        catch (const RuntimeError& error) {
            error_ = error;
            return false;
        }
    }

    void note(const RuntimeError& error) { error_ = error; }
    bool isPending() const { return error_.has_value(); }

    /// Empty when no error is pending.
    std::string description() const { return error_ ? error_->description() : std::string(); }

    void clear() { error_.reset(); }

private:
    std::optional<RuntimeError> error_;
};

}  // namespace sys
