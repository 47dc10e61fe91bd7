#include "InputFixture.h"

#include "femap/NumberText.h"
#include "loop/Input.h"

#include <gtest/gtest.h>

namespace loop
{

using femap::LoadDataType;

namespace
{

femap::neutral::LoadSet loadSet()
{
    femap::neutral::LoadSet set;
    set.id = 1;
    set.definitions = {{5, "Tip load", static_cast<int>(LoadDataType::Mesh), 1},
                       {6, "Heat", static_cast<int>(LoadDataType::NodalTemperature), 0}};
    for (int id = 1; id <= 2; ++id) {
        femap::neutral::Load load;
        load.id = id;
        load.entityID = id;
        load.type = 1;
        load.definitionID = 5;
        load.load = {10.0 * id, 20.0 * id, 0, 0, 0};
        set.meshLoads.push_back(load);
    }
    femap::neutral::TemperatureLoad heat;
    heat.entityID = 4;
    heat.temp = 20;
    heat.definitionID = 6;
    set.nodalTemperatures = {heat};
    return set;
}

}  // namespace

const std::string InputStudy::formerValues = "0.25 0 3 2 4 7 210000 20 10 20 20 0,5:1,6";
const std::string InputStudy::wantedValues = "0.5 0 9 2 -0.125 7 70000 35.5 1 2 20 0,2:1,3";

InputStudy::InputStudy()
{
    femap::neutral::Model& model = host.openModel();
    host.modelName = folder.path("beam.modfem");
    model.nodes.put({.id = 4, .x = 4});
    model.nodes.put({.id = 7, .y = 7});
    model.materials.put({.id = 2, .title = "Steel", .mval = std::vector<double>(200)});
    model.materials.find(2)->mval[0] = 210000;
    femap::neutral::Property plate;
    plate.id = 12;
    plate.matlID = 3;
    plate.type = femap::elementPlate;
    plate.pval = {0.25, 0, 2};
    model.properties.put(plate);
    model.loadSets.put(loadSet());
    model.functions.put({.id = 3, .title = "E over T", .x = {0, 1}, .y = {5, 6}});

    write("CAEInput.txt",
          "Reference Model (FEMAP) = beam.modfem\r\n"
          "Input Deck (NastranNX) = beam.dat\r\n"
          "NameValue = InputValues.txt\r\n"
          "Prop  ThicknessAtProp12  12  pval  0\r\n"
          "Prop  matlIDAtProp12  12  matlID  \r\n"
          "Node  xAtNode4  4  x  \r\n"
          "Matl  ExAtMatl2  2  Ex  \r\n"
          "Function  E over T   3    \r\n"
          "LoadNTemp  Heat_6_Temperature   6  0  0\r\n"
          "LoadMesh  Tipload_5_Fx   5  0  0\r\n"
          "LoadMesh  Tipload_5_Fx   5  0  0\r\n");
    write("InputValues.txt",
          "ThicknessAtProp12  .5\r\nmatlIDAtProp12  9\r\nxAtNode4  -.125\r\n"
          "ExAtMatl2  7D4\r\nE over T  X-Y Values\r\n"
          "Heat_6_Temperature   35.5\r\nTipload_5_Fx   1\r\n"
          "Tipload_5_Fx   2\r\n");
    write("FunctionsInputvalues.txt",
          "Function Definition\r\n 3 \r\nE over T\r\n 2\r\n 0_ 2\r\n 1_ 3\r\n");
    write("beam.op2", "old results");
    write("beam.dat", oldDeck);
}

int InputStudy::run(std::vector<std::string> arguments)
{
    output.str({});
    errors.str({});
    arguments.insert(arguments.end(), {"--folder", folder.path()});
    const Environment environment{output, errors, system, {}, [this] {
                                      return Connection{{std::shared_ptr<void>(), connector}};
                                  }};
    return runInput(arguments, environment);
}

void InputStudy::write(const std::string& file, const std::string& text)
{
    const auto opened = machine.files.create(folder.path(file));
    opened->write(text);
    opened->close();
}

std::string InputStudy::read(const std::string& file) const
{
    return machine.files.read(folder.path(file));
}

bool InputStudy::has(const std::string& file) const
{
    return machine.files.fileExists(folder.path(file));
}

void InputStudy::change(const std::string& file, const std::string& line, const std::string& by)
{
    std::string text = read(file);
    text.replace(text.find(line), line.size(), by);
    write(file, text);
}

std::string InputStudy::values()
{
    femap::neutral::Model& model = host.openModel();
    const femap::neutral::Property& plate = *model.properties.find(12);
    const femap::neutral::LoadSet& loads = *model.loadSets.find(1);
    const femap::neutral::Function& function = *model.functions.find(3);
    std::string text;
    for (const double number :
         {plate.pval[0], plate.pval[1], double(plate.matlID), plate.pval[2], model.nodes.find(4)->x,
          model.nodes.find(7)->y, model.materials.find(2)->mval[0], loads.nodalTemperatures[0].temp,
          loads.meshLoads[0].load[0], loads.meshLoads[1].load[0], loads.meshLoads[0].load[1]})
        text += femap::numberText(number) + ' ';
    for (std::size_t i = 0; i < function.x.size(); ++i)
        text += femap::numberText(function.x[i]) + ',' + femap::numberText(function.y[i]) +
                (i + 1 < function.x.size() ? ":" : "");
    return text;
}

void expectAsBefore(InputStudy& study)
{
    EXPECT_EQ(study.values(), InputStudy::formerValues);
    EXPECT_FALSE(study.has(journalName));
    EXPECT_EQ(study.read("beam.dat"), oldDeck);
    EXPECT_FALSE(study.has("beam.new.dat"));
}

}  // namespace loop
