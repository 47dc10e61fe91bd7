#include "femap/embedded/HostChanges.h"

#include "femap/ValueRuns.h"
#include "femap/embedded/HostEntity.h"
#include "femap/embedded/HostLoads.h"
#include "femap/embedded/HostObjects.h"
#include "system/RuntimeError.h"

#include <span>
#include <string>

namespace femap::embedded
{

using sys::ErrorNumber;
using sys::RuntimeError;

namespace
{

void demand(const std::string& what, ReturnCode code)
{
    if (code != ReturnCode::Ok)
        throw RuntimeError(ErrorNumber::InvalidCall, what + ": FEMAP refuses it (FEMAP's code " +
                                                         std::to_string(static_cast<int>(code)) +
                                                         ")");
}

template <class Object, class Each>
void putMember(Object& object, const Each& each, const std::string& owner)
{
    sys::naming("Putting " + nameOf(each.member) + " of " + owner,
                [&] { object.put(each.member.name, each.member.index, each.value); });
}

// Puts the values of one entity.
template <class Data>
void putEntity(Host& host, std::span<const EntityValue> values)
{
    const EntityValue& first = values.front();
    const std::string name = ownerOf(first);
    HostEntity<Data> entity(host);
    demand("Loading " + name, entity.Get(first.id));
    for (const EntityValue& each : values)
        putMember(entity, each, name);
    demand("Storing " + name, entity.Put(first.id));
}

// Puts the values of the loads of one definition.
void putLoads(Host& host, std::span<const LoadValue> values)
{
    const LoadValue& first = values.front();
    const std::string name = ownerOf(first);
    HostLoadDefinition definition(host);
    demand("Loading " + name, definition.Get(first.loadSet, first.definition));
    std::unique_ptr<HostLoad> load = definition.nextLoad();
    std::size_t number = 0;
    for (std::size_t i = 0; i < values.size();) {
        for (; load != nullptr && number < values[i].load; ++number)
            load = definition.nextLoad();
        const std::string own = loadOf(values[i]);
        if (load == nullptr)
            throw RuntimeError(ErrorNumber::InvalidCall, own + " is not there");
        for (; i < values.size() && values[i].load == number; ++i)
            putMember(*load, values[i], own);
        demand("Storing " + own, load->Put(0));
    }
}

void putFunction(Host& host, const FunctionValue& value)
{
    const std::string name = ownerOf(value);
    HostFunction function(host);
    demand("Loading " + name, function.Get(value.id));
    demand("Putting the points of " + name, function.PutFunctionList(value.points));
    demand("Storing " + name, function.Put(value.id));
}

class HostChanges : public ModelChanges
{
public:
    explicit HostChanges(Host& host) : host_(host) {}

    void put(const ModelValues& values) override
    {
        forEachRun(std::span(values.entities), [&](std::span<const EntityValue> run) {
            withKind(run.front().word,
                     [&]<class Data>(Kind<Data>) { putEntity<Data>(host_, run); });
        });
        forEachRun(std::span(values.loads),
                   [&](std::span<const LoadValue> run) { putLoads(host_, run); });
        for (const FunctionValue& each : values.functions)
            putFunction(host_, each);
    }

    // The host shows no dialogs.
    DialogSwitches dialogSwitches() override { return switches_; }
    void setDialogSwitches(const DialogSwitches& switches) override { switches_ = switches; }

    void feFileWriteNastran(SolverBrand brand, const std::string& path) override
    {
        demand("Writing the deck " + path, host_.feFileWriteNastran(static_cast<int>(brand), path));
    }
    void feFileReadNastranResults(SolverBrand brand, const std::string& path) override
    {
        demand("Reading the results " + path,
               host_.feFileReadNastranResults(static_cast<int>(brand), path));
    }
    void deleteOutputSets(const std::vector<int>& ids) override
    {
        if (!ids.empty())
            demand("Deleting output sets", host_.feDelete(EntityType::OutputSet, ids));
    }
    void activateOutputSet(int id) override
    {
        demand("Making output set " + std::to_string(id) + " active",
               host_.activate(EntityType::OutputSet, id));
    }

private:
    Host& host_;
    DialogSwitches switches_;
};

}  // namespace

std::unique_ptr<ModelChanges> makeChanges(Host& host)
{
    return std::make_unique<HostChanges>(host);
}

}  // namespace femap::embedded
