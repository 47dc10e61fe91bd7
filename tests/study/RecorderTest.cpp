#include "StudyFixture.h"
#include "app/Program.h"
#include "fake/FormFixture.h"
#include "fake/QueuedPropertyList.h"
#include "form/FormProcedures.h"
#include "study/Recorder.h"
#include "system/RuntimeError.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>

namespace study
{
namespace
{

using femap::ReturnCode;
using testing::ElementsAre;

// An engineer at the form, whose doings are recorded into "session.study".
class Recorded : public testing::Test
{
protected:
    StudyFixture f;  // the folder with the model, and the program that replays
    sys::System system = sys::thisMachine();
    fake::QueuedDialogs dialogs;
    femap::embedded::Host host{dialogs};
    fake::QueuedPropertyList lists;
    fake::FakeFormHost window;
    std::string arguments = f.modelPath() + "$beam.log$ALWAYS";
    Recorder recorder{system.files, f.folder.path("session.study"), arguments};
    RecordedConnector connector{host, recorder};
    app::Program program{connector, window, lists, system};
    form::MainForm& form = program.form();

    Recorded()
    {
        system.environment = [this](const std::string&) { return f.folder.path(); };
        recorder.follow(form);
        program.observe(recorder);
        program.start(arguments);
    }

    void pick(std::vector<int> ids) { dialogs.pick(std::move(ids)); }
    void click(const std::string& button) { program.raise(form::click(button)); }

