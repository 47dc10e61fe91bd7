// The files of "Apply": their names, from which all that writes them takes its paths, and what is
// done before the first of them is written.
#pragma once

#include "form/Context.h"
#include "generate/ModelPath.h"
#include "generate/TextFile.h"

#include <memory>
#include <span>
#include <string>
#include <string_view>

namespace generate
{

/// The name of a generated file; "@model@" stands for the name of the model.
using Target = std::string_view;

constexpr Target controlFile = "@model@Control.txt";
constexpr Target batchFile = "FDFemap.bat";
constexpr Target functionDataFile = "FunctionsInputvalues.txt";
constexpr Target taskFile = "vELMAR@model@.desc";  // sic
constexpr Target projectFile = "@model@.kvp";
constexpr Target processFile = "@model@.pcs";
constexpr Target parameterFile = "@model@.par";
constexpr Target inputDescription = "CAEInput.txt";
constexpr Target inputValues = "InputValues.txt";
constexpr Target inputTemplate = "InputValues.txt.template";
constexpr Target outputDescription = "CAEOutput.txt";
constexpr Target outputValues = "OutputValues.txt";
constexpr Target outputTemplate = "OutputValues.txt.template";

/// What each tool gets; the control file comes with all of them.
constexpr Target filesOfVelmar[] = {inputDescription, inputValues,       taskFile,    batchFile,
                                    functionDataFile, outputDescription, outputValues};
constexpr Target filesOfOmbra[] = {projectFile,    processFile,  parameterFile,
                                   inputTemplate,  inputValues,  inputDescription,
                                   outputTemplate, outputValues, outputDescription};

std::string targetPath(const ModelPath& model, Target target);
/// Begins to write it.
TextFile openTarget(form::Context& context, const ModelPath& model, Target target);

/// Keeps the folder of the model for this "Apply", as far as the file system has locks, and finds
/// out whether all targets and the control file can be replaced. Raises RuntimeError when one
/// cannot, or when another process goes on to write in the folder for 3 seconds.
std::unique_ptr<sys::FolderLock> prepareTargets(form::Context& context, const ModelPath& model,
                                                std::span<const Target> targets);

}  // namespace generate
