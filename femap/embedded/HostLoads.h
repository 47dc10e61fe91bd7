// Load definitions of the model host and the loads that they give out.
#pragma once

#include "femap/Constants.h"
#include "femap/Objects.h"
#include "femap/embedded/Members.h"
#include "femap/neutral/Model.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <string>

namespace femap::embedded
{

class Host;

// A load of the model as a load object shows it.
MeshLoad meshLoad(const neutral::Load& load, int setID);
GeometryLoad geometryLoad(const neutral::Load& load, int setID);
NodalTemperature nodalTemperature(const neutral::TemperatureLoad& load, int setID);
ElementalTemperature elementalTemperature(const neutral::TemperatureLoad& load, int setID);

/// Calls the visitor with the list of loads in a load set that a definition's data type names, and
/// with what shows one of them as a load object. False for a kind that the host does not know.
template <class Visitor>
bool withLoads(int dataType, const Visitor& visitor)
{
    using neutral::LoadSet;
    switch (static_cast<LoadDataType>(dataType)) {
    case LoadDataType::Mesh:
        visitor(&LoadSet::meshLoads, meshLoad);
        return true;
    case LoadDataType::Geometry:
        visitor(&LoadSet::geometryLoads, geometryLoad);
        return true;
    case LoadDataType::NodalTemperature:
        visitor(&LoadSet::nodalTemperatures, nodalTemperature);
        return true;
    case LoadDataType::ElementalTemperature:
        visitor(&LoadSet::elementTemperatures, elementalTemperature);
        return true;
    }
    return false;
}

/// A copy of one load.
class HostLoad : public MemberObject
{
public:
    /// Changes the copy; nothing reaches the model.
    virtual void put(const std::string& name, std::optional<int> index, const Value& value) = 0;
    /// Stores the copy in its load set, under its own ID for 0. A temperature is numbered by its
    /// entity, and there is one in each definition.
    virtual ReturnCode Put(int id) = 0;
};

class HostLoadDefinition : public femap::LoadDefinition
{
public:
    explicit HostLoadDefinition(Host& host) : host_(host) {}

    ReturnCode Get(int loadSet, int id) override;
    std::string title() override;
    int setID() override { return setID_; }
    int ID() override { return data_.id; }
    int loadType() override { return data_.loadType; }
    int dataType() override { return data_.dataType; }
    void ResetNextLoad() override { nextLoad_ = 0; }
    std::unique_ptr<MemberObject> NextLoad() override { return nextLoad(); }

    /// As NextLoad.
    std::unique_ptr<HostLoad> nextLoad();
    /// Stores a definition in a load set. Fails without that set and for an ID that is none.
    ReturnCode Put(int loadSet, const neutral::LoadDefinition& definition);

private:
    template <class Loads, class Show>
    std::unique_ptr<HostLoad> next(const Loads& loads, const Show& show);

    Host& host_;
    int setID_ = 0;
    neutral::LoadDefinition data_;
    std::size_t nextLoad_ = 0;  // index in its list of the next load to look at
};

}  // namespace femap::embedded
