#include "selection/LoadDefinitionInputs.h"

#include "femap/LoadTypes.h"
#include "femap/NumberText.h"
#include "form/FemapLock.h"
#include "form/Progress.h"
#include "logging/Module1.h"
#include "selection/EntityReading.h"
#include "selection/Offer.h"
#include "selection/Outcome.h"
#include "selection/ParameterRows.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <span>
#include <string>
#include <string_view>
#include <variant>

namespace selection
{

using femap::LoadDataType;
using femap::MemberObject;
using femap::ReturnCode;
using form::Context;
using logging::logDebug;
using sys::ErrorNumber;
using sys::RuntimeError;

namespace
{

constexpr int plainMember = -1;

struct LoggedField
{
    std::string_view text;
    const char* member;
    int index = plainMember;
};

// clang-format off
constexpr LoggedField meshLoadFields[] = {
    {"loadMesh_ID ",         "ID"},
    {"SetID = ",             "setID"},
    {"MeshID = ",            "meshID"},
    {"LoadDefinitionId  = ", "LoadDefinitionID"},
    {"Type = ",              "type"},
    {"SubType = ",           "subtype"},
    {"Load_0 = ",            "load", 0},
    {"Load_1 = ",            "load", 1},
    {"Load_2 = ",            "load", 2},
    {"Load_3 = ",            "load", 3},
    {"FaceNumber = ",        "FaceNumber"},
};
constexpr LoggedField geometryLoadFields[] = {
    {"GeomID = ",   "geomID"},
    {"GeomType = ", "geomTYPE"},
};
constexpr LoggedField temperatureFields[] = {
    {"Load Id = ", "ID"},
    {"Temp = ",    "temp"},
    {"Phase = ",   "phase"},
};
// clang-format on

enum class Parameters
{
    EachComponent,   // one row for each prefix that is not empty
    TheTemperature,  // one row
};

struct LoadKind
{
    LoadDataType dataType;
    std::string_view logText;
    std::span<const LoggedField> fields;
    Parameters parameters;
};

// clang-format off
constexpr LoadKind loadKinds[] = {
    {LoadDataType::Mesh,                 "Found Surface load",
        meshLoadFields,     Parameters::EachComponent},
    {LoadDataType::Geometry,             "Found Geometry load",
        geometryLoadFields, Parameters::EachComponent},
    {LoadDataType::ElementalTemperature, "Found Elemental Thermal load",
        temperatureFields,  Parameters::TheTemperature},
    {LoadDataType::NodalTemperature,     "Found Nodal Thermal load",
        temperatureFields,  Parameters::TheTemperature},
};
// clang-format on

/// What the rows of a load definition have in common.
struct Definition
{
    std::string title;
    int id = 0;
    int loadType = 0;
    int dataType = 0;
};

struct SignBlankText
{
    std::string operator()(std::int64_t number) const { return femap::signBlankText(number); }
    std::string operator()(float number) const { return femap::signBlankText(number); }
    std::string operator()(double number) const { return femap::signBlankText(number); }
    template <class Other>
    std::string operator()(const Other&) const
    {
        throw RuntimeError(ErrorNumber::InvalidCall, "The value of a load is not a number");
    }
};

femap::Value read(MemberObject& load, const char* member, int index)
{
    return index == plainMember ? load.member(member) : load.member(member, index);
}

// Logs a field that nothing else needs: it is not read while debug lines are off, and its text
// stays empty when FEMAP refuses it.
void logField(Context& context, MemberObject& load, const LoggedField& field)
{
    if (!context.log.lets(context.log.LogLevel_debug))
        return;
    std::string value;
    context.error.attempt([&] { value = femap::toText(read(load, field.member, field.index)); });
    reportPendingError(context, std::string("Reading ") + field.member + " of a load");
    logDebug(context.log, field.text, value);
}

const LoadKind* findLoadKind(int dataType)
{
    const auto* const found =
        std::ranges::find(loadKinds, static_cast<LoadDataType>(dataType), &LoadKind::dataType);
    return found == std::end(loadKinds) ? nullptr : found;
}

constexpr std::string_view temperatureWord = "Temperature";
constexpr const char* temperatureMember = "temp";
constexpr const char* componentsMember = "load";

// The name of a row before it is altered …
std::string rawName(std::string_view title, int definition, std::string_view component)
{
    std::string name(title);
    name.append("_").append(femap::signBlankText(std::int64_t{definition}));
    return name.append("_").append(component);
}

// … and after that.
std::string altered(const std::string& rawName)
{
    return without(rawName, " []./");
}

void addRow(Context& context, const Definition& definition, std::string_view prefix,
            const std::string& value, std::string_view kind)
{
    const std::string id = femap::signBlankText(std::int64_t{definition.id});
    const std::string raw = rawName(definition.title, definition.id, prefix);
    logDebug(context.log, "Trying to alter the name ", raw);
    const std::string name = altered(raw);
    logDebug(context.log, "Altered the name ", raw, " to ", name);

    std::string row;
    form::InputCells{name, value, kind, id, "0", "0"}.joinIn(row);
    context.form.InputsList.AddItem(row);
    logDebug(context.log, "Added variable to Input list Variable Name=", name, " value=", value,
             " Entity type=", kind, " ID=", definition.id);
}

// Adds the row of one value, unless FEMAP refuses the value.
void addValue(Context& context, Outcome& outcome, const Definition& definition,
              std::string_view prefix, std::string_view kind, MemberObject& load,
              const char* member, int index)
{
    ++outcome.loadValues.all;
    std::string value;
    const bool known = context.error.attempt(
        [&] { value = std::visit(SignBlankText{}, read(load, member, index)); });
    if (!known) {
        reportPendingError(context, "Reading a load of " + definition.title);
        ++outcome.loadValues.refused;
        return;
    }
    addRow(context, definition, prefix, value, kind);
    ++outcome.rows;
}

void addComponents(Context& context, Outcome& outcome, const Definition& definition,
                   std::string_view kind, MemberObject& load)
{
    logDebug(context.log, "Before adding params to Input List");
    const form::MainForm& form = context.form;
    const std::string* const prefixes[] = {&form.firstPrefix, &form.secondPrefix, &form.thirdPrefix,
                                           &form.fourthPrefix};
    int index = 0;
    for (const std::string* const prefix : prefixes) {
        if (!prefix->empty())
            addValue(context, outcome, definition, *prefix, kind, load, componentsMember, index);
        ++index;
    }
}

void addLoad(Context& context, Outcome& outcome, const Definition& definition, MemberObject& load)
{
    const LoadKind* const found = findLoadKind(definition.dataType);
    const form::RowKind* const rows = form::findLoadRowKind(definition.dataType);
    if (found == nullptr || rows == nullptr) {
        logDebug(context.log, "Load definition of load type = ", definition.loadType,
                 "and data type = ", definition.dataType, " not supported");  // sic: no blank
        return;
    }
    logDebug(context.log, found->logText);
    for (const LoggedField& field : found->fields)
        logField(context, load, field);
    if (found->parameters == Parameters::TheTemperature)
        addValue(context, outcome, definition, temperatureWord, rows->tag, load, temperatureMember,
                 plainMember);
    else
        addComponents(context, outcome, definition, rows->tag, load);
}

void addDefinition(Context& context, Outcome& outcome, femap::LoadDefinition& loaded,
                   form::Progress& progress)
{
    Definition definition;
    definition.title = loaded.title();
    const int setID = loaded.setID();
    definition.id = loaded.ID();
    definition.loadType = loaded.loadType();
    definition.dataType = loaded.dataType();
    logDebug(context.log, "Load Defination: Title = ", definition.title, " SetId = ", setID,
             " ID = ", definition.id, " Load Type = ", definition.loadType,
             " Data Type = ", definition.dataType);
    initialisePrefix(context, definition.loadType);

    logDebug(context.log, "Start iterating over loadDef.NextLoad");
    const std::size_t rowsBefore = outcome.rows;
    loaded.ResetNextLoad();
    while (const auto load = loaded.NextLoad()) {
        addLoad(context, outcome, definition, *load);
        progress.step();
    }
    if (outcome.rows == rowsBefore)
        form::tellEngineer(context, "Load definition selection failed...");
}

void selectAndAdd(Context& context, Outcome& outcome)
{
    const auto definition = context.femap().feLoadDefinition();
    logDebug(context.log, "intialize feLoadDefinition");  // sic
    const auto selected = context.femap().feSet();
    logDebug(context.log, "intialize loadDefSet");  // sic
    logDebug(context.log, "Before getting active loadset ID");
    const int loadSet = context.femap().Info_ActiveID(femap::EntityType::LoadSet);
    logDebug(context.log, "After getting active loadset ID. Active loadset id=", loadSet);

    const ReturnCode answer = selected->SelectMultiID(femap::EntityType::LoadDefinition, loadSet,
                                                      "Select Load Definition ");
    context.form.returnCode = static_cast<int>(answer);
    if (answer == ReturnCode::Cancel) {
        form::showMessage(context, "Load Definition selection cancelled...");
        logDebug(context.log, "Load definition selection cancelled...");
        return;
    }
    if (answer != ReturnCode::Ok) {
        form::showMessage(context, "Load Definition  selection failed...");  // sic: two blanks
        logDebug(context.log, "Load definition selection failed...");
        return;
    }

    logDebug(context.log, selected->count(), " Load definitions selected");
    form::Progress progress(context, "Reading loads");
    while (const int id = selected->Next()) {
        ++outcome.definitions.all;
        if (definition->Get(loadSet, id) == ReturnCode::Ok) {
            addDefinition(context, outcome, *definition, progress);
        }
        else {
            ++outcome.definitions.refused;
            reportRefusal(context, "load definition", id);
        }
    }
    if (outcome.definitions.all == 0)
        noteNothingPicked(outcome, context.form.returnCode);
    progress.finish();
    logDebug(context.log, "Check for blank variable in Input List");
    if (removeBlankFirstRow(context.form.InputsList))
        logDebug(context.log, "Blank row found in Input List and hence deleted");
}

}  // namespace

std::vector<LoadComponent> loadComponents(int dataType, int loadType)
{
    const LoadKind* const kind = findLoadKind(dataType);
    if (kind == nullptr)
        return {};
    if (kind->parameters == Parameters::TheTemperature)
        return {{temperatureWord, {temperatureMember}}};
    std::vector<LoadComponent> result;
    const femap::LoadType* const type = femap::findLoadType(loadType);
    for (int i = 0; type != nullptr && i < static_cast<int>(type->values.size()); ++i)
        if (const std::string_view word = type->values[static_cast<std::size_t>(i)]; !word.empty())
            result.push_back({word, {componentsMember, i}});
    return result;
}

std::string loadVariableName(std::string_view title, int definition, std::string_view component)
{
    return altered(rawName(title, definition, component));
}

void initialisePrefix(Context& context, std::int32_t loadType)
{
    logDebug(context.log, "At start of initialisePrefix");
    form::MainForm& form = context.form;
    const femap::LoadType* const type = femap::findLoadType(loadType);
    std::array<std::string_view, 4> prefixes;
    if (type != nullptr)
        prefixes = type->values;
    form.firstPrefix = prefixes[0];
    form.secondPrefix = prefixes[1];
    form.thirdPrefix = prefixes[2];
    form.fourthPrefix = prefixes[3];
    if (type != nullptr)
        logDebug(context.log, "Found ", type->word);
    logDebug(context.log, "Selected Load Type=", loadType, " firstPrefix=", form.firstPrefix,
             " secondPrefix=", form.secondPrefix, " thirdPrefix=", form.thirdPrefix,
             " fourthPrefix=", form.fourthPrefix);
    logDebug(context.log, "At end of initialisePrefix");
}

void UpdateLoadDefinitionInputs(Context& context)
{
    logDebug(context.log, "Before fetching load definition data");
    form::FemapLock lock(context, "Acquired femap lock before getting load definition data",
                         form::FemapLock::AnyPointer);
    constexpr std::string_view released =
        "Released femap lock before getting load definition data";  // sic
    Outcome outcome;
    try {
        selectAndAdd(context, outcome);
    }
    catch (const RuntimeError&) {
        lock.release(released);
        throw;
    }
    lock.release(released);
    tell(context, outcome);
    logDebug(context.log, "After fetching load definition data");
}

}  // namespace selection
