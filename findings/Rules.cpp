#include "findings/Rules.h"

#include <algorithm>
#include <iterator>

namespace findings
{

namespace
{

using enum Severity;
using enum When;

// clang-format off
constexpr Rule table[] = {
    {"model-name-breaks", Error, Always, modelNameBreaksCommands,
     {"The model's name, @name@, holds @detail@: the commands of the loop break there and would "
      "run on other files.", "",
      "Save the model under a name of letters, digits, \"-\" and \"_\"."}},
    {"no-command", Error, Always, commandLineIsEmpty,
     {"The command line is empty: the loop would not run the solver.", "",
      "Choose the solver again, or type the command that runs it."}},
    {"other-deck", Error, Always, commandLineNamesOtherDeck,
     {"The command line runs the deck @name@, but the model's deck is @detail@.", "",
      "Choose the solver again, or put the model's deck into the command line."}},
    {"command-breaks", Error, Always, commandLineBreaks,
     {"The command line holds @detail@, at which its record in the process file ends.", "",
      "Write the command line without it."}},
    {"no-solver", Error, Always, solverIsUnknown,
     {"The box \"CAE Solver\" names no solver that is supported (\"@name@\"): the exchange files "
      "would tell neither deck nor results.", "",
      "Choose the solver."}},
    {"other-template", Error, OnDemand, templateIsOfAnotherStudy,
     {"@name@ is there, but of another study: @detail@.",
      "@count@ templates are there, but of another study: @names@.",
      "Make the templates again from the rows; \"Apply\" for \"Ombra\" writes such."}},
    {"no-number", Error, Always, valueIsNoNumber,
     {"The value of @name@ is no number (@detail@).",
      "@count@ values are no numbers: @names@.",
      "\"Refresh Values\", or remove the rows."}},
    {"no-name", Error, Always, nameIsEmpty,
     {"The row has no name and is left out of the files (@detail@).",
      "@count@ rows have no name and are left out of the files.",
      "Give the function a title in FEMAP, and select it again."}},
    {"name-in-both", Error, Always, nameIsInBothGrids,
     {"@name@ is an input and an output.",
      "@count@ names are those of inputs and of outputs: @names@.",
      "Remove one of the two, or give the function or the load definition another title."}},
    {"name-differs-in-case", Error, Always, namesDifferInCase,
     {"@name@ and @detail@ differ in the case of letters only.",
      "@count@ names differ from others in the case of letters only: @names@.",
      "Give one of the two another title in FEMAP, or remove its row."}},
    {"entity-gone", Error, OnDemand, entityIsGone,
     {"The model has no longer the entity of @name@ (@detail@).",
      "The model has no longer the entities of @count@ rows: @names@.",
      "Remove the rows, or bring the entities back."}},
    {"vector-gone", Error, OnDemand, vectorIsGone,
     {"The active output set has no vector for @name@ (@detail@).",
      "The active output set has no vectors for @count@ rows: @names@.",
      "Load the results, make their output set the active one, or remove the rows."}},
    {"result-gone", Error, OnDemand, resultIsGone,
     {"The vector of @name@ has no value there (@detail@).",
      "The vectors of @count@ rows have no values there: @names@.",
      "Load the results, make their output set the active one, or remove the rows."}},
    {"function-gone", Error, OnDemand, functionIsGone,
     {"The model has no longer the function of @name@ (@detail@).",
      "The model has no longer the functions of @count@ rows: @names@.",
      "Remove the rows, or bring the functions back."}},
    {"function-renamed", Error, OnDemand, functionIsRenamed,
     {"The function of @name@ has the title @detail@ now.",
      "@count@ functions have other titles now: @names@.",
      "Remove the rows and select the functions again."}},
    {"load-not-active", Error, OnDemand, loadIsNotInActiveSet,
     {"The active load set has no load definition for @name@ (@detail@).",
      "The active load set has no load definitions for @count@ rows: @names@.",
      "Make the load set of the rows the active one, or remove the rows."}},
    {"model-name-special", Warning, Always, modelNameIsSpecial,
     {"The model's name, @name@, holds @detail@, which the files of the tool may take for "
      "something else.", "",
      "Save the model under a name of letters, digits, \"-\" and \"_\"."}},
    {"command-special", Warning, Always, commandLineIsSpecial,
     {"The command line holds @detail@, which the batch file takes for something else than text.",
      "",
      "See that it is meant so; else leave it out, or put \"&\" and the like into double quotes."}},
    {"model-name-not-ascii", Warning, Always, modelNameIsNotAscii,
     {"The model's name, @name@, holds letters that cmd.exe reads in another code page.", "",
      "Save the model under a name of plain letters, digits, \"-\" and \"_\"."}},
    {"command-not-ascii", Warning, Always, commandLineIsNotAscii,
     {"The command line holds letters that cmd.exe reads in another code page.", "",
      "Write it with plain letters; call a program in such a folder by its short path."}},
    {"folder-on-share", Warning, Always, folderIsOnShare,
     {"The model lies on a share, @name@, where cmd.exe has no current folder: the commands would "
      "look for their files elsewhere.", "",
      "Give the share a drive letter and open the model by that."}},
    {"reference-model", Warning, Always, referenceIsNotTheModel,
     {"\"Reference Model\" in the exchange files would be @detail@, but the model is @name@.", "",
      "Start the tool with the model's file as its argument, or without one; save the model "
      "under a name with an extension."}},
    {"no-template", Warning, OnDemand, templateIsMissing,
     {"The task description goes by @name@, which is not in the model's folder.",
      "The task description goes by templates that are not in the model's folder: @names@.",
      "Make the templates before the loop begins; \"Apply\" for \"Ombra\" writes such."}},
    {"other-model", Warning, OnDemand, folderServesAnotherModel,
     {"@name@ in the folder is of another model, @detail@, and would be replaced.", "",
      "Give each model a folder of its own."}},
    {"shared-control-file", Warning, OnDemand, controlFileIsShared,
     {"@name@ lies in the same folder and has the same control file.",
      "@count@ models in the same folder have the same control file: @names@.",
      "Give each model a name or a folder of its own."}},
    {"model-overwritten", Warning, OnDemand, modelWouldBeOverwritten,
     {"The model's file, @name@, has the name of a generated file and would be replaced.", "",
      "Save the model under another name."}},
    {"outside-bounds", Warning, Always, variableIsOutsideBounds,
     {"@name@ has the value @detail@, outside the bounds @about@ of the task description.",
      "@count@ property inputs are outside the bounds @about@ of the task description: @names@.",
      "Set the bounds in the optimisation tool before it runs."}},
    {"outside-parameter-bounds", Warning, Always, parameterIsOutsideBounds,
     {"@name@ has the value @detail@, outside the bounds @about@ of the parameter file.",
      "@count@ values are outside the bounds @about@ of the parameter file: @names@.",
      "Set the bounds in the optimisation tool before it runs."}},
    {"nothing-varied", Warning, Always, nothingIsVaried,
     {"No input is a quantity of a property: the task description has no variables, and nothing "
      "would be varied.", "",
      "Select properties, or choose the variables in the optimisation tool."}},
    {"whole-number-varied", Warning, Always, wholeNumberIsVaried,
     {"@name@ is a whole number in FEMAP, but would be varied as a real one.",
      "@count@ inputs are whole numbers in FEMAP, but would be varied as real ones: @names@.",
      "Remove the rows, or make the parameters whole ones in the optimisation tool."}},
    {"name-twice", Warning, Always, nameIsThereTwice,
     {"@name@ is there more than once (@detail@).",
      "@count@ names are there more than once: @names@.",
      "Remove the surplus rows; give each load a load definition of its own."}},
    {"name-of-two", Warning, Always, nameIsOfTwoQuantities,
     {"@name@ is the name of different quantities (@detail@).",
      "@count@ names are those of different quantities: @names@.",
      "Remove all but one of the rows, or change the titles that the names are made of."}},
    {"name-begins-another", Warning, Always, nameBeginsAnother,
     {"@name@ is the beginning of another name, @detail@.",
      "@count@ names are the beginning of another one, as @name@ of @detail@.",
      "See that the tool replaces whole names only; else remove one of the two."}},
    {"name-special", Warning, Always, nameHoldsSpecialCharacters,
     {"The name @name@ holds @detail@, which the files of the tool may take for something else.",
      "@count@ names hold characters that the files of the tool may take for something else: "
      "@names@.",
      "Change the title in FEMAP, and select the row again."}},
    {"stored-rows-lost", Warning, OnDemand, storedRowsWouldBeLost,
     {"The control file has a row that the grids lack, @name@; \"Apply\" would replace it.",
      "The control file has @count@ rows that the grids lack; \"Apply\" would replace it: @names@.",
      "Copy the control file first if the rows are still wanted."}},
    {"changed-by-hand", Warning, OnDemand, filesWereChangedByHand,
     {"@name@ was changed since the last \"Apply\", which would replace it.",
      "@count@ generated files were changed since the last \"Apply\", which would replace them: "
      "@names@.",
      "Copy them first if the changes are still wanted."}},
    {"settings-overwritten", Warning, OnDemand, settingsWouldBeOverwritten,
     {"The loop would replace @name@ in the model's folder by @detail@.", "",
      "Keep your settings under another name, and name that in the command line."}},
    {"stored-command-lost", Warning, OnDemand, storedCommandLineWouldBeLost,
     {"@name@ holds another command line, @detail@, which is not kept between runs.", "",
      "Type it into the command line again if it is still wanted."}},
    {"no-active-output-set", Warning, OnDemand, noOutputSetIsActive,
     {"There are several output sets and none is active: the results are those of the lowest, "
      "@detail@.", "",
      "Make the output set that is meant the active one."}},
    {"no-constraint", Hint, Always, elementOutputIsNotConstrained,
     {"@name@ gets no constraint: its name does not begin with \"@about@\".",
      "@count@ outputs of elements get no constraint, for their names do not begin with "
      "\"@about@\": @names@.",
      "Set the constraints that are wanted in the optimisation tool."}},
    {"value-differs", Hint, OnDemand, valueDiffersFromModel,
     {"@name@ has another value in the model (@detail@).",
      "@count@ rows have other values in the model: @names@.",
      "\"Refresh Values\"."}},
    {"no-deck", Hint, OnDemand, deckIsMissing,
     {"The deck @name@ is not in the model's folder yet.", "",
      "Write the deck from FEMAP before the loop begins."}},
    {"not-checked", Hint, OnDemand, nullptr,
     {"What @name@ stands for could not be looked for: @detail@.", "",
      "Mend the reason, and check again."}},
};
// clang-format on

static_assert(std::ranges::is_sorted(table, {}, &Rule::severity));

}  // namespace

std::span<const Rule> rules()
{
    return table;
}

const Rule& ruleForFailures()
{
    return *std::prev(std::end(table));
}

}  // namespace findings
