#include "Engineer.h"
#include "FormFiles.h"
#include "standin/ExampleStudy.h"

#include <gtest/gtest.h>

using comtest::Contents;
using comtest::fromFirstDifference;
using driver::Engineer;
using driver::FormFiles;
using driver::StandIn;

namespace
{

// A study of the examples or of the guide, done twice in the same folder: replayed without a window
// and without FEMAP, and by hand.
class StudyByHand : public testing::TestWithParam<const char*>
{
protected:
    Contents replayed(const std::filesystem::path& script) const
    {
        EXPECT_EQ(comtest::replay(script, "embedded"), 0U);
        return comtest::takeFiles(files.folder());
    }

    Contents doneByHand(const std::string& recording = "") const
    {
        StandIn femap(files.folder() / "panel.neu");
        Engineer engineer(femap, files.folder(), recording);
        for (const std::string& line : comtest::actionsOf(GetParam(), files.folder()))
            engineer.perform(line);
        EXPECT_EQ(engineer.close(), 0U);
        return comtest::takeFiles(files.folder());
    }

    FormFiles files;
};

INSTANTIATE_TEST_SUITE_P(OfTheProject, StudyByHand,
                         testing::Values("examples/panel.study", "examples/ombra.study",
                                         "docs/guide.md"),
                         [](const auto& study) {
                             return std::filesystem::path(study.param).stem().string();
                         });

void expectTheSame(Contents& byHand, Contents& replayed)
{
    EXPECT_GT(replayed.size(), 8U);
    ASSERT_EQ(byHand.size(), replayed.size());
    comtest::forgetTime(byHand);
    comtest::forgetTime(replayed);
    for (auto& [name, content] : replayed) {
        std::string& other = byHand[name];
        if (name.ends_with(".log"))
            comtest::forgetFirstSize(other);
        EXPECT_EQ(fromFirstDifference(other, content).substr(0, 1000),
                  fromFirstDifference(content, other).substr(0, 1000))
            << name;
    }
}

TEST_P(StudyByHand, LeavesTheFilesAndTheLogOfTheReplay)
{
    Contents once = replayed(comtest::writeScript(GetParam(), files.folder()));

    Contents byHand = doneByHand();

    expectTheSame(byHand, once);
}

TEST_P(StudyByHand, IsRecordedAsAScriptThatLeavesTheSameFilesAndLog)
{
    Contents byHand = doneByHand("session.study");

    Contents afterwards = replayed(files.folder() / "session.study");

    expectTheSame(byHand, afterwards);
}

}  // namespace
