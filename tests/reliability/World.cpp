#include "World.h"

#include "femap/Constants.h"
#include "generate/ModelPath.h"

#include <ostream>

namespace reliability
{

using femap::neutral::Model;

namespace
{

const std::string separator(1, sys::pathSeparator);

Model smallModel()
{
    Model model;
    for (int id = 1; id <= 4; ++id)
        model.nodes.put({.id = id, .x = id + 0.5, .y = id < 3 ? 0.0 : 1.0, .z = -0.25 * id});
    model.elements.put({.id = 1,
                        .propID = 1,
                        .type = femap::elementPlate,
                        .topology = 4,
                        .node = {1, 2, 3, 4},
                        .orient = {30}});
    model.elements.put({.id = 2, .propID = 2, .type = femap::elementRod, .node = {1, 3}});
    model.properties.put({.id = 1,
                          .title = "Skin",
                          .matlID = 1,
                          .type = femap::elementPlate,
                          .pval = {0.25, 0, 0, 0, 0, 0, 0, 0.125}});
    model.properties.put(
        {.id = 2, .title = "Tie", .matlID = 1, .type = femap::elementRod, .pval = {3.5}});
    femap::neutral::Material steel{.id = 1, .title = "Steel"};
    steel.mval[0] = 210000;
    steel.mval[49] = 7.85e-9;
    model.materials.put(steel);
    model.functions.put({.id = 1, .title = "Ramp", .x = {0, 1}, .y = {0, 5}});

    femap::neutral::LoadSet loads{.id = 1, .title = "Case"};
    loads.definitions.push_back({.id = 1, .title = "Force", .dataType = 13, .loadType = 1});
    loads.meshLoads.push_back(
        {.id = 1, .entityID = 2, .type = 1, .definitionID = 1, .load = {10, 20, 30}});
    model.loadSets.put(loads);

    femap::neutral::OutputSet results;
    results.id = 1;
    results.vectors.put({.id = 1,
                         .title = "Total Translation",
                         .minval = 0.5,
                         .maxval = 2.5,
                         .ids = {1, 4},
                         .values = {0.5, 2.5}});
    results.vectors.put({.id = 3106,
                         .title = "Rod Axial Stress",
                         .minval = 12,
                         .maxval = 12,
                         .location = femap::EntityType::Element,
                         .ids = {2},
                         .values = {12}});
    results.vectors.put({.id = 7033,
                         .title = "Plate Top VonMises",
                         .minval = 99,
                         .maxval = 99,
                         .location = femap::EntityType::Element,
                         .ids = {1},
                         .values = {99}});
    model.outputSets.put(results);
    return model;
}

// Of whatever list is shown: when FEMAP refused something, it may be another one.
void chooseTheFirstTwo(World& world)
{
    world.lists.answer([](selection::frmPropertyList& dialog) {
        auto& items = dialog.lstProperties.items;
        for (std::size_t i = 0; i < 2 && i < items.size(); ++i)
            items[i].selected = true;
        dialog.cmdAdd_Click();
    });
}

app::Ended selectInput(World& world)
{
    return world.program.raise(form::click("InputsButton"));
}

app::Ended selectOutput(World& world)
{
    return world.program.raise(form::click("OutputsButton"));
}

app::Ended apply(World& world)
{
    return world.program.raise(form::click("GenerateButton"));
}

// clang-format off
constexpr Action allActions[] = {
    {"SelectsNodes",
     [](World& w) { w.form.InputSelection.Text = "Nodes"; w.pick({1, 3}); chooseTheFirstTwo(w); },
     selectInput},
    {"SelectsElements",
     [](World& w) { w.form.InputSelection.Text = "Elements"; w.pick({1, 2});
                    chooseTheFirstTwo(w); },
     selectInput},
    {"SelectsProperties",
     [](World& w) { w.form.InputSelection.Text = "Properties"; w.pick({1, 2});
                    chooseTheFirstTwo(w); chooseTheFirstTwo(w); },
     selectInput},
    {"SelectsMaterials",
     [](World& w) { w.form.InputSelection.Text = "Materials"; w.pick({1});
                    chooseTheFirstTwo(w); },
     selectInput},
    {"SelectsAFunction",
     [](World& w) { w.form.InputSelection.Text = "Functions"; w.pick({1}); },
     selectInput},
    {"SelectsALoadDefinition",
     [](World& w) { w.form.InputSelection.Text = "LoadDefinition"; w.pick({1}); },
     selectInput},
    {"RefreshesInputs", [](World&) {},
     [](World& w) { return w.program.raise(form::click("RefreshInputs")); }},
    {"SelectsResultsOfNodes",
     [](World& w) { w.form.OutputSelection.Text = "Nodes"; w.pick({1, 4}); w.lists.chooseAll(); },
     selectOutput},
    {"SelectsExtremesOfNodes",
     [](World& w) { w.form.OutputSelection.Text = "Nodes Min/Max"; w.lists.chooseAll(); },
     selectOutput},
    {"SelectsResultsOfElements",
     [](World& w) { w.form.OutputSelection.Text = "Elements"; w.pick({1, 2});
                    w.lists.chooseAll(); w.lists.chooseAll(); },
     selectOutput},
    {"SelectsExtremesOfElements",
     [](World& w) { w.form.OutputSelection.Text = "Elements Min/Max"; w.lists.chooseAll(); },
     selectOutput},
    {"SelectsMassProperties",
     [](World& w) { w.form.OutputSelection.Text = "Mass Properties";
                    chooseTheFirstTwo(w); },
     selectOutput},
    {"RefreshesOutputs", [](World&) {},
     [](World& w) { return w.program.raise(form::click("RefreshOutputs")); }},
    {"AppliesForVelmar", [](World&) {}, apply},
    {"AppliesForOmbra", [](World& w) { w.form.Optimizer.Text = "Ombra"; }, apply},
    {"ChoosesASolver", [](World&) {},
     [](World& w) { return w.program.enterText(w.form.Solver, "NENastran"); }},
    {"TypesAnUnknownSolver", [](World&) {},
     [](World& w) { return w.program.enterText(w.form.Solver, "other"); }},
    {"ChoosesAnUnknownTool", [](World&) {},
     [](World& w) { return w.program.enterText(w.form.Optimizer, "KORVA"); }},
    {"HearsOfANewModel",
     [](World& w) { w.model().outputSets.find(1)->vectors.put({.id = 2}); },
     [](World& w) { return w.program.raiseFemapEvent(2); }},
    {"HearsOfAClosedModel", [](World&) {},
     [](World& w) { return w.program.raiseFemapEvent(3); }},
    {"HearsOfTheEndOfFemap", [](World&) {},
     [](World& w) { return w.program.raiseFemapEvent(4); }},
};
// clang-format on

}  // namespace

World::World(femap::Connector* other, const std::string& modelFile)
    : connector(other == nullptr ? femap : *other)
{
    static const Model model = smallModel();
    femap.model = model;
    femap.modelName = separator + "models" + separator + "beam.neu";
    const generate::ModelPath path =
        generate::splitModelPath(other == nullptr ? femap.modelName : modelFile);
    connector.answers["feFileOpen"] = femap::ReturnCode::Ok;  // the model is there already
    modelFolder = path.folder;
    modelName = path.name;
    for (const std::string& name :
         {std::string("FDFemap.bat"), std::string("FunctionsInputvalues.txt"),
          std::string("InputValues.txt"), std::string("CAEInput.txt"),
          "vELMAR" + modelName + ".desc", std::string("OutputValues.txt"),
          std::string("CAEOutput.txt"), modelName + ".kvp", modelName + ".pcs", modelName + ".par",
          std::string("InputValues.txt.template"), std::string("OutputValues.txt.template")})
        files.contents[modelFolder + name] = "old " + name;
    files.contents[modelFolder + controlFileName()] =
        "old\t1\tNode\t1\tx\t\r\n\r\nolder\t2\t1\t1\tOutput\r\n";
}

app::Started World::start()
{
    return program.start(modelFolder + modelName + ".neu$run.log$ALWAYS");
}

void World::fillGrids()
{
    fake::fill(form.InputsList, {"depth\t0\tProp\t1\tpval\t0", "force\t 7\tLoadMesh\t 1\t0\t0",
                                 "gone\t8\tNode\t99\tx\t", "place\t0\tNode\t4\tx\t",
                                 "ramp\tX-Y Values\tFunction\t 1\t\t",
                                 "stiffness\t0\tMatl\t1\tEx\t", "turn\t0\tElem\t1\torient\t0"});
    fake::fill(form.OutputsList,
               {"mass\t0\tMassTotal\t\tMassProperties", "most\t0\t1\t1\tmaxval",
                "least\t0\t1\t1\tminval", "moved\t0\t4\t1\tOutput", "unmoved\t5\t2\t1\tOutput"});
}

std::vector<std::string> World::inputs() const
{
    return fake::rowsOf(form.InputsList);
}

std::vector<std::string> World::outputs() const
{
    return fake::rowsOf(form.OutputsList);
}

std::map<std::string, std::string> World::generatedFiles() const
{
    return files.inFolder(modelFolder);
}

std::string World::controlFile() const
{
    return files.contents.at(modelFolder + controlFileName());
}

std::string World::endAndReadLog()
{
    program.close();
    return files.contents.at(logPath("run.log"));
}

std::span<const Action> actions()
{
    return allActions;
}

void PrintTo(const Action& action, std::ostream* out)
{
    *out << action.name;
}

void begin(World& world, const Action& action)
{
    world.start();
    world.fillGrids();
    action.prepare(world);
}

}  // namespace reliability
