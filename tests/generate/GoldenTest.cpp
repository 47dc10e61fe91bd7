#include "fake/GenerateFixture.h"
#include "fake/Golden.h"
#include "generate/GenerationDriver.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <fstream>
#include <tuple>

namespace generate
{

namespace
{

void fillNothing(GenerateFixture& f)
{
    f.form.CommandLine.Text = "";
}

void fillSmall(GenerateFixture& f)
{
    f.addInput({"ThicknessAtProp1", "0.25", "Prop", "1", "pval", "0"});
    f.addInput({"ThicknessAtProp2", "1E-05", "Prop", "2", "pval", "0"});
    f.addOutput({"TotalMass", "7.85", "MassTotal", "", "MassProperties"});
}

void fillWithEveryKindOfRow(GenerateFixture& f)
{
    f.femap.modelName = inWork("wing.v2.modfem");
    f.form.fileExtension = " modfem ";
    f.form.CommandLine.Text += " \"C:\\a b\\@model@\" 100% it's";
    f.addFunction(5, "Load  history", {0, -1, 0.5, 1e20}, {1.5, 2, -0.25, 1.2345e-05});
    f.addFunction(6, "Träger Ø12", {}, {});
    f.addFunction(7, "", {1}, {-1});

    f.addInput({"XAtNode5", "1.5", "Node", "5", "x"});
    f.addInput({"OffsetAtElem7", "-0.25", "Elem", "7", "offset", "3"});
    f.addInput({"ThicknessAtProp12", "0.25", "Prop", "12", "pval", "0"});
    f.addInput({"Load  history", "X-Y Values", "Function", " 5"});
    f.addInput({"orientIDAtProp4", "", "Prop", "4", "orient", "11"});
    f.addInput({"", "row without a name", "Prop", "9", "pval", "0"});
    f.addInput({"it's @model@ \"Ø\"AtProp3", "1E-05", "Prop", "3", "pval", "7"});
    f.addInput({"YoungsModulusAtMatl1", "210000", "Matl", "1", "Ex"});
    f.addInput({"Träger Ø12", "X-Y Values", "Function", " 6"});
    f.addInput({"gone", "X-Y Values", "Function", " 99"});
    f.addInput({"", "X-Y Values", "Function", " 7"});
    f.addInput({"EdgeLoadA_12_Fx", " 100", "LoadMesh", " 12", "0", "0"});
    f.addInput({"Skin_13_Pressure", "-.5", "LoadGeom", " 13", "0", "0"});
    f.addInput({"Hot_14_Temperature", " 20.5", "LoadETemp", " 14", "0", "0"});
    f.addInput({"Cold_15_Temperature", " 0", "LoadNTemp", " 15", "0", "0"});

    f.addOutput({"Element 12 stress", "123.5", "12", "7033", "Output"});
    f.addOutput({"element 12 stress", "", "12", "7033", "Output"});
    f.addOutput({"T1TranslationAtNode5", "-0.001", "5", "2", "Output"});
    f.addOutput({"", "row without a name", "5", "2", "Output"});
    f.addOutput({"ElemMaxVonMises", "1E+15", "7033", "7033", "maxval"});
    f.addOutput({"MinVonMises", "0", "7033", "7033", "minval"});
    f.addOutput({"TotalMass", "7.85", "MassTotal", "", "MassProperties"});
    f.addOutput({"TotalCG_y", "2.5", "TotalCG", "1", "MassProperties"});
}

struct Content
{
    const char* name;
    void (*fill)(GenerateFixture& f);
};

struct SolverChoice
{
    const char* solver;
    const char* commandLine;
};

using Scenario = std::tuple<std::string, SolverChoice, Content>;

void PrintTo(const Content& content, std::ostream* out)
{
    *out << content.name;
}

void PrintTo(const SolverChoice& choice, std::ostream* out)
{
    *out << choice.solver;
}

std::string nameOf(const Scenario& scenario)
{
    const auto& [tool, solver, content] = scenario;
    std::string name = tool + "-" + solver.solver + "-" + content.name;
    std::transform(name.begin(), name.end(), name.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return name;
}

std::string testNameOf(const testing::TestParamInfo<Scenario>& scenario)
{
    std::string name = nameOf(scenario.param);
    std::replace(name.begin(), name.end(), '-', '_');
    return name;
}

class Golden : public testing::TestWithParam<Scenario>
{};

}  // namespace

TEST_P(Golden, ApplyWritesExactlyTheFilesOfTheScenario)
{
    const auto& [tool, solver, content] = GetParam();
    GenerateFixture f;
    f.form.Optimizer.Text = tool;
    f.form.Solver.Text = solver.solver;
    f.form.CommandLine.Text = solver.commandLine;
    content.fill(f);

    GenerateButton_Click(f.context);

    const std::filesystem::path golden =
        std::filesystem::path(SOURCE_FOLDER) / "tests" / "golden" / nameOf(GetParam());
    EXPECT_THAT(fake::differencesFromGolden(f.files, inWork(""), golden), testing::IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(
    EachScenario, Golden,
    testing::Combine(testing::Values("Velmar", "Ombra"),
                     testing::Values(SolverChoice{"NENastran", "nastran nastran.ini beam.nas"},
                                     SolverChoice{"NXNastran", "nastran beam.dat notify=no"},
                                     SolverChoice{"OtherSolver", "other beam"}),
                     testing::Values(Content{"empty", fillNothing}, Content{"small", fillSmall},
                                     Content{"all", fillWithEveryKindOfRow})),
    testNameOf);

class GoldenComparison : public testing::Test
{
protected:
    GoldenComparison() : golden(std::filesystem::path(testing::TempDir()) / folderName())
    {
        std::filesystem::remove_all(golden);
    }
    ~GoldenComparison() override { std::filesystem::remove_all(golden); }

    static std::string folderName()
    {
        return std::string("golden-") +
               testing::UnitTest::GetInstance()->current_test_info()->name();
    }

    fake::MemoryFiles files;
    const std::filesystem::path golden;
};

TEST_F(GoldenComparison, ToleratesNoFileMoreOrFewerAndNoOtherByte)
{
    std::filesystem::create_directories(golden);
    const auto put = [&](const char* name, std::string_view content) {
        std::ofstream(golden / name, std::ios::binary) << content;
    };
    put("same.txt", "a\r\n");
    put("differs.txt", "a\r\nb\r\n");
    put("longer.txt", "a\r\nb\r\n");
    put("missing.txt", "");
    files.contents = {{"/w/same.txt", "a\r\n"},
                      {"/w/differs.txt", "a\r\nc\r\n"},
                      {"/w/longer.txt", "a\r\n"},
                      {"/w/surplus.txt", ""},
                      {"/elsewhere", ""}};

    EXPECT_THAT(
        fake::differencesFromGolden(files, "/w/", golden),
        testing::ElementsAre("differs.txt: line 2 is \"c\r\" instead of \"b\r\"",
                             "longer.txt: line 2 is \"\" instead of \"b\r\"",
                             "surplus.txt is one file too many", "missing.txt was not written"));
}

}  // namespace generate
