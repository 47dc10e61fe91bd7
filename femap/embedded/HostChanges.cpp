#include "femap/embedded/HostChanges.h"

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

void demand(ReturnCode code, const std::string& what)
{
    if (code != ReturnCode::Ok)
        throw RuntimeError(
            ErrorNumber::InvalidCall,
            "FEMAP answers " + std::to_string(static_cast<int>(code)) + " to " + what);
}

std::string named(const char* kind, int id)
{
    return std::string(kind) + ' ' + std::to_string(id);
}

// Puts the values of one entity.
template <class Data>
void putEntity(Host& host, std::span<const EntityValue> values)
{
    const EntityValue& first = values.front();
    const std::string name = named(first.word.c_str(), first.id);
    HostEntity<Data> entity(host);
    demand(entity.Get(first.id), "loading " + name);
    for (const EntityValue& each : values)
        entity.put(each.member.name, each.member.index, each.value);
    demand(entity.Put(first.id), "storing " + name);
}

// Puts the values of the loads of one definition.
void putLoads(Host& host, std::span<const LoadValue> values)
{
    const LoadValue& first = values.front();
    const std::string name = named("load definition", first.definition);
    HostLoadDefinition definition(host);
    demand(definition.Get(first.loadSet, first.definition), "loading " + name);
    std::unique_ptr<HostLoad> load = definition.nextLoad();
    std::size_t number = 0;
    for (std::size_t i = 0; i < values.size();) {
        for (; load != nullptr && number < values[i].load; ++number)
            load = definition.nextLoad();
        if (load == nullptr)
            throw RuntimeError(ErrorNumber::InvalidCall,
                               name + " has no load " + std::to_string(values[i].load + 1));
        for (; i < values.size() && values[i].load == number; ++i)
            load->put(values[i].member.name, values[i].member.index, values[i].value);
        demand(load->Put(0), "storing a load of " + name);
    }
}

void putFunction(Host& host, const FunctionValue& value)
{
    const std::string name = named("function", value.id);
    HostFunction function(host);
    demand(function.Get(value.id), "loading " + name);
    demand(function.PutFunctionList(value.points), "taking the points of " + name);
    demand(function.Put(value.id), "storing " + name);
}

// Hands on what belongs together and stands beside each other.
template <class Each, class IsSame, class Take>
void forEachRun(const std::vector<Each>& values, const IsSame& isSame, const Take& take)
{
    for (std::size_t begin = 0, end = 0; begin < values.size(); begin = end) {
        for (end = begin + 1; end < values.size() && isSame(values[begin], values[end]);)
            ++end;
        take(std::span(values).subspan(begin, end - begin));
    }
}

class HostChanges : public ModelChanges
{
public:
    explicit HostChanges(Host& host) : host_(host) {}

    void put(const ModelValues& values) override
    {
        forEachRun(
            values.entities,
            [](const EntityValue& one, const EntityValue& other) {
                return one.id == other.id && one.word == other.word;
            },
            [&](std::span<const EntityValue> run) {
                withKind(run.front().word,
                         [&]<class Data>(Kind<Data>) { putEntity<Data>(host_, run); });
            });
        forEachRun(
            values.loads,
            [](const LoadValue& one, const LoadValue& other) {
                return one.definition == other.definition && one.loadSet == other.loadSet;
            },
            [&](std::span<const LoadValue> run) { putLoads(host_, run); });
        for (const FunctionValue& each : values.functions)
            putFunction(host_, each);
    }

    // The host shows no dialogs.
    DialogSwitches dialogSwitches() override { return switches_; }
    void setDialogSwitches(const DialogSwitches& switches) override { switches_ = switches; }

    void feFileWriteNastran(SolverBrand brand, const std::string& path) override
    {
        demand(host_.feFileWriteNastran(static_cast<int>(brand), path), "writing the deck " + path);
    }
    void feFileReadNastranResults(SolverBrand brand, const std::string& path) override
    {
        demand(host_.feFileReadNastranResults(static_cast<int>(brand), path),
               "reading the results " + path);
    }
    void deleteOutputSets(const std::vector<int>& ids) override
    {
        demand(host_.feDelete(EntityType::OutputSet, ids), "deleting output sets");
    }
    void activateOutputSet(int id) override
    {
        demand(host_.activate(EntityType::OutputSet, id),
               "making output set " + std::to_string(id) + " active");
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
