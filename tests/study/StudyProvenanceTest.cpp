#include "StudyFixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

namespace study
{
namespace
{

using testing::Contains;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

class StudyProvenance : public testing::Test
{
protected:
    StudyFixture f;

    int call(const std::string& option, const std::string& script)
    {
        f.write("beam.study", "start " + f.modelPath() + "\nset Solver NXNastran\n" + script);
        return f.call({option, f.folder.path("beam.study")});
    }
};

TEST_F(StudyProvenance, IsLeftOnlyWhereItIsAskedFor)
{
    EXPECT_EQ(call("--quiet", "click GenerateButton\n"), 0);
    EXPECT_FALSE(std::filesystem::exists(f.folder.path("beamStudy.json")));

    EXPECT_EQ(call("--provenance", "click GenerateButton\n"), 0);

    const std::string sheet = f.read("beamStudy.json");
    EXPECT_THAT(sheet, StartsWith("{\r\n\"tool\":\""));
    EXPECT_THAT(sheet, HasSubstr("\"femap\":null,"));
    EXPECT_THAT(sheet, HasSubstr(R"({"name":"beamControl.txt","size":)"));
}

TEST_F(StudyProvenance, LetsChangesByHandBeFound)
{
    call("--provenance", "click GenerateButton\ncheck\n");
    EXPECT_THAT(f.outputLines(), Not(Contains(HasSubstr("changed-by-hand"))));

    f.write("FDFemap.bat", "own");
    call("--quiet", "check\n");

    EXPECT_THAT(f.outputLines(), Contains(StartsWith("warning changed-by-hand FDFemap.bat: ")));
}

TEST_F(StudyProvenance, IsNotWrittenByACheck)
{
    f.write("beam.study", "start " + f.modelPath() + "\nclick GenerateButton\n");

    EXPECT_EQ(f.call({"--provenance", "--check", f.folder.path("beam.study")}), 0);

    EXPECT_FALSE(std::filesystem::exists(f.folder.path("beamStudy.json")));
}

}  // namespace
}  // namespace study
