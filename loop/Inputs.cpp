#include "loop/Inputs.h"

#include "femap/NumberText.h"
#include "loop/InputPlaces.h"

#include <array>
#include <cmath>
#include <limits>

namespace loop
{

using femap::Value;

namespace
{

constexpr std::string_view chooseAgain = "; choose it again in the form and press \"Apply\"";

std::string inQuotes(std::string_view text)
{
    return '"' + std::string(text) + '"';
}

}  // namespace

void InputSearch::refuse(std::size_t i, const std::string& what)
{
    problems.add(described.file, described.rows[i].line, what + std::string(chooseAgain));
}

void InputSearch::refuseName(std::size_t i, const std::string& present)
{
    const std::string name = inQuotes(row(i).name());
    refuse(i, present.empty() ? name + " is no name of what the line points at"
                              : name + " points at what is " + inQuotes(present) + " now");
}

bool InputSearch::hasName(std::size_t i, const std::string& present) const
{
    return inCodePage(context.system.codePage, present) == row(i).name();
}

std::optional<Value> InputSearch::valueFor(std::size_t i, const Value& present)
{
    const GivenValue& given = values[i];
    const bool isWhole = std::holds_alternative<std::int64_t>(present);
    if (!isWhole && !std::holds_alternative<double>(present) &&
        !std::holds_alternative<float>(present)) {
        refuse(i, "FEMAP has no number for " + std::string(row(i).name()));
        return std::nullopt;
    }
    if (!given.number)
        return std::nullopt;
    if (!isWhole)
        return *given.number;
    if (std::trunc(*given.number) != *given.number ||
        std::abs(*given.number) > std::numeric_limits<int>::max()) {
        problems.add(described.valuesFile, given.line,
                     std::string(row(i).name()) + " takes whole numbers only, and has " +
                         femap::numberText(*given.number));
        return std::nullopt;
    }
    return static_cast<std::int64_t>(*given.number);
}

Inputs inputsInModel(form::Context& context, const Description& described,
                     const std::vector<GivenValue>& values, const GivenFunctions& functions,
                     Problems& problems)
{
    InputSearch search{context, described, values, problems};
    std::vector<std::size_t> entities;
    std::vector<std::size_t> loads;
    std::vector<std::size_t> functionRows;
    for (std::size_t i = 0; i < described.rows.size(); ++i) {
        const std::string_view tag = search.row(i).cell(form::inputColumn::kind);
        const form::RowKind* const kind = form::findRowKind(tag);
        if (kind != nullptr && kind->load)
            loads.push_back(i);
        else
            (tag == form::functionKind ? functionRows : entities).push_back(i);
    }
    findEntities(search, entities);
    findLoads(search, loads);
    findFunctions(search, functionRows, functions);
    return std::move(search.found);
}

}  // namespace loop
