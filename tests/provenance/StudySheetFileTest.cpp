#include "fake/GenerateFixture.h"
#include "generate/GenerationDriver.h"
#include "generate/StudySheet.h"
#include "provenance/StudySheetFile.h"
#include "system/RuntimeError.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace provenance
{

using generate::inWork;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;

namespace
{

class StudySheetFile : public testing::Test
{
protected:
    StudySheetFile()
    {
        f.addInput({"T\u20ac \"1\"", "0.25", "Prop", "1", "pval", "0"});
        f.addInput({"", "0.5", "Prop", "2", "pval", "0"});
        f.addOutput({"TotalMass", "7.85", "MassTotal", "", "MassProperties"});
        f.files.contents[inWork("beam.neu")] = "model";
        f.files.times[inWork("beam.neu")] = 60;
        f.files.now = 1709802302;
    }

    void apply(std::span<const findings::Finding> found = {})
    {
        generate::GenerateButton_Click(f.context, [&](const std::vector<std::string>& files) {
            writeStudySheet(f.context, {"1.2.3", found, files});
        });
    }

    generate::GenerateFixture f;
};

}  // namespace

TEST_F(StudySheetFile, TellsWhatTheFilesWereMadeOf)
{
    f.form.Optimizer.Text = "KORVA";  // which gets the control file alone
    f.watchFemap().answers["Info_Version"] = 23.06;
    f.model().outputSets.put({.id = 3});
    const findings::Finding finding = {.code = "no-deck",
                                       .severity = findings::Severity::Hint,
                                       .places = {{findings::Grid::Inputs, 1}},
                                       .name = "beam.dat",
                                       .sentence = "It is not there.",
                                       .cure = "Write it."};

    apply({&finding, 1});

    EXPECT_THAT(
        f.written("beamStudy.json"),
        ElementsAre(
            "{", R"("tool":"1.2.3",)", R"("femap":23.06,)",
            R"("model":{"path":")" + inWork("beam.neu") +
                R"(","size":5,"time":"1970-01-01T00:01:00Z"},)",
            R"("outputSet":3,)", R"("files":[)",
            R"( {"name":"beamControl.txt","size":)" +
                std::to_string(f.files.contents.at(inWork("beamControl.txt")).size()) +
                R"(,"time":"2024-03-07T09:05:02Z"})",
            "],", R"("findings":[)",
            R"( {"severity":"hint","code":"no-deck","inputs":[1],"outputs":[],"name":"beam.dat",)"
            R"("sentence":"It is not there.","cure":"Write it."})",
            "],", R"("rows":[)",
            " {\"grid\":\"inputs\",\"name\":\"T\u20ac \\\"1\\\"\",\"value\":\"0.25\","
            "\"locator\":[\"Prop\",\"1\",\"pval\",\"0\"]},",
            R"( {"grid":"outputs","name":"TotalMass","value":"7.85",)"
            R"("locator":["MassTotal","","MassProperties"]})",
            "]", "}"));
}

TEST_F(StudySheetFile, IsReadAgain)
{
    apply();

    const auto files = generate::filesInSheet(f.files.contents.at(inWork("beamStudy.json")));

    ASSERT_TRUE(files);
    EXPECT_EQ(files->size(), f.fileNames().size() - 2) << "all but the sheet and the model";
    for (const generate::SheetFile& file : *files)
        EXPECT_EQ(file, generate::sheetFile(file.name, *f.files.facts(inWork(file.name))));
}

TEST_F(StudySheetFile, HasNothingForWhatIsNotKnown)
{
    f.files.contents.erase(inWork("beam.neu"));
    f.watchFemap().failAt("Info_ActiveID", "FEMAP says no");

    apply();

    EXPECT_THAT(f.written("beamStudy.json"), Contains(R"("femap":null,)"));
    EXPECT_THAT(f.written("beamStudy.json"), Contains(R"("outputSet":null,)"));
    EXPECT_THAT(f.written("beamStudy.json"), Contains(HasSubstr(R"("size":null,"time":null)")));
    EXPECT_THAT(f.written("beamStudy.json"), Contains(R"("findings":[)"));
}

TEST_F(StudySheetFile, IsWrittenWhileTheFolderIsKept)
{
    f.files.locked.clear();
    std::vector<std::string> lockedThen;
    generate::GenerateButton_Click(
        f.context, [&](const std::vector<std::string>&) { lockedThen = f.files.locked; });

    EXPECT_THAT(lockedThen, ElementsAre(inWork("")));
}

TEST_F(StudySheetFile, IsLeftAsItIsWhenItCannotBeWrittenWhole)
{
    f.files.contents[inWork("beamStudy.json")] = "old";
    std::string told;
    try {
        generate::GenerateButton_Click(f.context, [&](const std::vector<std::string>& files) {
            f.files.failingOperation = f.files.operations + 3;
            writeStudySheet(f.context, {"1.2.3", {}, files});
        });
    }
    catch (const sys::RuntimeError& error) {
        told = error.description();
    }

    EXPECT_THAT(told, HasSubstr("No space left on device. beamStudy.json was not written."));
    EXPECT_EQ(f.files.contents.at(inWork("beamStudy.json")), "old");
    EXPECT_TRUE(f.exists("beamControl.txt"));
}

TEST_F(StudySheetFile, IsNotWrittenWhenApplyWasNotDone)
{
    f.femap.modelName = "";
    apply();
    f.femap.modelName = inWork("beam.neu");
    f.files.irreplaceable.insert(inWork("CAEInput.txt"));
    EXPECT_THROW(apply(), sys::RuntimeError);

    EXPECT_FALSE(f.exists("beamStudy.json"));
}

}  // namespace provenance
