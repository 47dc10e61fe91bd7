// Load definitions of the model host and the walk over their loads.
#include "femap/LoadTypes.h"
#include "femap/embedded/HostMembers.h"
#include "femap/embedded/HostObjects.h"

#include <algorithm>
#include <cstddef>

namespace femap::embedded
{

namespace
{

template <class Data>
using HostLoad = DataObject<MemberObject, Data>;

// Of a load that has one among its values.
double temperatureIn(const neutral::Load& load)
{
    const LoadType* const type = findLoadType(load.type);
    if (type == nullptr)
        return 0;
    const auto found = std::ranges::find(type->values, "Temperature");
    return found == type->values.end()
               ? 0
               : load.load[static_cast<std::size_t>(found - type->values.begin())];
}

class HostLoadDefinition : public femap::LoadDefinition
{
public:
    explicit HostLoadDefinition(Host& host) : host_(host) {}

    ReturnCode Get(int loadSet, int id) override
    {
        const LoadSet* const set = host_.openModel().loadSets.find(loadSet);
        if (set == nullptr)
            return ReturnCode::Fail;
        const auto found =
            std::find_if(set->definitions.begin(), set->definitions.end(),
                         [&](const neutral::LoadDefinition& one) { return one.id == id; });
        if (found == set->definitions.end())
            return ReturnCode::Fail;
        setID_ = loadSet;
        data_ = *found;
        ResetNextLoad();
        return ReturnCode::Ok;
    }
    std::string title() override { return withoutControlCharacters(data_.title); }
    int setID() override { return setID_; }
    int ID() override { return data_.id; }
    int loadType() override { return data_.loadType; }
    int dataType() override { return data_.dataType; }
    void ResetNextLoad() override { nextLoad_ = 0; }

    std::unique_ptr<MemberObject> NextLoad() override
    {
        const LoadSet* const set = host_.openModel().loadSets.find(setID_);
        if (set == nullptr)
            return nullptr;
        switch (static_cast<LoadDataType>(data_.dataType)) {
        case LoadDataType::Mesh:
            return next(set->meshLoads, [this](const neutral::Load& load) {
                return MeshLoad{load, setID_, temperatureIn(load)};
            });
        case LoadDataType::Geometry:
            return next(set->geometryLoads, [this](const neutral::Load& load) {
                return GeometryLoad{{load, setID_, temperatureIn(load)}, geometryTypeOf(load.type)};
            });
        case LoadDataType::NodalTemperature:
            return next(set->nodalTemperatures, [this](const neutral::TemperatureLoad& load) {
                return NodalTemperature{load, setID_};
            });
        case LoadDataType::ElementalTemperature:
            return next(set->elementTemperatures, [this](const neutral::TemperatureLoad& load) {
                return ElementalTemperature{{load, setID_}};
            });
        }
        return nullptr;  // a kind of load that the host does not know
    }

private:
    template <class Loads, class Show>
    std::unique_ptr<MemberObject> next(const Loads& loads, const Show& show)
    {
        while (nextLoad_ < loads.size()) {
            const auto& load = loads[nextLoad_++];
            if (load.definitionID == data_.id)
                return std::make_unique<HostLoad<decltype(show(load))>>(host_, show(load));
        }
        return nullptr;
    }

    Host& host_;
    int setID_ = 0;
    neutral::LoadDefinition data_;
    std::size_t nextLoad_ = 0;  // index in its list of the next load to look at
};

}  // namespace

std::unique_ptr<femap::LoadDefinition> makeLoadDefinition(Host& host)
{
    return std::make_unique<HostLoadDefinition>(host);
}

}  // namespace femap::embedded
