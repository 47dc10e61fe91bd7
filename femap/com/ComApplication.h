// FEMAP in another process, reached through COM.
#pragma once

#include "femap/Application.h"
#include "femap/SelectionDialogs.h"
#include "femap/com/ComObjects.h"
#include "femap/com/Dispatch.h"

#include <memory>
#include <string>
#include <utility>

namespace femap::com
{

/// How much is read in one call.
enum class Reading
{
    InBulk,    // many values in one call where FEMAP can, else one by one
    OneByOne,  // each value in a call of its own
};

class ComApplication : public Application
{
public:
    /// Takes over the reference.
    ComApplication(IDispatch* application, SelectionDialogs* dialogs,
                   std::shared_ptr<RetryPolicy> retryPolicy, Reading reading = Reading::InBulk);
    /// The same with a connection that others have as well.
    ComApplication(IDispatch* application, SelectionDialogs* dialogs,
                   const std::shared_ptr<Connection>& connection, Reading reading);

    double Info_Version() override;
    void feAppVisible(bool visible) override;
    ReturnCode feFileOpen(bool useDialog, const std::string& path) override;
    std::string ModelName() override;
    int feAppGetAllModels() override;
    bool feFileIsModified() override;
    int Info_ActiveID(EntityType type) override;
    void feAppLock() override;
    void feAppUnlock() override;
    void feAppMessage(MessageColour colour, const std::string& text) override;
    void feAppStatusShow(bool enable, int maximum) override;
    void feAppStatusUpdate(int current) override;
    int feAppRegisterAddInPane(const AddInPane& pane) override;
    std::unique_ptr<EntitySet> feSet() override;
    std::unique_ptr<Entity> entity(const std::string& word) override;
    std::unique_ptr<OutputVector> feOutput() override;
    std::unique_ptr<Function> feFunction() override;
    std::unique_ptr<LoadDefinition> feLoadDefinition() override;
    std::unique_ptr<ModelChanges> changes() override;
    MassProperties feMeasureMeshMassProp(int elementSet, int coordinateSystem, bool printResults,
                                         bool printDetails) override;

private:
    ComContext context();

    Dispatch application_;
    SelectionDialogs* dialogs_;
    bool classic_;
    int locks_ = 0;
    std::shared_ptr<BulkCapabilities> bulk_;  // null: everything is read one by one
};

/// Finds FEMAP by its name "femap.model". COM must be initialised on this thread. The FEMAP that it
/// gave it gives again as long as that runs and is in use: another look could find another FEMAP.
class ComConnector : public Connector
{
public:
    /// dialogs answers FEMAP's selection dialogs in place of the engineer; null: FEMAP shows them.
    explicit ComConnector(SelectionDialogs* dialogs) : dialogs_(dialogs) {}
    /// The same, with a retry policy that a message filter may share.
    ComConnector(SelectionDialogs* dialogs, std::shared_ptr<RetryPolicy> retryPolicy,
                 Reading reading = Reading::InBulk)
        : dialogs_(dialogs), retryPolicy_(std::move(retryPolicy)), reading_(reading)
    {}

    std::unique_ptr<Application> attach() override;
    std::unique_ptr<Application> create() override;
    RunningFemaps running() override;
    void waitBriefly(bool briefly) override { retryPolicy_->waitBriefly(briefly); }
    bool isAnswering() override;

private:
    std::unique_ptr<Application> given();
    std::unique_ptr<Application> give(IDispatch* application);

    SelectionDialogs* dialogs_;
    std::shared_ptr<RetryPolicy> retryPolicy_ = std::make_shared<RetryPolicy>();
    Reading reading_ = Reading::InBulk;
    std::weak_ptr<Connection> given_;
};

/// A message as FEMAP's window takes it: short enough, and with every per cent sign doubled, for
/// FEMAP takes a single one as a format mark.
std::string messageForFemap(const std::string& text);

}  // namespace femap::com
