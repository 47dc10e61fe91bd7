#include "study/StudyScript.h"

#include "femap/NumberText.h"
#include "system/CodePage.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace study
{

namespace
{

constexpr std::string_view blanks = " \t";
constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view itemSeparator = " | ";

std::string_view trimmed(std::string_view text)
{
    text.remove_prefix(std::min(text.find_first_not_of(blanks), text.size()));
    return text.substr(0, text.find_last_not_of(blanks) + 1);
}

// How many bytes follow the first byte of a UTF-8 character, and what the second one may be at the
// least and at the most; overlong forms, surrogates and what lies beyond U+10FFFF fall outside.
struct Lead
{
    unsigned char first;
    unsigned char last;
    std::size_t following;
    unsigned char secondFrom;
    unsigned char secondTo;
};

// clang-format off
constexpr Lead leads[] = {
    {0x00, 0x7F, 0, 0x00, 0x00},
    {0xC2, 0xDF, 1, 0x80, 0xBF},
    {0xE0, 0xE0, 2, 0xA0, 0xBF},
    {0xE1, 0xEC, 2, 0x80, 0xBF},
    {0xED, 0xED, 2, 0x80, 0x9F},
    {0xEE, 0xEF, 2, 0x80, 0xBF},
    {0xF0, 0xF0, 3, 0x90, 0xBF},
    {0xF1, 0xF3, 3, 0x80, 0xBF},
    {0xF4, 0xF4, 3, 0x80, 0x8F},
};
// clang-format on

bool isUtf8(std::string_view text)
{
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    for (std::size_t i = 0; i < text.size();) {
        const auto* const lead = std::ranges::find_if(
            leads, [&](const Lead& row) { return byte(i) >= row.first && byte(i) <= row.last; });
        if (lead == std::end(leads) || text.size() - i <= lead->following)
            return false;
        for (std::size_t k = 1; k <= lead->following; ++k) {
            const unsigned char from = k == 1 ? lead->secondFrom : 0x80;
            const unsigned char to = k == 1 ? lead->secondTo : 0xBF;
            if (byte(i + k) < from || byte(i + k) > to)
                return false;
        }
        i += lead->following + 1;
    }
    return true;
}

template <class Kind>
struct Word
{
    std::string_view text;
    Kind kind;
};

constexpr Word<Pick::Kind> pickWords[] = {
    {"all", Pick::Kind::All},
    {"cancel", Pick::Kind::Cancel},
    {"missing", Pick::Kind::Missing},
    {"fail", Pick::Kind::Fail},
};

constexpr Word<Choice::Kind> choiceWords[] = {
    {"all", Choice::Kind::All},
    {"none", Choice::Kind::None},
    {"cancel", Choice::Kind::Cancel},
};

template <class Kind, std::size_t count>
std::optional<Kind> findWord(const Word<Kind> (&words)[count], std::string_view text)
{
    const auto* const found = std::ranges::find(words, text, &Word<Kind>::text);
    if (found == std::end(words))
        return {};
    return found->kind;
}

}  // namespace

StudyScript::StudyScript(std::string content) : content_(std::move(content)), rest_(content_)
{
    if (rest_.starts_with(byteOrderMark))
        rest_.remove_prefix(byteOrderMark.size());
}

std::optional<ScriptLine> StudyScript::next()
{
    while (!rest_.empty()) {
        ++number_;
        const std::size_t end = std::min(rest_.find('\n'), rest_.size());
        std::string_view line = rest_.substr(0, end);
        rest_.remove_prefix(std::min(end + 1, rest_.size()));
        if (line.ends_with('\r'))
            line.remove_suffix(1);
        line = trimmed(line);
        if (line.empty() || line.starts_with('#'))
            continue;
        if (!isUtf8(line))
            throw ScriptError(number_, "the line is not UTF-8 text; save the script as UTF-8");
        if (std::ranges::any_of(line, sys::isControlCharacter))
            throw ScriptError(number_, "the line holds a control character; remove it");
        ScriptLine result;
        result.number = number_;
        result.action = takeWord(line);
        result.argument = line;
        return result;
    }
    return {};
}

std::string takeWord(std::string_view& text)
{
    text = trimmed(text);
    const std::size_t end = std::min(text.find_first_of(blanks), text.size());
    std::string word(text.substr(0, end));
    text = trimmed(text.substr(end));
    return word;
}

Pick parsePick(const ScriptLine& line)
{
    Pick result;
    result.line = line.number;
    if (const auto kind = findWord(pickWords, line.argument)) {
        result.kind = *kind;
        return result;
    }
    const std::string cure =
        "; pick takes IDs and ranges such as 1 3 5-9, or one of all, cancel, missing, fail";
    std::string_view rest = line.argument;
    if (rest.empty())
        throw ScriptError(line.number, "pick names nothing" + cure);
    while (!rest.empty()) {
        const std::string word = takeWord(rest);
        const auto range = femap::parseIDRange(word);
        if (!range)
            throw ScriptError(line.number, '"' + word + "\" is no ID or range of IDs" + cure);
        result.ranges.push_back(*range);
    }
    return result;
}

Choice parseChoice(const ScriptLine& line)
{
    Choice result;
    result.line = line.number;
    if (const auto kind = findWord(choiceWords, line.argument)) {
        result.kind = *kind;
        return result;
    }
    // With the outer blanks back, an item that is missing at either end is noticed too.
    const std::string argument = ' ' + line.argument + ' ';
    std::string_view rest = argument;
    for (bool isLast = false; !isLast;) {
        const std::size_t end = rest.find(itemSeparator);
        isLast = end == std::string_view::npos;
        const std::string_view item = trimmed(rest.substr(0, end));
        if (item.empty())
            throw ScriptError(line.number,
                              "choose names an empty item; it takes texts of the list "
                              "separated by \" | \", or one of all, none, cancel");
        result.items.emplace_back(item);
        // The blank of the separator is also the one before the next item.
        rest.remove_prefix(isLast ? rest.size() : end + itemSeparator.size() - 1);
    }
    return result;
}

}  // namespace study
