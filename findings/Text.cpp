#include "findings/Text.h"

namespace findings
{

namespace
{

std::string wordFor(char c)
{
    switch (c) {
    case ' ':
        return "a blank";
    case '\t':
        return "a tab";
    default:
        return {c};
    }
}

}  // namespace

std::string charactersIn(std::string_view text, std::string_view wanted)
{
    std::string words;
    for (const char c : wanted)
        if (text.find(c) != std::string_view::npos)
            words = joined(words, wordFor(c));
    return words;
}

std::string joined(std::string_view one, std::string_view other)
{
    std::string words(one);
    words.append(one.empty() || other.empty() ? "" : ", ").append(other);
    return words;
}

std::string_view fileNameOf(std::string_view path, std::string_view separators)
{
    const std::size_t separator = path.find_last_of(separators);
    return separator == std::string_view::npos ? path : path.substr(separator + 1);
}

}  // namespace findings
