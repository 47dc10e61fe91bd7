#include "fake/GenerateFixture.h"
#include "generate/BatchFile.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

using testing::ElementsAre;

namespace generate
{

TEST(BatchFile, HoldsTheCommandLineAsItStands)
{
    for (const std::string command :
         {"nastran wing.dat notify=no", "  call \"C:\\x y\\%1\" & echo 'é'  ", ""}) {
        GenerateFixture f;
        f.form.CommandLine.Text = command;

        const auto log =
            f.logOf([&] { WriteBatchFile(f.context, f.progress, inWork(""), "wing"); });

        std::string bytes;
        f.system.codePage.encode(command, bytes);
        EXPECT_EQ(f.files.contents.at(inWork("FDFemap.bat")), bytes + "\r\n");
        std::string loggedBytes = "DEBUG: Found command line argument as " + bytes;
        EXPECT_THAT(log,
                    ElementsAre("DEBUG: Position at Before writing batch file object", loggedBytes,
                                "DEBUG: Position at After writing batch file object"));
    }
}

TEST(BatchFile, ReplacesTheOldOne)
{
    GenerateFixture f;
    f.files.contents[inWork("FDFemap.bat")] = "old\r\nlines\r\n";

    WriteBatchFile(f.context, f.progress, inWork(""), "beam");

    EXPECT_THAT(f.written("FDFemap.bat"), ElementsAre("nastran beam.dat notify=no"));
}

}  // namespace generate
