// FEMAP's application object as the program uses it, and the connector that gives it one.
#pragma once

#include "femap/Constants.h"
#include "femap/ModelChanges.h"
#include "femap/Objects.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

namespace femap
{

/// The arguments of feAppRegisterAddInPane.
struct AddInPane
{
    bool regster = true;
    std::intptr_t windowID = 0;   // the window that becomes the pane
    std::intptr_t messageID = 0;  // the window that receives FEMAP's events
    bool bPreventClose = false;
    bool bPreventHide = false;
    int location = 0;    // 0 floating, 1 left, 2 right, 3 top, 4 bottom
    int neighborID = 0;  // 0 FEMAP's main window
};

/// A running FEMAP ("femap.model"). Everything raises sys::RuntimeError when FEMAP refuses.
class Application
{
public:
    virtual ~Application() = default;

    /// FEMAP's version as a number, such as 23.06; 0 where there is no FEMAP of any version.
    virtual double Info_Version() = 0;
    virtual void feAppVisible(bool visible) = 0;
    virtual ReturnCode feFileOpen(bool useDialog, const std::string& path) = 0;
    /// Full path of the open model; empty when it was never saved. Raises when none is open.
    virtual std::string ModelName() = 0;
    /// How many models are open.
    virtual int feAppGetAllModels() = 0;
    /// Whether the open model has changes that are not saved.
    virtual bool feFileIsModified() = 0;
    /// The active load set, output set …; 0 when there is none.
    virtual int Info_ActiveID(EntityType type) = 0;

    virtual void feAppLock() = 0;
    virtual void feAppUnlock() = 0;
    /// A line in FEMAP's message window; text longer than FEMAP takes is cut.
    virtual void feAppMessage(MessageColour colour, const std::string& text) = 0;
    /// FEMAP's progress bar: on with the number that means 100 %, or off.
    virtual void feAppStatusShow(bool enable, int maximum) = 0;
    virtual void feAppStatusUpdate(int current) = 0;
    virtual int feAppRegisterAddInPane(const AddInPane& pane) = 0;

    virtual std::unique_ptr<EntitySet> feSet() = 0;
    /// The object named "fe" and the word: "Node", "Elem", "Prop" or "Matl".
    virtual std::unique_ptr<Entity> entity(const std::string& word) = 0;
    virtual std::unique_ptr<OutputVector> feOutput() = 0;
    virtual std::unique_ptr<Function> feFunction() = 0;
    virtual std::unique_ptr<LoadDefinition> feLoadDefinition() = 0;

    /// What changes the model; the form never asks for it.
    virtual std::unique_ptr<ModelChanges> changes() = 0;

    /// Measures the elements of a set in a coordinate system (0: global rectangular).
    virtual MassProperties feMeasureMeshMassProp(int elementSet, int coordinateSystem,
                                                 bool printResults, bool printDetails) = 0;
};

/// The FEMAPs that run on this machine, as far as the program can see them.
struct RunningFemaps
{
    int count = 1;
    std::optional<unsigned long> process{};  // of the one that was given; none: it does not tell
    bool isOneHidden = false;  // and cannot be reached: only it or only the program is elevated
};

/// Gives the program a FEMAP. Both raise sys::RuntimeError when they cannot.
class Connector
{
public:
    virtual ~Connector() = default;

    /// Takes a FEMAP that runs already.
    virtual std::unique_ptr<Application> attach() = 0;
    /// Starts a new one.
    virtual std::unique_ptr<Application> create() = 0;

    /// What runs besides the one that was given.
    virtual RunningFemaps running() { return {}; }
    /// Whether a FEMAP that rejects calls is waited for a few seconds only: the program ends.
    virtual void waitBriefly(bool /*briefly*/) {}
    /// Whether the FEMAP that was given takes calls now; finds out without waiting for it.
    virtual bool isAnswering() { return true; }
};

/// The longest text that FEMAP's message window takes, in characters.
constexpr std::size_t longestMessage = 159;

/// A message cut to what FEMAP's window takes, never inside a character.
std::string cutToMessage(const std::string& text);

}  // namespace femap
