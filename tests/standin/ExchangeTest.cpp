// Decks and results of the stand-in, as a program sees them that evaluates a design.
#include "fake/TemporaryFolder.h"
#include "femap/Objects.h"
#include "femap/neutral/NeutralFile.h"
#include "standin/Generations.h"
#include "standin/StandinHere.h"
#include "standin/StartedStandin.h"
#include "system/CodePage.h"
#include "system/Files.h"
#include "windows/Text.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace comtest
{

using femap::com::Dispatch;
using femap::com::Variant;
using testing::HasSubstr;

namespace
{

constexpr int nastran = 8;
constexpr int outputSetType = 28;
constexpr int analysisSetType = 60;
constexpr int fine = -1;

std::vector<int> outputSetsOf(Dispatch& femap)
{
    Dispatch set = femap.object("feSet");
    set.call("AddAll", outputSetType);
    LONG count = 0;
    Variant ids;
    set.call("GetArray", &count, &ids);
    return ids.numbers();
}

// A set object that holds some IDs, for as long as it lives.
class SetOf
{
public:
    SetOf(Dispatch& femap, const std::vector<int>& ids) : set_(femap.object("feSet"))
    {
        for (const int id : ids)
            set_.call("Add", id);
    }
    int number() { return set_.call("ID").number(); }

private:
    Dispatch set_;
};

class Exchange : public testing::TestWithParam<const char*>
{
protected:
    // What a solver leaves: the file that the client names, and the one that the stand-in reads.
    std::string results(const std::string& name = "run")
    {
        std::filesystem::copy_file(windows::toWide(panelModel()),
                                   windows::toWide(folder.path(name + ".results.neu")));
        std::ofstream(std::filesystem::path(windows::toWide(folder.path(name + ".op2")))) << "x";
        return folder.path(name + ".op2");
    }
    std::string content(const std::string& path) { return sys::DiskFiles().read(path); }
    bool isClassic() const { return GetParam() == std::string("--classic"); }
    Dispatch& femap() { return standin.control(); }

    femap::com::Apartment apartment;
    fake::TemporaryFolder folder;
    StartedStandin standin{std::string(GetParam()) + " --model \"" + panelModel() + '"'};
};

INSTANTIATE_TEST_SUITE_P(BothGenerations, Exchange, bothGenerations, nameOfGeneration);

}  // namespace

TEST_P(Exchange, WritesADeckThatFollowsThePresentValues)
{
    const std::string deck = folder.path("panel.dat");
    const auto written = [&] {
        EXPECT_EQ(femap().call("feFileWriteNastran", nastran, deck).number(), fine);
        return content(deck);
    };
    Dispatch property = femap().object("feProp");
    property.call("Get", 1);
    const double before = property.call("pval", 0).real();
    const auto store = [&](double value) {
        property.put("pval", 0, value);
        EXPECT_EQ(property.call("Put", 1).number(), fine);
    };

    const std::string first = written();
    store(before + 0.5);
    const std::string second = written();
    store(before);

    EXPECT_THAT(first, HasSubstr("$ feProp,"));
    EXPECT_NE(second, first);
    EXPECT_EQ(written(), first);
}

TEST_P(Exchange, LeavesTheModelWithItsPresentValuesBesideTheDeck)
{
    Dispatch property = femap().object("feProp");
    property.call("Get", 1);
    property.put("pval", 0, 3.25);
    EXPECT_EQ(property.call("Put", 1).number(), fine);

    EXPECT_EQ(femap().call("feFileWriteNastran", nastran, folder.path("deck.dat")).number(), fine);

    const std::string run = content(folder.path("panel.run.neu"));
    femap::neutral::Model model;
    readNeutralFile(run, "panel.run.neu", sys::windows1252(), model);
    EXPECT_EQ(model.properties.find(1)->pval[0], 3.25);
    EXPECT_NE(run, content(panelModel()));
    EXPECT_EQ(run.size(), content(panelModel()).size() + 2);  // "3." became "3.25"
}

TEST_P(Exchange, ReadsResultsBesideTheOldOnesAndDeletesThem)
{
    const std::vector<int> before = outputSetsOf(femap());
    ASSERT_FALSE(before.empty());
    const std::string path = results();
    const int active = femap().call("Info_ActiveID", outputSetType).number();

    EXPECT_EQ(femap().call("feFileReadNastranResults", nastran, path).number(), fine);
    std::vector<int> added = outputSetsOf(femap());
    ASSERT_EQ(added.size(), 2 * before.size());
    added.erase(added.begin(), added.begin() + static_cast<std::ptrdiff_t>(before.size()));
    EXPECT_GT(added.front(), before.back());
    EXPECT_EQ(femap().call("Info_ActiveID", outputSetType).number(), active);
    EXPECT_EQ(femap().call("feFileIsModified").number(), fine);

    SetOf own(femap(), added);
    EXPECT_EQ(femap().call("feDelete", outputSetType, own.number()).number(), fine);
    EXPECT_EQ(outputSetsOf(femap()), before);
    EXPECT_EQ(femap().call("feDelete", outputSetType, own.number()).number(), 4);
}

TEST_P(Exchange, DeletesNothingButResults)
{
    SetOf one(femap(), {1});

    EXPECT_EQ(femap().call("feDelete", 7, one.number()).number(), 6);
    EXPECT_EQ(femap().call("feDelete", outputSetType, 12345).number(), 0);
    EXPECT_EQ(femap().call("feDeleteAll", false, true, true, true).number(), 6);
    EXPECT_EQ(femap().call("feDeleteAll", false, false, true, false).number(), 2);
    EXPECT_EQ(femap().call("feDeleteAll", false, false, false, true).number(), fine);
    EXPECT_FALSE(outputSetsOf(femap()).empty());
    EXPECT_EQ(femap().call("feDeleteAll", false, false, true, true).number(), fine);

    EXPECT_EQ(femap().call("Info_Count", outputSetType).number(), 0);
    EXPECT_GT(femap().call("Info_Count", 7).number(), 0);
}

TEST_P(Exchange, DeletesSingleVectorsOfAnOutputSet)
{
    const char* const name = isClassic() ? "feDeleteOutput" : "feDeleteOutputV2";
    const auto vectors = [&] {
        Dispatch sets = femap().object("feOutputSet");
        sets.call("Get", 1);
        Dispatch into = femap().object("feSet");
        sets.call(isClassic() ? "OutputVectors" : "OutputVectorsV2", into.call("ID").number());
        return into.call("Count").number();
    };
    const int before = vectors();

    EXPECT_EQ(femap().call(name, 1, -1).number(), fine);
    EXPECT_EQ(vectors(), before - 1);
    EXPECT_EQ(femap().call(name, 1, -1).number(), 4);
    EXPECT_EQ(femap().call(name, 1, 12345).number(), 0);
    EXPECT_EQ(femap().call(name, 1, 0).number(), fine);
    EXPECT_EQ(vectors(), 0);
}

TEST_P(Exchange, TellsByCodesWhyAFileIsNotReadOrWritten)
{
    const int unopened = isClassic() ? 0 : 15;
    const int unwritten = isClassic() ? 0 : 17;
    const auto code = [&](const char* member, const std::string& path) {
        return femap().call(member, nastran, path).number();
    };
    std::ofstream(std::filesystem::path(windows::toWide(folder.path("alone.op2")))) << "x";

    EXPECT_EQ(code("feFileReadNastranResults", folder.path("none.op2")), unopened);
    EXPECT_EQ(code("feFileReadNastranResults", folder.path("alone.op2")), 9);
    EXPECT_EQ(code("feFileReadNastranResults", ""), 16);
    EXPECT_EQ(code("feFileWriteNastran", folder.path("none\\panel.dat")), unwritten);
    EXPECT_EQ(code("feFileWriteNastran", ""), 16);
    EXPECT_THAT(femap().call("standinMessages").text(), HasSubstr("alone.results.neu"));
}

TEST_P(Exchange, AsksForAnAnalysisSetUnlessDialogsAreToStayAway)
{
    const std::string deck = folder.path("panel.dat");
    const auto written = [&] { return femap().call("feFileWriteNastran", nastran, deck).number(); };
    EXPECT_EQ(femap().call("Info_ActiveID", analysisSetType).number(), 1);
    femap().call("standinModel", "no-analysis-set");
    EXPECT_EQ(femap().call("Info_ActiveID", analysisSetType).number(), 0);

    femap().put("DialogAutoSkip", 1);
    EXPECT_EQ(written(), 0);
    femap().put("DialogAutoSkip", 0);
    femap().call("standinPick", "cancel");
    EXPECT_EQ(written(), 2);
    EXPECT_FALSE(std::filesystem::exists(windows::toWide(deck)));
    femap().call("standinPick", "1");
    EXPECT_EQ(written(), fine);

    EXPECT_EQ(femap().call("Info_ActiveID", analysisSetType).number(), 1);
    EXPECT_TRUE(std::filesystem::exists(windows::toWide(deck)));
}

TEST_P(Exchange, KeepsTheSwitchesOfItsDialogs)
{
    for (const char* const name : {"DialogAutoSkip", "DialogAutoSkipMsg", "DialogAutoAnswer"}) {
        EXPECT_EQ(femap().call(name).number(), 0) << name;
        femap().put(name, 1);
        EXPECT_EQ(femap().call(name).number(), 1) << name;
    }
}

TEST_P(Exchange, SetsTheActiveOutputSetByEitherWay)
{
    femap().call("feFileReadNastranResults", nastran, results());
    const std::vector<int> all = outputSetsOf(femap());
    ASSERT_GT(all.size(), 1U);
    const auto active = [&] { return femap().call("Info_ActiveID", outputSetType).number(); };
    Dispatch sets = femap().object("feOutputSet");

    sets.put("Active", all[1]);
    EXPECT_EQ(active(), all[1]);
    femap().put("Info_ActiveID", outputSetType, all[0]);
    EXPECT_EQ(sets.call("Active").number(), all[0]);
    sets.put("Active", 12345);
    EXPECT_EQ(active(), all[0]);
    EXPECT_EQ(femap().call("Info_ActiveID", 7).number(), 0);
}

TEST_P(Exchange, CanSayThatADeckIsWrittenThatIsNot)
{
    const std::string deck = folder.path("panel.dat");
    const auto written = [&](const char* how) {
        femap().call("standinFault", "application.feFileWriteNastran", how);
        return femap().call("feFileWriteNastran", nastran, deck).number();
    };

    EXPECT_EQ(written("ignored"), fine);
    EXPECT_FALSE(std::filesystem::exists(windows::toWide(deck)));
    EXPECT_EQ(written("none"), fine);
    const std::string whole = content(deck);
    EXPECT_EQ(written("short"), fine);
    EXPECT_EQ(content(deck), whole.substr(0, whole.size() / 2));
    std::filesystem::remove(windows::toWide(deck));
    EXPECT_EQ(written("fails"), 0);
    EXPECT_FALSE(std::filesystem::exists(windows::toWide(deck)));
}

TEST_P(Exchange, CanRefuseAndIgnoreResults)
{
    const std::vector<int> before = outputSetsOf(femap());
    const std::string path = results();
    for (const auto& [how, code] : {std::pair("fails", 0), std::pair("ignored", fine)}) {
        femap().call("standinFault", "application.feFileReadNastranResults", how);

        EXPECT_EQ(femap().call("feFileReadNastranResults", nastran, path).number(), code) << how;
        EXPECT_EQ(outputSetsOf(femap()), before) << how;
    }
}

TEST_P(Exchange, CanStallInTheMiddleOfAPut)
{
    Dispatch property = femap().object("feProp");
    property.call("Get", 1);
    femap().call("standinStallAt", 0, 1);
    femap().call("standinFault", "feProp.Put", "stalls");
    const DWORD begin = GetTickCount();

    EXPECT_EQ(property.call("Put", 1).number(), fine);
    EXPECT_GE(GetTickCount() - begin, 950U);
    femap().call("standinFault", "feProp.Put", "none");
    femap().call("standinFault", "feProp.color", "stalls");
    property.put("color", 4);

    EXPECT_GE(GetTickCount() - begin, 1900U);
    EXPECT_EQ(property.call("Put", 1).number(), fine);
}

TEST_P(Exchange, CanDieInTheMiddleOfAPut)
{
    Dispatch property = femap().object("feProp");
    property.call("Get", 1);
    femap().call("standinFault", "feProp.pval", "dies");

    EXPECT_THROW(property.put("pval", 0, 1.0), femap::ConnectionLost);

    EXPECT_TRUE(standin.ends());
}

TEST_P(Exchange, CanDieInTheMiddleOfADeck)
{
    const std::string deck = folder.path("panel.dat");
    femap().call("feFileWriteNastran", nastran, deck);
    const std::string whole = content(deck);
    femap().call("standinFault", "application.feFileWriteNastran", "dies");

    EXPECT_THROW(femap().call("feFileWriteNastran", nastran, deck), femap::ConnectionLost);

    EXPECT_TRUE(standin.ends());
    EXPECT_EQ(content(deck), whole.substr(0, whole.size() / 2));
}

TEST(ResultsThatAreRead, BecomeActiveInOneMode)
{
    const fake::TemporaryFolder folder;
    std::filesystem::copy_file(windows::toWide(panelModel()),
                               windows::toWide(folder.path("run.results.neu")));
    std::ofstream(std::filesystem::path(windows::toWide(folder.path("run.op2")))) << "x";
    StandinHere plain;
    StandinHere activates({standin::Mode::ReadActivates});

    for (StandinHere* const here : {&plain, &activates}) {
        const std::vector<int> before = outputSetsOf(here->femap);
        here->femap.call("feFileReadNastranResults", nastran, folder.path("run.op2"));
        EXPECT_EQ(here->femap.call("Info_ActiveID", outputSetType).number(),
                  here == &plain ? before.front() : before.back() + 1);
    }
}

}  // namespace comtest
