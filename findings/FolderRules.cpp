// Rules about the files beside the model that the loop uses or "Apply" replaces.
#include "femap/Names.h"
#include "findings/Rules.h"
#include "findings/Text.h"
#include "generate/ControlFile.h"
#include "generate/ControlFileLines.h"
#include "generate/ExchangeFiles.h"
#include "generate/GenerationDriver.h"
#include "generate/StudySheet.h"
#include "generate/TaskDescription.h"

#include <algorithm>
#include <span>
#include <utility>

namespace findings
{

using generate::Target;

namespace
{

struct TemplateOfGrid
{
    Target target;
    Grid grid;
};
constexpr TemplateOfGrid templates[] = {{generate::inputTemplate, Grid::Inputs},
                                        {generate::outputTemplate, Grid::Outputs}};

// FEMAP's own files; a neutral file beside them is mostly a copy.
constexpr std::string_view modelExtensions[] = {"modfem", "mod"};

sys::Files& filesOf(const Study& study)
{
    return study.context().system.files;
}

std::string besideModel(const Study& study, std::string_view fileName)
{
    return generate::targetPath(*study.model(), fileName);
}

// The text of a file in the model's folder; nothing when there is none.
std::optional<std::string> textBesideModel(const Study& study, std::string_view fileName)
{
    const std::string path = besideModel(study, fileName);
    if (!filesOf(study).fileExists(path))
        return std::nullopt;
    std::string bytes = filesOf(study).read(path);
    return sys::isAscii(bytes) ? std::move(bytes) : study.context().system.codePage.decode(bytes);
}

// The first bytes of one, which are more than its first line has.
std::string beginningBesideModel(const Study& study, std::string_view fileName)
{
    constexpr std::size_t most = 4096;
    const std::string path = besideModel(study, fileName);
    if (!filesOf(study).fileExists(path))
        return {};
    return study.context().system.codePage.decode(filesOf(study).openToRead(path)->next(most));
}

// The tool goes by templates that somebody else makes.
bool needsTemplates(const Study& study)
{
    return study.model() && study.writes(generate::taskFile) &&
           !study.writes(generate::inputTemplate);
}

// Visits the names in a template until one is refused; whether none was.
template <class Visit>
bool forEachNameInTemplate(std::string_view text, const Visit& visit)
{
    for (generate::LineReader lines(text); !lines.atEnd();)
        if (const std::string_view name = generate::nameInTemplate(lines.next());
            !name.empty() && !visit(name))
            return false;
    return true;
}

std::vector<std::string> namesInTemplate(std::string_view text)
{
    std::vector<std::string> names;
    forEachNameInTemplate(text, [&](std::string_view name) {
        names.emplace_back(name);
        return true;
    });
    std::ranges::sort(names);
    return names;
}

// A function has no value, so that its name may be in a template or not.
bool mayBeLeftOut(const std::string& row, Grid grid)
{
    return form::cellOf(row, form::nameColumn).empty() ||
           (grid == Grid::Inputs &&
            form::cellOf(row, form::inputColumn::kind) == form::functionKind);
}

// As "Apply" leaves it, which needs no search.
bool hasNamesInOrder(std::string_view text, const Study& study, Grid grid)
{
    const std::span<const std::string> rows = study.rows(grid);
    auto row = rows.begin();
    const bool isEachThere = forEachNameInTemplate(text, [&](std::string_view name) {
        while (row != rows.end() && form::cellOf(*row, form::nameColumn) != name &&
               mayBeLeftOut(*row, grid))
            ++row;
        return row != rows.end() && form::cellOf(*row++, form::nameColumn) == name;
    });
    return isEachThere && std::all_of(row, rows.end(), [&](const std::string& rest) {
               return mayBeLeftOut(rest, grid);
           });
}

struct NamesOfGrid
{
    std::vector<std::string_view> all;
    std::vector<std::string_view> needed;
};

NamesOfGrid namesOfGrid(const Study& study, Grid grid)
{
    NamesOfGrid names;
    for (const std::string& row : study.rows(grid)) {
        const std::string_view name = form::cellOf(row, form::nameColumn);
        if (!name.empty())
            names.all.push_back(name);
        if (!mayBeLeftOut(row, grid))
            names.needed.push_back(name);
    }
    std::ranges::sort(names.all);
    std::ranges::sort(names.needed);
    return names;
}

// Empty when all of some names are among others, which are sorted.
template <class Names, class Others>
std::string firstMissing(const Names& names, const Others& others)
{
    for (const std::string_view name : names)
        if (!std::ranges::binary_search(others, name))
            return std::string(name);
    return {};
}

// A row by what it is: all but its value, without empty cells at the end.
using RowKey = std::pair<std::string_view, std::string_view>;

RowKey keyOf(std::string_view row)
{
    const std::string_view name = form::cellOf(row, form::nameColumn);
    const std::string_view place = row.substr(
        static_cast<std::size_t>(form::cellOf(row, form::valueColumn + 1).data() - row.data()));
    return {name, place.substr(0, place.find_last_not_of(form::cellSeparator) + 1)};
}

// Visits the rows of a control file until one is refused; whether none was.
template <class Visit>
bool forEachStoredRow(std::string_view text, const Visit& visit)
{
    for (generate::LineReader lines(text); !lines.atEnd();)
        if (const RowKey key = keyOf(lines.next()); !key.first.empty() && !visit(key))
            return false;
    return true;
}

// Rows that came since may stand between, which needs no search.
bool hasStoredRowsInOrder(std::string_view text, const Study& study)
{
    const std::span<const std::string> inputs = study.rows(Grid::Inputs);
    const std::span<const std::string> outputs = study.rows(Grid::Outputs);
    std::size_t at = 0;
    return forEachStoredRow(text, [&](const RowKey& key) {
        while (at < inputs.size() + outputs.size()) {
            const std::size_t row = at++;
            if (keyOf(row < inputs.size() ? inputs[row] : outputs[row - inputs.size()]) == key)
                return true;
        }
        return false;
    });
}

}  // namespace

void templateIsMissing(const Study& study, Report& report)
{
    if (!needsTemplates(study))
        return;
    for (const TemplateOfGrid& each : templates)
        if (!filesOf(study).fileExists(besideModel(study, each.target)))
            report.add(each.target);
}

void templateIsOfAnotherStudy(const Study& study, Report& report)
{
    if (!needsTemplates(study))
        return;
    for (const TemplateOfGrid& each : templates) {
        const std::optional<std::string> text = textBesideModel(study, each.target);
        if (!text || hasNamesInOrder(*text, study, each.grid))
            continue;
        const std::vector<std::string> there = namesInTemplate(*text);
        const NamesOfGrid names = namesOfGrid(study, each.grid);
        const std::string lacking = firstMissing(names.needed, there);
        const std::string strange = firstMissing(there, names.all);
        if (!lacking.empty())
            report.add(each.target, "it lacks " + lacking);
        else if (!strange.empty())
            report.add(each.target, "it has " + strange);
    }
}

void folderServesAnotherModel(const Study& study, Report& report)
{
    if (!study.model() || !study.writes(generate::inputDescription))
        return;
    const std::string text = beginningBesideModel(study, generate::inputDescription);
    const std::string_view named = generate::namedReference(text);
    if (!named.empty() &&
        !femap::isSameName(named.substr(0, named.rfind('.')), study.model()->name))
        report.add(generate::inputDescription, named);
}

void controlFileIsShared(const Study& study, Report& report)
{
    if (!study.model())
        return;
    const std::string_view own = fileNameOf(study.modelFile(), sys::pathSeparators);
    for (const std::string_view extension : modelExtensions) {
        const std::string other = study.model()->name + "." + std::string(extension);
        if (!femap::isSameName(other, own) && filesOf(study).fileExists(besideModel(study, other)))
            report.add(other);
    }
}

void modelWouldBeOverwritten(const Study& study, Report& report)
{
    if (!study.model())
        return;
    const auto demand = [&](Target target) {
        if (femap::isSameName(besideModel(study, target), study.modelFile()))
            report.add(fileNameOf(study.modelFile(), sys::pathSeparators));
    };
    std::ranges::for_each(generate::filesOfTool(study.form().Optimizer.Text), demand);
    demand(generate::controlFile);
}

void storedRowsWouldBeLost(const Study& study, Report& report)
{
    if (!study.model())
        return;
    const auto stored = generate::storedSelection(study.context(), *study.model());
    if (!stored || hasStoredRowsInOrder(*stored, study))
        return;
    std::vector<RowKey> keys;
    forEachNamedRow(
        study, [&](const form::ParameterRow& row, Place) { keys.push_back(keyOf(row.text())); });
    std::ranges::sort(keys);
    forEachStoredRow(*stored, [&](const RowKey& key) {
        if (!std::ranges::binary_search(keys, key))
            report.add(key.first);
        return true;
    });
}

// A later "Apply" without a sheet wrote another control file, last of all.
void filesWereChangedByHand(const Study& study, Report& report)
{
    if (!study.model() || !filesOf(study).fileExists(besideModel(study, generate::studySheet)))
        return;
    const auto recorded =
        generate::filesInSheet(filesOf(study).read(besideModel(study, generate::studySheet)));
    const auto isAsRecorded = [&](const generate::SheetFile& file) {
        const auto facts = filesOf(study).facts(besideModel(study, file.name));
        return !facts || generate::sheetFile(file.name, *facts) == file;
    };
    const auto find = [&](Target target) {
        const std::string path = besideModel(study, target);
        return std::ranges::find(*recorded, fileNameOf(path, sys::pathSeparators),
                                 &generate::SheetFile::name);
    };
    const bool isOfLastApply = recorded && find(generate::controlFile) != recorded->end() &&
                               isAsRecorded(*find(generate::controlFile));
    if (!isOfLastApply)
        return;
    for (const Target target : generate::filesOfTool(study.form().Optimizer.Text)) {
        const bool isOfLoop = target == generate::inputValues || target == generate::outputValues;
        const auto file = find(target);
        if (!isOfLoop && file != recorded->end() && !isAsRecorded(*file))
            report.add(file->name);
    }
}

void settingsWouldBeOverwritten(const Study& study, Report& report)
{
    if (!study.model() || study.solver() == nullptr || !study.writes(generate::taskFile))
        return;
    const std::string source = generate::copiedSettings(*study.solver());
    if (source.empty())
        return;
    const auto there = textBesideModel(study, generate::settingsFile);
    const bool isCopy =
        there && filesOf(study).fileExists(source) &&
        study.context().system.codePage.decode(filesOf(study).read(source)) == *there;
    if (there && !isCopy)
        report.add(generate::settingsFile, source);
}

void storedCommandLineWouldBeLost(const Study& study, Report& report)
{
    if (!study.model() || !study.writes(generate::batchFile))
        return;
    const auto text = textBesideModel(study, generate::batchFile);
    if (!text)
        return;
    const std::string there = text->substr(0, text->find_first_of("\r\n"));
    const sys::CodePage& codePage = study.context().system.codePage;
    std::string bytes;
    codePage.encode(study.command(), bytes);
    if (!there.empty() && there != codePage.decode(bytes))
        report.add(generate::batchFile, there);
}

void deckIsMissing(const Study& study, Report& report)
{
    if (!study.model() || study.solver() == nullptr || !study.writes(generate::inputDescription))
        return;
    const std::string deck = generate::deckName(*study.solver(), study.model()->name);
    if (!filesOf(study).fileExists(besideModel(study, deck)))
        report.add(deck);
}

}  // namespace findings
