// Rules about the names of the rows.
#include "findings/Rules.h"
#include "findings/Text.h"

#include <algorithm>

namespace findings
{

namespace
{

using Entry = NameOrder::Entry;
using Run = std::span<const Entry>;

constexpr std::string_view unwanted = " \"'#!%<>";

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

// Visits each run of one name.
template <class Visit>
void forEachName(const Study& study, const Visit& visit)
{
    const NameOrder& names = study.names();
    names.forEachRun(
        names.entries(),
        [&](const Entry& one, const Entry& other) {
            return one.folded == other.folded && names.name(one) == names.name(other);
        },
        [&](Run run, Run) { visit(run); });
}

// Visits each run of names that are equal but for the case of letters, with the next one.
template <class Visit>
void forEachFoldedName(const Study& study, const Visit& visit)
{
    const NameOrder& names = study.names();
    names.forEachRun(
        names.entries(),
        [](const Entry& one, const Entry& other) { return one.folded == other.folded; }, visit);
}

void addRun(const Study& study, Report& report, Run run, std::string_view detail = {})
{
    report.add(study.names().name(run.front()), detail);
    for (const Entry& entry : run)
        report.addPlace(entry.place());
}

// The rows of a run that are in one grid.
Run inGrid(Run run, Grid grid)
{
    const auto inputs = static_cast<std::size_t>(
        std::ranges::count(run, Grid::Inputs, &Entry::grid));  // they stand first
    return grid == Grid::Inputs ? run.first(inputs) : run.subspan(inputs);
}

// Visits the rows of each name that a grid has more than once, and whether they are of different
// quantities.
template <class Visit>
void forEachRepeatedName(const Study& study, const Visit& visit)
{
    const auto placeOf = [&](const Entry& entry) {
        return form::placeWords(study.names().rowText(entry));
    };
    forEachName(study, [&](Run all) {
        for (const Grid grid : {Grid::Inputs, Grid::Outputs}) {
            const Run run = inGrid(all, grid);
            if (run.size() < 2)
                continue;
            const std::string first = placeOf(run.front());
            visit(run, std::ranges::any_of(
                           run, [&](const Entry& entry) { return placeOf(entry) != first; }));
        }
    });
}

}  // namespace

void nameIsEmpty(const Study& study, Report& report)
{
    for (const Grid grid : {Grid::Inputs, Grid::Outputs}) {
        int row = 0;
        for (const std::string& text : study.rows(grid)) {
            ++row;
            if (text.starts_with(form::cellSeparator) &&
                text.find_first_not_of(form::cellSeparator) != std::string::npos)
                report.addRow({grid, row}, {}, form::placeWords(text));
        }
    }
}

void nameIsInBothGrids(const Study& study, Report& report)
{
    forEachName(study, [&](Run run) {
        if (run.front().grid != run.back().grid)
            addRun(study, report, run);
    });
}

void namesDifferInCase(const Study& study, Report& report)
{
    const NameOrder& names = study.names();
    forEachFoldedName(study, [&](Run run, Run) {
        if (names.name(run.front()) != names.name(run.back()))
            addRun(study, report, run, names.name(run.back()));
    });
}

void nameIsThereTwice(const Study& study, Report& report)
{
    forEachRepeatedName(study, [&](Run run, bool differ) {
        if (!differ)
            addRun(study, report, run, std::to_string(run.size()) + " rows");
    });
}

void nameIsOfTwoQuantities(const Study& study, Report& report)
{
    forEachRepeatedName(study, [&](Run run, bool differ) {
        if (differ)
            addRun(study, report, run,
                   form::placeWords(study.names().rowText(run.front())) + " and " +
                       form::placeWords(study.names().rowText(run.back())));
    });
}

void nameBeginsAnother(const Study& study, Report& report)
{
    forEachFoldedName(study, [&](Run run, Run next) {
        const std::string_view name = run.front().folded;
        if (next.empty() || !next.front().folded.starts_with(name))
            return;
        const std::string_view longer = study.names().name(next.front());
        // Any larger pick has entities 1 and 10. What is to be seen to lies in the tool then, and
        // not in a tenth of the rows.
        if (isDigit(name.back()) && isDigit(longer[name.size()]))
            report.add(study.names().name(run.front()), longer);
        else
            addRun(study, report, run, longer);
    });
}

void nameHoldsSpecialCharacters(const Study& study, Report& report)
{
    forEachNamedRow(study, [&](const form::ParameterRow& row, Place place) {
        if (row.name().find_first_of(unwanted) != std::string_view::npos)
            report.addRow(place, row.name(), charactersIn(row.name(), unwanted));
    });
}

}  // namespace findings
