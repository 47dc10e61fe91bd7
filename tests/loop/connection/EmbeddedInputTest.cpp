// CAEInput with the model host: what is put in is in the copy of the model's file, and all else is
// as it was.
#include "PanelStudy.h"
#include "RandomStudy.h"
#include "fake/FormFixture.h"
#include "fake/RandomSeed.h"
#include "loop/Former.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>

namespace loop::connection
{

using testing::HasSubstr;
using testing::StartsWith;

class ExampleStudy : public testing::TestWithParam<const char*>
{};

INSTANTIATE_TEST_SUITE_P(OfTheTool, ExampleStudy, testing::Values("panel", "ombra"));

TEST_P(ExampleStudy, HasItsValuesInTheCopyOfTheModelsFile)
{
    PanelStudy study(GetParam());
    const std::string original = study.read("panel.neu");

    EXPECT_EQ(study.run(), 0) << study.errors.str();

    const Inputs inputs = study.wanted();
    EXPECT_GT(inputs.wanted.entities.size() + inputs.wanted.loads.size(), 5U);
    expectSame(inputs.wanted, study.valuesIn("panel.run.neu", inputs.wanted));
    EXPECT_EQ(study.read("panel.neu"), original);
    EXPECT_FALSE(study.has(formerFile("panel")));
}

TEST(EmbeddedInput, TellsWhichFileHasTheValues)
{
    PanelStudy study("panel");

    study.run();

    EXPECT_EQ(study.output.str(),
              "panel.neu: 56 values and 2 functions are in panel.run.neu, panel.dat is written\n");
    EXPECT_THAT(study.read("panel.dat"), HasSubstr("$ Deck of the model host for brand 8"));
}

TEST(EmbeddedInput, RemovesTheResultsOfTheLastRun)
{
    PanelStudy study("panel");
    study.write("panel.op2", "old");
    study.write("panel.results.neu", "old");

    EXPECT_EQ(study.run({"--no-deck"}), 0);

    EXPECT_FALSE(study.has("panel.op2"));
    EXPECT_FALSE(study.has("panel.results.neu"));
    EXPECT_FALSE(study.has("panel.dat"));
}

TEST(EmbeddedInput, TellsWhatTheFileCannotHold)
{
    PanelStudy study;
    study.write("CAEInput.txt",
                "Reference Model (FEMAP) = panel.modfem\r\n"
                "Input Deck (NastranNE) = panel.nas\r\n"
                "NameValue = InputValues.txt\r\n"
                "Prop  typeAtProp1  1  type  \r\n");
    study.write("InputValues.txt", "typeAtProp1  5\r\n");

    EXPECT_EQ(study.run(), 1);

    EXPECT_THAT(study.errors.str(), StartsWith("panel.neu:"));
    EXPECT_FALSE(study.has("panel.run.neu"));
    EXPECT_FALSE(study.has("panel.nas"));
}

TEST(EmbeddedInput, LeavesNoFileOfTheRunThatIsNotWholeWhicheverOperationOfTheDiskFails)
{
    PanelStudy whole("panel");
    ASSERT_EQ(whole.run(), 0);
    const std::string values = whole.read("panel.run.neu");
    for (int n = 1;; ++n) {
        SCOPED_TRACE("operation " + std::to_string(n));
        PanelStudy study("panel");
        study.write("panel.run.neu", "old values");
        study.write("panel.dat", "old deck");
        study.files.failingOperation = n;
        const int code = study.run();
        if (study.files.operations < n) {
            EXPECT_GT(n, 15);
            return;
        }
        const std::string left = study.has("panel.run.neu") ? study.read("panel.run.neu") : "";
        if (code == 0) {
            EXPECT_EQ(left, values);
            continue;
        }
        EXPECT_THAT(study.errors.str(), HasSubstr("No space left on device"));
        EXPECT_TRUE(left.empty() || left == "old values") << left.size();
        EXPECT_FALSE(study.has("panel.new.dat"));
    }
}

TEST(EmbeddedInput, IsReadBackAsItWasGivenWhateverTheStudy)
{
    const unsigned seed = fake::randomSeed();
    int done = 0;
    for (unsigned i = 0; i < 50; ++i) {
        SCOPED_TRACE("study " + std::to_string(i));
        PanelStudy study;
        RandomStudy(study, seed + i);
        const Inputs inputs = study.wanted();

        const int code = study.run({"--no-deck"});

        if (code == 0) {
            ++done;
            expectSame(inputs.wanted, study.valuesIn("panel.run.neu", inputs.wanted));
            EXPECT_EQ(study.valuesIn("panel.neu", inputs.former).entities.size(),
                      inputs.former.entities.size());
            expectSame(inputs.former, study.valuesIn("panel.neu", inputs.former));
        }
        else {
            EXPECT_THAT(study.errors.str(), HasSubstr("panel.neu:"));
            EXPECT_FALSE(study.has("panel.run.neu"));
        }
    }
    EXPECT_GT(done, 25);
}

TEST(InputBesideFemap, IsReadBackAsItWasGivenWhateverTheStudy)
{
    const unsigned seed = fake::randomSeed();
    for (unsigned i = 0; i < 50; ++i) {
        SCOPED_TRACE("study " + std::to_string(i));
        PanelStudy study;
        RandomStudy(study, seed + i);
        const Inputs inputs = study.wanted();
        fake::QueuedDialogs dialogs;
        femap::embedded::Host host(dialogs);
        host.openNeutralFile(study.folder.path("panel.neu"));

        EXPECT_EQ(study.runBeside(host), 0) << study.errors.str();

        expectSame(inputs.wanted, presentValues(*host.attach(), inputs.wanted));
        EXPECT_FALSE(study.has(formerFile("panel")));
    }
}

TEST(TheProgramCAEInput, WorksInTheFolderWhereItIsStarted)
{
    const PanelStudy study("panel");
    const auto shell = [&](const std::string& options) {
        const std::string line = "cd '" + study.folder.path() +
                                 "' && '" PROGRAM_FOLDER "/CAEInput' " + options +
                                 " >said.txt 2>&1";
        return std::system(line.c_str());  // NOLINT(cert-env33-c)
    };

    EXPECT_EQ(shell(""), 0);
    EXPECT_THAT(study.read("said.txt"), StartsWith("panel.neu: 56 values"));
    EXPECT_TRUE(study.has("panel.run.neu"));
    EXPECT_EQ(shell("--femap=running"), 256);
    EXPECT_THAT(study.read("said.txt"),
                StartsWith("CAEInput: a running FEMAP can be used on Windows only; start the "
                           "program with --femap=embedded"));
}

}  // namespace loop::connection
