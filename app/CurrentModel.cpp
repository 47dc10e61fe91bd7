#include "app/CurrentModel.h"

#include "generate/ControlFile.h"
#include "generate/GenerationDriver.h"
#include "generate/ModelPath.h"

namespace app
{

using form::Context;

namespace
{

constexpr int nameWidth = 2412;    // twips
constexpr int valueWidth = 10000;  // twips

// A FEMAP may give an empty name where none is open, as it does for a model that was never saved.
bool hasNoModel(Context& context)
{
    sys::PendingError notTold;
    int models = 1;
    notTold.attempt([&] { models = context.femap().feAppGetAllModels(); });
    return models == 0;
}

// Only when their number differs from that of the model before.
void rebuildVectorLists(Session& session)
{
    const int count = countOutputVectors(session);
    if (count == session.form.modelEntityCount)
        return;
    session.propertyList.UpdateCollection();
    session.form.modelEntityCount = count;
}

}  // namespace

void makeInitialChoices(Session& session)
{
    if (session.hasInitialChoices)
        return;
    form::MainForm& form = session.form;
    const auto choose = [](form::ComboBox& box, int index) {
        if (box.Text.empty())  // else it was reached before FEMAP was lost
            box.setListIndex(index);
    };
    choose(form.InputSelection, 0);   // "Nodes"
    choose(form.OutputSelection, 0);  // "Nodes"
    choose(form.Solver, 1);           // "NXNastran"
    choose(form.Optimizer, 0);        // "Velmar"
    for (form::ParameterGrid* grid : {&form.InputsList, &form.OutputsList}) {
        grid->ColWidth[form::nameColumn] = nameWidth;
        grid->ColWidth[form::valueColumn] = valueWidth;
    }
    session.hasInitialChoices = true;
}

std::optional<std::string> enableWhileModelIsOpen(Session& session)
{
    Context& context = session.context;
    std::optional<std::string> modelFile;
    context.error.attempt([&] { modelFile = context.femap().ModelName(); });
    context.error.clear();
    if (modelFile && modelFile->empty() && hasNoModel(context))
        modelFile.reset();
    context.form.setEnabled(modelFile.has_value());
    context.form.openModel = modelFile;
    if (modelFile) {
        context.form.status.withdraw(noModelOpen);
        context.form.openModelExtension = generate::GetFileExtension(*modelFile);
    }
    else if (session.openFailure.empty())
        context.form.status.tellProblem(noModelOpen);
    return modelFile;
}

int countOutputVectors(Session& session)
{
    const std::unique_ptr<femap::EntitySet> set = session.context.femap().feSet();
    set->AddAll(femap::EntityType::OutputVector);
    return set->count();
}

void takeOverModel(Session& session, Steps& steps)
{
    steps.run([&] { makeInitialChoices(session); });
    const std::optional<std::string> modelFile = enableWhileModelIsOpen(session);
    if (!modelFile)
        return;
    // What could not be opened at the start matters no more.
    session.form.status.withdraw(session.openFailure);
    session.openFailure.clear();
    generate::renewCommandLine(session.context, *modelFile);
    steps.run([&] { rebuildVectorLists(session); });
    steps.run([&] { generate::takeOverSelection(session.context, *modelFile); });
}

}  // namespace app
