// The journal of a run: what the model held before its values were changed. It is on the disk
// before the first value is put, and goes when the model is as it should be, so that what a run
// leaves that was ended by force is found by the next one.
#pragma once

#include "femap/ModelChanges.h"
#include "system/System.h"

#include <optional>
#include <string>

namespace loop
{

struct Former
{
    std::string model;          // the model's file, as the descriptions name it
    femap::ModelValues values;  // numbers only
    std::optional<std::string>
        inputValues;  // the bytes of InputValues.txt, where they come back too
    std::optional<femap::DialogSwitches> switches = {};  // where a run changes them
};

/// The journal of a model of this name: "panelFormer.json".
std::string formerFile(const std::string& modelName);

/// Writes the journal at the path, whole, and onto the disk. Raises RuntimeError when it cannot.
void keepFormer(sys::System& system, const std::string& path, const Former& former);
/// None where there is none. Raises RuntimeError when it is there and cannot be read.
std::optional<Former> findFormer(sys::System& system, const std::string& path);
void forgetFormer(sys::System& system, const std::string& path);

}  // namespace loop
