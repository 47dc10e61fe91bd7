#include "preview/LineDifference.h"

#include <algorithm>

namespace preview
{

namespace
{

using Lines = std::span<const std::string_view>;

constexpr int mostSteps = 128;  // lines out or in that a search looks ahead
constexpr int nowhere = -1;

/// Looks for the way through both texts with the fewest lines out and in. A diagonal k is where the
/// first text is k lines further than the second; each step out or in leads to the next diagonal.
/// A search ends after so many steps, and the way that came furthest is taken.
class Way
{
public:
    Way(Lines before, Lines after)
        : gone(before.size(), false),
          added(after.size(), false),
          before_(before),
          after_(after),
          reached_((mostSteps + 1) * width)
    {
        while (!before_.empty() || !after_.empty())
            search();
    }

    std::vector<bool> gone;   // of the first text
    std::vector<bool> added;  // of the second

private:
    static constexpr std::size_t width = 2 * mostSteps + 1;

    // Lines of the first text behind that many steps, on a diagonal.
    int& at(int steps, int diagonal)
    {
        return reached_[static_cast<std::size_t>(steps) * width +
                        static_cast<std::size_t>(diagonal + mostSteps)];
    }
    int reached(int steps, int diagonal)
    {
        const bool isReached =
            diagonal >= -steps && diagonal <= steps && (steps - diagonal) % 2 == 0;
        return isReached ? at(steps, diagonal) : nowhere;
    }
    // Where one more line in, or one more line out, leads to.
    int behindLineIn(int steps, int diagonal)
    {
        const int before = reached(steps, diagonal + 1);
        return before != nowhere && before - diagonal <= lengthOf(after_) ? before : nowhere;
    }
    int behindLineOut(int steps, int diagonal)
    {
        const int before = reached(steps, diagonal - 1);
        return before != nowhere && before + 1 <= lengthOf(before_) ? before + 1 : nowhere;
    }

    static int lengthOf(Lines lines) { return static_cast<int>(lines.size()); }
    static const std::string_view& line(Lines lines, int index)
    {
        return lines[static_cast<std::size_t>(index)];
    }

    int alongEqualLines(int before, int diagonal) const
    {
        if (before == nowhere)
            return nowhere;
        while (before < lengthOf(before_) && before - diagonal < lengthOf(after_) &&
               line(before_, before) == line(after_, before - diagonal))
            ++before;
        return before;
    }

    void search()
    {
        at(0, 0) = alongEqualLines(0, 0);
        const int last = lengthOf(before_) - lengthOf(after_);  // the diagonal of both ends
        int steps = 0;
        while (reached(steps, last) != lengthOf(before_) && steps < mostSteps) {
            for (int k = -steps - 1; k <= steps + 1; k += 2)
                at(steps + 1, k) =
                    alongEqualLines(std::max(behindLineIn(steps, k), behindLineOut(steps, k)), k);
            ++steps;
        }
        take(steps, reached(steps, last) == lengthOf(before_) ? last : furthest(steps));
    }

    int furthest(int steps)
    {
        const auto length = [&](int diagonal) {
            const int before = reached(steps, diagonal);
            return before == nowhere ? nowhere : 2 * before - diagonal;
        };
        int best = -steps;
        for (int k = -steps; k <= steps; k += 2)
            best = length(k) > length(best) ? k : best;
        return best;
    }

    // Marks the lines of the way that leads there, and goes on behind it.
    void take(int steps, int diagonal)
    {
        const int before = reached(steps, diagonal);
        const int after = before - diagonal;
        const std::size_t firstBefore = gone.size() - before_.size();
        const std::size_t firstAfter = added.size() - after_.size();
        for (; steps > 0; --steps) {
            const int in = behindLineIn(steps - 1, diagonal);
            const int out = behindLineOut(steps - 1, diagonal);
            if (in >= out) {
                added[firstAfter + static_cast<std::size_t>(in - diagonal - 1)] = true;
                ++diagonal;
            }
            else {
                gone[firstBefore + static_cast<std::size_t>(out - 1)] = true;
                --diagonal;
            }
        }
        before_ = before_.subspan(static_cast<std::size_t>(before));
        after_ = after_.subspan(static_cast<std::size_t>(after));
    }

    Lines before_;  // what is left of both
    Lines after_;
    std::vector<int> reached_;
};

}  // namespace

std::vector<std::string_view> linesOf(std::string_view text)
{
    std::vector<std::string_view> lines;
    lines.reserve(static_cast<std::size_t>(std::ranges::count(text, '\n')) + 1);
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size() - 1) + 1;
        lines.push_back(text.substr(0, end));
        text.remove_prefix(end);
    }
    return lines;
}

std::vector<Change> changesBetween(Lines before, Lines after)
{
    const Way way(before, after);
    const auto marked = [](const std::vector<bool>& lines, std::size_t from) {
        return static_cast<std::size_t>(
            std::find(lines.begin() + static_cast<std::ptrdiff_t>(from), lines.end(), false) -
            lines.begin() - static_cast<std::ptrdiff_t>(from));
    };
    std::vector<Change> changes;
    for (std::size_t i = 0, k = 0; i < before.size() || k < after.size(); ++i, ++k) {
        const Change change = {i, marked(way.gone, i), k, marked(way.added, k)};
        if (change.beforeCount + change.afterCount > 0)
            changes.push_back(change);
        i += change.beforeCount;
        k += change.afterCount;
    }
    return changes;
}

}  // namespace preview
