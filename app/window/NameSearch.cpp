#include "app/window/NameSearch.h"

#include "femap/Names.h"
#include "windows/Text.h"

#include <algorithm>
#include <commctrl.h>
#include <string>

namespace window
{

using form::ParameterGrid;

namespace
{

constexpr UINT anyPart = LVFI_PARTIAL | 4;  // 4 is LVFI_SUBSTRING, another word for it
constexpr UINT textual = LVFI_STRING | LVFI_WRAP | anyPart;
constexpr UINT anythingElse = LVFI_PARAM | LVFI_NEARESTXY;

class Pattern
{
public:
    Pattern(std::string_view text, bool whole)
        : text_(text), wide_(windows::toWide(text)), whole_(whole)
    {}

    // Both compare ASCII letters themselves: among a million names converting each would be felt.
    bool isIn(std::string_view name) const
    {
        if (!std::ranges::all_of(text_, isAscii) || !std::ranges::all_of(name, isAscii))
            return isInWide(windows::toWide(name));
        return std::search(name.begin(), name.end(), text_.begin(), text_.end(),
                           femap::isSameLetter) != name.end();
    }

    bool matches(std::string_view name) const
    {
        for (std::size_t i = 0; i < text_.size(); ++i) {
            if (i == name.size())
                return false;
            if (!isAscii(text_[i]) || !isAscii(name[i]))
                return matchesWide(windows::toWide(name));
            if (!femap::isSameLetter(text_[i], name[i]))
                return false;
        }
        return !whole_ || name.size() == text_.size();
    }

private:
    static bool isAscii(char letter) { return static_cast<unsigned char>(letter) < 0x80; }
    bool isInWide(const std::wstring& name) const
    {
        return FindStringOrdinal(FIND_FROMSTART, name.data(), static_cast<int>(name.size()),
                                 wide_.data(), static_cast<int>(wide_.size()), TRUE) >= 0;
    }
    bool matchesWide(const std::wstring& name) const
    {
        if (name.size() < wide_.size() || (whole_ && name.size() != wide_.size()))
            return false;
        const auto length = static_cast<int>(wide_.size());
        return CompareStringOrdinal(name.data(), length, wide_.data(), length, TRUE) == CSTR_EQUAL;
    }

    std::string_view text_;
    std::wstring wide_;
    bool whole_;
};

// From this item on, and round where it may; -1 when there is none.
template <class Matches>
int firstItem(const ParameterGrid& grid, int start, bool wraps, const Matches& matches)
{
    const auto rows = grid.rows();
    const auto nameMatches = [&](const std::string& row) {
        return matches(form::cellOf(row, form::nameColumn));
    };
    const auto from = rows.begin() + std::clamp(start, 0, static_cast<int>(rows.size()));
    auto found = std::find_if(from, rows.end(), nameMatches);
    if (found == rows.end() && wraps) {
        found = std::find_if(rows.begin(), from, nameMatches);
        if (found == from)
            return -1;
    }
    return found == rows.end() ? -1 : static_cast<int>(found - rows.begin());
}

}  // namespace

int findItem(const ParameterGrid& grid, UINT flags, std::string_view text, int start)
{
    if ((flags & anythingElse) != 0 || (flags & textual) == 0 || text.empty())
        return -1;
    const Pattern pattern(text, (flags & anyPart) == 0);
    return firstItem(grid, start, (flags & LVFI_WRAP) != 0,
                     [&](std::string_view name) { return pattern.matches(name); });
}

int findAnywhere(const ParameterGrid& grid, std::string_view text, int start)
{
    if (text.empty())
        return -1;
    const Pattern pattern(text, false);
    return firstItem(grid, start, true, [&](std::string_view name) { return pattern.isIn(name); });
}

}  // namespace window
