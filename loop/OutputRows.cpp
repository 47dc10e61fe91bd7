#include "loop/OutputRows.h"

#include "femap/NumberText.h"
#include "selection/EntityReading.h"
#include "selection/FreshValues.h"
#include "selection/MassQuantities.h"
#include "selection/OutputNames.h"
#include "system/RuntimeError.h"

#include <algorithm>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace loop
{

using form::ParameterRow;
using form::Refreshed;
using sys::ErrorNumber;
using sys::RuntimeError;

namespace
{

constexpr std::string_view chooseAgain = "; choose it again in the form and press \"Apply\"";

bool isOfMass(const DescribedRow& row)
{
    const ParameterRow cells(row.text);
    return selection::outputReading(cells.cell(form::outputColumn::kind)) == Refreshed::FromMass;
}

bool isResult(const DescribedRow& row)
{
    return !isOfMass(row);
}

int numberIn(const ParameterRow& row, int column)
{
    return selection::wholeNumberIn(std::string(row.cell(column)));
}

[[noreturn]] void refuse(const std::string& what)
{
    throw RuntimeError(ErrorNumber::ObjectFailed, what);
}

// Demands that what the row points at has its name, as the files can hold it.
void proveName(form::Context& context, const ParameterRow& row, const std::string& name)
{
    if (inCodePage(context.system.codePage, name) != row.name())
        refuse('"' + std::string(row.name()) + "\" points at what is \"" + name + "\" now" +
               std::string(chooseAgain));
}

void setValue(form::Context& context, int row, const std::string& value)
{
    if (!femap::realNumber(value))
        refuse("the value is no number: \"" + value + "\"");
    context.form.OutputsList.setText(row, form::valueColumn, value);
}

// Reads the rows of a kind. What is wrong with one becomes a problem.
template <class IsWanted, class Read>
void readRows(const Description& outputs, Problems& problems, const IsWanted& isWanted,
              const Read& read)
{
    int gridRow = 0;
    for (const DescribedRow& described : outputs.rows) {
        ++gridRow;
        if (!isWanted(described))
            continue;
        sys::PendingError refused;
        if (!refused.attempt([&] { read(ParameterRow(described.text), gridRow); }))
            problems.add(outputs.file, described.line, refused.description());
    }
}

class ResultRows
{
public:
    explicit ResultRows(form::Context& context)
        : context_(context), vector_(context.femap().feOutput())
    {
        const form::ParameterGrid& grid = context.form.OutputsList;
        vector_->prefetch(selection::outputsToRead(grid, grid.allRows()));
        prepareEntities(grid.rows());
    }

    void read(const ParameterRow& row, int gridRow)
    {
        load(numberIn(row, form::outputColumn::second));
        proveName(context_, row, nameOf(row));
        setValue(context_, gridRow, selection::freshValue(*vector_, row));
    }

private:
    // Which entities are pointed at, so that they can be looked up in few calls.
    void prepareEntities(std::span<const std::string> rows)
    {
        std::map<std::string_view, std::set<int>> ids;
        for (const std::string& text : rows) {
            const ParameterRow row(text);
            const std::string_view word = selection::entityWordIn(row.name());
            const auto id = femap::wholeNumber(row.cell(form::outputColumn::first));
            if (row.cell(form::outputColumn::kind) == form::vectorValueKind && !word.empty() && id)
                ids[word].insert(*id);
        }
        for (const auto& [word, some] : ids) {
            std::unique_ptr<femap::Entity>& entity = entities_[std::string(word)];
            entity = context_.femap().entity(std::string(word));
            entity->prefetch({some.begin(), some.end()}, {});
        }
    }

    void load(int id)
    {
        if (loaded_ == id)
            return;
        loaded_.reset();
        if (vector_->Get(id) != femap::ReturnCode::Ok)
            refuse("the results have no output vector " + std::to_string(id) +
                   "; let the solver give it, or choose another one in the form and press "
                   "\"Apply\"");
        loaded_ = id;
        const auto known = titles_.find(id);
        title_ = known != titles_.end() ? known->second : titles_[id] = vector_->Title();
    }

    // The name that a row which points there gets now.
    std::string nameOf(const ParameterRow& row)
    {
        const std::string word(selection::entityWordIn(row.name()));
        const std::string vectorID = std::to_string(*loaded_);
        const std::string_view kind = row.cell(form::outputColumn::kind);
        if (const selection::Extreme* const extreme = selection::findExtreme(kind))
            return selection::nameOfExtreme(title_, vectorID, *extreme, word);
        const int id = numberIn(row, form::outputColumn::first);
        const auto entity = entities_.find(word);
        if (entity != entities_.end() && entity->second->Get(id) != femap::ReturnCode::Ok)
            refuse("FEMAP has no " + word + " with the ID " + std::to_string(id) +
                   std::string(chooseAgain));
        return selection::startOfValueNames(title_, vectorID, word) + std::to_string(id);
    }

    form::Context& context_;
    std::unique_ptr<femap::OutputVector> vector_;
    std::map<std::string, std::unique_ptr<femap::Entity>> entities_;  // by word
    std::map<int, std::string> titles_;                               // by vector
    std::optional<int> loaded_;                                       // vector
    std::string title_;
};

std::string nameOfMassRow(const ParameterRow& row)
{
    const std::string tag(row.cell(form::outputColumn::first));
    const selection::MassQuantity* const quantity = selection::findMassQuantity(tag);
    if (quantity == nullptr)
        refuse("there is no quantity of the mass \"" + tag + "\"" + std::string(chooseAgain));
    const int component = quantity->isScalar() ? 0 : numberIn(row, form::outputColumn::second);
    const auto index = static_cast<std::size_t>(component);
    if (component < 0 || index >= quantity->suffixes.size())
        refuse("the quantity of the mass \"" + tag + "\" has no component " +
               std::to_string(component) + std::string(chooseAgain));
    return selection::nameOfMass(*quantity, index);
}

}  // namespace

void takeOutputs(form::Context& context, const Description& outputs)
{
    std::vector<std::string> texts;
    for (const DescribedRow& row : outputs.rows)
        texts.push_back(row.text);
    context.form.OutputsList.replaceRows(std::move(texts));
}

bool wantsResults(const Description& outputs)
{
    return std::ranges::any_of(outputs.rows, isResult);
}

bool wantsMass(const Description& outputs)
{
    return std::ranges::any_of(outputs.rows, isOfMass);
}

void readResultRows(form::Context& context, const Description& outputs, Problems& problems)
{
    ResultRows rows(context);
    readRows(outputs, problems, isResult,
             [&](const ParameterRow& row, int gridRow) { rows.read(row, gridRow); });
}

void readMassRows(form::Context& context, const Description& outputs, Problems& problems)
{
    const femap::MassProperties measured =
        selection::measure(context, *selection::allElements(context));
    readRows(outputs, problems, isOfMass, [&](const ParameterRow& row, int gridRow) {
        proveName(context, row, nameOfMassRow(row));
        setValue(context, gridRow, selection::freshValue(measured, row));
    });
}

}  // namespace loop
