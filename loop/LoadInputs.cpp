// Inputs that are values of loads, and those that are functions.
#include "femap/NumberText.h"
#include "femap/ValueRuns.h"
#include "generate/Targets.h"
#include "loop/InputPlaces.h"
#include "loop/PresentValues.h"
#include "selection/LoadDefinitionInputs.h"
#include "system/RuntimeError.h"

#include <algorithm>
#include <iterator>
#include <map>
#include <memory>
#include <set>
#include <utility>

namespace loop
{

using femap::LoadValue;
using femap::ReturnCode;

namespace
{

int idOf(const InputSearch& search, std::size_t i)
{
    return femap::wholeNumber(search.row(i).cell(form::inputColumn::id)).value_or(0);
}

/// The rows of one component of a definition: one for each load, in order.
struct ComponentRows
{
    femap::MemberName member;
    std::vector<std::size_t> rows;
};

/// Finds the loads of one definition.
class DefinitionSearch
{
public:
    DefinitionSearch(InputSearch& search, femap::LoadDefinition& definition, int loadSet, int id)
        : search_(search), definition_(definition), id_(id)
    {
        place_.loadSet = loadSet;
        place_.definition = id;
    }

    void find(const std::vector<std::size_t>& rows)
    {
        if (id_ < 1 || definition_.Get(place_.loadSet, id_) != ReturnCode::Ok)
            return refuseAll(rows, "the active load set " + std::to_string(place_.loadSet) +
                                       " has no " + femap::ownerOf(place_));
        const int dataType = definition_.dataType();
        const form::RowKind* const kind = form::findLoadRowKind(dataType);
        for (const std::size_t i : rows)
            if (kind == nullptr || kind->tag != search_.row(i).cell(form::inputColumn::kind))
                return refuseAll({i}, femap::ownerOf(place_) + " has loads of another kind now");
        assign(rows, selection::loadComponents(dataType, definition_.loadType()));
        takeLoads(static_cast<femap::LoadDataType>(dataType) != femap::LoadDataType::Geometry);
    }

private:
    void refuseAll(const std::vector<std::size_t>& rows, const std::string& what)
    {
        for (const std::size_t i : rows)
            search_.refuse(i, what);
    }

    // Gives each row to the component that it is named after.
    void assign(const std::vector<std::size_t>& rows,
                const std::vector<selection::LoadComponent>& components)
    {
        const std::string title = definition_.title();
        std::vector<std::string> names;
        for (const selection::LoadComponent& each : components) {
            names.push_back(selection::loadVariableName(title, id_, each.word));
            components_.push_back({each.member, {}});
        }
        for (const std::size_t i : rows) {
            const auto found = std::ranges::find_if(
                names, [&](const std::string& name) { return search_.hasName(i, name); });
            if (found == names.end())
                search_.refuseName(i, names.empty() ? "" : names.front());
            else
                components_[static_cast<std::size_t>(found - names.begin())].rows.push_back(i);
        }
        std::erase_if(components_, [](const ComponentRows& each) { return each.rows.empty(); });
    }

    void takeLoads(bool mayBeExpanded)
    {
        std::size_t count = 0;
        bool isExpanded = false;
        definition_.ResetNextLoad();
        for (; const auto load = definition_.NextLoad(); ++count) {
            isExpanded = isExpanded || (mayBeExpanded && isTrue(load->member("expanded")));
            for (const ComponentRows& component : components_)
                if (count < component.rows.size())
                    take(*load, count, component);
        }
        for (const ComponentRows& component : components_) {
            const std::size_t first = component.rows.front();
            if (component.rows.size() != count)
                search_.refuse(first, std::string(search_.row(first).name()) + " has " +
                                          std::to_string(component.rows.size()) +
                                          " lines, but the loads of " + femap::ownerOf(place_) +
                                          " are " + std::to_string(count));
        }
        if (isExpanded && !components_.empty())
            search_.refuse(components_.front().rows.front(),
                           "FEMAP made loads of " + femap::ownerOf(place_) +
                               " from geometry and makes them anew when it writes the deck; the "
                               "load on the geometry itself can be an input");
    }

