// The model host: a FEMAP of our own in this process, with its model and everything that FEMAP
// keeps around it. It behaves as FEMAP does: sets are sorted, Get of a missing ID leaves the data,
// unknown members raise, locks are counted.
#pragma once

#include "femap/Application.h"
#include "femap/SelectionDialogs.h"
#include "femap/neutral/Model.h"

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace femap::embedded
{

using neutral::LoadSet;
using neutral::Model;
using neutral::OutputSet;

class HostSet;

class Host : public Connector
{
public:
    /// dialogs answers the selection dialogs and must outlive the host.
    explicit Host(SelectionDialogs& dialogs) : dialogs_(dialogs) {}

    /// Both return a new application object of this one host.
    std::unique_ptr<Application> attach() override;
    std::unique_ptr<Application> create() override;

    /// The open model; none: FEMAP has no model open and reading its name raises.
    std::optional<Model> model = Model();
    /// Full path of the model's file; empty: never saved.
    std::string modelName;

    /// Opens the model of a neutral file. Raises RuntimeError with file, line and reason when it
    /// cannot be read; then the model that was open stays.
    void openNeutralFile(const std::string& path);
    /// Adds what a further neutral file holds to the open model.
    void importNeutralFile(const std::string& path);

    /// Whether anything was put, read or deleted since the model was opened; a test may say so too.
    bool isModified = false;
    /// 0: none, and no deck is written. What a neutral file holds of analysis sets is not read:
    /// each model has this one.
    int activeAnalysisSet = analysisSet;
    static constexpr int analysisSet = 1;
    bool visible = false;
    int lockCount = 0;

    struct Message
    {
        MessageColour colour;
        std::string text;
    };
    std::vector<Message> messages;
    std::function<void(const Message&)> messageShown;  // called for each new one

    std::vector<AddInPane> registrations;
    int statusMaximum = 0;  // 0: the progress bar is off
    int statusCurrent = 0;

    /// Index beyond an array member: raises (true) or reads as 0 (false).
    bool indexBeyondArrayRaises = true;

    // For the objects that the host hands out.
    SelectionDialogs& dialogs() { return dialogs_; }
    Model& openModel();  // raises when none is open
    std::vector<int> idsOf(EntityType type);
    /// The same; load definitions and output vectors are those of the owner set.
    std::vector<int> idsOf(EntityType type, int ownerSet);
    /// The ID of the active load set, output set or analysis set; 0 when there is none.
    int activeID(EntityType type);
    /// Fails for one that is not there, and for a kind of which none is active.
    ReturnCode activate(EntityType type, int id);
    /// Writes the deck of the model as it is now. brand: of the solver.
    ReturnCode feFileWriteNastran(int brand, const std::string& path);
    /// Adds the output sets of a file of results behind those that are there. In its place, for the
    /// host reads no binary files, a neutral file beside it is read: for panel.op2
    /// panel.results.neu, which may also be named itself. Nothing changes unless all of it can be
    /// read.
    ReturnCode feFileReadNastranResults(int brand, const std::string& path);
    /// Whether the first of them becomes the active one.
    bool activatesResults = false;
    /// Deletes output sets, and nothing of another kind: what FEMAP does with the rest of the model
    /// then, the host does not know.
    ReturnCode feDelete(EntityType type, const std::vector<int>& ids);
    /// Deletes vectors of an output set.
    ReturnCode feDeleteOutput(int outputSet, const std::vector<int>& vectors);
    MassProperties measure(int elementSet, int coordinateSystem);
    /// The same; what cannot be weighed or is in doubt is told, once for each model.
    MassProperties measure(const std::vector<int>& elementIDs);
    /// Shows a text in the message window.
    void showMessage(MessageColour colour, const std::string& text);
    std::map<int, HostSet*> sets;  // by ID
    int lastSetID = 0;             // IDs of sets are not used again

private:
    void tell(const std::vector<std::string>& remarks);

    SelectionDialogs& dialogs_;
    std::set<std::string> told_;  // about the open model
};

/// Changes the value of a member, as an engineer would in FEMAP. word is "Node", "Elem", "Prop"
/// or "Matl"; index is -1 for a plain member. Raises for an ID, member or index that is not there
/// and for a value that does not fit.
void putMember(Model& model, const std::string& word, int id, const std::string& member, int index,
               const std::string& value);
/// Whether the member takes an index; false also for a member that is not there. Raises for an
/// unknown word.
bool isArrayMember(const std::string& word, const std::string& member);
/// Changes the value of an output vector of the active output set at an entity, and with it the
/// vector's maximum and minimum. Raises when the vector or the entity is not there.
void putOutputValue(Model& model, int vectorID, int entityID, double value);

/// The output set and the load set that FEMAP would call active; null when there is none.
OutputSet* activeOutputSet(Model& model);
LoadSet* activeLoadSet(Model& model);

/// Mass properties of some elements, measured from the mesh. remarks receives what the engineer is
/// to know about them: which elements could not be weighed, and what is in doubt.
MassProperties measureMassProperties(const Model& model, const std::vector<int>& elementIDs,
                                     std::vector<std::string>* remarks = nullptr);

}  // namespace femap::embedded
