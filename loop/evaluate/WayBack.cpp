#include "loop/evaluate/WayBack.h"

#include "loop/ChangedModel.h"
#include "loop/Inputs.h"
#include "loop/StudyFiles.h"
#include "loop/Values.h"

namespace loop::evaluate
{

using sys::ErrorNumber;
using sys::RuntimeError;

namespace
{

bool isOfFemap(const Former& former)
{
    return !former.values.entities.empty() || !former.values.loads.empty() ||
           !former.values.functions.empty() || former.switches;
}

}  // namespace

WayBack::WayBack(const Setting& setting, const Description& inputs,
                 const std::function<Connection()>& running, std::ostream& told)
    : setting_(setting), inputs_(inputs), told_(told)
{
    if (setting_.isEmbedded)
        return;
    loop::Call call;
    call.isEmbedded = false;
    session_.emplace(system(), connect(call, {told, told, system(), {}, running}),
                     pathOf(inputs_.model));
}

void WayBack::putBackLeft()
{
    const std::optional<Former> left = findFormer(system(), journal());
    if (!left)
        return;
    hasChangedInputs_ =
        left->inputValues && *left->inputValues != system().files.read(pathOf(inputs_.valuesFile));
    putBack(*left);
    told_ << "velmar-evaluate: an earlier run was ended; the values from before it are put back\n";
}

void WayBack::keep(bool changesInputs, Problems& problems)
{
    Former former;
    former.model = inputs_.model;
    if (changesInputs)
        former.inputValues = system().files.read(pathOf(inputs_.valuesFile));
    if (session_)
        former.values = valuesInModel(problems);
    if (problems.empty())
        keepFormer(system(), journal(), former);
}

void WayBack::putBack()
{
    if (const std::optional<Former> former = findFormer(system(), journal()))
        putBack(*former);
}

femap::ModelValues WayBack::valuesInModel(Problems& problems)
{
    const std::vector<GivenValue> values = readValues(system(), inputs_, problems);
    const GivenFunctions functions = readFunctions(system(), inputs_, problems);
    return inputsInModel(session_->context(), inputs_, values, functions, problems).former;
}

void WayBack::putBack(const Former& former)
{
    if (!session_ && isOfFemap(former))
        throw RuntimeError(ErrorNumber::InvalidCall,
                           "an earlier run was ended, and its values are still in FEMAP's model; "
                           "run it with --femap=running first, so that they are put back");
    if (former.inputValues)
        writeWhole(system(), pathOf(inputs_.valuesFile), *former.inputValues);
    if (session_)
        putBackFormer(*session_, journal());
    else
        system().files.remove(pathOf(runFile(inputs_)));
    forgetFormer(system(), journal());
}

}  // namespace loop::evaluate
