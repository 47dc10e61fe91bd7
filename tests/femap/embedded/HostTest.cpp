#include "femap/embedded/HostFixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

using femap::EntityType;
using femap::MessageColour;
using femap::ReturnCode;
using femap::embedded::Host;
using sys::ErrorNumber;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

namespace
{

/// A folder of its own for the files of one test.
class FolderFixture : public HostFixture
{
public:
    FolderFixture()
        : folder_(std::filesystem::temp_directory_path() /
                  ("velmar host " +
                   std::string(testing::UnitTest::GetInstance()->current_test_info()->name())))
    {
        std::filesystem::create_directories(folder_);
    }
    FolderFixture(const FolderFixture&) = delete;
    FolderFixture& operator=(const FolderFixture&) = delete;
    ~FolderFixture()
    {
        std::error_code ignored;
        std::filesystem::remove_all(folder_, ignored);
    }

    std::string write(const std::string& name, const std::string& content) const
    {
        const std::string path = (folder_ / name).string();
        std::ofstream(path, std::ios::binary) << content;
        return path;
    }

private:
    std::filesystem::path folder_;
};

std::string neutralFile(const std::string& blocks)
{
    return "   -1\n   100\n<NULL>\n9.3,\n   -1\n" + blocks;
}

std::string nodeBlock(int id)
{
    return "   -1\n   403\n" + std::to_string(id) +
           ",0,0,1,46,0,0,0,0,0,0,1.5,2.5,3.5,0,0,\n   -1\n";
}

}  // namespace

TEST(Host, AttachingAndCreatingGiveHandlesOnTheSameFemap)
{
    HostFixture f;

    const auto created = f.host.create();
    created->feAppLock();
    f.application->feAppLock();

    EXPECT_EQ(f.host.lockCount, 2);
}

TEST(Host, BecomesVisibleAndHidden)
{
    HostFixture f;

    f.application->feAppVisible(true);
    EXPECT_TRUE(f.host.visible);
    f.application->feAppVisible(false);
    EXPECT_FALSE(f.host.visible);
}

TEST(Host, AnUnlockTooManyDoesNoHarm)
{
    HostFixture f;

    f.application->feAppLock();
    f.application->feAppUnlock();
    f.application->feAppUnlock();
    f.application->feAppLock();

    EXPECT_EQ(f.host.lockCount, 1);
}

TEST(Host, KeepsMessagesWithTheirColour)
{
    HostFixture f;

    f.application->feAppMessage(MessageColour::Error, "First");
    f.application->feAppMessage(MessageColour::Normal, "100 %");

    ASSERT_EQ(f.host.messages.size(), 2U);
    EXPECT_EQ(f.host.messages[0].colour, MessageColour::Error);
    EXPECT_EQ(f.host.messages[0].text, "First");
    EXPECT_EQ(f.host.messages[1].colour, MessageColour::Normal);
    EXPECT_EQ(f.host.messages[1].text, "100 %");
}

TEST(Host, TellsOfEachMessageAsItAppears)
{
    HostFixture f;
    std::vector<std::string> shown;
    f.host.messageShown = [&](const Host::Message& message) { shown.push_back(message.text); };

    f.application->feAppMessage(MessageColour::Warning, "One");
    f.application->feAppMessage(MessageColour::Warning, "Two");

    EXPECT_THAT(shown, ElementsAre("One", "Two"));
}

TEST(Host, CutsAMessageToWhatFemapTakes)
{
    HostFixture f;

    f.application->feAppMessage(MessageColour::Error, std::string(200, 'x'));

    EXPECT_EQ(f.host.messages.at(0).text, std::string(159, 'x'));
}

TEST(Host, ShowsProgressAndTakesItAway)
{
    HostFixture f;

    f.application->feAppStatusShow(true, 500);
    f.application->feAppStatusUpdate(20);
    EXPECT_EQ(f.host.statusMaximum, 500);
    EXPECT_EQ(f.host.statusCurrent, 20);
    f.application->feAppStatusShow(false, 500);
    EXPECT_EQ(f.host.statusMaximum, 0);
    EXPECT_EQ(f.host.statusCurrent, 0);
}

TEST(Host, RecordsRegistrationsOfAddInPanes)
{
    HostFixture f;

    const int answer =
        f.application->feAppRegisterAddInPane({.windowID = 4711, .messageID = 4712, .location = 2});

    EXPECT_EQ(answer, -1);
    ASSERT_EQ(f.host.registrations.size(), 1U);
    EXPECT_TRUE(f.host.registrations[0].regster);
    EXPECT_EQ(f.host.registrations[0].windowID, 4711);
    EXPECT_EQ(f.host.registrations[0].messageID, 4712);
    EXPECT_EQ(f.host.registrations[0].location, 2);
}

