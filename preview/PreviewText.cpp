#include "preview/PreviewText.h"

#include "preview/LineDifference.h"
#include "preview/LinesWithChanges.h"

#include <algorithm>
#include <span>
#include <vector>

namespace preview
{

namespace
{

constexpr std::size_t context = 3;  // lines around what changed

// A part of a text, as the head of its lines names it: "12,3".
std::string placeOf(std::size_t first, std::size_t count)
{
    return std::to_string(count == 0 ? first : first + 1) + ',' + std::to_string(count);
}

class Unified
{
public:
    Unified(const Texts& texts, const sys::CodePage& codePage, const Sink& write)
        : before_(linesOf(texts.before)),
          after_(linesOf(texts.after)),
          changes_(changesBetween(before_, after_)),
          codePage_(codePage),
          write_(write)
    {}

    void write() const
    {
        for (std::span<const Change> left = changes_; !left.empty();) {
            std::size_t together = 1;
            while (together < left.size() &&
                   left[together].before <= endOf(left[together - 1]) + 2 * context)
                ++together;
            writePart(left.first(together));
            left = left.subspan(together);
        }
    }

private:
    static std::size_t endOf(const Change& change) { return change.before + change.beforeCount; }

    void writePart(std::span<const Change> changes) const
    {
        const Change& first = changes.front();
        const Change& last = changes.back();
        const std::size_t above = std::min(context, first.before);
        const std::size_t below = std::min(context, before_.size() - endOf(last));
        const std::size_t begin = first.before - above;
        const std::size_t end = endOf(last) + below;
        const std::size_t beginAfter = first.after - above;
        const std::size_t endAfter = last.after + last.afterCount + below;
        write_("@@ -" + placeOf(begin, end - begin) + " +" +
               placeOf(beginAfter, endAfter - beginAfter) + " @@\n");
        std::size_t next = begin;
        for (const Change& change : changes) {
            writeLines(' ', before_, next, change.before - next);
            writeLines('-', before_, change.before, change.beforeCount);
            writeLines('+', after_, change.after, change.afterCount);
            next = endOf(change);
        }
        writeLines(' ', before_, next, end - next);
    }

    void writeLines(char mark, const std::vector<std::string_view>& lines, std::size_t first,
                    std::size_t count) const
    {
        for (const std::string_view line : std::span(lines).subspan(first, count)) {
            write_(mark + codePage_.decode(withoutEnd(line)) + '\n');
            if (!endsAsGenerated(line))
                write_("\\ " + std::string(remarkOnEnd) + '\n');
        }
    }

    std::vector<std::string_view> before_;
    std::vector<std::string_view> after_;
    std::vector<Change> changes_;
    const sys::CodePage& codePage_;
    const Sink& write_;
};

}  // namespace

std::string lineOf(const File& file)
{
    std::string line(wordOf(file.mark));
    line.append(" ").append(std::to_string(file.size)).append(" ").append(file.name());
    if (file.mark == Mark::Changed && file.sizeBefore)
        line += ": " + std::to_string(*file.sizeBefore) + " bytes before";
    if (file.firstDifference != 0 && file.mark == Mark::Changed)
        line += ", first difference in line " + std::to_string(file.firstDifference);
    if (!file.reason.empty())
        line += ": " + file.reason;
    return line;
}

std::string textOf(const Preview& preview)
{
    std::string text;
    for (const File& file : preview.files)
        text += lineOf(file) + '\n';
    if (!preview.problem.empty())
        text += problemOf(preview) + '\n';
    return text;
}

std::string problemOf(const Preview& preview)
{
    return "\"Apply\" would tell: " + preview.problem;
}

void writeDifference(const Preview& preview, const File& file, const sys::CodePage& codePage,
                     const Sink& write)
{
    if (!preview.texts || file.mark == Mark::WouldFail) {
        write(lineOf(file) + '\n');
        return;
    }
    if (file.mark == Mark::Same)
        return;
    const std::string name(file.name());
    write("--- " + (file.mark == Mark::New ? std::string("/dev/null") : name) + "\n+++ " + name +
          '\n');
    Unified(*preview.texts, codePage, write).write();
}

}  // namespace preview
