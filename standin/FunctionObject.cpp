// The function object ("feFunction") of the stand-in.
#include "standin/Objects.h"
#include "standin/Server.h"

#include <algorithm>
#include <cstddef>
#include <type_traits>
#include <utility>
#include <vector>

namespace standin
{

namespace
{

using F = FunctionObject;

// The title as the model holds it, control characters and all.
template <auto member>
Variant ofFunction(F& self, Arguments&)
{
    return self.function.data().*member;
}

template <auto member>
void putOfFunction(F& self, Arguments& arguments)
{
    auto& held = self.function.data().*member;
    if constexpr (std::is_same_v<decltype(held), std::string&>)
        held = arguments.text(0);
    else
        held = arguments.number(0);
}

using Held = neutral::Function;

// clang-format off
constexpr Member<FunctionObject> functionMembers[] = {
    {"ID",              ofFunction<&Held::id>,    putOfFunction<&Held::id>},
    {"title",           ofFunction<&Held::title>, putOfFunction<&Held::title>},
    {"type",            ofFunction<&Held::type>,  putOfFunction<&Held::type>},
    {"Get",             serve<&F::get>},
    {"Put",             serve<&F::store>},
    {"GetFunctionList", serve<&F::getFunctionList>},
    {"PutFunctionList", serve<&F::putFunctionList>},
    {"SelectID",        serve<&F::selectID>},
};
// clang-format on
static_assert(areDeclared(functionMembers, FunctionObject::declarations));

}  // namespace

FunctionObject::FunctionObject(Server& shared)
    : ObjectOf(shared, "feFunction"), function(shared.host)
{}

std::span<const Member<FunctionObject>> FunctionObject::members()
{
    return functionMembers;
}

int FunctionObject::selectID(const std::string& title)
{
    return server().refusesDialogs() ? failed : static_cast<int>(function.SelectID(title));
}

int FunctionObject::getFunctionList(Arguments& arguments)
{
    const femap::FunctionPoints points = function.GetFunctionList();
    arguments.fill(0, static_cast<int>(points.x.size()));
    arguments.fillAny(1, points.x);
    arguments.fillAny(2, points.y);
    return ok;
}

int FunctionObject::putFunctionList(Arguments& arguments)
{
    const auto count = static_cast<std::size_t>(std::max(arguments.number(0), 0));
    femap::FunctionPoints points{arguments.reals(1), arguments.reals(2)};
    if (points.x.size() < count || points.y.size() < count)
        return failed;
    points.x.resize(count);
    points.y.resize(count);
    return static_cast<int>(function.PutFunctionList(std::move(points)));
}

}  // namespace standin
