#include "preview/LinesWithChanges.h"

#include "preview/LineDifference.h"

namespace preview
{

namespace
{

constexpr std::string_view generatedEnd = "\r\n";

void append(std::vector<SignedLine>& lines, Sign sign, const std::vector<std::string_view>& from,
            std::size_t first, std::size_t count)
{
    for (std::size_t i = first; i < first + count; ++i) {
        lines.push_back({sign, i + 1, withoutEnd(from[i])});
        if (!endsAsGenerated(from[i]))
            lines.push_back({Sign::Remark, 0, remarkOnEnd});
    }
}

}  // namespace

bool endsAsGenerated(std::string_view line)
{
    return line.ends_with(generatedEnd);
}

std::string_view withoutEnd(std::string_view line)
{
    return line.substr(0, line.find_last_not_of(generatedEnd) + 1);
}

std::vector<SignedLine> linesWithChanges(const Texts& texts)
{
    const std::vector<std::string_view> before = linesOf(texts.before);
    const std::vector<std::string_view> after = linesOf(texts.after);
    std::vector<SignedLine> lines;
    lines.reserve(after.size());
    std::size_t next = 0;
    for (const Change& change : changesBetween(before, after)) {
        append(lines, Sign::Unchanged, after, next, change.after - next);
        append(lines, Sign::Removed, before, change.before, change.beforeCount);
        append(lines, Sign::Added, after, change.after, change.afterCount);
        next = change.after + change.afterCount;
    }
    append(lines, Sign::Unchanged, after, next, after.size() - next);
    return lines;
}

}  // namespace preview
