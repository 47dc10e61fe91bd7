#include "logging/Module1.h"

namespace logging
{

namespace
{

std::string digits(int number, std::size_t width)
{
    std::string text = std::to_string(number);
    if (text.size() < width)
        text.insert(0, width - text.size(), '0');
    return text;
}

}  // namespace

void logPosition(FemapLogger& log, std::string_view startPoint)
{
    logDebug(log, "Position at ", startPoint);
}

void logPositionAndClearErrorIfAny(FemapLogger& log, sys::PendingError& error,
                                   std::string_view errroStartPoint)
{
    const std::string description = error.description();
    if (description.empty()) {
        logDebug(log, "No Error found ", errroStartPoint);
    }
    else {
        const std::string rule(20, '-');
        log.writeLogWithLevel(log.LogLevel_error, rule + std::string(errroStartPoint) + rule);
        logDebug(log, "Error occured ", errroStartPoint);  // sic
        log.writeLoghighlighted(description);
        log.writeLogWithLevel(log.LogLevel_error, description);
    }
    error.clear();
}

std::string GetTimeStamp(const sys::System& system)
{
    const sys::LocalTime now = system.localTime();
    return digits(now.year, 4) + "-" + digits(now.month, 2) + "-" + digits(now.day, 2) + " Time " +
           digits(now.hour, 2) + ":" + digits(now.minute, 2) + ":" + digits(now.second, 2) + "." +
           digits(now.millisecond, 3);
}

}  // namespace logging
