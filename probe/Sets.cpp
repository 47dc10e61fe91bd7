#include "probe/Sets.h"

namespace probe
{

namespace
{

std::vector<int> idsIn(const Object& set)
{
    const Answer answer =
        set.call("GetArray", list(Argument::out(VT_I4), Argument::out(VT_VARIANT)));
    return answer.filled.size() == 2 ? answer.filled[1].wholeNumbers() : std::vector<int>();
}

FemapSet emptySet(const Object& application)
{
    FemapSet set{application.object("feSet")};
    set.number = set.object.call("ID").value.number();
    return set;
}

}  // namespace

FemapSet setOfAll(const Object& application, femap::EntityType type)
{
    FemapSet set = emptySet(application);
    set.object.call("AddAll", list(static_cast<int>(type)));
    return set;
}

FemapSet setOf(const Object& application, const std::vector<int>& ids)
{
    FemapSet set = emptySet(application);
    if (!ids.empty())
        set.object.call("AddArray", list(static_cast<int>(ids.size()), ids));
    return set;
}

std::vector<int> allIDs(const Object& application, femap::EntityType type)
{
    return idsIn(setOfAll(application, type).object);
}

std::vector<int> sampleOf(const std::vector<int>& ids, std::size_t most)
{
    if (ids.size() <= most)
        return ids;
    std::vector<int> sample;
    for (std::size_t i = 0; i < most; ++i)
        sample.push_back(ids[i * ids.size() / most]);
    return sample;
}

std::string shown(const std::vector<int>& ids)
{
    constexpr std::size_t mostShown = 8;
    std::string text = std::to_string(ids.size()) + (ids.empty() ? "" : ":");
    for (std::size_t i = 0; i < ids.size() && i < mostShown; ++i)
        text += ' ' + std::to_string(ids[i]);
    return ids.size() > mostShown ? text + " … " + std::to_string(ids.back()) : text;
}

}  // namespace probe
