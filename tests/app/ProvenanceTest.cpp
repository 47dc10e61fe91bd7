#include "AppFixture.h"
#include "app/Version.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::Contains;
using testing::HasSubstr;

namespace app
{
namespace
{

const std::string sheet = "/models/beamStudy.json";

TEST(Provenance, IsLeftByEachApplyWhereItIsAskedFor)
{
    StartedProgram f;
    f.program.raise(form::click("GenerateButton"));
    EXPECT_FALSE(f.files.contents.contains(sheet));

    f.program.keepProvenance(true);
    f.program.raise(form::click("GenerateButton"));

    EXPECT_THAT(f.files.lines(sheet), Contains("\"tool\":\"" + std::string(version()) + "\","));
    EXPECT_THAT(f.files.lines(sheet), Contains(HasSubstr("\"code\":\"")));
    EXPECT_THAT(f.form.StatusLine.Caption, HasSubstr("written into"));
}

}  // namespace
}  // namespace app
