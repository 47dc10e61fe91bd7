// A study script of any bytes is read, or refused at a line that it has.

#include "fuzz/Fuzz.h"
#include "study/StudyScript.h"

#include <algorithm>

using fuzz::require;
using study::ScriptError;
using study::ScriptLine;

namespace
{

bool hasBlanksAround(std::string_view text)
{
    constexpr std::string_view blanks = " \t";
    return !text.empty() && (blanks.find(text.front()) != std::string_view::npos ||
                             blanks.find(text.back()) != std::string_view::npos);
}

// An answer, or a refusal that names the line and says why.
template <class Parse, class Check>
void parsed(const ScriptLine& line, Parse parse, Check check)
{
    try {
        const auto answer = parse(line);
        require(answer.line == line.number, "an answer knows its line");
        check(answer);
    }
    catch (const ScriptError& error) {
        require(error.line() == line.number, "a refused answer names its line");
        require(!std::string_view(error.what()).empty(), "a refused answer says why");
    }
}

void checkLine(const ScriptLine& line)
{
    require(!line.action.empty() && line.action.find_first_of(" \t") == std::string::npos,
            "an action is a word");
    require(!hasBlanksAround(line.argument), "an argument has no blanks around it");
    require((line.action + line.argument).find_first_of("\r\n") == std::string::npos,
            "an action is in one line");

    using study::Choice;
    using study::Pick;
    parsed(line, study::parsePick, [](const Pick& pick) {
        require((pick.kind == Pick::Kind::Ids) != pick.ranges.empty(), "only IDs have ranges");
        require(std::ranges::all_of(pick.ranges,
                                    [](const femap::IDRange& range) {
                                        return range.first >= 1 && range.first <= range.last;
                                    }),
                "a range goes up from an ID");
    });
    parsed(line, study::parseChoice, [](const Choice& choice) {
        require((choice.kind == Choice::Kind::Items) != choice.items.empty(),
                "only a list has items");
        require(std::ranges::none_of(
                    choice.items,
                    [](const auto& item) { return item.empty() || hasBlanksAround(item); }),
                "an item has text and no blanks around it");
    });
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string content = fuzz::textOf(data, size);
    const auto lines = std::ranges::count(content, '\n') + 1;
    study::StudyScript script(content);
    int last = 0;
    try {
        while (const auto line = script.next()) {
            require(line->number > last && line->number <= lines, "the numbers of lines ascend");
            last = line->number;
            checkLine(*line);
        }
    }
    catch (const ScriptError& error) {
        require(error.line() > last && error.line() <= lines, "the script has the refused line");
        require(!std::string_view(error.what()).empty(), "a refused line is told why");
    }
    return 0;
}
