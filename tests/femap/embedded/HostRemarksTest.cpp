#include "fake/NeutralText.h"
#include "fake/TemporaryFolder.h"
#include "femap/embedded/HostFixture.h"
#include "system/Files.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <thread>

using femap::EntityType;
using femap::MessageColour;
using femap::embedded::Host;
using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

namespace
{

/// A host with a model file, and all that it shows in its message window.
struct RemarksFixture : HostFixture
{
    RemarksFixture()
    {
        host.messageShown = [this](const Host::Message& message) {
            EXPECT_EQ(message.colour, MessageColour::Warning);
            shown.push_back(message.text);
        };
    }

    void write(const std::string& content) const
    {
        const auto file = sys::DiskFiles().create(path);
        file->write(content);
        file->close();
    }
    void open() { application->feFileOpen(false, path); }
    void measureWith(int elementID)
    {
        model().elements.put({.id = elementID, .type = femap::elementRod, .node = {1, 3}});
        application->feMeasureMeshMassProp(setOf(EntityType::Element)->ID(), 0, false, false);
    }

    fake::TemporaryFolder folder;
    const std::string path = folder.path("wing.neu");
    std::vector<std::string> shown;
};

std::string nodes()
{
    return neutral::header() + neutral::block(403,
                                              "1,0,0,1,46,0,0,0,0,0,0,0.,0.,0.,0,0,\n"
                                              "3,0,0,1,46,0,0,0,0,0,0,1.,1.,0.,0,0,\n");
}

}  // namespace

TEST(HostRemarks, WhatCannotBeWeighedIsToldOnceForEachModel)
{
    const std::string remark = "Elements without a property are missing in the masses: ";
    RemarksFixture f;
    f.write(nodes());

    f.open();
    EXPECT_THAT(f.shown, IsEmpty());
    f.measureWith(8);
    f.measureWith(8);
    EXPECT_THAT(f.shown, ElementsAre(remark + "1 of 1 (rod 1)"));
    f.measureWith(9);
    EXPECT_THAT(f.shown, ElementsAre(remark + "1 of 1 (rod 1)", remark + "2 of 2 (rod 2)"));
    f.shown.clear();
    f.open();
    f.measureWith(8);
    EXPECT_THAT(f.shown, ElementsAre(remark + "1 of 1 (rod 1)"));
}

TEST(HostRemarks, ASingleElementIsToldAsWell)
{
    RemarksFixture f;
    f.write(nodes());
    f.open();
    f.model().elements.put({.id = 8, .type = femap::elementTube, .node = {1, 3}});

    f.application->feMeasureMeshMassProp(-8, 0, false, false);

    EXPECT_THAT(f.shown, ElementsAre("Elements that the model host cannot weigh are missing in the "
                                     "masses: 1 of 1 (tube 1)"));
}

TEST(HostRemarks, ResultsThatMayBeCutAreToldWithTheirFile)
{
    const auto cut = AllOf(StartsWith("The results may be cut short"), HasSubstr("wing.neu"));
    RemarksFixture f;
    f.write(nodes() + "   -1\n   451\n" + neutral::vectorHead(1, 1, "T1") + "1,0.5,\n-1,0.,\n");

    f.open();
    EXPECT_THAT(f.shown, ElementsAre(cut));
    EXPECT_EQ(f.model().outputSets.size(), 1U);

    f.host.importNeutralFile(f.path);
    EXPECT_THAT(f.shown, ElementsAre(cut, cut));
}

TEST(HostRemarks, AFileThatMayNotBeReadForAMomentIsWaitedFor)
{
    using std::filesystem::perms;
    RemarksFixture f;
    f.write(nodes());
    std::filesystem::permissions(f.path, perms::none);
    if (std::ifstream(f.path).is_open())
        GTEST_SKIP() << "This user may read any file.";
    std::thread other([&] {
        std::this_thread::sleep_for(std::chrono::milliseconds(200));
        std::filesystem::permissions(f.path, perms::owner_all);
    });

    EXPECT_EQ(complaintOf([&] { f.open(); }), "");
    other.join();
    EXPECT_EQ(f.application->ModelName(), f.path);
}
