#include "AppFixture.h"
#include "fake/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace app
{
namespace
{

TEST(ProgramLog, BringsTheLogIntoItsFileAfterEachProcedure)
{
    StartedProgram f;

    f.program.raise(form::click("ClearAll"));

    EXPECT_EQ(f.logLines().back(), "DEBUG: Position at At end of ClearAll_Click");
}

TEST(ProgramLog, BringsTheLogIntoItsFileOnTheRealDiskToo)
{
    AppFixture f;
    const fake::TemporaryFolder folder;
    sys::System machine = sys::thisMachine();
    machine.environment = [&](const std::string&) { return folder.path(); };
    const std::string path = folder.path("korva") + sys::pathSeparator + "beam.log";
    Program program(f.connector, f.host, f.lists, machine);

    program.start(allArguments);
    const std::string afterStart = machine.files.read(path);
    program.raise(form::click("ClearAll"));

    EXPECT_TRUE(afterStart.ends_with("DEBUG: Position at At end of Load Form\r\n"));
    EXPECT_TRUE(
        machine.files.read(path).ends_with("DEBUG: Position at At end of ClearAll_Click\r\n"));
}

TEST(ProgramLog, TellsOnTheStatusLineThatTheLogCannotBeWritten)
{
    StartedProgram f;
    f.files.failingOperation = f.files.operations + 1;

    EXPECT_EQ(f.program.raise(form::click("ClearAll")), Ended::Normally);

    EXPECT_THAT(f.form.StatusLine.Caption, testing::HasSubstr("No space left on device"));
    EXPECT_EQ(f.program.raise(form::click("ClearAll")), Ended::Normally);
}

}  // namespace
}  // namespace app
