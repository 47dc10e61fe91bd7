// Procedures that write into the log: positions in the program, errors and debug lines.
#pragma once

#include "logging/FemapLogger.h"
#include "system/PendingError.h"

#include <string>
#include <string_view>
#include <type_traits>

namespace logging
{

/// "Position at " and the text, at debug level.
void logPosition(FemapLogger& log, std::string_view startPoint);

/// Logs the pending error, or that there is none, and clears it. All errors are reported here.
void logPositionAndClearErrorIfAny(FemapLogger& log, sys::PendingError& error,
                                   std::string_view errroStartPoint);

/// Local time as "2024-03-07 Time 09:05:02.045".
std::string GetTimeStamp(const sys::System& system);

/// One line at debug level, joined from texts, characters and whole numbers. Joins nothing while
/// the log is off, so it may stand in a loop over a million entities.
template <class... Parts>
void logDebug(FemapLogger& log, const Parts&... parts)
{
    if (!log.lets(log.LogLevel_debug))
        return;
    std::string message;
    const auto append = [&message](const auto& part) {
        using Part = std::remove_cvref_t<decltype(part)>;
        if constexpr (std::is_integral_v<Part> && !std::is_same_v<Part, char>)
            message += std::to_string(part);
        else
            message += part;
    };
    (append(parts), ...);
    log.writeLogWithLevel(log.LogLevel_debug, message);
}

}  // namespace logging
