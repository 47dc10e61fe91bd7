#include "app/FemapEvents.h"

#include "app/CurrentModel.h"
#include "app/StartUp.h"
#include "femap/Constants.h"

#include <algorithm>

namespace app
{

using femap::EventCode;

namespace
{

// FEMAP is ending.
void shutDown(Session& session)
{
    session.closeWanted = true;  // first: FEMAP may be out of reach already
    session.endedWait = {};
    if (session.eventFemap == nullptr)
        return;
    session.connector.waitBriefly(true);
    femap::AddInPane pane = addInPane(session.context);
    pane.regster = false;
    pane.location = 1;  // FEMAP ignores it here
    session.context.error.attempt([&] { session.eventFemap->feAppRegisterAddInPane(pane); });
}

// A model was closed.
void endModel(Session& session)
{
    if (session.context.femap().feAppGetAllModels() < 1)
        session.closeWanted = true;
    else
        enableWhileModelIsOpen(session);
}

// A model was started or opened.
void newModel(Session& session)
{
    Steps steps;
    takeOverModel(session, steps);
    steps.raiseFirst();
}

struct Reaction
{
    EventCode code;
    void (*procedure)(Session&);
    bool needsFemap;
};

// clang-format off
constexpr Reaction reactions[] = {
    {EventCode::NewModel, newModel, true},
    {EventCode::EndModel, endModel, true},
    {EventCode::Shutdown, shutDown, false},
};
// clang-format on

const Reaction* findReaction(std::intptr_t code)
{
    const auto* const found = std::ranges::find(
        reactions, code, [](const Reaction& row) { return static_cast<std::intptr_t>(row.code); });
    return found == std::end(reactions) ? nullptr : found;
}

}  // namespace

bool isFemapEvent(std::intptr_t code)
{
    return findReaction(code) != nullptr;
}

void FormWindowProc(Session& session, int code)
{
    const Reaction* const reaction = findReaction(code);
    if (reaction == nullptr)
        return;
    // Nothing is asked of a FEMAP that was lost, even when an event message still comes.
    if (reaction->needsFemap && session.context.application == nullptr)
        return;
    reaction->procedure(session);
}

}  // namespace app
