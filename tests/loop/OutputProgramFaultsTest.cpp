// CAEOutput while every call of FEMAP and every operation of the disk may fail.
#include "FolderOfRun.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace loop
{

using testing::HasSubstr;

TEST(CAEOutput, LeavesNoOldValuesWhateverCallFemapRefuses)
{
    int refused = 0;
    for (std::size_t n = 1;; ++n) {
        SCOPED_TRACE("call " + std::to_string(n));
        FolderOfRun study;
        study.openInFemap();
        study.connector->failAtCall(n);
        const int exitCode = study.run();
        const bool isReached = study.connector->calls.size() >= n;
        study.connector->behave();

        EXPECT_EQ(exitCode == exitDone, study.hasValues());
        EXPECT_EQ(exitCode == exitDone, study.errors.str().empty()) << study.errors.str();
        if (study.hasValues()) {
            EXPECT_EQ(study.values(), valuesOfRun);
        }
        if (study.femap.idsOf(femap::EntityType::OutputSet).size() != 1) {
            EXPECT_THAT(study.errors.str(), HasSubstr("could not be deleted"));
        }
        if (study.hasJournal()) {
            EXPECT_THAT(study.errors.str(), HasSubstr("NOT put back"));
        }
        EXPECT_EQ(study.connector->objects, 0);
        if (!isReached)
            break;
        refused += exitCode == exitDone ? 0 : 1;
    }
    EXPECT_GT(refused, 20);
}

TEST(CAEOutput, LeavesNoValuesWhateverCallIsFemapsLast)
{
    int lost = 0;
    for (std::size_t n = 1;; ++n) {
        SCOPED_TRACE("call " + std::to_string(n));
        FolderOfRun study;
        study.openInFemap();
        study.connector->dieAtCall(n);
        const int exitCode = study.run();
        if (study.connector->calls.size() < n) {
            EXPECT_EQ(exitCode, exitDone);
            break;
        }

        EXPECT_EQ(exitCode, exitNotDone);
        EXPECT_FALSE(study.hasValues());
        EXPECT_NE(study.errors.str(), "");
        EXPECT_EQ(study.connector->objects, 0);
        ++lost;
    }
    EXPECT_GT(lost, 20);
}

TEST(CAEOutput, LeavesNoOldValuesWhateverTheDiskRefuses)
{
    int refused = 0;
    for (int operation = 1;; ++operation) {
        SCOPED_TRACE("operation " + std::to_string(operation));
        FolderOfRun study;
        study.files.failingOperation = operation;
        const int exitCode = study.runEmbedded();
        if (study.files.operations < operation) {
            EXPECT_EQ(exitCode, exitDone);
            break;
        }

        if (exitCode == exitDone) {
            EXPECT_EQ(study.values(), valuesOfRun);
        }
        else {
            // Only what cannot be removed is still there.
            EXPECT_EQ(study.hasValues(), operation == 1);
            EXPECT_NE(study.errors.str(), "");
        }
        EXPECT_LE(study.folder.listing().size(), 9U);
        refused += exitCode == exitDone ? 0 : 1;
    }
    EXPECT_GT(refused, 5);
}

}  // namespace loop
