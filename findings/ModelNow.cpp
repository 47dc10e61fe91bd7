#include "findings/ModelNow.h"

#include "femap/NumberText.h"
#include "form/Progress.h"
#include "selection/FreshValues.h"
#include "selection/MassQuantities.h"
#include "selection/OutputNames.h"

#include <algorithm>
#include <map>
#include <optional>
#include <utility>

namespace findings
{

using femap::ReturnCode;
using form::Context;
using form::ParameterRow;
using form::Refreshed;
using sys::PendingError;

namespace
{

std::optional<int> numberAt(const ParameterRow& row, int column)
{
    return femap::wholeNumber(row.cell(column));
}

bool isSameValue(std::string_view one, std::string_view other)
{
    if (one == other)
        return true;
    const std::optional<double> number = femap::realNumber(one);
    return number && number == femap::realNumber(other);
}

// Looks at the rows one by one. What FEMAP refuses to read of a row that it has is no finding here:
// such a row has no value, of which another rule speaks.
class ModelReader
{
public:
    explicit ModelReader(Context& context) : context_(context) {}

    ModelNow read()
    {
        const auto inputs = context_.form.InputsList.rows();
        const auto outputs = context_.form.OutputsList.rows();
        form::Progress progress(context_, "Comparing with the model",
                                inputs.size() + outputs.size());
        const auto walk = [&](std::span<const std::string> rows, Grid grid, auto look) {
            int number = 0;
            for (const std::string& text : rows) {
                const ParameterRow row(text);
                const Place place = {grid, ++number};
                if (!row.name().empty())
                    (this->*look)(row, place);
                progress.step();
            }
        };
        walk(inputs, Grid::Inputs, &ModelReader::lookAtInput);
        prepareOutputs(outputs);
        walk(outputs, Grid::Outputs, &ModelReader::lookAtOutput);
        progress.finish();
        return std::move(now_);
    }

private:
    void lookAtInput(const ParameterRow& row, Place place)
    {
        const std::string_view kind = row.cell(form::inputColumn::kind);
        const form::RowKind* const known = form::findRowKind(kind);
        if (known == nullptr)
            return;
        if (known->refreshed == Refreshed::FromEntity)
            lookAtEntity(row, place, std::string(kind));
        else if (known->load)
            lookAtLoad(row, place);
        else if (kind == form::functionKind)
            lookAtFunction(row, place);
    }

    void lookAtEntity(const ParameterRow& row, Place place, const std::string& kind)
    {
        const std::optional<int> id = numberAt(row, form::inputColumn::id);
        if (!id || entities_[kind].Get(*id) != ReturnCode::Ok)
            now_.goneEntities.push_back(place);
        else
            compare(row, place, [&] { return selection::freshValue(entities_[kind], row); });
    }

    void lookAtLoad(const ParameterRow& row, Place place)
    {
        if (definition_ == nullptr) {
            definition_ = context_.femap().feLoadDefinition();
            loadSet_ = context_.femap().Info_ActiveID(femap::EntityType::LoadSet);
        }
        const std::optional<int> id = numberAt(row, form::inputColumn::id);
        if (!id || definition_->Get(loadSet_, *id) != ReturnCode::Ok)
            now_.inactiveLoads.push_back(place);
    }

    void lookAtFunction(const ParameterRow& row, Place place)
    {
        if (function_ == nullptr)
            function_ = context_.femap().feFunction();
        const std::optional<int> id = numberAt(row, form::inputColumn::id);
        if (!id || *id < 1 || function_->Get(*id) != ReturnCode::Ok) {
            now_.goneFunctions.push_back(place);
            return;
        }
        std::string title = function_->title();
        if (title != row.name())
            now_.renamedFunctions.push_back({place, std::move(title)});
    }

    // Tells which entities and vectors will be read.
    void prepareOutputs(std::span<const std::string> rows)
    {
        const auto plan = selection::outputsToRead(context_.form.OutputsList,
                                                   context_.form.OutputsList.allRows());
        if (!plan.empty()) {
            vector_ = context_.femap().feOutput();
            vector_->prefetch(plan);
        }
        std::map<std::string, std::vector<int>> ids;
        for (const std::string& text : rows) {
            const ParameterRow row(text);
            if (row.cell(form::outputColumn::kind) != form::vectorValueKind)
                continue;
            if (const auto id = numberAt(row, form::outputColumn::first))
                ids[std::string(selection::entityWordIn(row.name()))].push_back(*id);
        }
        for (auto& [word, some] : ids) {
            if (word.empty())
                continue;
            std::ranges::sort(some);
            some.erase(std::unique(some.begin(), some.end()), some.end());
            auto& entity = resultEntities_[word] = context_.femap().entity(word);
            entity->prefetch(some, {});
        }
    }

    void lookAtOutput(const ParameterRow& row, Place place)
    {
        const std::string_view kind = row.cell(form::outputColumn::kind);
        switch (selection::outputReading(kind)) {
        case Refreshed::FromMass:
            compare(row, place, [&] { return selection::freshValue(mass(), row); });
            return;
        case Refreshed::FromVector:
            return lookAtResult(row, place);
        default:
            if (isVectorThere(row, place))
                compare(row, place, [&] { return selection::freshValue(*vector_, row); });
        }
    }

    bool isVectorThere(const ParameterRow& row, Place place)
    {
        const std::optional<int> id = numberAt(row, form::outputColumn::second);
        const bool isThere = id && vector_->Get(*id) == ReturnCode::Ok;
        if (!isThere)
            now_.goneVectors.push_back(place);
        return isThere;
    }

    void lookAtResult(const ParameterRow& row, Place place)
    {
        const std::optional<int> id = numberAt(row, form::outputColumn::first);
        const auto entity = resultEntities_.find(std::string(selection::entityWordIn(row.name())));
        const bool isKnown = entity != resultEntities_.end();
        if (!id || (isKnown && entity->second->Get(*id) != ReturnCode::Ok)) {
            now_.goneEntities.push_back(place);
            return;
        }
        if (!isVectorThere(row, place))
            return;
        if (!compare(row, place, [&] { return selection::freshValue(*vector_, row); }))
            now_.goneResults.push_back(place);
    }

    // False when the value cannot be read.
    template <class Read>
    bool compare(const ParameterRow& row, Place place, const Read& read)
    {
        std::string value;
        PendingError refused;
        if (!refused.attempt([&] { value = read(); }))
            return false;
        if (!isSameValue(row.value(), value))
            now_.otherValues.push_back({place, std::move(value)});
        return true;
    }

    // Measured once for all rows.
    const femap::MassProperties& mass()
    {
        if (!mass_)
            mass_ = context_.femap().feMeasureMeshMassProp(selection::allElements(context_)->ID(),
                                                           0, false, false);
        return *mass_;
    }

    Context& context_;
    ModelNow now_;
    selection::FreshEntities entities_{context_, context_.form.InputsList,
                                       context_.form.InputsList.allRows()};
    std::unique_ptr<femap::LoadDefinition> definition_;
    int loadSet_ = 0;
    std::unique_ptr<femap::Function> function_;
    std::unique_ptr<femap::OutputVector> vector_;
    std::map<std::string, std::unique_ptr<femap::Entity>> resultEntities_;  // by their word
    std::optional<femap::MassProperties> mass_;
};

}  // namespace

ModelNow readModelNow(Context& context)
{
    return ModelReader(context).read();
}

}  // namespace findings
