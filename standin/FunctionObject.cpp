// The function object ("feFunction") of the stand-in.
#include "femap/embedded/HostObjects.h"
#include "standin/Objects.h"
#include "standin/Server.h"

namespace standin
{

namespace
{

using F = FunctionObject;

// clang-format off
constexpr Member<FunctionObject> functionMembers[] = {
    {"ID",              serve<&F::id>},
    {"title",           serve<&F::title>},
    {"Get",             serve<&F::get>},
    {"GetFunctionList", serve<&F::getFunctionList>},
    {"SelectID",        serve<&F::selectID>},
};
// clang-format on
static_assert(areDeclared(functionMembers, FunctionObject::declarations));

}  // namespace

FunctionObject::FunctionObject(Server& shared)
    : ObjectOf(shared, "feFunction"), function_(embedded::makeFunction(shared.host))
{}

std::span<const Member<FunctionObject>> FunctionObject::members()
{
    return functionMembers;
}

int FunctionObject::get(int id)
{
    return static_cast<int>(function_->Get(id));
}

std::string FunctionObject::title()
{
    const neutral::Function* const loaded = server().host.openModel().functions.find(id());
    return loaded == nullptr ? std::string() : loaded->title;
}

int FunctionObject::selectID(const std::string& title)
{
    return server().refusesDialogs() ? failed : static_cast<int>(function_->SelectID(title));
}

int FunctionObject::getFunctionList(Arguments& arguments)
{
    const femap::FunctionPoints points = function_->GetFunctionList();
    arguments.fill(0, static_cast<int>(points.x.size()));
    arguments.fillAny(1, points.x);
    arguments.fillAny(2, points.y);
    return ok;
}

}  // namespace standin
