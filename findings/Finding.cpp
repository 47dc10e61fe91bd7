#include "findings/Finding.h"

#include <algorithm>
#include <array>
#include <utility>

namespace findings
{

namespace
{

constexpr std::string_view severityWords[] = {"error", "warning", "hint"};
constexpr std::string_view gridWords[] = {"inputs", "outputs"};

std::size_t timesOf(std::span<const Finding> found, Severity severity)
{
    return static_cast<std::size_t>(std::ranges::count(found, severity, &Finding::severity));
}

}  // namespace

Count counted(std::span<const Finding> found)
{
    return {timesOf(found, Severity::Error), timesOf(found, Severity::Warning),
            timesOf(found, Severity::Hint)};
}

std::string summary(const Count& count)
{
    const std::array counts = {std::pair(Severity::Error, count.errors),
                               std::pair(Severity::Warning, count.warnings),
                               std::pair(Severity::Hint, count.hints)};
    std::string text;
    for (const auto& [severity, times] : counts) {
        if (times == 0)
            continue;
        text.append(text.empty() ? "" : ", ").append(std::to_string(times)).append(" ");
        text.append(wordOf(severity)).append(times == 1 ? "" : "s");
    }
    return text.empty() ? "no findings" : text;
}

std::string_view wordOf(Severity severity)
{
    return severityWords[static_cast<std::size_t>(severity)];
}

std::string_view wordOf(Grid grid)
{
    return gridWords[static_cast<std::size_t>(grid)];
}

}  // namespace findings