TEST(Host, CountsItsModelAndGivesItsName)
{
    HostFixture f;
    f.host.modelName = "/models/beam.neu";

    EXPECT_EQ(f.application->feAppGetAllModels(), 1);
    EXPECT_EQ(f.application->ModelName(), "/models/beam.neu");
}

TEST(Host, AModelThatWasNeverSavedHasAnEmptyName)
{
    HostFixture f;

    EXPECT_EQ(f.application->ModelName(), "");
}

TEST(Host, WithoutAModelReadingItsNameRaises)
{
    HostFixture f;
    f.host.model.reset();

    const auto error = errorOf([&] { f.application->ModelName(); });

    ASSERT_TRUE(error);
    EXPECT_EQ(error->number(), ErrorNumber::ObjectNotSet);
    EXPECT_EQ(error->description(), "FEMAP has no model open");
    EXPECT_EQ(f.application->feAppGetAllModels(), 0);
}

TEST(Host, WithoutAModelNothingCanBeCollectedOrLoaded)
{
    HostFixture f;
    const auto set = f.application->feSet();
    const auto node = f.application->entity("Node");
    f.host.model.reset();

    EXPECT_EQ(complaintOf([&] { set->AddAll(EntityType::Node); }), "FEMAP has no model open");
    EXPECT_EQ(complaintOf([&] { node->Get(1); }), "FEMAP has no model open");
}

TEST(Host, TheFirstOutputAndLoadSetsAreActiveUnlessOthersAre)
{
    HostFixture f;
    f.model().outputSets.put({.id = 3});
    f.model().outputSets.put({.id = 5});
    f.model().loadSets.put({.id = 2});
    f.model().loadSets.put({.id = 4});

    EXPECT_EQ(f.application->Info_ActiveID(EntityType::OutputSet), 3);
    EXPECT_EQ(f.application->Info_ActiveID(EntityType::LoadSet), 2);
    f.model().activeOutputSet = 5;
    f.model().activeLoadSet = 4;
    EXPECT_EQ(f.application->Info_ActiveID(EntityType::OutputSet), 5);
    EXPECT_EQ(f.application->Info_ActiveID(EntityType::LoadSet), 4);
}

TEST(Host, WithoutSetsTheActiveIDIsZero)
{
    HostFixture f;

    EXPECT_EQ(f.application->Info_ActiveID(EntityType::OutputSet), 0);
    EXPECT_EQ(f.application->Info_ActiveID(EntityType::LoadSet), 0);
    EXPECT_EQ(f.application->Info_ActiveID(EntityType::Node), 0);
}

TEST(Host, HasNoFileDialog)
{
    HostFixture f;

    EXPECT_EQ(complaintOf([&] { f.application->feFileOpen(true, ""); }),
              "The model host has no file dialog");
}

TEST(Host, OpensANeutralFileUnderItsFullPath)
{
    FolderFixture f;
    const std::string path = f.write("beam.neu", neutralFile(nodeBlock(7)));
    const std::string relative = std::filesystem::relative(path).string();

    const ReturnCode code = f.application->feFileOpen(false, relative);

    EXPECT_EQ(code, ReturnCode::Ok);
    EXPECT_EQ(f.application->ModelName(), path);
    EXPECT_THAT(f.model().nodes.ids(), ElementsAre(7));
}

TEST(Host, OpeningReplacesTheModelThatWasOpen)
{
    FolderFixture f;
    f.model().nodes.put({.id = 1});
    const std::string path = f.write("beam.neu", neutralFile(nodeBlock(7)));

    f.application->feFileOpen(false, path);

    EXPECT_THAT(f.model().nodes.ids(), ElementsAre(7));
}

TEST(Host, OpensAModelWhileNoneIsOpen)
{
    FolderFixture f;
    f.host.model.reset();
    const std::string path = f.write("beam.neu", neutralFile(nodeBlock(7)));

    f.application->feFileOpen(false, path);

    EXPECT_EQ(f.application->feAppGetAllModels(), 1);
}

TEST(Host, AMissingFileRaisesAndKeepsTheModel)
{
    FolderFixture f;
    f.model().nodes.put({.id = 1});
    f.host.modelName = "/models/old.neu";

    const auto error = errorOf([&] { f.application->feFileOpen(false, "/no such/beam.neu"); });

    ASSERT_TRUE(error);
    EXPECT_EQ(error->number(), ErrorNumber::FileNotFound);
    EXPECT_THAT(error->description(), HasSubstr("beam.neu"));
    EXPECT_EQ(f.application->ModelName(), "/models/old.neu");
    EXPECT_THAT(f.model().nodes.ids(), ElementsAre(1));
}

