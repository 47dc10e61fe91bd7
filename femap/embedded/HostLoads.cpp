#include "femap/embedded/HostLoads.h"

#include "femap/LoadTypes.h"
#include "femap/embedded/HostMembers.h"
#include "femap/embedded/HostObjects.h"
#include "femap/embedded/MemberTables.h"

#include <algorithm>
#include <type_traits>
#include <utility>

namespace femap::embedded
{

namespace
{

// 0 for a load without one.
double temperatureIn(const neutral::Load& load)
{
    const int place = placeOfTemperature(load);
    return place < 0 ? 0 : load.load[static_cast<std::size_t>(place)];
}

neutral::LoadDefinition* findDefinition(LoadSet* set, int id)
{
    if (set == nullptr)
        return nullptr;
    const auto found = std::ranges::find(set->definitions, id, &neutral::LoadDefinition::id);
    return found == set->definitions.end() ? nullptr : &*found;
}

std::vector<neutral::Load>& listOf(LoadSet& set, const MeshLoad&)
{
    return set.meshLoads;
}
std::vector<neutral::Load>& listOf(LoadSet& set, const GeometryLoad&)
{
    return set.geometryLoads;
}
std::vector<neutral::TemperatureLoad>& listOf(LoadSet& set, const NodalTemperature&)
{
    return set.nodalTemperatures;
}
std::vector<neutral::TemperatureLoad>& listOf(LoadSet& set, const ElementalTemperature&)
{
    return set.elementTemperatures;
}

bool isSameLoad(const neutral::Load& left, const neutral::Load& right)
{
    return left.id == right.id;
}
bool isSameLoad(const neutral::TemperatureLoad& left, const neutral::TemperatureLoad& right)
{
    return left.entityID == right.entityID && left.definitionID == right.definitionID;
}

int& numberOf(neutral::Load& load)
{
    return load.id;
}
int& numberOf(neutral::TemperatureLoad& load)
{
    return load.entityID;
}

/// A load of one of the four kinds.
template <class Data>
class LoadCopy : public DataObject<HostLoad, Data>
{
public:
    using DataObject<HostLoad, Data>::DataObject;

    void put(const std::string& name, std::optional<int> index, const Value& value) override
    {
        this->write(name, index, value);
        if constexpr (std::is_base_of_v<MeshLoad, Data>)
            settleTemperature(isSameName(name, "temp"));
    }

    ReturnCode Put(int id) override
    {
        Data& data = this->data_;
        LoadSet* const set = this->host_.openModel().loadSets.find(data.setID);
        auto stored = plain(data);
        if (id != 0)
            numberOf(stored) = id;
        if (set == nullptr || numberOf(stored) <= 0)
            return ReturnCode::Fail;
        auto& list = listOf(*set, data);
        const auto found =
            std::ranges::find_if(list, [&](const auto& one) { return isSameLoad(one, stored); });
        if (found == list.end())
            list.push_back(stored);
        else
            *found = stored;
        this->host_.isModified = true;
        return ReturnCode::Ok;
    }

private:
    static neutral::Load plain(const neutral::Load& load) { return load; }
    static neutral::TemperatureLoad plain(const neutral::TemperatureLoad& load) { return load; }

    // The temperature of a load is one of its values as well.
    void settleTemperature(bool isNewer)
    {
        MeshLoad& load = this->data_;
        if (isNewer)
            load.load[static_cast<std::size_t>(placeOfTemperature(load))] = load.temp;
        load.temp = temperatureIn(load);
    }
};

}  // namespace

int placeOfTemperature(const neutral::Load& load)
{
    const LoadType* const type = findLoadType(load.type);
    if (type == nullptr)
        return -1;
    const auto found = std::ranges::find(type->values, "Temperature");
    return found == type->values.end() ? -1 : static_cast<int>(found - type->values.begin());
}

MeshLoad meshLoad(const neutral::Load& load, int setID)
{
    return {load, setID, temperatureIn(load)};
}

GeometryLoad geometryLoad(const neutral::Load& load, int setID)
{
    return {meshLoad(load, setID), geometryTypeOf(load.type)};
}

NodalTemperature nodalTemperature(const neutral::TemperatureLoad& load, int setID)
{
    return {load, setID};
}

ElementalTemperature elementalTemperature(const neutral::TemperatureLoad& load, int setID)
{
    return {nodalTemperature(load, setID)};
}

ReturnCode HostLoadDefinition::Get(int loadSet, int id)
{
    const neutral::LoadDefinition* const found =
        findDefinition(host_.openModel().loadSets.find(loadSet), id);
    if (found == nullptr)
        return ReturnCode::Fail;
    setID_ = loadSet;
    data_ = *found;
    ResetNextLoad();
    return ReturnCode::Ok;
}

std::string HostLoadDefinition::title()
{
    return withoutControlCharacters(data_.title);
}

std::unique_ptr<HostLoad> HostLoadDefinition::nextLoad()
{
    const LoadSet* const set = host_.openModel().loadSets.find(setID_);
    if (set == nullptr)
        return nullptr;
    std::unique_ptr<HostLoad> load;
    withLoads(data_.dataType,
              [&](const auto list, const auto& show) { load = next(set->*list, show); });
    return load;
}

template <class Loads, class Show>
std::unique_ptr<HostLoad> HostLoadDefinition::next(const Loads& loads, const Show& show)
{
    while (nextLoad_ < loads.size()) {
        const auto& load = loads[nextLoad_++];
        if (load.definitionID == data_.id)
            return std::make_unique<LoadCopy<decltype(show(load, setID_))>>(host_,
                                                                            show(load, setID_));
    }
    return nullptr;
}

ReturnCode HostLoadDefinition::Put(int loadSet, const neutral::LoadDefinition& definition)
{
    LoadSet* const set = host_.openModel().loadSets.find(loadSet);
    if (set == nullptr || definition.id <= 0)
        return ReturnCode::Fail;
    if (neutral::LoadDefinition* const found = findDefinition(set, definition.id)) {
        *found = definition;
    }
    else {
        set->definitions.push_back(definition);
        neutral::sortByID(set->definitions);
    }
    host_.isModified = true;
    return ReturnCode::Ok;
}

}  // namespace femap::embedded
