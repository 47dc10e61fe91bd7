// Rules about what FEMAP has now of that which the rows are of.
#include "findings/Rules.h"
#include "selection/OutputSets.h"

namespace findings
{

namespace
{

form::ParameterRow rowAt(const Study& study, Place place)
{
    return form::ParameterRow(study.rows(place.grid)[static_cast<std::size_t>(place.row - 1)]);
}

// Rows with where they are in the model.
void addPlaces(const Study& study, Report& report, const std::vector<Place>& places)
{
    for (const Place place : places) {
        const form::ParameterRow row = rowAt(study, place);
        report.addRow(place, row.name(), form::placeWords(row.text()));
    }
}

}  // namespace

void entityIsGone(const Study& study, Report& report)
{
    addPlaces(study, report, study.modelNow().goneEntities);
}

void vectorIsGone(const Study& study, Report& report)
{
    addPlaces(study, report, study.modelNow().goneVectors);
}

void resultIsGone(const Study& study, Report& report)
{
    addPlaces(study, report, study.modelNow().goneResults);
}

void functionIsGone(const Study& study, Report& report)
{
    addPlaces(study, report, study.modelNow().goneFunctions);
}

void functionIsRenamed(const Study& study, Report& report)
{
    for (const Changed& each : study.modelNow().renamedFunctions)
        report.addRow(each.place, rowAt(study, each.place).name(), each.now);
}

void loadIsNotInActiveSet(const Study& study, Report& report)
{
    addPlaces(study, report, study.modelNow().inactiveLoads);
}

void valueDiffersFromModel(const Study& study, Report& report)
{
    for (const Changed& each : study.modelNow().otherValues) {
        const form::ParameterRow row = rowAt(study, each.place);
        report.addRow(each.place, row.name(),
                      std::string(row.value()) + " here, " + each.now + " there");
    }
}

void noOutputSetIsActive(const Study& study, Report& report)
{
    bool isAnyResult = false;
    forEachNamedRow(study, Grid::Outputs, [&](const form::ParameterRow& row, Place) {
        isAnyResult = isAnyResult || row.cell(form::outputColumn::kind) != form::massKind;
    });
    if (!isAnyResult)
        return;
    const selection::OutputSets sets = selection::outputSets(study.context());
    if (sets.severalAndNoneActive())
        report.add({}, std::to_string(sets.ids.front()));
}

}  // namespace findings
