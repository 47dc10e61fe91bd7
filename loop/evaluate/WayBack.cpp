#include "loop/evaluate/WayBack.h"

#include <ostream>

namespace loop::evaluate
{

using sys::ErrorNumber;
using sys::RuntimeError;

namespace
{

constexpr std::string_view endingOfRunModel = ".run.neu";

bool holdsValues(const Former& former)
{
    return !former.values.entities.empty() || !former.values.loads.empty() ||
           !former.values.functions.empty() || former.switches;
}

}  // namespace

WayBack::WayBack(const Setting& setting, const Description& inputs, std::ostream& told)
    : setting_(setting), inputs_(inputs)
{
    sys::System& system = setting_.system;
    if (const std::optional<Former> left = findFormer(system, journal())) {
        putBack(*left);
        told << "velmar-evaluate: an earlier run was ended; the values from before it are put "
                "back\n";
    }
    Former former;
    former.model = inputs_.model;
    former.inputValues = system.files.read(pathOf(inputs_.valuesFile));
    keepFormer(system, journal(), former);
}

void WayBack::putBack()
{
    if (const std::optional<Former> former = findFormer(setting_.system, journal()))
        putBack(*former);
}

void WayBack::putBack(const Former& former)
{
    if (holdsValues(former))
        putBackByInput();
    if (former.inputValues)
        writeWhole(setting_.system, pathOf(inputs_.valuesFile), *former.inputValues);
    setting_.system.files.remove(pathOf(inputs_.name() + std::string(endingOfRunModel)));
    forgetFormer(setting_.system, journal());
}

// Only CAEInput speaks with FEMAP.
void WayBack::putBackByInput()
{
    const std::string& folder = inputs_.folder;
    const std::string log = pathOf(inputs_.name() + "Evaluate.log");
    Process input(programCommand(setting_, "CAEInput", folder, {"--back"}), folder, log);
    const double began = setting_.system.monotonicSeconds();
    std::optional<int> code = input.exitCode();
    for (; !code; code = input.exitCode())
        setting_.system.wait(pauseAfter(setting_.system.monotonicSeconds() - began));
    if (*code != 0)
        throw RuntimeError(ErrorNumber::ObjectFailed,
                           "The values that the model had are not put back; they are kept, and the "
                           "next run of CAEInput, CAEOutput or velmar-evaluate puts them back. "
                           "The reason is at the end of " +
                               log);
}

}  // namespace loop::evaluate
