#include "standin/SetObject.h"

#include "standin/Server.h"

namespace standin
{

namespace
{

int code(bool condition)
{
    return condition ? ok : failed;
}

using Set = SetObject;

// clang-format off
constexpr Member<SetObject> setMembers[] = {
    {"ID",              serve<&Set::id>},
    {"CurrentID",       serve<&Set::current>},
    {"Add",             serve<&Set::add>},
    {"AddRange",        serve<&Set::addRange>},
    {"Remove",          serve<&Set::remove>},
    {"IsAdded",         serve<&Set::isAdded>},
    {"Reset",           serve<&Set::reset>},
    {"Next",            serve<&Set::next>},
    {"AddSet",          serve<&Set::addSet>},
    {"RemoveSet",       serve<&Set::removeSet>},
    {"Copy",            serve<&Set::copy>},
    {"Count",           serve<&Set::count>},
    {"AddAll",          serve<&Set::addAll>},
    {"Select",          serve<&Set::select>},
    {"clear",           serve<&Set::clear>},
    {"First",           serve<&Set::first>},
    {"Last",            serve<&Set::last>},
    {"GetArray",        serve<&Set::getArray>},
    {"AddArray",        serve<&Set::addArray>},
    {"NextID",          serve<&Set::nextID>},
    {"SelectMultiID",   serve<&Set::selectMultiID>},
    {"IsEmpty",         serve<&Set::isEmpty>},
    {"NextAfter",       serve<&Set::nextAfter>},
    {"SelectMultiIDV2", serve<&Set::selectMultiID>},
};
// clang-format on
static_assert(areDeclared(setMembers, SetObject::declarations));

}  // namespace

SetObject::SetObject(Server& server) : ObjectOf(server, "set"), id(++server.lastSetID)
{
    server.sets[id] = &ids;
}

SetObject::~SetObject()
{
    server().sets.erase(id);
}

std::span<const Member<SetObject>> SetObject::members()
{
    return setMembers;
}

int SetObject::add(int entity)
{
    ids.insert(entity);
    return ok;
}

int SetObject::addArray(int count, const std::vector<int>& more)
{
    if (count < 0 || more.size() < static_cast<std::size_t>(count))
        return failed;
    ids.insert(more.begin(), more.begin() + count);
    return ok;
}

// Output vectors live in output sets.
int SetObject::addAll(EntityType type)
{
    const bool isVector = type == EntityType::OutputVector;
    const std::vector<int> more = server().idsOf(type, isVector ? server().defaultOutputSet() : 1);
    ids.insert(more.begin(), more.end());
    return ok;
}

int SetObject::addRange(int first, int last, int step)
{
    if (step < 1)
        return failed;
    for (long long entity = first; entity <= last; entity += step)
        ids.insert(static_cast<int>(entity));
    return ok;
}

int SetObject::addSet(int other)
{
    const std::set<int>* const more = server().findSet(other);
    if (more == nullptr)
        return failed;
    ids.insert(more->begin(), more->end());
    return ok;
}

int SetObject::remove(int entity)
{
    ids.erase(entity);
    return ok;
}

int SetObject::removeSet(int other)
{
    const std::set<int>* const found = server().findSet(other);
    if (found == nullptr)
        return failed;
    const std::set<int> gone = *found;  // it may be this one
    for (const int entity : gone)
        ids.erase(entity);
    return ok;
}

int SetObject::clear()
{
    ids.clear();
    return reset();
}

int SetObject::copy(int other)
{
    const std::set<int>* const found = server().findSet(other);
    if (found == nullptr)
        return failed;
    ids = std::set<int>(*found);
    return reset();
}

int SetObject::isAdded(int entity)
{
    return code(ids.contains(entity));
}

int SetObject::isEmpty()
{
    return code(ids.empty());
}

int SetObject::count()
{
    return static_cast<int>(ids.size());
}

int SetObject::getArray(Arguments& arguments)
{
    arguments.fill(0, count());
    if (!ids.empty())
        arguments.fillAny(1, std::vector<int>(ids.begin(), ids.end()));
    return ok;
}

int SetObject::reset()
{
    current = 0;
    ended_ = false;
    return ok;
}

int SetObject::first()
{
    reset();
    return next();
}

int SetObject::last()
{
    return ids.empty() ? 0 : *ids.rbegin();
}

// Once at the end, the walk stays there until it is rewound.
int SetObject::next()
{
    const int next = ended_ ? 0 : nextID();
    ended_ = next == 0;
    if (!ended_)
        current = next;
    return next;
}

int SetObject::nextID()
{
    return current == 0 && !ids.empty() ? *ids.begin() : nextAfter(current);
}

int SetObject::nextAfter(int entity)
{
    const auto next = ids.upper_bound(entity);
    return next == ids.end() ? 0 : *next;
}

int SetObject::select(EntityType type, bool clearFirst, const std::string& title)
{
    if (clearFirst)
        clear();
    return ask(type, title, server().host.idsOf(type));
}

int SetObject::selectMultiID(EntityType type, int ownerSet, const std::string& title)
{
    return ask(type, title, server().idsOf(type, ownerSet));
}

int SetObject::ask(EntityType type, const std::string& title, const std::vector<int>& available)
{
    if (server().refusesDialogs())
        return failed;
    const Selection answer = server().selections.answer(type, title, false, available);
    if (answer.code != ReturnCode::Ok)
        return static_cast<int>(answer.code);
    if (available.empty())
        return static_cast<int>(ReturnCode::NotExist);
    ids.insert(answer.ids.begin(), answer.ids.end());
    return ok;
}

}  // namespace standin
