#include "selection/OutputList.h"

#include "femap/NumberText.h"
#include "form/FemapLock.h"
#include "form/Progress.h"
#include "logging/Module1.h"
#include "selection/MassQuantities.h"
#include "selection/OutputNames.h"
#include "selection/ParameterRows.h"

#include <cstddef>

namespace selection
{

using femap::numberText;
using logging::logDebug;
using logging::logPositionAndClearErrorIfAny;

namespace
{

// Removes the rows of that name.
form::ParameterGrid::NameScan removeDuplicates(form::Context& context, const std::string& name,
                                               std::string_view listName)
{
    logDebug(context.log, "Before checking for duplicate entry in Output List");
    form::ParameterGrid::NameScan scan = context.form.OutputsList.removeRowsNamed(name);
    for (std::size_t i = 0; i < scan.removed.size(); ++i)
        logDebug(context.log, "Deleted entry for ", name, "from ", listName);  // sic
    logDebug(context.log, "After checking for duplicate entry in Output List");
    return scan;
}

// A row to be added; reused for every row, to save memory allocations.
struct FreshRow
{
    std::string name;
    form::OutputCells cells;  // but for name and value
    std::string text;         // of the whole row
};

// Adds a row unless its value cannot be read.
template <class Read>
void addRow(form::Context& context, Outcome& outcome, FreshRow& row, std::string_view listName,
            Read&& read)
{
    form::ParameterGrid& grid = context.form.OutputsList;
    const form::ParameterGrid::NameScan scan = removeDuplicates(context, row.name, listName);
    std::string value;
    const bool isRead =
        !scan.removalRefused && context.error.attempt([&] { value = numberText(read()); });
    row.cells.name = row.name;
    row.cells.value = value;
    row.cells.joinIn(row.text);
    if (scan.foundAny())
        noteNamesakes(context, outcome, grid, scan, row.text, isRead);
    if (scan.removalRefused)
        return;
    if (!isRead) {
        context.error.clear();  // nothing unusual: the vector has no value there
        ++outcome.missingValues;
        return;
    }
    grid.AddItem(row.text);
    ++outcome.rows;
    logDebug(context.log, "Added variable to Output list Variable Name=", row.name,
             " value=", value);
}

void addExtremes(form::Context& context, Outcome& outcome, femap::OutputVector& vector,
                 const std::string& entityWord)
{
    const std::string title = vector.Title();
    const std::string id = std::to_string(vector.ID());
    for (const Extreme& extreme : extremes) {
        FreshRow row;
        row.name = nameOfExtreme(title, id, extreme, entityWord);
        row.cells = {{}, {}, id, id, extreme.tag};
        addRow(context, outcome, row, extreme.listName, [&] { return (vector.*extreme.read)(); });
    }
}

class VectorRows
{
public:
    VectorRows(form::Context& context, Outcome& outcome, const std::string& entityWord,
               int elementType)
        : context_(context),
          outcome_(outcome),
          entityWord_(entityWord),
          elementType_(elementType),
          vector_(context.femap().feOutput())
    {
        logFreshVector();
        entity_ = context.femap().entity(entityWord);
    }

    void add(const std::vector<int>* wanted, const std::vector<std::string>& vectorIDs)
    {
        std::vector<int> ids;
        if (wanted != nullptr) {
            ids = *wanted;
            entity_->prefetch(ids, typeIfWanted());
            outcome_.entities = ids.size();
        }
        const std::size_t entities = wanted == nullptr ? 1 : ids.size();
        form::Progress progress(context_, "Reading outputs", entities * vectorIDs.size());
        for (const std::string& text : vectorIDs) {
            const int vectorID = wholeNumberIn(text);
            vector_->prefetch({{vectorID, ids}});
            ++outcome_.vectors.all;
            if (!load(context_, *vector_, vectorID)) {
                ++outcome_.vectors.refused;
                continue;
            }
            logDebug(context_.log, "Got entity of id = ", vectorID);
            if (wanted != nullptr)
                addValues(ids, progress);
            else
                addExtremes(context_, outcome_, *vector_, entityWord_);
            progress.step();
        }
        progress.finish();
    }

private:
    // The object holds no vector yet; what FEMAP answers then is only logged.
    void logFreshVector()
    {
        std::string title;
        int id = 0;
        context_.error.attempt([&] {
            title = vector_->Title();
            id = vector_->ID();
        });
        logDebug(context_.log, " Output title is ", title, " And Id is ", id);
        reportPendingError(context_, "After reading the title of a fresh output vector");
    }

