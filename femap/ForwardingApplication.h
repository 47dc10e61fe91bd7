// Hands every call on to another FEMAP; a base for classes that observe or change some calls.
#pragma once

#include "femap/Application.h"

#include <memory>
#include <string>
#include <utility>

namespace femap
{

class ForwardingApplication : public Application
{
public:
    explicit ForwardingApplication(std::unique_ptr<Application> real)
        : own_(std::move(real)), real_(own_.get())
    {}
    /// The real one must outlive this.
    explicit ForwardingApplication(Application& real) : real_(&real) {}

    double Info_Version() override { return real_->Info_Version(); }
    void feAppVisible(bool visible) override { real_->feAppVisible(visible); }
    ReturnCode feFileOpen(bool useDialog, const std::string& path) override
    {
        return real_->feFileOpen(useDialog, path);
    }
    std::string ModelName() override { return real_->ModelName(); }
    int feAppGetAllModels() override { return real_->feAppGetAllModels(); }
    bool feFileIsModified() override { return real_->feFileIsModified(); }
    int Info_ActiveID(EntityType type) override { return real_->Info_ActiveID(type); }
    void feAppLock() override { real_->feAppLock(); }
    void feAppUnlock() override { real_->feAppUnlock(); }
    void feAppMessage(MessageColour colour, const std::string& text) override
    {
        real_->feAppMessage(colour, text);
    }
    void feAppStatusShow(bool enable, int maximum) override
    {
        real_->feAppStatusShow(enable, maximum);
    }
    void feAppStatusUpdate(int current) override { real_->feAppStatusUpdate(current); }
    int feAppRegisterAddInPane(const AddInPane& pane) override
    {
        return real_->feAppRegisterAddInPane(pane);
    }
    std::unique_ptr<EntitySet> feSet() override { return real_->feSet(); }
    std::unique_ptr<Entity> entity(const std::string& word) override { return real_->entity(word); }
    std::unique_ptr<OutputVector> feOutput() override { return real_->feOutput(); }
    std::unique_ptr<Function> feFunction() override { return real_->feFunction(); }
    std::unique_ptr<LoadDefinition> feLoadDefinition() override
    {
        return real_->feLoadDefinition();
    }
    std::unique_ptr<ModelChanges> changes() override { return real_->changes(); }
    MassProperties feMeasureMeshMassProp(int elementSet, int coordinateSystem, bool printResults,
                                         bool printDetails) override
    {
        return real_->feMeasureMeshMassProp(elementSet, coordinateSystem, printResults,
                                            printDetails);
    }

private:
    std::unique_ptr<Application> own_;
    Application* real_;
};

}  // namespace femap
