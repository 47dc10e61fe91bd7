#include "loop/Deck.h"

#include "generate/SolverFormat.h"
#include "system/RuntimeError.h"

namespace loop
{

using sys::ErrorNumber;
using sys::RuntimeError;

Deck::Deck(Session& session, const Description& inputs)
    : session_(session), inputs_(inputs), path_(inputs.pathOf(inputs.solverFile))
{
    if (inputs.solver != nullptr)
        written_ = inputs.pathOf(generate::deckName(*inputs.solver, inputs.name() + ".new"));
}

Deck::~Deck()
{
    sys::PendingError ignored;  // what ended the run says more
    if (!written_.empty() && !isKept_)
        ignored.attempt([&] { session_.context().system.files.remove(written_); });
}

void Deck::demandPossible(Problems& problems)
{
    if (inputs_.solver == nullptr) {
        problems.add(inputs_.file, 2,
                     "no deck is named; choose a solver in the form and press \"Apply\" again, or "
                     "leave the deck out by --no-deck");
        return;
    }
    if (session_.femap().Info_ActiveID(femap::EntityType::AnalysisSet) == 0)
        problems.add({}, 0,
                     "FEMAP has no active analysis set and would ask for one; make the one for "
                     "the solver active in FEMAP");
    sys::PendingError refused;
    if (!refused.attempt([&] { session_.context().system.files.lookReplaceable(path_); }))
        problems.add(inputs_.solverFile, 0, refused.description());
}

void Deck::write()
{
    sys::Files& files = session_.context().system.files;
    files.remove(written_);
    session_.femap().changes()->feFileWriteNastran(inputs_.solver->brand, fullPath(written_));
    const std::optional<sys::FileFacts> facts = files.facts(written_);
    if (!facts || facts->size == 0)
        throw RuntimeError(ErrorNumber::FileError,
                           std::string("FEMAP says that the deck is written, but it is ") +
                               (facts ? "empty: " : "not there: ") + written_);
}

void Deck::keep()
{
    session_.context().system.files.replace(path_, written_);
    isKept_ = true;
}

void Deck::withdraw()
{
    sys::PendingError ignored;  // what ended the run is told
    if (isKept_)
        ignored.attempt([&] { session_.context().system.files.remove(path_); });
}

}  // namespace loop
