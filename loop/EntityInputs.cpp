// Inputs that are members of nodes, elements, properties and materials.
#include "femap/NumberText.h"
#include "femap/ValueRuns.h"
#include "loop/InputPlaces.h"
#include "loop/PresentValues.h"
#include "selection/InputList.h"
#include "selection/InputSelection.h"
#include "system/RuntimeError.h"

#include <algorithm>
#include <map>
#include <memory>
#include <utility>

namespace loop
{

using femap::EntityValue;

namespace
{

struct EntityRow
{
    std::size_t row = 0;
    EntityValue place = {};
};

EntityRow entityRow(const InputSearch& search, std::size_t i)
{
    const form::ParameterRow row = search.row(i);
    const auto text = [&](int column) { return std::string(row.cell(column)); };
    EntityRow result{i};
    result.place.word = text(form::inputColumn::kind);
    result.place.id = femap::wholeNumber(text(form::inputColumn::id)).value_or(0);
    result.place.member = {text(form::inputColumn::member),
                           femap::wholeNumber(text(form::inputColumn::index))};
    return result;
}

bool isAt(const selection::Field& field, const femap::MemberName& member)
{
    return field.member == member.name &&
           (field.isIndexed() ? member.index == field.index : !member.index);
}

// The names that rows of this place can have now, for an entity of that type.
std::vector<std::string> presentNames(const EntityValue& place, int type)
{
    std::vector<std::string> names;
    if (const auto* const list = selection::fieldListFor(place.word, type))
        for (const auto& fields : {list->fields, list->commonFields})
            for (const selection::Field& field : fields)
                if (isAt(field, place.member))
                    names.push_back(selection::variableName(field.name, place.word, place.id));
    return names;
}

/// Reads the rows of one kind, entity by entity.
class KindSearch
{
public:
    KindSearch(InputSearch& search, const std::string& word, const std::vector<EntityRow>& rows)
        : search_(search), entity_(search.context.femap().entity(word)), rows_(rows)
    {
        std::vector<int> ids;
        std::vector<femap::MemberName> members;
        if (isTyped())
            members.push_back({"type"});
        for (const EntityRow& each : rows) {
            if (ids.empty() || ids.back() != each.place.id)
                ids.push_back(each.place.id);
            if (std::ranges::find(members, each.place.member) == members.end())
                members.push_back(each.place.member);
        }
        entity_->prefetch(ids, members);
    }

    void find()
    {
        int loaded = 0;
        int type = 0;
        bool isThere = false;
        for (const EntityRow& each : rows_) {
            if (std::exchange(loaded, each.place.id) != each.place.id) {
                isThere = entity_->Get(each.place.id) == femap::ReturnCode::Ok;
                type = isThere && isTyped() ? entity_->Type() : 0;
            }
            if (!isThere)
                search_.refuse(each.row, "FEMAP has no " + femap::ownerOf(each.place));
            else
                take(each, type);
        }
    }

private:
    // Only properties have lists of fields for their types.
    bool isTyped() const { return rows_.front().place.word == form::propertyKind; }

    void take(const EntityRow& each, int type)
    {
        const std::vector<std::string> names = presentNames(each.place, type);
        if (std::ranges::none_of(
                names, [&](const std::string& name) { return search_.hasName(each.row, name); }))
            return search_.refuseName(each.row, names.empty() ? "" : names.front());

        EntityValue former = each.place;
        sys::PendingError refused;
        if (!refused.attempt([&] { former.value = read(*entity_, each.place.member); }))
            return search_.refuse(each.row, "FEMAP has no " + femap::nameOf(each.place.member) +
                                                " for " + femap::ownerOf(each.place) + " (" +
                                                refused.description() + ')');
        const std::optional<femap::Value> value = search_.valueFor(each.row, former.value);
        if (!value)
            return;
        auto& wanted = search_.found.wanted.entities;
        if (!wanted.empty() && femap::isOfSame(wanted.back(), each.place) &&
            wanted.back().member == each.place.member)
            return search_.refuse(each.row, "another line points at the same as " +
                                                std::string(search_.row(each.row).name()));
        wanted.push_back(each.place);
        wanted.back().value = *value;
        search_.found.former.entities.push_back(std::move(former));
    }

    InputSearch& search_;
    std::unique_ptr<femap::Entity> entity_;
    const std::vector<EntityRow>& rows_;
};

}  // namespace

void findEntities(InputSearch& search, const std::vector<std::size_t>& rows)
{
    std::map<std::string, std::vector<EntityRow>> byWord;
    for (const std::size_t i : rows) {
        EntityRow row = entityRow(search, i);
        byWord[row.place.word].push_back(std::move(row));
    }
    for (auto& [word, ofWord] : byWord) {
        std::ranges::stable_sort(ofWord, {}, [](const EntityRow& each) {
            const femap::MemberName& member = each.place.member;
            return std::tuple(each.place.id, member.name, member.index);
        });
        KindSearch(search, word, ofWord).find();
    }
}

}  // namespace loop