TEST(Host, AnUnnamedFileRaises)
{
    HostFixture f;

    EXPECT_EQ(complaintOf([&] { f.application->feFileOpen(false, ""); }),
              "No model file was named");
}

TEST(Host, AFileNameWithoutAFolderRaisesWhenTheWorkingFolderIsGone)
{
    HostFixture f;
    const auto before = std::filesystem::current_path();
    const auto gone = std::filesystem::temp_directory_path() / "velmar host working folder";
    std::filesystem::create_directories(gone);
    std::filesystem::current_path(gone);
    std::error_code held;
    std::filesystem::remove_all(gone, held);

    const std::string complaint =
        complaintOf([&] { f.application->feFileOpen(false, "beam.neu"); });

    std::filesystem::current_path(before);
    if (held || std::filesystem::exists(gone))
        GTEST_SKIP() << "This system keeps the working folder";
    EXPECT_THAT(complaint, StartsWith("beam.neu has no full path: "));
}

TEST(Host, ABrokenFileRaisesWithItsLineAndKeepsTheModel)
{
    FolderFixture f;
    f.model().nodes.put({.id = 1});
    f.host.modelName = "/models/old.neu";
    const std::string path = f.write(
        "bad.neu", neutralFile("   -1\n   403\nseven,0,0,1,46,0,0,0,0,0,0,1,2,3,0,0,\n   -1\n"));

    const std::string complaint = complaintOf([&] { f.application->feFileOpen(false, path); });

    EXPECT_THAT(complaint, StartsWith(path + ":8: "));
    EXPECT_EQ(f.application->ModelName(), "/models/old.neu");
    EXPECT_THAT(f.model().nodes.ids(), ElementsAre(1));
}

TEST(Host, ImportsAFurtherFileIntoTheOpenModel)
{
    FolderFixture f;
    f.host.modelName = "/models/old.neu";
    f.model().nodes.put({.id = 1});

    f.host.importNeutralFile(f.write("more.neu", neutralFile(nodeBlock(7))));

    EXPECT_THAT(f.model().nodes.ids(), ElementsAre(1, 7));
    EXPECT_EQ(f.application->ModelName(), "/models/old.neu");
}

TEST(Host, ABrokenImportLeavesTheModel)
{
    FolderFixture f;
    f.model().nodes.put({.id = 1});
    const std::string path = f.write("bad.neu", neutralFile(nodeBlock(7) + "   -1\n   403\nx\n"));

    EXPECT_THAT(complaintOf([&] { f.host.importNeutralFile(path); }), HasSubstr("bad.neu:"));
    EXPECT_THAT(f.model().nodes.ids(), ElementsAre(1));
}

TEST(Host, ImportsNothingWithoutAModel)
{
    HostFixture f;
    f.host.model.reset();

    EXPECT_EQ(complaintOf([&] { f.host.importNeutralFile("/models/more.neu"); }),
              "FEMAP has no model open");
}

TEST(Host, MeasuresTheElementsOfASet)
{
    HostFixture f;
    f.model().nodes.put({.id = 1});
    f.model().nodes.put({.id = 2, .x = 3, .y = 4});
    f.model().elements.put({.id = 8, .type = femap::elementRod, .node = {1, 2}});
    f.model().elements.put({.id = 9, .type = femap::elementRod, .node = {1, 2}});
    const auto set = f.setOf(EntityType::Element);

    EXPECT_EQ(f.application->feMeasureMeshMassProp(set->ID(), 0, false, false).length, 10);
    EXPECT_EQ(f.application->feMeasureMeshMassProp(-9, 0, false, false).length, 5);
}

TEST(Host, RefusesToMeasureASetThatIsNotThere)
{
    HostFixture f;
    auto set = f.application->feSet();
    const int id = set->ID();
    set.reset();

    EXPECT_EQ(complaintOf([&] { f.application->feMeasureMeshMassProp(id, 0, false, false); }),
              "FEMAP has no set with the ID " + std::to_string(id));
}

TEST(Host, RefusesToMeasureInAnotherCoordinateSystem)
{
    HostFixture f;

    EXPECT_EQ(complaintOf([&] { f.application->feMeasureMeshMassProp(-1, 3, false, false); }),
              "The model host measures in the global coordinate system only");
}
