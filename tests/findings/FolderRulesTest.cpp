#include "FindingsFixture.h"
#include "generate/GenerationDriver.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace findings
{
namespace
{

using testing::HasSubstr;
using testing::IsEmpty;

class FolderRules : public testing::Test
{
protected:
    FindingsFixture f;

    void remove(std::string_view fileName) { f.files.contents.erase(generate::inWork(fileName)); }
    void apply() { generate::GenerateButton_Click(f.context); }
};

TEST_F(FolderRules, FindNothingInTheFilesThatApplyLeaves)
{
    for (const char* const tool : {"Ombra", "Velmar"}) {
        f.chooseTool(tool);
        apply();

        EXPECT_THAT(f.lines(), IsEmpty()) << tool;
    }
}

TEST_F(FolderRules, TellTemplatesThatAreMissing)
{
    remove("OutputValues.txt.template");
    EXPECT_THAT(f.found("no-template"),
                HasSubstr("The task description goes by OutputValues.txt.template, which"));

    remove("InputValues.txt.template");
    EXPECT_THAT(f.found("no-template"),
                HasSubstr(": InputValues.txt.template, OutputValues.txt.template."));

    f.chooseTool("Ombra");
    EXPECT_THAT(f.found("no-template"), IsEmpty());
}

TEST_F(FolderRules, TellTemplatesOfAnotherStudy)
{
    f.addInput({"Curve", "X-Y Values", "Function", " 2", "", ""});
    EXPECT_THAT(f.found("other-template"), IsEmpty()) << "functions have no value";

    f.addInput({"ExAtMatl1", "1", "Matl", "1", "Ex", ""});
    EXPECT_EQ(f.found("other-template"),
              "error other-template InputValues.txt.template: InputValues.txt.template is there, "
              "but of another study: it lacks ExAtMatl1.");

    f.put("OutputValues.txt.template",
          "Mass  !<Mass%f!3>!\r\nElemForces85002AtElem40  !<ElemForces85002AtElem40%f!1>!\r\n");
    EXPECT_THAT(f.found("other-template"), HasSubstr("OutputValues.txt.template (it has Mass)"));

    f.chooseTool("Ombra");
    EXPECT_THAT(f.found("other-template"), IsEmpty());
}

TEST_F(FolderRules, DoNotMindTheOrderInATemplate)
{
    f.addInput({"Curve", "X-Y Values", "Function", " 2", "", ""});
    f.addInput({"ExAtMatl1", "1", "Matl", "1", "Ex", ""});
    const std::string thickness = "ThicknessAtProp7  !<ThicknessAtProp7%f!0.25>!\r\n";
    const std::string curve = "Curve  !<Curve%f!X-Y Values>!\r\n";
    const std::string stiffness = "ExAtMatl1  !<ExAtMatl1%f!1>!\r\n";

    for (const std::string& text : {thickness + stiffness, thickness + curve + stiffness,
                                    stiffness + thickness, stiffness + curve + thickness}) {
        f.put("InputValues.txt.template", text);
        EXPECT_THAT(f.found("other-template"), IsEmpty()) << text;
    }
    for (const std::string& text : {thickness, thickness + curve, stiffness + curve}) {
        f.put("InputValues.txt.template", text);
        EXPECT_THAT(f.found("other-template"), HasSubstr("it lacks")) << text;
    }
}

TEST_F(FolderRules, TellAFolderThatServesAnotherModel)
{
    f.put("CAEInput.txt", "Reference Model (FEMAP) = Beam.modfem\r\nNameValue = x\r\n");
    EXPECT_THAT(f.found("other-model"), IsEmpty());

    f.put("CAEInput.txt", "Reference Model (FEMAP) = rod.neu\r\nNameValue = x\r\n");
    EXPECT_THAT(f.found("other-model"), HasSubstr("CAEInput.txt in the folder is of another model, "
                                                  "rod.neu, and"));

    f.put("CAEInput.txt", "something else");
    EXPECT_THAT(f.found("other-model"), IsEmpty());
}

TEST_F(FolderRules, TellAModelOfTheSameName)
{
    f.femap.modelName = generate::inWork("beam.modfem");
    f.form.fileExtension.clear();
    f.put("beam.modfem", "");
    f.put("beam.neu", "");
    EXPECT_THAT(f.found("shared-control-file"), IsEmpty()) << "a neutral file is mostly a copy";

    f.put("beam.mod", "");

    EXPECT_THAT(f.found("shared-control-file"),
                HasSubstr("beam.mod lies in the same folder and has the same control file."));
}

TEST_F(FolderRules, TellAModelThatApplyWouldReplace)
{
    f.femap.modelName = generate::inWork("beam.par");
    EXPECT_THAT(f.found("model-overwritten"), IsEmpty());

    f.chooseTool("Ombra");

    EXPECT_THAT(f.found("model-overwritten"), HasSubstr("The model's file, beam.par, has"));
}

TEST_F(FolderRules, TellRowsOfTheControlFileThatTheGridsLack)
{
    apply();
    f.form.InputsList.setText(1, form::valueColumn, "0.5");
    EXPECT_THAT(f.found("stored-rows-lost"), IsEmpty()) << "another value is the same row";

    f.form.OutputsList.setText(1, form::outputColumn::first, "41");

    EXPECT_EQ(f.found("stored-rows-lost"),
              "warning stored-rows-lost ElemForces85002AtElem40: The control file has a row that "
              "the grids lack, ElemForces85002AtElem40; \"Apply\" would replace it.");
}

TEST_F(FolderRules, DoNotMindRowsThatCameOrAnotherOrderOfThem)
{
    const std::string stored = f.form.InputsList.rowText(1) + "\r\n";
    const std::string other = "ExAtMatl1\t1\tMatl\t1\tEx\t\r\n";
    const std::string outputs = "\r\n" + f.form.OutputsList.rowText(1) + "\r\n";
    f.addInput({"DensityAtMatl1", "1", "Matl", "1", "Density", ""});
    f.addInput({"ExAtMatl1", "1", "Matl", "1", "Ex", ""});

    for (const std::string& text : {stored + other + outputs, other + stored + outputs,
                                    stored + other + other + outputs, other + outputs}) {
        f.put("beamControl.txt", text);
        EXPECT_THAT(f.found("stored-rows-lost"), IsEmpty()) << text;
    }
    f.put("beamControl.txt", stored + "EyAtMatl1\t1\tMatl\t1\tEy\t\r\n" + other + outputs);
    EXPECT_THAT(f.found("stored-rows-lost"), HasSubstr("a row that the grids lack, EyAtMatl1"));
}

// "Apply" leaves a sheet of its files, at this time.
class FilesWithASheet : public FolderRules
{
protected:
    FilesWithASheet()
    {
        f.files.now = time;
        apply();
        std::string files;
        for (const auto& [name, content] : f.workFolder())
            files += (files.empty() ? "" : ",") + std::string(R"({"name":")") + name +
                     R"(","size":)" + std::to_string(content.size()) +
                     R"(,"time":"2024-03-07T09:05:02Z"})";
        f.put("beamStudy.json", R"({"files":[)" + files + "]}");
        for (const auto& [name, content] : f.workFolder())
            f.files.times[generate::inWork(name)] = time;
    }
    // A hand at a file, at another time.
    void change(std::string_view fileName, const std::string& content)
    {
        f.put(fileName, content);
        f.files.times[generate::inWork(fileName)] = time + 60;
    }

    static constexpr std::int64_t time = 1709802302;
};

TEST_F(FilesWithASheet, TellWhichWereChangedByHand)
{
    EXPECT_THAT(f.found("changed-by-hand"), IsEmpty());

    change("FDFemap.bat", "own");
    EXPECT_EQ(f.found("changed-by-hand"),
              "warning changed-by-hand FDFemap.bat: FDFemap.bat was changed since the last "
              "\"Apply\", which would replace it.");

    f.files.times[generate::inWork("CAEInput.txt")] = time + 1;
    EXPECT_THAT(f.found("changed-by-hand"),
                HasSubstr("2 generated files were changed since the last \"Apply\", which would "
                          "replace them: CAEInput.txt, FDFemap.bat."));
}

TEST_F(FilesWithASheet, TellNothingOfThoseThatTheLoopWrites)
{
    change("InputValues.txt", "ThicknessAtProp7  0.5\r\n");
    change("OutputValues.txt", "ElemForces85002AtElem40  4\r\n");
    remove("FDFemap.bat");

    EXPECT_THAT(f.found("changed-by-hand"), IsEmpty());
}

TEST_F(FilesWithASheet, TellNothingWhenALaterApplyLeftNoSheet)
{
    f.files.now = time + 60;
    f.form.CommandLine.Text = "nastran beam.dat";
    apply();

    EXPECT_THAT(f.found("changed-by-hand"), IsEmpty());
}

TEST_F(FilesWithASheet, TellNothingWhenTheSheetIsDamaged)
{
    change("FDFemap.bat", "own");
    for (const char* const sheet : {"", "{\"files\":[{\"name\"", "{}", "{\"files\":[]}"}) {
        f.put("beamStudy.json", sheet);

        EXPECT_THAT(f.found("changed-by-hand"), IsEmpty()) << sheet;
    }
}

TEST_F(FolderRules, TellSettingsThatTheLoopWouldReplace)
{
    f.put("nastran.ini", "own");
    EXPECT_THAT(f.found("settings-overwritten"), IsEmpty()) << "this solver has none to copy";
    const std::string source = "C:\\Program Files\\NEiNastran Engine V84\\nastran.ini";

    f.form.Solver.Text = "NENastran";
    EXPECT_THAT(f.found("settings-overwritten"), HasSubstr("replace nastran.ini in the model's "
                                                           "folder by " +
                                                           source));
    f.files.contents[source] = "own";
    EXPECT_THAT(f.found("settings-overwritten"), IsEmpty()) << "it is such a copy";

    f.files.contents[source] = "another";
    f.chooseTool("Ombra");
    EXPECT_THAT(f.found("settings-overwritten"), IsEmpty());
}

TEST_F(FolderRules, TellTheCommandLineThatTheBatchFileHolds)
{
    f.form.CommandLine.Text = "nastran beam.dat scratch=\u00e4";
    apply();
    EXPECT_THAT(f.found("stored-command-lost"), IsEmpty());

    f.form.CommandLine.Text = "nastran beam.dat notify=no";
    EXPECT_THAT(
        f.found("stored-command-lost"),
        HasSubstr("FDFemap.bat holds another command line, nastran beam.dat scratch=\u00e4,"));

    f.chooseTool("Ombra");
    EXPECT_THAT(f.found("stored-command-lost"), IsEmpty());
}

TEST_F(FolderRules, TellADeckThatIsNotThereYet)
{
    remove("beam.dat");

    EXPECT_THAT(f.found("no-deck"), HasSubstr("hint no-deck beam.dat: The deck beam.dat is not"));
}

}  // namespace
}  // namespace findings
