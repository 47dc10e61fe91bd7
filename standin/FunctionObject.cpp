// The function object ("feFunction") of the stand-in.
#include "standin/Objects.h"
#include "standin/Server.h"

namespace standin
{

namespace
{

using F = FunctionObject;

template <auto member>
Variant ofFunction(F& function, Arguments&)
{
    return function.loaded.*member;
}

using neutral::Function;

// clang-format off
constexpr Member<FunctionObject> functionMembers[] = {
    {"title",           ofFunction<&Function::title>},
    {"type",            ofFunction<&Function::type>},
    {"ID",              ofFunction<&Function::id>},
    {"Get",             serve<&F::get>},
    {"GetFunctionList", serve<&F::getFunctionList>},
    {"SelectID",        serve<&F::selectID>},
};
// clang-format on
static_assert(areDeclared(functionMembers, FunctionObject::declarations));

}  // namespace

std::span<const Member<FunctionObject>> FunctionObject::members()
{
    return functionMembers;
}

int FunctionObject::get(int id)
{
    const Function* const found =
        server().host.openModel().functions.find(id == 0 ? loaded.id : id);
    if (found == nullptr)
        return failed;
    loaded = *found;
    return ok;
}

int FunctionObject::selectID(const std::string& title)
{
    if (server().refusesDialogs())
        return failed;
    const std::vector<int> available = server().host.idsOf(EntityType::Function);
    const Selection answer =
        server().selections.answer(EntityType::Function, title, true, available);
    if (answer.code != ReturnCode::Ok)
        return static_cast<int>(answer.code);
    if (available.empty())
        return static_cast<int>(ReturnCode::NotExist);
    return answer.ids.empty() ? failed : get(answer.ids.front());
}

int FunctionObject::getFunctionList(Arguments& arguments)
{
    arguments.fill(0, static_cast<int>(loaded.x.size()));
    arguments.fillAny(1, loaded.x);
    arguments.fillAny(2, loaded.y);
    return ok;
}

}  // namespace standin
