// "feSet" of the stand-in: a set of the model host's, with FEMAP's ways to fill and ask it.
#pragma once

#include "femap/embedded/HostObjects.h"
#include "standin/Object.h"

#include <string>
#include <vector>

namespace standin
{

class SetObject : public ObjectOf<SetObject>
{
public:
    explicit SetObject(Server& server);

    static constexpr std::span<const library::Member> declarations = library::ISet;
    static std::span<const Member<SetObject>> members();

    // FEMAP's members; each returns what FEMAP does.
    int id() { return set_.ID(); }
    int count() { return set_.count(); }
    int next() { return set_.Next(); }
    int first();
    int add(int entity);
    int addArray(int count, const std::vector<int>& more);
    int addAll(EntityType type);
    int clear();
    int copy(int other);
    int getArray(Arguments& arguments);
    int reset();
    int select(EntityType type, bool clearFirst, const std::string& title);
    int selectMultiID(EntityType type, int ownerSet, const std::string& title);

private:
    femap::embedded::HostSet set_;
};

}  // namespace standin
