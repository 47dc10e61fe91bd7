// The table of rules: what is looked for in a study, how grave it is, what is said and what helps.
#pragma once

#include "findings/Report.h"
#include "findings/Study.h"

#include <span>
#include <string_view>

namespace findings
{

enum class When
{
    Always,    // goes by the form alone, quick enough after each action
    OnDemand,  // reads files or asks FEMAP
};

struct Rule
{
    std::string_view code;
    Severity severity;
    When when;
    void (*check)(const Study& study, Report& report);  // null: told in place of a rule that failed
    Wording wording;
};

/// In the order in which they are told, within a severity.
std::span<const Rule> rules();

/// The one without a check.
const Rule& ruleForFailures();

// What the checks are, by the file that has them. CommandRules.cpp: model's name, command line,
// solver, extension …
void modelNameBreaksCommands(const Study& study, Report& report);
void modelNameIsSpecial(const Study& study, Report& report);
void modelNameIsNotAscii(const Study& study, Report& report);
void folderIsOnShare(const Study& study, Report& report);
void commandLineIsEmpty(const Study& study, Report& report);
void commandLineNamesOtherDeck(const Study& study, Report& report);
void commandLineBreaks(const Study& study, Report& report);
void commandLineIsSpecial(const Study& study, Report& report);
void commandLineIsNotAscii(const Study& study, Report& report);
void solverIsUnknown(const Study& study, Report& report);
void referenceIsNotTheModel(const Study& study, Report& report);

// … ValueRules.cpp: what the rows hold …
void variableIsOutsideBounds(const Study& study, Report& report);
void parameterIsOutsideBounds(const Study& study, Report& report);
void valueIsNoNumber(const Study& study, Report& report);
void nothingIsVaried(const Study& study, Report& report);
void wholeNumberIsVaried(const Study& study, Report& report);
void elementOutputIsNotConstrained(const Study& study, Report& report);

// … NameRules.cpp: the names of the rows …
void nameIsEmpty(const Study& study, Report& report);
void nameIsInBothGrids(const Study& study, Report& report);
void namesDifferInCase(const Study& study, Report& report);
void nameIsThereTwice(const Study& study, Report& report);
void nameIsOfTwoQuantities(const Study& study, Report& report);
void nameBeginsAnother(const Study& study, Report& report);
void nameHoldsSpecialCharacters(const Study& study, Report& report);

// … FolderRules.cpp: the files beside the model …
void templateIsMissing(const Study& study, Report& report);
void templateIsOfAnotherStudy(const Study& study, Report& report);
void folderServesAnotherModel(const Study& study, Report& report);
void controlFileIsShared(const Study& study, Report& report);
void modelWouldBeOverwritten(const Study& study, Report& report);
void storedRowsWouldBeLost(const Study& study, Report& report);
void settingsWouldBeOverwritten(const Study& study, Report& report);
void storedCommandLineWouldBeLost(const Study& study, Report& report);
void filesWereChangedByHand(const Study& study, Report& report);
void deckIsMissing(const Study& study, Report& report);

// … and ModelRules.cpp: what FEMAP has now.
void entityIsGone(const Study& study, Report& report);
void vectorIsGone(const Study& study, Report& report);
void resultIsGone(const Study& study, Report& report);
void functionIsGone(const Study& study, Report& report);
void functionIsRenamed(const Study& study, Report& report);
void loadIsNotInActiveSet(const Study& study, Report& report);
void valueDiffersFromModel(const Study& study, Report& report);
void noOutputSetIsActive(const Study& study, Report& report);

}  // namespace findings
