// What changes a model in FEMAP: values put into it, decks written, results read and deleted. The
// form never does; the programs of the loop do. Everything raises sys::RuntimeError when FEMAP
// refuses it or answers with a status that is not Ok, named with what was asked for.
#pragma once

#include "femap/ModelValues.h"

#include <string>
#include <vector>

namespace femap
{

/// FEMAP's switches for its own dialogs and message boxes; 0: they are shown.
struct DialogSwitches
{
    int dialogs = 0;   // DialogAutoSkip
    int messages = 0;  // DialogAutoSkipMsg

    bool operator==(const DialogSwitches&) const = default;
};

/// FEMAP's numbers for the solvers whose decks and results it knows.
enum class SolverBrand : int
{
    NeNastran = 1,
    NxNastran = 8,
};

class ModelChanges
{
public:
    virtual ~ModelChanges() = default;

    /// Each entity, load and function is loaded once and stored once, in few calls where FEMAP has
    /// them. Where it raises, what was stored before stays so.
    virtual void put(const ModelValues& values) = 0;

    virtual DialogSwitches dialogSwitches() = 0;
    virtual void setDialogSwitches(const DialogSwitches& switches) = 0;

    /// Writes the deck of the model as it is, for the active analysis set.
    virtual void feFileWriteNastran(SolverBrand brand, const std::string& path) = 0;
    /// Reads results as further output sets of the model.
    virtual void feFileReadNastranResults(SolverBrand brand, const std::string& path) = 0;
    /// Deletes output sets.
    virtual void deleteOutputSets(const std::vector<int>& ids) = 0;
    /// Makes an output set the active one.
    virtual void activateOutputSet(int id) = 0;
};

}  // namespace femap
