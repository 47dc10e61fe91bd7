#include "loop/ChangedModel.h"

#include "generate/ModelPath.h"
#include "generate/Targets.h"
#include "loop/PresentValues.h"
#include "loop/WholeFile.h"
#include "system/PendingError.h"
#include "system/RuntimeError.h"

#include <utility>

namespace loop
{

using sys::ErrorNumber;
using sys::RuntimeError;

namespace
{

void putAndCompare(femap::Application& femap, femap::ModelChanges& changes,
                   const femap::ModelValues& values)
{
    changes.put(values);
    const std::string difference = firstDifference(values, presentValues(femap, values));
    if (!difference.empty())
        throw RuntimeError(ErrorNumber::ObjectFailed,
                           "FEMAP does not hold what was put into it: " + difference);
}

bool holdsNothing(const femap::ModelValues& values)
{
    return values.entities.empty() && values.loads.empty() && values.functions.empty();
}

void putBackInputValues(sys::System& system, const std::string& journal, const std::string& bytes)
{
    const std::string folder = generate::modelFolder(journal);
    WholeFile file(system, folder + std::string(generate::inputValues));
    file.write(bytes);
    file.close();
}

}  // namespace

ChangedModel::ChangedModel(Session& session, std::string journal, Former former, bool isLocked)
    : session_(session),
      changes_(session.femap().changes()),
      journal_(std::move(journal)),
      former_(std::move(former))
{
    if (isLocked && keepsJournal())
        ofCaller_ = findFormer(system(), journal_);
    if (ofCaller_ && holdsNothing(ofCaller_->values))
        ofCaller_->values = former_.values;
    switches_ = changes_->dialogSwitches();
}

void ChangedModel::begin()
{
    if (!keepsJournal())
        return;
    Former kept = ofCaller_.value_or(former_);
    kept.switches = switches_;
    keepFormer(system(), journal_, kept);
}

void ChangedModel::put(const femap::ModelValues& wanted)
{
    putAndCompare(session_.femap(), *changes_, wanted);
}

void ChangedModel::done()
{
    if (!keepsJournal())
        return;
    if (ofCaller_)
        keepFormer(system(), journal_, *ofCaller_);
    else
        forgetFormer(system(), journal_);
}

void ChangedModel::setSwitches(const femap::DialogSwitches& switches)
{
    switchesAreSet_ = switches != switches_;
    changes_->setDialogSwitches(switches);
}

// The switches come back whatever becomes of the values.
void ChangedModel::putFormer()
{
    sys::PendingError values;
    sys::PendingError switches;
    values.attempt([&] { putAndCompare(session_.femap(), *changes_, former_.values); });
    if (switchesAreSet_)
        switches.attempt([&] { setSwitches(switches_); });
    for (const sys::PendingError* const refused : {&values, &switches})
        if (refused->isPending())
            throw RuntimeError(ErrorNumber::ObjectFailed, refused->description());
    done();
}

RuntimeError ChangedModel::putBack(const std::string& reason)
{
    try {
        putFormer();
    }
    catch (const std::exception& error) {
        return notPutBack(reason +
                          ". The former values could not be put back either: " + error.what());
    }
    return {ErrorNumber::ObjectFailed, reason + ". The former values are in the model again"};
}

RuntimeError ChangedModel::notPutBack(const std::string& reason) const
{
    if (!keepsJournal())
        return {ErrorNumber::ObjectFailed, reason};
    return {ErrorNumber::ObjectFailed,
            reason +
                ". The values in the model were NOT put back; the next run of CAEInput, "
                "CAEOutput or velmar-evaluate does that before it begins"};
}

std::string putBackFormer(Session& session, const std::string& journal)
{
    sys::System& system = session.context().system;
    const std::optional<Former> former = findFormer(system, journal);
    // Values that are in FEMAP do not come back with the model host.
    if (!former || (session.connection().isEmbedded() && !holdsNothing(former->values)))
        return {};
    const std::unique_ptr<femap::ModelChanges> changes = session.femap().changes();
    try {
        putAndCompare(session.femap(), *changes, former->values);
        if (former->switches)
            changes->setDialogSwitches(*former->switches);
        if (former->inputValues)
            putBackInputValues(system, journal, *former->inputValues);
    }
    catch (const RuntimeError& error) {
        throw RuntimeError(
            error.number(),
            "what an earlier run left in the model could not be put back: " + error.description() +
                ". See that the model is as it should be, and remove the file: " + journal);
    }
    forgetFormer(system, journal);
    return "An earlier run was ended before its time; the former values are in the model again";
}

}  // namespace loop
