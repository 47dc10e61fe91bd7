// Rules about what the rows hold: values, bounds, and what becomes of them in the optimisation.
#include "femap/NumberText.h"
#include "femap/TypeLibrary.h"
#include "findings/Rules.h"
#include "generate/ScanProject.h"
#include "generate/TaskDescription.h"
#include "selection/OutputNames.h"

#include <algorithm>

namespace findings
{

using form::ParameterRow;
using generate::FixedBounds;

namespace
{

bool isFunction(const ParameterRow& row)
{
    return row.cell(form::inputColumn::kind) == form::functionKind;
}

std::string textOf(const FixedBounds& bounds)
{
    return std::string(bounds.lower) + " to " + std::string(bounds.upper);
}

class Range
{
public:
    explicit Range(const FixedBounds& bounds)
        : lower_(femap::realNumber(bounds.lower).value()),
          upper_(femap::realNumber(bounds.upper).value())
    {}

    // A text that is no number is the matter of another rule.
    bool excludes(std::string_view text) const
    {
        const std::optional<double> value = femap::realNumber(text);
        return value && (*value < lower_ || *value > upper_);
    }

private:
    double lower_;
    double upper_;
};

bool isWhole(std::string_view kind, std::string_view member)
{
    const femap::library::Interface* const object =
        femap::library::interfaceOf("fe" + std::string(kind));
    const femap::library::Member* const found =
        object == nullptr ? nullptr : femap::library::find(object->members, member);
    return found != nullptr && (found->returned == 'i' || found->returned == 'b');
}

// Whether FEMAP declares the member of an input as a whole number; looked up once for each.
class WholeMembers
{
public:
    bool contain(const ParameterRow& row)
    {
        const std::string_view kind = row.cell(form::inputColumn::kind);
        const std::string_view member = row.cell(form::inputColumn::member);
        const auto known = std::ranges::find_if(
            known_, [&](const Known& each) { return each.member == member && each.kind == kind; });
        if (known != known_.end())
            return known->isWhole;
        known_.push_back({kind, member, isWhole(kind, member)});
        return known_.back().isWhole;
    }

private:
    struct Known
    {
        std::string_view kind;
        std::string_view member;
        bool isWhole;
    };
    std::vector<Known> known_;
};

bool isValueOrExtreme(std::string_view kind)
{
    const form::RowKind* const known = form::findRowKind(kind);
    return known != nullptr && (known->refreshed == form::Refreshed::FromVector ||
                                known->refreshed == form::Refreshed::FromResult);
}

}  // namespace

void variableIsOutsideBounds(const Study& study, Report& report)
{
    if (!study.writes(generate::taskFile))
        return;
    const Range range(generate::boundsOfVariables());
    WholeMembers wholeMembers;
    report.setAbout(textOf(generate::boundsOfVariables()));
    forEachNamedRow(study, Grid::Inputs, [&](const ParameterRow& row, Place place) {
        // Bounds say nothing of what should not be varied like that at all.
        if (generate::isVaried(row) && range.excludes(row.value()) && !wholeMembers.contain(row))
            report.addRow(place, row.name(), row.value());
    });
}

void parameterIsOutsideBounds(const Study& study, Report& report)
{
    if (!study.writes(generate::parameterFile))
        return;
    const Range range(generate::boundsOfParameters());
    report.setAbout(textOf(generate::boundsOfParameters()));
    forEachNamedRow(study, [&](const ParameterRow& row, Place place) {
        if (range.excludes(row.value()))
            report.addRow(place, row.name(), row.value());
    });
}

void valueIsNoNumber(const Study& study, Report& report)
{
    forEachNamedRow(study, [&](const ParameterRow& row, Place place) {
        if (place.grid == Grid::Inputs && isFunction(row))
            return;
        if (!femap::realNumber(row.value()))
            report.addRow(place, row.name(), row.value().empty() ? "empty" : row.value());
    });
}

void nothingIsVaried(const Study& study, Report& report)
{
    if (!study.writes(generate::taskFile))
        return;
    bool isAnyVaried = false;
    forEachNamedRow(study, Grid::Inputs, [&](const ParameterRow& row, Place) {
        isAnyVaried = isAnyVaried || generate::isVaried(row);
    });
    if (!isAnyVaried)
        report.add({});
}

void wholeNumberIsVaried(const Study& study, Report& report)
{
    WholeMembers wholeMembers;
    forEachNamedRow(study, Grid::Inputs, [&](const ParameterRow& row, Place place) {
        if (wholeMembers.contain(row))
            report.addRow(place, row.name());
    });
}

void elementOutputIsNotConstrained(const Study& study, Report& report)
{
    if (!study.writes(generate::taskFile))
        return;
    report.setAbout(std::string(generate::constrainedNameStart));
    forEachNamedRow(study, Grid::Outputs, [&](const ParameterRow& row, Place place) {
        if (isValueOrExtreme(row.cell(form::outputColumn::kind)) && !generate::isConstrained(row) &&
            selection::entityWordIn(row.name()) == "Elem")
            report.addRow(place, row.name());
    });
}

}  // namespace findings