    // The script without its first line.
    std::vector<std::string> script() const
    {
        std::vector<std::string> lines = splitLines(f.read("session.study"));
        EXPECT_EQ(lines.at(0), "start " + arguments);
        lines.erase(lines.begin());
        return lines;
    }
};

TEST_F(Recorded, PicksAndChoicesStandBeforeTheClickThatAskedForThem)
{
    pick({1, 2, 4});
    lists.choose({"x", "z"});

    click("InputsButton");

    EXPECT_THAT(script(), ElementsAre("pick 1-2 4", "choose x | z", "click InputsButton"));
}

TEST_F(Recorded, AnOutputVectorGoesByItsID)
{
    program.enterText(form.OutputSelection, "Nodes");
    pick({1});
    lists.chooseAll();

    click("OutputsButton");

    EXPECT_THAT(script(), ElementsAre("set OutputSelection Nodes", "pick 1", "choose 1",
                                      "click OutputsButton"));
}

TEST_F(Recorded, ADialogThatWasLeftIsCancelled)
{
    dialogs.answers.push_back({ReturnCode::Cancel, {}});
    click("InputsButton");
    pick({1});
    lists.cancel();
    click("InputsButton");

    EXPECT_THAT(script(), ElementsAre("pick cancel", "click InputsButton", "pick 1",
                                      "choose cancel", "click InputsButton"));
}

TEST_F(Recorded, ADialogWithNothingToPickIsMissing)
{
    program.enterText(form.InputSelection, "Functions");
    dialogs.answers.push_back({ReturnCode::NotExist, {}});
    click("InputsButton");
    dialogs.answers.push_back({ReturnCode::Fail, {}});
    click("InputsButton");

    EXPECT_THAT(script(), ElementsAre("set InputSelection Functions", "pick missing",
                                      "click InputsButton", "pick fail", "click InputsButton"));
}

TEST_F(Recorded, RemovedRowsStandAsTheyWereSelected)
{
    pick({1, 2, 3, 4});
    lists.choose({"x"});
    click("InputsButton");
    form.InputsList.Row = 3;
    form.InputsList.RowSel = 2;

    program.raise({"InputsList", form::What::KeyDown}, form::deleteKey);
    program.raise({"InputsList", form::What::KeyDown}, 40);

    EXPECT_THAT(script(), ElementsAre("pick 1-4", "choose x", "click InputsButton",
                                      "select InputsList 3 2", "key InputsList 46"));
}

TEST_F(Recorded, AStepBackStandsWhereItWasTaken)
{
    pick({1, 2, 3});
    lists.choose({"x"});
    click("InputsButton");
    program.stepBack();  // nothing went, so there is none
    click("ClearInputSelection");
    program.stepBack();

    EXPECT_THAT(script(),
                ElementsAre("pick 1-3", "choose x", "click InputsButton", "select InputsList 1 1",
                            "click ClearInputSelection", "stepback"));
}

TEST_F(Recorded, RowsOfAnEarlierRunAreARemark)
{
    static_cast<app::ActionObserver&>(recorder).broughtBack();

    EXPECT_THAT(script(), ElementsAre("# Here the rows of an earlier run came back, which a "
                                      "script cannot repeat."));
}

TEST_F(Recorded, RowsThatWereReadAgainStandAsTheyWereSelected)
{
    pick({1, 2, 3});
    lists.choose({"x"});
    click("InputsButton");
    form.InputsList.Row = 2;
    form.InputsList.RowSel = 3;

    program.raise({"RefreshInputs", form::What::SelectedRows});
    program.raise({"RefreshOutputs", form::What::SelectedRows});

    EXPECT_THAT(script(),
                ElementsAre("pick 1-3", "choose x", "click InputsButton", "select InputsList 2 3",
                            "refresh InputsList", "select InputsList 2 3", "refresh OutputsList"));
}

TEST_F(Recorded, TheCommandLineIsTakenWithApply)
{
    form.CommandLine.Text = "nastran beam.dat";

    click("GenerateButton");

    EXPECT_THAT(script(), ElementsAre("set CommandLine nastran beam.dat", "click GenerateButton"));
}

TEST_F(Recorded, EventsOfFemapAreActionsAndScrollingIsNot)
{
    program.raise({"VScroll1", form::What::Change});
    program.raiseFemapEvent(3);

    EXPECT_THAT(script(), ElementsAre("event 3"));
}

TEST_F(Recorded, TheScriptIsThereAtOnceAndEndsWithTheForm)
{
    click("ClearAll");
    EXPECT_THAT(script(), ElementsAre("click ClearAll"));

    program.close();

    EXPECT_THAT(script(), ElementsAre("click ClearAll"));
    EXPECT_EQ(recorder.failure(), "");
}

// Every file below a folder but the scripts and the model.
std::map<std::string, std::string> generatedFiles(const StudyFixture& f)
{
    std::map<std::string, std::string> result;
    for (const char* name :
         {"CAEInput.txt", "InputValues.txt", "CAEOutput.txt", "OutputValues.txt", "vELMARbeam.desc",
          "FunctionsInputvalues.txt", "FDFemap.bat", "beamControl.txt"})
        result[name] = f.read(name);
    return result;
}

TEST_F(Recorded, AStudyReplaysToTheSameFiles)
{
    pick({1, 2, 3});
    lists.choose({"x", "y"});
    click("InputsButton");
    program.enterText(form.InputSelection, "Functions");
    pick({host.openModel().functions.begin()->id});
    click("InputsButton");
    program.enterText(form.OutputSelection, "Mass Properties");
    lists.choose({"MassTotal", "TotalCG"});
    click("OutputsButton");
    form.InputsList.Row = form.InputsList.RowSel = 2;
    click("ClearInputSelection");
    click("ClearAll");
    program.stepBack();
    program.raise({"RefreshInputs", form::What::SelectedRows});
    program.enterText(form.Solver, "NENastran");
    form.CommandLine.Text = "my own command";
    click("GenerateButton");
    program.close();
    const auto recorded = generatedFiles(f);
    for (const auto& [name, content] : recorded)
        system.files.remove(f.folder.path(name));

    EXPECT_EQ(f.call({f.folder.path("session.study")}), 0) << f.errors.str();

    EXPECT_EQ(generatedFiles(f), recorded);
    EXPECT_THAT(recorded.at("InputValues.txt"), testing::HasSubstr("xAtNode1"));
}

TEST(Recording, FailsWhereTheScriptCannotBeWritten)
{
    StudyFixture f;
    sys::System system = sys::thisMachine();

    EXPECT_THROW(Recorder(system.files, f.folder.path("none/session.study"), ""),
                 sys::RuntimeError);
}

TEST(Recording, EndsWithAWordWhenTheDiskIsFull)
{
    fake::FormFixture f;
    Recorder recorder(f.files, "/models/session.study", "");
    recorder.follow(f.form);
    f.files.failingOperation = f.files.operations + 1;

    recorder.ended({form::click("ClearAll")});
    recorder.ended({form::click("ClearAll")});

    EXPECT_THAT(recorder.failure(), testing::HasSubstr("No space left on device"));
    EXPECT_EQ(f.files.operations, f.files.failingOperation);
}

}  // namespace
}  // namespace study
