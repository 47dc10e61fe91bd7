// FEMAP's own account of its objects: which members they have, in which of FEMAP's versions, and
// how each is called. The adapter, the stand-in and the tests of both are held against it.
#pragma once

#include "femap/ApplicationMembers.h"
#include "femap/EntityMembers.h"
#include "femap/LoadMembers.h"
#include "femap/Names.h"
#include "femap/ResultMembers.h"

#include <span>

namespace femap::library
{

struct Interface
{
    std::string_view name;
    std::string_view object;  // the application's property that gives such an object
    std::span<const Member> members;
};

// clang-format off
inline constexpr Interface interfaces[] = {
    {"Imodel",          "",                 Imodel},
    {"ISet",            "feSet",            ISet},
    {"INode",           "feNode",           INode},
    {"IElem",           "feElem",           IElem},
    {"IProp",           "feProp",           IProp},
    {"IMatl",           "feMatl",           IMatl},
    {"IOutput",         "feOutput",         IOutput},
    {"IOutputSet",      "feOutputSet",      IOutputSet},
    {"IResults",        "feResults",        IResults},
    {"IFunction",       "feFunction",       IFunction},
    {"ILoadDefinition", "feLoadDefinition", ILoadDefinition},
    {"ILoadMesh",       "feLoadMesh",       ILoadMesh},
    {"ILoadGeom",       "feLoadGeom",       ILoadGeom},
    {"ILoadETemp",      "feLoadETemp",      ILoadETemp},
    {"ILoadNTemp",      "feLoadNTemp",      ILoadNTemp},
};
// clang-format on

/// The interface of the objects that a property of the application gives; null for another name.
constexpr const Interface* interfaceOf(std::string_view object)
{
    for (const Interface& one : interfaces)
        if (isSameName(one.object, object))
            return &one;
    return nullptr;
}

/// The members of an interface; none for a name that no interface has.
constexpr std::span<const Member> membersOf(std::string_view interfaceName)
{
    for (const Interface& one : interfaces)
        if (one.name == interfaceName)
            return one.members;
    return {};
}

/// The member as the first of the asked versions that has it declares it; null for one that no such
/// version has. A few members have a row for each of two versions.
constexpr const Member* find(std::span<const Member> members, std::string_view name,
                             unsigned versions = all)
{
    for (const Member& member : members)
        if ((member.versions & versions) != 0 && isSameName(member.name, name))
            return &member;
    return nullptr;
}

constexpr const Member* find(std::string_view interfaceName, std::string_view name,
                             unsigned versions = all)
{
    return find(membersOf(interfaceName), name, versions);
}

/// Whether an argument goes by reference, and FEMAP fills it.
constexpr bool isFilled(char argument)
{
    return argument >= 'A' && argument <= 'Z';
}

}  // namespace femap::library
