#include "femap/com/MemberPut.h"

#include "femap/NumberText.h"
#include "femap/TypeLibrary.h"
#include "system/RuntimeError.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <span>
#include <string_view>
#include <utility>

namespace femap::com
{

using sys::ErrorNumber;
using sys::RuntimeError;

namespace
{

// By the kinds of objects that a load definition hands out.
struct KindOfLoad
{
    std::string_view kind;
    std::string_view interfaceName;
};

// clang-format off
constexpr KindOfLoad kindsOfLoads[] = {
    {"mesh load",             "ILoadMesh"},
    {"geometry load",         "ILoadGeom"},
    {"nodal temperature",     "ILoadNTemp"},
    {"elemental temperature", "ILoadETemp"},
};
// clang-format on

std::span<const library::Member> declaredOf(std::string_view kind)
{
    const auto* const load = std::ranges::find(kindsOfLoads, kind, &KindOfLoad::kind);
    if (load != std::end(kindsOfLoads))
        return library::membersOf(load->interfaceName);
    const library::Interface* const known = library::interfaceOf(kind);
    return known == nullptr ? std::span<const library::Member>() : known->members;
}

template <class Number>
Variant orRefuse(const std::optional<Number>& number, const Value& value, const char* kind)
{
    if (!number)
        throw RuntimeError(ErrorNumber::InvalidCall, '"' + toText(value) + "\" is no " + kind);
    return *number;
}

std::optional<bool> flagOf(const Value& value)
{
    const std::string text = toText(value);
    if (isSameName(text, "True"))
        return true;
    return isSameName(text, "False") ? std::optional(false) : std::nullopt;
}

// Of a member that is not declared, and that this FEMAP may have: a number stays one.
Variant asItIs(const Value& value)
{
    const std::optional<double> real = realOf(value);
    const std::optional<int> whole = wholeNumber(toText(value));
    if (whole)
        return *whole;
    return real ? Variant(*real) : Variant(toText(value));
}

Variant argumentOf(const Value& value, const library::Member* declared)
{
    switch (declared == nullptr ? ' ' : declared->returned) {
    case 'i':
        return orRefuse(wholeNumber(toText(value)), value, "whole number");
    case 'd':
        return orRefuse(realOf(value), value, "number");
    case 'b':
        return orRefuse(flagOf(value), value, "True or False");
    case 's':
        return toText(value);
    default:
        return asItIs(value);
    }
}

}  // namespace

void putMember(Dispatch& object, const MemberName& member, const Value& value)
{
    Variant argument = argumentOf(value, library::find(declaredOf(object.kind()), member.name));
    if (member.index)
        object.put(member.name, *member.index, std::move(argument));
    else
        object.put(member.name, std::move(argument));
}

}  // namespace femap::com
