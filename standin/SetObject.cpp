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

using enum Type;
using Set = SetObject;

// clang-format off
constexpr Member<SetObject> setMembers[] = {
    {{"ID",              property, {},               10000}, serve<&Set::id>},
    {{"CurrentID",       property, {},               10002}, serve<&Set::current>},
    {{"Add",             method,   {I4},             20000}, serve<&Set::add>},
    {{"AddRange",        method,   {I4, I4, I4},     20001}, serve<&Set::addRange>},
    {{"Remove",          method,   {I4},             20003}, serve<&Set::remove>},
    {{"IsAdded",         method,   {I4},             20004}, serve<&Set::isAdded>},
    {{"Reset",           method,   {},               20005}, serve<&Set::reset>},
    {{"Next",            method,   {},               20006}, serve<&Set::next>},
    {{"AddSet",          method,   {I4},             20007}, serve<&Set::addSet>},
    {{"RemoveSet",       method,   {I4},             20008}, serve<&Set::removeSet>},
    {{"Copy",            method,   {I4},             20010}, serve<&Set::copy>},
    {{"Count",           method,   {},               20011}, serve<&Set::count>},
    {{"AddAll",          method,   {I4},             20012}, serve<&Set::addAll>},
    {{"Select",          method,   {I4, Bool, Text}, 20013}, serve<&Set::select>},
    {{"clear",           method,   {},               20018}, serve<&Set::clear>},
    {{"First",           method,   {},               20020}, serve<&Set::first>},
    {{"Last",            method,   {},               20021}, serve<&Set::last>},
    {{"GetArray",        method,   {OutI4, OutAny},  20025}, serve<&Set::getArray>},
    {{"AddArray",        method,   {I4, Any},        20026}, serve<&Set::addArray>},
    {{"NextID",          method,   {},               20029}, serve<&Set::nextID>},
    {{"SelectMultiID",   method,   {I4, I4, Text},   20030, classic}, serve<&Set::selectMultiID>},
    {{"IsEmpty",         method,   {},               20031}, serve<&Set::isEmpty>},
    {{"NextAfter",       method,   {I4},             20064}, serve<&Set::nextAfter>},
    {{"SelectMultiIDV2", method,   {I4, I4, Text},   20103, modern}, serve<&Set::selectMultiID>},
};
// clang-format on
static_assert(hasOneOfEach(setMembers));

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

// Output vectors live in output sets; FEMAP looks at the first one when it is not told which.
int SetObject::addAll(EntityType type)
{
    const std::vector<int> more = server().host.idsOf(type, 1);
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
    return ask(type, title, server().host.idsOf(type, ownerSet));
}

int SetObject::ask(EntityType type, const std::string& title, const std::vector<int>& available)
{
    const Selection answer = server().selections.answer(type, title, false, available);
    if (answer.code != ReturnCode::Ok)
        return static_cast<int>(answer.code);
    if (available.empty())
        return static_cast<int>(ReturnCode::NotExist);
    ids.insert(answer.ids.begin(), answer.ids.end());
    return ok;
}

}  // namespace standin
