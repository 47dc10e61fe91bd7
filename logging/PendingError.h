#pragma once

#include "logging/RuntimeError.h"

#include <optional>
#include <string>
#include <utility>

namespace logging
{

/// The run-time error that was ignored and not reported yet. A newer error replaces the older.
class PendingError
{
public:
    /// Runs one statement and carries on with the next one whatever happens.
    /// Keeps a RuntimeError as the pending one and returns false; lets everything else through.
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

    bool isPending() const { return error_.has_value(); }

    /// Empty when no error is pending.
    std::string description() const { return error_ ? error_->description() : std::string(); }

    void clear() { error_.reset(); }

private:
    std::optional<RuntimeError> error_;
};

}  // namespace logging
