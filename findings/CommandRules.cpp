// Rules about the model's name, the command line, the solver and the model's extension.
#include "femap/Names.h"
#include "findings/Rules.h"
#include "findings/Text.h"
#include "generate/ExchangeFiles.h"
#include "system/CodePage.h"
#include "system/Files.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace findings
{

using generate::batchFile;
using generate::processFile;
using generate::projectFile;
using generate::taskFile;

namespace
{

// What ends or splits a word of a command of cmd.exe, or is replaced in it …
constexpr std::string_view breaksWords = " \t&%^,;=";
// … and what it reads as its own in some places only.
constexpr std::string_view isReadInPlaces = "!'";
// In the project's texts, what is replaced by something else.
constexpr std::string_view isReplacedInProject = "[]$";
// In a command line: wherever they stand, and outside of double quotes.
constexpr std::string_view isReadAnywhere = "%!";
constexpr std::string_view isReadUnquoted = "&^|<>";

// Extensions of decks that no solver gets here.
constexpr std::string_view furtherDecks[] = {"bdf"};

bool writesCommands(const Study& study)
{
    return study.writes(batchFile) || study.writes(processFile);
}

std::string_view nameOf(const Study& study)
{
    return study.model() ? std::string_view(study.model()->name) : std::string_view();
}

// The command line without the model's name, of which there are rules of its own.
std::string commandWithoutName(const Study& study)
{
    std::string command = study.command();
    const std::string_view name = nameOf(study);
    for (std::size_t at = 0; !name.empty() && (at = command.find(name, at)) != std::string::npos;)
        command.erase(at, name.size());
    return command;
}

std::string withoutQuoted(std::string_view text)
{
    std::string result;
    bool isQuoted = false;
    for (const char c : text) {
        isQuoted = isQuoted != (c == '"');
        if (!isQuoted)
            result += c;
    }
    return result;
}

// The words of a command line, without the quotes around them or parts of them.
std::vector<std::string> wordsOf(std::string_view command)
{
    std::vector<std::string> words(1);
    bool isQuoted = false;
    for (const char c : command) {
        if (c == '"')
            isQuoted = !isQuoted;
        else if (isQuoted || (c != ' ' && c != '\t'))
            words.back() += c;
        else if (!words.back().empty())
            words.emplace_back();
    }
    return words;
}

bool isDeck(std::string_view fileName)
{
    const std::size_t point = fileName.rfind('.');
    if (point == std::string_view::npos)
        return false;
    const auto isExtension = [&](std::string_view extension) {
        return femap::isSameName(fileName.substr(point + 1), extension);
    };
    return std::ranges::any_of(generate::solverFormats(), isExtension,
                               &generate::SolverFormat::deck) ||
           std::ranges::any_of(furtherDecks, isExtension);
}

bool nameStandsUnquoted(const Study& study)
{
    return withoutQuoted(study.command()).find(nameOf(study)) != std::string::npos;
}

}  // namespace

void modelNameBreaksCommands(const Study& study, Report& report)
{
    const std::string found = charactersIn(nameOf(study), breaksWords);
    if (found.empty())
        return;
    if (study.writes(taskFile) || (study.writes(processFile) && nameStandsUnquoted(study)))
        report.add(nameOf(study), found);
}

void modelNameIsSpecial(const Study& study, Report& report)
{
    std::string found;
    if (study.writes(taskFile))
        found = charactersIn(nameOf(study), isReadInPlaces);
    else if (study.writes(projectFile))
        found = charactersIn(nameOf(study), isReplacedInProject);
    if (!found.empty())
        report.add(nameOf(study), found);
}

void modelNameIsNotAscii(const Study& study, Report& report)
{
    if (study.writes(batchFile) && !sys::isAscii(nameOf(study)))
        report.add(nameOf(study));
}

void folderIsOnShare(const Study& study, Report& report)
{
    constexpr std::string_view separators = "\\/";
    if (!study.writes(batchFile) || !study.model())
        return;
    const std::string& folder = study.model()->folder;
    if (folder.size() > 1 && separators.find(folder[0]) != std::string_view::npos &&
        separators.find(folder[1]) != std::string_view::npos)
        report.add(folder);
}

void commandLineIsEmpty(const Study& study, Report& report)
{
    if (writesCommands(study) && study.command().find_first_not_of(" \t") == std::string::npos)
        report.add({});
}

void commandLineNamesOtherDeck(const Study& study, Report& report)
{
    if (!writesCommands(study) || study.solver() == nullptr || !study.model())
        return;
    const std::string deck = generate::deckName(*study.solver(), study.model()->name);
    std::string other;
    for (const std::string& word : wordsOf(study.command())) {
        const std::string_view file = fileNameOf(word, "\\/=");
        if (femap::isSameName(file, deck))
            return;
        if (isDeck(file))
            other = file;
    }
    // A name with a blank in it, unquoted, is no word; another rule speaks of that.
    if (!other.empty() && study.command().find(deck) == std::string::npos)
        report.add(other, deck);
}

void commandLineBreaks(const Study& study, Report& report)
{
    if (study.writes(processFile))
        if (const std::string found = charactersIn(study.command(), "'"); !found.empty())
            report.add({}, found);
}

void commandLineIsSpecial(const Study& study, Report& report)
{
    if (!study.writes(batchFile))
        return;
    const std::string command = commandWithoutName(study);
    const std::string found = joined(charactersIn(withoutQuoted(command), isReadUnquoted),
                                     charactersIn(command, isReadAnywhere));
    if (!found.empty())
        report.add({}, found);
}

void commandLineIsNotAscii(const Study& study, Report& report)
{
    if (study.writes(batchFile) && !sys::isAscii(commandWithoutName(study)))
        report.add({});
}

void solverIsUnknown(const Study& study, Report& report)
{
    if (study.writes(generate::inputDescription) && study.solver() == nullptr)
        report.add(study.form().Solver.Text);
}

void referenceIsNotTheModel(const Study& study, Report& report)
{
    if (!study.writes(generate::inputDescription) || !study.model())
        return;
    const std::string named = generate::referenceModel(study.form(), study.modelFile());
    const std::string_view file = fileNameOf(study.modelFile(), sys::pathSeparators);
    if (named.ends_with('.') || !femap::isSameName(named, file))
        report.add(file, named);
}

}  // namespace findings
