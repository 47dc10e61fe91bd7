// "feSet" of the stand-in: IDs in ascending order, known to the server under an ID of its own.
#pragma once

#include "femap/Constants.h"
#include "standin/Object.h"

#include <set>
#include <string>
#include <vector>

namespace standin
{

class SetObject : public ObjectOf<SetObject>
{
public:
    explicit SetObject(Server& server);
    ~SetObject() override;

    static constexpr std::span<const library::Member> declarations = library::ISet;
    static std::span<const Member<SetObject>> members();

    // FEMAP's members; each returns what FEMAP does.
    int add(int entity);
    int addArray(int count, const std::vector<int>& more);
    int addAll(EntityType type);
    int addRange(int first, int last, int step);
    int addSet(int other);
    int remove(int entity);
    int removeSet(int other);
    int clear();
    int copy(int other);
    int isAdded(int entity);
    int isEmpty();
    int count();
    int getArray(Arguments& arguments);
    int reset();
    int first();
    int last();
    int next();
    int nextID();
    int nextAfter(int entity);
    int select(EntityType type, bool clearFirst, const std::string& title);
    int selectMultiID(EntityType type, int ownerSet, const std::string& title);

    int id = 0;
    std::set<int> ids;
    int current = 0;  // the ID that Next returned last; 0 before the first one

private:
    int ask(EntityType type, const std::string& title, const std::vector<int>& available);

    bool ended_ = false;
};

}  // namespace standin