    std::vector<femap::MemberName> typeIfWanted() const
    {
        if (elementType_ == everyType)
            return {};
        return {{"type"}};
    }

    void addValues(const std::vector<int>& ids, form::Progress& progress)
    {
        const std::string vectorID = std::to_string(vector_->ID());
        const std::string nameStart = startOfValueNames(vector_->Title(), vectorID, entityWord_);

        FreshRow row;
        for (const int id : ids) {
            if (isWanted(id)) {
                const std::string idText = std::to_string(id);
                row.name.assign(nameStart).append(idText);
                row.cells = {{}, {}, idText, vectorID, form::vectorValueKind};
                addRow(context_, outcome_, row, "Output List", [&] { return vector_->Value(id); });
            }
            progress.step();
        }
    }

    bool isWanted(int id)
    {
        if (!load(context_, *entity_, entityWord_, id)) {
            outcome_.refusedEntities.insert(id);
            return false;
        }
        logDebug(context_.log, "Got entity of id = ", id);
        return elementType_ == everyType || entity_->Type() == elementType_;
    }

    form::Context& context_;
    Outcome& outcome_;
    const std::string& entityWord_;
    int elementType_;
    std::unique_ptr<femap::OutputVector> vector_;
    std::unique_ptr<femap::Entity> entity_;
};

void logMassQuantity(form::Context& context, const MassQuantity& quantity,
                     const std::vector<std::string>& values)
{
    constexpr std::string_view added = "Added variable to Output list Variable Name=";
    const std::string_view name = quantity.name;
    if (quantity.isScalar())
        logDebug(context.log, added, name, "  value=", values[0]);
    else if (values.size() == 3)
        logDebug(context.log, added, name, "  value: x=", values[0], " y=", values[1],
                 " z=", values[2]);
    else
        for (std::size_t i = 0; i < values.size(); ++i)
            logDebug(context.log, added, name, quantity.suffixes[i], " value=", values[i]);
}

void addMassQuantity(form::Context& context, Outcome& outcome, const MassQuantity& quantity,
                     const femap::MassProperties& measured)
{
    std::vector<std::string> values;
    for (std::size_t i = 0; i < quantity.suffixes.size(); ++i)
        values.push_back(numberText(massValue(quantity, measured, static_cast<int>(i))));

    for (std::size_t i = 0; i < values.size(); ++i) {
        const std::string name = nameOfMass(quantity, i);
        const std::string component = quantity.isScalar() ? "" : std::to_string(i);
        std::string row;
        form::OutputCells{name, values[i], quantity.tag, component, form::massKind}.joinIn(row);
        context.form.OutputsList.AddItem(row);
        ++outcome.rows;
    }
    logMassQuantity(context, quantity, values);
}

void addMassProperties(form::Context& context, Outcome& outcome,
                       const std::vector<std::string>& chosenEntries)
{
    logDebug(context.log, "Found MeshMass entity type");
    const std::unique_ptr<femap::EntitySet> elements = allElements(context);
    logDebug(context.log, "Called elemSet.AddAll(8)");
    const femap::MassProperties measured = measure(context, *elements);
    logDebug(context.log, "Called feMeasureMeshMassProp to compute total mass values");
    for (const std::string& entry : chosenEntries) {
        const auto index = static_cast<std::size_t>(wholeNumberIn(entry));
        if (index < std::size(massQuantities))
            addMassQuantity(context, outcome, massQuantities[index], measured);
    }
}

void tidy(form::ParameterGrid& grid)
{
    grid.Row = 1;
    grid.RowSel = 1;
    grid.Col = form::nameColumn;
    removeBlankFirstRow(grid);
}

}  // namespace

Outcome UpdateOutputList(form::Context& context, const std::string& entityWord,
                         const std::vector<int>* ids, const std::vector<std::string>& chosenEntries,
                         int elementType)
{
    logPositionAndClearErrorIfAny(context.log, context.error, "Before updating output list");
    form::FemapLock lock(context, "Acquired Femap lock");

    Outcome outcome;
    if (entityWord == massWord)
        addMassProperties(context, outcome, chosenEntries);
    else
        VectorRows(context, outcome, entityWord, elementType).add(ids, chosenEntries);
    tidy(context.form.OutputsList);

    lock.release("Released FEMAP lock");
    logDebug(context.log, "After updating output list");
    return outcome;
}

}  // namespace selection
