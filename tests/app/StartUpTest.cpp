#include "AppFixture.h"
#include "app/StartUp.h"
#include "logging/Module1.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace app
{
namespace
{

using testing::Contains;
using testing::Each;
using testing::ElementsAreArray;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::IsSupersetOf;
using testing::Not;

const std::string rule(70, '-');

using Lines = std::vector<std::string>;

Lines operator+(Lines left, const Lines& right)
{
    left.insert(left.end(), right.begin(), right.end());
    return left;
}

// clang-format off
const Lines banner = {
    "ALWAYS: Execution starts at 2024-03-07 Time 09:05:02.045",
    "ALWAYS: ===============command line arguments===============",
    "ALWAYS: Input mod file: /models/beam.neu",
    "ALWAYS: Log File Name: beam.log",
    "ALWAYS: Loglevel:ALWAYS",
    "ALWAYS: FileExtension:neu",
    "ALWAYS: ===============command line arguments===============",
    "DEBUG: Position at Before getting femap object",
};
const Lines attached = {
    "DEBUG: Existing instance of FEMAP is used",
    "DEBUG: Femap made to visible",
    "DEBUG: Position at After getting femap object",
};
const Lines created = {
    "DEBUG: Unable to get existing instance of FEMAP",
    "DEBUG: New instance of FEMAP is created",
    "DEBUG: Femap visibility mode is changed to True",
    "DEBUG: Femap made to visible",
    "DEBUG: Position at After getting femap object",
};
const Lines notFound = {
    "DEBUG: Unable to get existing instance of FEMAP",
    "DEBUG: Why no running FEMAP is used: FEMAP does not run",
    "DEBUG: Why no FEMAP was started: FEMAP is not installed",
    "ERROR: Unable to get new instance of FEMAP",
    "ERROR: FEMAP not found",
};
const Lines opened = {
    "DEBUG: Opened file: /models/beam.neu",
    "DEBUG: No Error found After opening femap file",
};
const Lines choices = {
    "DEBUG: Position at At start of Solver_Click",
    "DEBUG: Solver text is =nastran beam.dat notify=no",
    "DEBUG: Position at At end of Solver_Click",
    "DEBUG: Position at At start of Optimizer_Click",
    "DEBUG: Position at At end of Optimizer_Click",
};
const Lines restored = {
    "DEBUG: Form property collection updated",
    "DEBUG: Position at At start of Load_Click",
    "DEBUG: fileBase=beam",
    "DEBUG: No Error found In the Load_Click",
    "DEBUG: Position at At start of ClearAll_Click",
    "DEBUG: Position at At end of ClearAll_Click",
    "DEBUG: Added xAtNode1\t0.5\tNode\t1\tx\t to Input list",
    "DEBUG: Removed 1 from Input list",
    "DEBUG: Added TotalMass\t3\tMassTotal\t\tMassProperties to Output list",
    "DEBUG: Removed 1 from Output list",
};
const Lines registered = {
    "DEBUG: Position at Before registering plugin",
    "DEBUG: Position at After registering plugin",
    "DEBUG: Intialized form events",
    "DEBUG: Plugin is initialized",
    "DEBUG: Position at At end of Load Form",
};
// clang-format on

void writeControlFile(AppFixture& f)
{
    f.files.contents["/models/beamControl.txt"] =
        "xAtNode1\t0.5\tNode\t1\tx\t\r\n"
        "\r\n"
        "TotalMass\t3\tMassTotal\t\tMassProperties\r\n";
}

TEST(FormLoad, LogsEachStepWhenFemapRunsAlready)
{
    SessionFixture f;
    writeControlFile(f);

    const StartUp result = Form_Load(f.session, allArguments);

    EXPECT_EQ(result, StartUp::Done);
    EXPECT_THAT(f.log(),
                ElementsAreArray(banner + attached + opened + choices + restored + registered));
    EXPECT_EQ(f.connector.created, 0);
}

TEST(FormLoad, StartsFemapWhenAttachingFails)
{
    SessionFixture f;
    writeControlFile(f);
    f.connector.attachRaises = true;

    const StartUp result = Form_Load(f.session, allArguments);

    EXPECT_EQ(result, StartUp::Done);
    EXPECT_THAT(f.log(),
                ElementsAreArray(banner + created + opened + choices + restored + registered));
    EXPECT_EQ(f.connector.created, 1);
}

TEST(FormLoad, StartsFemapWhenAttachingGivesNoObject)
{
    SessionFixture f;
    writeControlFile(f);
    f.connector.attachFindsNothing = true;

    Form_Load(f.session, allArguments);

    EXPECT_THAT(f.log(),
                ElementsAreArray(banner + created + opened + choices + restored + registered));
}

TEST(FormLoad, EndsAtOnceWithAClosedLogWhenThereIsNoFemap)
{
    SessionFixture f;
    f.connector.attachRaises = true;
    f.connector.createRaises = true;

    const StartUp result = Form_Load(f.session, allArguments);

    EXPECT_EQ(result, StartUp::FemapNotFound);
    EXPECT_THAT(f.logLines(), ElementsAreArray(banner + notFound));
    EXPECT_TRUE(f.context.log.path().empty());
    EXPECT_THAT(f.connector.calls, IsEmpty());
    EXPECT_EQ(f.form.InputSelection.Text, "");
}

TEST(FormLoad, EndsAtOnceWhenCreatingGivesNoObject)
{
    SessionFixture f;
    f.connector.attachFindsNothing = true;
    f.connector.createGivesNothing = true;

    EXPECT_EQ(Form_Load(f.session, allArguments), StartUp::FemapNotFound);
    EXPECT_EQ(f.logLines().back(), "ERROR: FEMAP not found");
    EXPECT_EQ(f.session.femapFailure,
              "FEMAP handed out no application; FEMAP handed out no application");
}

TEST(FormLoad, KeepsWhyFemapWasNeitherFoundNorStarted)
{
    SessionFixture f;
    f.connector.attachRaises = true;
    f.connector.createRaises = true;

    Form_Load(f.session, allArguments);

    EXPECT_EQ(f.session.femapFailure, "FEMAP does not run; FEMAP is not installed");
}

TEST(FormLoad, StartsFemapWhenTheOneThatRunsIsJustEnding)
{
    SessionFixture f;
    writeControlFile(f);
    f.connector.attachLoses = true;

    const StartUp result = Form_Load(f.session, allArguments);

    EXPECT_EQ(result, StartUp::Done);
    EXPECT_THAT(f.log(),
                ElementsAreArray(banner + created + opened + choices + restored + registered));
    EXPECT_EQ(f.connector.created, 1);
}

TEST(FormLoad, WritesTheMissingFemapOnlyIntoTheMostTalkativeLog)
{
    SessionFixture f;
    f.connector.attachRaises = true;
    f.connector.createRaises = true;

    Form_Load(f.session, "/models/beam.neu$beam.log$ERROR");

    EXPECT_THAT(f.logLines(), Contains("DEBUG: Unable to get existing instance of FEMAP"));
    EXPECT_THAT(f.logLines(), Each(Not(HasSubstr("FEMAP not found"))));
}

TEST(FormLoad, MakesFemapVisible)
{
    SessionFixture f;

    Form_Load(f.session, allArguments);

    EXPECT_TRUE(f.femap.visible);
}

TEST(FormLoad, CarriesOnWhenFemapCannotBeMadeVisible)
{
    SessionFixture f;
    f.connector.failAt("feAppVisible");

    Form_Load(f.session, "$beam.log$ALWAYS");

    EXPECT_THAT(f.log(), IsSupersetOf({"DEBUG: Femap made to visible",
                                       "DEBUG: Error occured After opening femap file",
                                       "ERROR: feAppVisible failed",
                                       "DEBUG: Position at At end of Load Form"}));
    EXPECT_EQ(f.session.openFailure, "");
}

TEST(FormLoad, OpensTheModelWithoutADialog)
{
    SessionFixture f;

    Form_Load(f.session, "\"/my work/beam.neu\"$beam.log$ALWAYS");

    EXPECT_THAT(f.connector.calls, Contains("feFileOpen 0 /my work/beam.neu"));
    EXPECT_EQ(f.form.fileExtension, "neu");
}

TEST(FormLoad, KeepsWhyTheModelCouldNotBeOpened)
{
    SessionFixture f;
    f.files.contents["/models/beam.neu"];
    f.connector.failAt("feFileOpen");
    const std::string reason =
        "FEMAP could not open the model: feFileOpen failed: /models/beam.neu";

    const StartUp result = Form_Load(f.session, allArguments);

    EXPECT_EQ(result, StartUp::Done);
    EXPECT_EQ(f.session.openFailure, reason);
    EXPECT_EQ(f.form.StatusLine.Caption, reason);
    EXPECT_THAT(f.log(), IsSupersetOf({"ERROR: --------------------After opening femap file"
                                       "--------------------",
                                       "DEBUG: Error occured After opening femap file",
                                       rule.c_str(), reason.c_str(), ("ERROR: " + reason).c_str(),
                                       "DEBUG: Position at At end of Load Form"}));
    EXPECT_THAT(f.log(), Each(Not(HasSubstr("Opened file: "))));
}

TEST(FormLoad, TellsThatTheModelIsNotThereAndWhichOneIsOpen)
{
    SessionFixture f;
    f.femap.modelName = "/models/other.modfem";
    f.connector.answers["feFileOpen"] = femap::ReturnCode::Fail;

    Form_Load(f.session, allArguments);

    EXPECT_EQ(f.form.StatusLine.Caption,
              "There is no file /models/beam.neu. FEMAP has this one open instead: "
              "/models/other.modfem");
}

TEST(FormLoad, TellsThatTheModelIsNotThereAndNoneIsOpen)
{
    SessionFixture f;
    f.femap.modelName.clear();
    f.connector.failAt("feFileOpen");

    Form_Load(f.session, allArguments);

    EXPECT_EQ(f.session.openFailure,
              "There is no file /models/beam.neu. FEMAP has no model open that has a file");
}

TEST(FormLoad, TakesEveryStatusButOkForAFailureToOpen)
{
    for (const auto status :
         {femap::ReturnCode::Fail, femap::ReturnCode::Cancel, femap::ReturnCode::NotExist}) {
        SessionFixture f;
        f.files.contents["/models/beam.neu"];
        f.connector.answers["feFileOpen"] = status;

        Form_Load(f.session, allArguments);

        EXPECT_EQ(f.session.openFailure,
                  "FEMAP could not open the model: it answered with status " +
                      std::to_string(static_cast<int>(status)) + ": /models/beam.neu");
        EXPECT_THAT(f.log(), Each(Not(HasSubstr("Opened file: "))));
    }
}

TEST(FormLoad, OpensNothingAndHasNoLogForAnEmptyCommandLine)
{
    SessionFixture f;

    const StartUp result = Form_Load(f.session, "");

    EXPECT_EQ(result, StartUp::Done);
    EXPECT_EQ(f.connector.count("feFileOpen"), 0);
    EXPECT_TRUE(f.femap.visible);
    EXPECT_THAT(f.files.contents, IsEmpty());
    EXPECT_EQ(f.form.fileExtension, "");
}

TEST(FormLoad, RunsWithoutALogForALevelThatIsNone)
{
    for (const std::string level : {"NOTHING", "debug", "Always", " DEBUG"}) {
        SessionFixture f;

        const StartUp result = Form_Load(f.session, "/models/beam.neu$beam.log$" + level);

        EXPECT_EQ(result, StartUp::Done);
        EXPECT_THAT(f.files.contents, IsEmpty()) << level;
        EXPECT_TRUE(f.host.hooked);
    }
}

TEST(FormLoad, LogsTheDefaultNameOfTheLog)
{
    SessionFixture f;

    Form_Load(f.session, "/models/beam.neu$$DEBUG");

    EXPECT_THAT(f.log("VelmarFemapInterfaceLog.log"),
                IsSupersetOf({"ALWAYS: Log File Name: VelmarFemapInterfaceLog.log",
                              "ALWAYS: Loglevel:DEBUG"}));
}

TEST(FormLoad, RunsWithoutALogWhenItCannotBeCreated)
{
    SessionFixture f;
    f.files.missingFolders = {"/temp", "/temp/korva"};

    const StartUp result = Form_Load(f.session, allArguments);

    EXPECT_EQ(result, StartUp::Done);
    EXPECT_EQ(f.context.log.failure(),
              "There is no log: Folder not created: no such folder: /temp/korva");
    EXPECT_TRUE(f.host.hooked);
}

}  // namespace
}  // namespace app
