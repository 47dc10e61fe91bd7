// A text with its changes, line by line, for those who show all of it.
#pragma once

#include "preview/Preview.h"

#include <cstddef>
#include <string_view>
#include <vector>

namespace preview
{

enum class Sign : char
{
    Unchanged = ' ',
    Removed = '-',
    Added = '+',
    Remark = '\\',  // on the line above
};

struct SignedLine
{
    Sign sign = Sign::Unchanged;
    /// Counted from 1: of a removed line in the text before, of others in the one after; of a
    /// remark 0.
    std::size_t number = 0;
    std::string_view text;  // without its end

    bool operator==(const SignedLine&) const = default;
};

/// The remark on a line that ends otherwise than those of generated files.
constexpr std::string_view remarkOnEnd = "This line does not end in CR LF";

bool endsAsGenerated(std::string_view line);
std::string_view withoutEnd(std::string_view line);

/// All of the text after, with what was removed where it was. The texts must outlive the lines.
std::vector<SignedLine> linesWithChanges(const Texts& texts);

}  // namespace preview
