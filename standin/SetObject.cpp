#include "standin/SetObject.h"

#include "standin/Server.h"

#include <algorithm>

namespace standin
{

namespace
{

using Set = SetObject;

// clang-format off
constexpr Member<SetObject> setMembers[] = {
    {"ID",              serve<&Set::id>},
    {"Add",             serve<&Set::add>},
    {"Reset",           serve<&Set::reset>},
    {"Next",            serve<&Set::next>},
    {"Copy",            serve<&Set::copy>},
    {"Count",           serve<&Set::count>},
    {"AddAll",          serve<&Set::addAll>},
    {"Select",          serve<&Set::select>},
    {"clear",           serve<&Set::clear>},
    {"First",           serve<&Set::first>},
    {"GetArray",        serve<&Set::getArray>},
    {"AddArray",        serve<&Set::addArray>},
    {"SelectMultiID",   serve<&Set::selectMultiID>},
    {"SelectMultiIDV2", serve<&Set::selectMultiID>},
};
// clang-format on
static_assert(areDeclared(setMembers, SetObject::declarations));

}  // namespace

SetObject::SetObject(Server& shared) : ObjectOf(shared, "set"), set_(shared.host) {}

std::span<const Member<SetObject>> SetObject::members()
{
    return setMembers;
}

int SetObject::add(int entity)
{
    set_.add({entity});
    return ok;
}

int SetObject::addArray(int count, const std::vector<int>& more)
{
    if (count < 0 || more.size() < static_cast<std::size_t>(count))
        return failed;
    std::vector<int> ids(more.begin(), more.begin() + count);
    std::ranges::sort(ids);
    set_.add(ids);
    return ok;
}

// Output vectors live in output sets.
int SetObject::addAll(EntityType type)
{
    const bool isVector = type == EntityType::OutputVector;
    set_.add(server().idsOf(type, isVector ? server().defaultOutputSet() : 1));
    return ok;
}

int SetObject::clear()
{
    set_.clear();
    return ok;
}

int SetObject::copy(int other)
{
    return static_cast<int>(set_.Copy(other));
}

int SetObject::getArray(Arguments& arguments)
{
    arguments.fill(0, count());
    if (count() > 0)
        arguments.fillAny(1, set_.ids());
    return ok;
}

int SetObject::reset()
{
    set_.Reset();
    return ok;
}

int SetObject::first()
{
    reset();
    return next();
}

int SetObject::select(EntityType type, bool clearFirst, const std::string& title)
{
    if (clearFirst)
        clear();
    return server().refusesDialogs() ? failed : static_cast<int>(set_.Select(type, false, title));
}

int SetObject::selectMultiID(EntityType type, int ownerSet, const std::string& title)
{
    return server().refusesDialogs() ? failed
                                     : static_cast<int>(set_.SelectMultiID(type, ownerSet, title));
}

}  // namespace standin
