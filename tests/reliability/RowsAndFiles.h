#pragma once

#include "World.h"

namespace reliability
{

/// What an action works on.
struct Kept
{
    std::vector<std::string> inputs;
    std::vector<std::string> outputs;
    std::map<std::string, std::string> files;
    bool lacksTheFunction = false;  // as the status line says
};

Kept keptBy(const World& world);

/// What an undisturbed run of the action begins with and ends with, and its calls of FEMAP.
struct WholeRun
{
    Kept before;
    Kept after;
    std::vector<fake::Call> calls;
    std::vector<std::string> messages;  // in FEMAP's message window
};

/// Runs the action in a fresh world.
WholeRun wholeRun(World& world, const Action& action);
/// The same in a world like any other; done once for each action.
const WholeRun& wholeRunOf(const Action& action);

/// Expects every row of those before to be there in its order.
void expectNoRowMissing(const WholeRun& whole, const Kept& left);

/// The same; and that each row is one of those before or after a whole run, or such a row without a
/// value, and is not there more often than after it.
void expectRowsOf(const WholeRun& whole, const Kept& left);

/// Expects each file to be complete, from before or from the whole run, and none to be one too
/// many. The function that was refused is told, and the file of functions has no block of it.
void expectFilesOf(const WholeRun& whole, const Kept& left);

}  // namespace reliability
