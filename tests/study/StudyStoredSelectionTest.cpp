#include "StudyFixture.h"
#include "fake/NeutralText.h"
#include "system/RuntimeError.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

namespace study
{
namespace
{

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

const std::string stored =
    "xAtNode1\t0\tNode\t1\tx\t\r\n\r\nTotalMass\t1\tMassTotal\t\tMassProperties\r\n";

// A selection is stored beside the model.
class StudyStoredSelection : public testing::Test
{
protected:
    StudyStoredSelection() { f.write("beamControl.txt", stored); }

    StudyFixture f;

    auto files() const { return f.folder.listing(); }
};

TEST_F(StudyStoredSelection, ComesWithAModelThatIsOpenedLater)
{
    EXPECT_EQ(
        f.runScript("start $beam.log$ALWAYS\nopen " + f.modelPath() + "\nclick GenerateButton\n"),
        0)
        << f.error();

    EXPECT_EQ(f.read("beamControl.txt"), stored);
    EXPECT_EQ(f.read("FDFemap.bat"), "nastran beam.dat notify=no\r\n");
    EXPECT_THAT(splitLines(f.read("CAEInput.txt")), Contains("Reference Model (FEMAP) = beam.neu"));
    EXPECT_THAT(files(), Not(Contains("beamControl.previous.txt")));
}

TEST_F(StudyStoredSelection, OfASecondModelStaysAsACopyWhenItIsReplaced)
{
    f.write("wing.neu", neutral::completeFile());
    f.write("wingControl.txt", "mine\t0\tNode\t1\tx\t\r\n\r\n");

    EXPECT_EQ(
        f.run("open " + f.folder.path("wing.neu") + "\nclick GenerateButton\nprint StatusLine\n"),
        0)
        << f.error();

    EXPECT_EQ(f.read("wingControl.txt"), stored);
    EXPECT_EQ(f.read("wingControl.previous.txt"), "mine\t0\tNode\t1\tx\t\r\n\r\n");
    EXPECT_EQ(f.read("FDFemap.bat"), "nastran wing.dat notify=no\r\n");
    EXPECT_THAT(f.outputLines().back(), HasSubstr("kept as wingControl.previous.txt"));
}

TEST_F(StudyStoredSelection, ThatIsCutIsToldOnStandardErrorToo)
{
    f.write("beamControl.txt", stored.substr(0, 30));

    EXPECT_EQ(f.run("click GenerateButton\n"), 0);

    EXPECT_THAT(f.error(),
                HasSubstr("The stored selection did not come back as it was: line 3: the "
                          "file ends within this line"));
    EXPECT_THAT(f.outputLines(),
                Contains(HasSubstr("FEMAP: The stored selection did not come back as it was")));
    EXPECT_EQ(f.read("beamControl.previous.txt"), stored.substr(0, 30));
}

TEST_F(StudyStoredSelection, OfOutputsOnlyIsToldWhenItComesBackAsInputs)
{
    const std::string outputs = stored.substr(stored.find("\r\n\r\n") + 2);
    f.write("beamControl.txt", outputs);

    EXPECT_EQ(f.run("print InputsList\n"), 0);

    EXPECT_THAT(f.error(), HasSubstr("line 2: an output stands among the inputs"));
    EXPECT_THAT(f.outputLines(), Contains("TotalMass\t1\tMassTotal\t\tMassProperties\t"));
}

TEST_F(StudyStoredSelection, ThatCannotBeReadIsToldAndNotReplaced)
{
    std::filesystem::remove(f.folder.path("beamControl.txt"));
    std::filesystem::create_directory(f.folder.path("beamControl.txt"));

    EXPECT_EQ(f.run("click GenerateButton\n"), 1);

    EXPECT_THAT(splitLines(f.error()),
                ElementsAre(HasSubstr("The stored selection cannot be read"),
                            testing::StartsWith("beam.study:2: it is a folder, not a file. "
                                                "beamControl.txt was not written.")));
    EXPECT_TRUE(std::filesystem::is_directory(f.folder.path("beamControl.txt")));
    EXPECT_EQ(f.log().back(), "DEBUG: Setting Main femap instance to Nothing");
}

TEST(StudyWithoutFemap, SaysWhyOnStandardErrorAndInTheLog)
{
    class Nowhere : public femap::Connector
    {
    public:
        std::unique_ptr<femap::Application> attach() override
        {
            throw sys::RuntimeError(sys::ErrorNumber::ObjectFailed,
                                    "No FEMAP is running: 0x800401E3");
        }
        std::unique_ptr<femap::Application> create() override
        {
            throw sys::RuntimeError(sys::ErrorNumber::ObjectFailed,
                                    "FEMAP could not be started: 0x80080005");
        }
    };
    StudyFixture f;
    f.runningFemap = [](femap::SelectionDialogs&) { return std::make_unique<Nowhere>(); };

    EXPECT_EQ(f.run(""), 1);

    EXPECT_EQ(f.error(),
              "beam.study:1: FEMAP does not run and could not be started: No FEMAP is running: "
              "0x800401E3; FEMAP could not be started: 0x80080005. "
              "The log of this run: korva/beam.log\n");
    EXPECT_THAT(f.log(), Contains("DEBUG: Why no FEMAP was started: FEMAP could not be started: "
                                  "0x80080005"));
}

}  // namespace
}  // namespace study
