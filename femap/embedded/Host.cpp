#include "femap/embedded/Host.h"

#include "femap/embedded/HostChanges.h"
#include "femap/embedded/HostLoads.h"
#include "femap/embedded/HostObjects.h"
#include "system/RuntimeError.h"

#include <algorithm>
#include <utility>

namespace femap::embedded
{

using sys::ErrorNumber;
using sys::RuntimeError;

namespace
{

class HostApplication : public Application
{
public:
    explicit HostApplication(Host& host) : host_(host) {}

    double Info_Version() override { return 0; }
    void feAppVisible(bool visible) override { host_.visible = visible; }
    ReturnCode feFileOpen(bool useDialog, const std::string& path) override
    {
        if (useDialog)
            throw RuntimeError(ErrorNumber::InvalidCall, "The model host has no file dialog");
        host_.openNeutralFile(path);
        return ReturnCode::Ok;
    }
    std::string ModelName() override
    {
        host_.openModel();
        return host_.modelName;
    }
    int feAppGetAllModels() override { return host_.model ? 1 : 0; }
    bool feFileIsModified() override { return host_.isModified; }
    int Info_ActiveID(EntityType type) override { return host_.activeID(type); }

    void feAppLock() override { ++host_.lockCount; }
    void feAppUnlock() override { host_.lockCount = std::max(host_.lockCount - 1, 0); }
    void feAppMessage(MessageColour colour, const std::string& text) override
    {
        host_.showMessage(colour, text);
    }
    void feAppStatusShow(bool enable, int maximum) override
    {
        host_.statusMaximum = enable ? maximum : 0;
        host_.statusCurrent = 0;
    }
    void feAppStatusUpdate(int current) override { host_.statusCurrent = current; }
    int feAppRegisterAddInPane(const AddInPane& pane) override
    {
        host_.registrations.push_back(pane);
        return static_cast<int>(ReturnCode::Ok);
    }

    std::unique_ptr<EntitySet> feSet() override { return std::make_unique<HostSet>(host_); }
    std::unique_ptr<Entity> entity(const std::string& word) override
    {
        return makeEntity(host_, word);
    }
    std::unique_ptr<femap::OutputVector> feOutput() override
    {
        return std::make_unique<HostOutputVector>(host_);
    }
    std::unique_ptr<femap::Function> feFunction() override
    {
        return std::make_unique<HostFunction>(host_);
    }
    std::unique_ptr<femap::LoadDefinition> feLoadDefinition() override
    {
        return std::make_unique<HostLoadDefinition>(host_);
    }
    std::unique_ptr<ModelChanges> changes() override { return makeChanges(host_); }

    MassProperties feMeasureMeshMassProp(int elementSet, int coordinateSystem, bool, bool) override
    {
        return host_.measure(elementSet, coordinateSystem);
    }

private:
    Host& host_;
};

/// The row that is named active, the first one while none is; null when there is none.
template <class Row>
Row* activeOf(neutral::Table<Row>& table, int active)
{
    if (active != 0)
        return table.find(active);
    return table.empty() ? nullptr : &*table.begin();
}

template <class Row>
std::vector<int> definitionIDs(const Row* set)
{
    std::vector<int> result;
    if (set != nullptr)
        for (const neutral::LoadDefinition& definition : set->definitions)
            result.push_back(definition.id);
    return result;
}

std::vector<int> vectorIDs(const OutputSet* set)
{
    return set == nullptr ? std::vector<int>() : set->vectors.ids();
}

}  // namespace

std::unique_ptr<Application> Host::attach()
{
    return std::make_unique<HostApplication>(*this);
}

std::unique_ptr<Application> Host::create()
{
    return attach();
}

Model& Host::openModel()
{
    if (!model)
        throw RuntimeError(ErrorNumber::ObjectNotSet, "FEMAP has no model open");
    return *model;
}

void Host::showMessage(MessageColour colour, const std::string& text)
{
    messages.push_back({colour, cutToMessage(text)});
    if (messageShown)
        messageShown(messages.back());
}

void Host::tell(const std::vector<std::string>& remarks)
{
    for (const std::string& remark : remarks)
        if (told_.insert(remark).second)
            showMessage(MessageColour::Warning, remark);
}

std::vector<int> Host::idsOf(EntityType type)
{
    Model& open = openModel();
    switch (type) {
    case EntityType::Node:
        return open.nodes.ids();
    case EntityType::Element:
        return open.elements.ids();
    case EntityType::Material:
        return open.materials.ids();
    case EntityType::Property:
        return open.properties.ids();
    case EntityType::LoadSet:
        return open.loadSets.ids();
    case EntityType::OutputSet:
        return open.outputSets.ids();
    case EntityType::OutputVector:
        return vectorIDs(activeOutputSet(open));
    case EntityType::Function:
        return open.functions.ids();
    case EntityType::LoadDefinition:
        return definitionIDs(activeLoadSet(open));
    case EntityType::AnalysisSet:
        return {Host::analysisSet};
    }
    return {};
}

std::vector<int> Host::idsOf(EntityType type, int ownerSet)
{
    Model& open = openModel();
    if (type == EntityType::OutputVector)
        return vectorIDs(open.outputSets.find(ownerSet));
    if (type == EntityType::LoadDefinition)
        return definitionIDs(open.loadSets.find(ownerSet));
    return idsOf(type);
}

int Host::activeID(EntityType type)
{
    Model& open = openModel();
    if (type == EntityType::OutputSet) {
        const OutputSet* const set = activeOutputSet(open);
        return set == nullptr ? 0 : set->id;
    }
    if (type == EntityType::LoadSet) {
        const LoadSet* const set = activeLoadSet(open);
        return set == nullptr ? 0 : set->id;
    }
    return type == EntityType::AnalysisSet ? activeAnalysisSet : 0;
}

ReturnCode Host::activate(EntityType type, int id)
{
    Model& open = openModel();
    if (type == EntityType::OutputSet && open.outputSets.find(id) != nullptr)
        open.activeOutputSet = id;
    else if (type == EntityType::LoadSet && open.loadSets.find(id) != nullptr)
        open.activeLoadSet = id;
    else if (type == EntityType::AnalysisSet && (id == 0 || id == analysisSet))
        activeAnalysisSet = id;
    else
        return ReturnCode::Fail;
    return ReturnCode::Ok;
}

MassProperties Host::measure(int elementSet, int coordinateSystem)
{
    if (coordinateSystem != 0)
        throw RuntimeError(ErrorNumber::InvalidCall,
                           "The model host measures in the global coordinate system only");
    if (elementSet < 0)  // one element
        return measure(std::vector<int>{-elementSet});
    const auto set = sets.find(elementSet);
    if (set == sets.end())
        throw RuntimeError(ErrorNumber::InvalidCall,
                           "FEMAP has no set with the ID " + std::to_string(elementSet));
    return measure(set->second->ids());
}

MassProperties Host::measure(const std::vector<int>& elementIDs)
{
    std::vector<std::string> remarks;
    MassProperties result = measureMassProperties(openModel(), elementIDs, &remarks);
    tell(remarks);
    return result;
}

OutputSet* activeOutputSet(Model& model)
{
    return activeOf(model.outputSets, model.activeOutputSet);
}

LoadSet* activeLoadSet(Model& model)
{
    return activeOf(model.loadSets, model.activeLoadSet);
}

}  // namespace femap::embedded
