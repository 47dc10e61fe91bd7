// The kinds of entities that the tool reads, and one of each type from the model.
#pragma once

#include "femap/Constants.h"
#include "probe/Session.h"
#include "selection/FieldCatalogue.h"

#include <map>
#include <string_view>
#include <utility>

namespace probe
{

struct EntityKind
{
    std::string_view word;  // of the field catalogue
    std::string_view object;
    femap::EntityType type;
    bool hasTypes;
};

/// One entity that was chosen to be read.
struct Chosen
{
    int id = 0;
    int type = 0;
    const selection::FieldList* fields = nullptr;
};

/// Numbers that were read plainly: by member, index (-1: none) and the entity's place in the list.
using PlainNumbers = std::map<std::pair<std::string, int>, std::map<std::size_t, double>>;

/// Reads the same of all chosen ones in bulk, and compares.
void compareBulk(Session& session, const Object& application, const EntityKind& kind,
                 const Object& entity, const std::vector<Chosen>& chosen, const PlainNumbers& plain,
                 bool isModern);

/// "plate" for the number of an element's or a property's type.
std::string typeWord(const EntityKind& kind, int type);

}  // namespace probe