    void take(femap::MemberObject& load, std::size_t number, const ComponentRows& component)
    {
        const std::size_t i = component.rows[number];
        LoadValue former = place_;
        former.load = number;
        former.member = component.member;
        sys::PendingError refused;
        if (!refused.attempt([&] { former.value = read(load, former.member); }))
            return search_.refuse(i, "FEMAP has no " + femap::nameOf(former.member) + " for " +
                                         femap::loadOf(former) + " (" + refused.description() +
                                         ')');
        const std::optional<femap::Value> value = search_.valueFor(i, former.value);
        if (!value)
            return;
        search_.found.wanted.loads.push_back(former);
        search_.found.wanted.loads.back().value = *value;
        search_.found.former.loads.push_back(std::move(former));
    }

    static bool isTrue(const femap::Value& value)
    {
        const bool* const flag = std::get_if<bool>(&value);
        const std::int64_t* const number = std::get_if<std::int64_t>(&value);
        return (flag != nullptr && *flag) || (number != nullptr && *number != 0);
    }

    InputSearch& search_;
    femap::LoadDefinition& definition_;
    int id_;
    LoadValue place_ = {};
    std::vector<ComponentRows> components_ = {};
};

/// Finds functions and proves their titles.
class FunctionSearch
{
public:
    explicit FunctionSearch(InputSearch& search)
        : search_(search), function_(search.context.femap().feFunction())
    {}

    void proveRow(std::size_t i)
    {
        const int id = idOf(search_, i);
        if (!load(id))
            search_.refuse(i, "FEMAP has no function " + std::to_string(id));
        else if (const std::string title = function_->title(); !search_.hasName(i, title))
            search_.refuseName(i, title);
    }

    void take(const generate::ReadFunction& given)
    {
        const std::string id = std::to_string(given.id);
        const auto refuse = [&](const std::string& problem) {
            search_.problems.add(generate::functionDataFile, given.line,
                                 problem + "; press \"Apply\" in the form again");
        };
        if (!taken_.insert(given.id).second)
            return refuse("function " + id + " stands in the file twice");
        if (!load(given.id))
            return refuse("FEMAP has no function " + id);
        const std::string title = function_->title();
        if (inCodePage(search_.context.system.codePage, title) != given.title)
            return refuse("function " + id + " is \"" + title + "\" now, not \"" + given.title +
                          '"');
        search_.found.wanted.functions.push_back({given.id, given.points});
        search_.found.former.functions.push_back({given.id, function_->GetFunctionList()});
    }

private:
    // FEMAP's IDs begin at 1; asked for 0 it would give the function that it loaded last.
    bool load(int id) { return id > 0 && function_->Get(id) == ReturnCode::Ok; }

    InputSearch& search_;
    std::unique_ptr<femap::Function> function_;
    std::set<int> taken_;
};

}  // namespace

void findLoads(InputSearch& search, const std::vector<std::size_t>& rows)
{
    if (rows.empty())
        return;
    std::map<int, std::vector<std::size_t>> byDefinition;
    for (const std::size_t i : rows)
        byDefinition[idOf(search, i)].push_back(i);
    femap::Application& femap = search.context.femap();
    const int loadSet = femap.Info_ActiveID(femap::EntityType::LoadSet);
    const std::unique_ptr<femap::LoadDefinition> definition = femap.feLoadDefinition();
    for (const auto& [id, ofDefinition] : byDefinition)
        DefinitionSearch(search, *definition, loadSet, id).find(ofDefinition);
}

void findFunctions(InputSearch& search, const std::vector<std::size_t>& rows,
                   const GivenFunctions& given)
{
    if (rows.empty() && given.blocks.empty())
        return;
    FunctionSearch functions(search);
    for (const std::size_t i : rows)
        functions.proveRow(i);
    for (const generate::ReadFunction& each : given.blocks)
        functions.take(each);
}

}  // namespace loop
