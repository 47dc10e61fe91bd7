#include "femap/neutral/Replacements.h"

#include <algorithm>
#include <utility>

namespace femap::neutral
{

namespace
{

constexpr std::size_t usualPiece = 1 << 16;

/// Gathers small pieces.
class Gathering
{
public:
    explicit Gathering(const std::function<void(std::string_view)>& write) : write_(write) {}

    void add(std::string_view piece)
    {
        if (gathered_.size() + piece.size() > usualPiece)
            flush();
        if (piece.size() > usualPiece)
            write_(piece);
        else
            gathered_ += piece;
    }

    void flush()
    {
        if (!gathered_.empty())
            write_(gathered_);
        gathered_.clear();
    }

private:
    const std::function<void(std::string_view)>& write_;
    std::string gathered_;
};

// The line around a position, without its end.
std::string_view lineAround(std::string_view content, const char* position)
{
    const auto at = static_cast<std::size_t>(position - content.data());
    const std::size_t begin = content.substr(0, at).rfind('\n') + 1;  // 0 for the first line
    const std::size_t end = std::min(content.find('\n', at), content.size());
    const std::string_view line = content.substr(begin, end - begin);
    return line.substr(0, line.size() - (line.ends_with('\r') ? 1 : 0));
}

std::string_view between(const char* begin, const char* end)
{
    return {begin, static_cast<std::size_t>(end - begin)};
}

}  // namespace

void Replacements::replace(std::string_view piece, std::string text)
{
    replacements_[piece.data()] = {piece.size(), std::move(text)};
}

std::vector<const char*> Replacements::linesLongerThan(std::size_t length) const
{
    std::vector<const char*> lines;
    for (auto each = replacements_.begin(); each != replacements_.end();) {
        const std::string_view line = lineAround(content_, each->first);
        const char* const end = line.data() + line.size();
        std::size_t size = line.size();
        do {
            size += each->second.text.size() - each->second.size;
            ++each;
        } while (each != replacements_.end() && each->first < end);
        if (size > length)
            lines.push_back(line.data());
    }
    return lines;
}

void Replacements::write(const std::function<void(std::string_view)>& write) const
{
    Gathering gathering(write);
    const char* at = content_.data();
    for (const auto& [begin, replacement] : replacements_) {
        gathering.add(between(at, begin));
        gathering.add(replacement.text);
        at = begin + replacement.size;
    }
    gathering.add(between(at, content_.data() + content_.size()));
    gathering.flush();
}

}  // namespace femap::neutral
