#include "femap/com/Apartment.h"
#include "femap/embedded/Host.h"
#include "standin/ChangesTranscript.h"
#include "standin/Generations.h"
#include "standin/QueuedSelections.h"
#include "standin/StartedStandin.h"
#include "standin/Transcript.h"
#include "system/RuntimeError.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace comtest
{

using femap::Application;
using femap::MessageColour;
using testing::AnyOf;
using testing::Contains;
using testing::HasSubstr;
using testing::SizeIs;

namespace
{

// A FEMAP in another process beside the one in this, with the same model.
class Adapter : public testing::TestWithParam<const char*>
{
protected:
    Adapter()
    {
        host.openNeutralFile(panelModel());
        com = femap::com::ComConnector(nullptr).attach();
    }
    ~Adapter() override { com.reset(); }

    femap::com::Apartment apartment;
    StartedStandin standin{std::string(GetParam()) + " --model \"" + panelModel() + '"'};
    standin::QueuedSelections picks;
    femap::embedded::Host host{picks};
    std::unique_ptr<Application> inProcess = host.attach();
    std::unique_ptr<Application> com;

    // The next dialog of both is answered so.
    std::function<void(const char*)> inBoth(bool isCom)
    {
        return [this, isCom](const char* answer) {
            if (isCom)
                standin.control().call("standinPick", answer);
            else
                picks.queue(answer);
        };
    }
};

INSTANTIATE_TEST_SUITE_P(OfBothGenerations, Adapter, bothGenerations, nameOfGeneration);

}  // namespace

TEST_P(Adapter, AnswersForTheApplicationAsTheEmbeddedHostDoes)
{
    const Lines lines = ofApplication(*com);

    EXPECT_EQ(lines, ofApplication(*inProcess));
    EXPECT_THAT(lines, SizeIs(7));
}

TEST_P(Adapter, FillsSetsAsTheEmbeddedHostDoes)
{
    const Lines lines = ofSets(*com);

    EXPECT_EQ(lines, ofSets(*inProcess));
    EXPECT_THAT(lines, Contains("set 35 count = 2"));
}

TEST_P(Adapter, LetsTheEngineerSelectAsTheEmbeddedHostDoes)
{
    const Lines lines = ofSelections(*com, inBoth(true));

    EXPECT_EQ(lines, ofSelections(*inProcess, inBoth(false)));
    EXPECT_THAT(lines, Contains("selected = 1 2 3 5 "));
}

TEST_P(Adapter, ReadsEntitiesAsTheEmbeddedHostDoes)
{
    const Lines lines = ofEntities(*com);

    EXPECT_EQ(lines, ofEntities(*inProcess));
    EXPECT_THAT(lines, Contains("Matl 1 Alphaxz -1 is refused"));
}

TEST_P(Adapter, ReadsOutputVectorsAsTheEmbeddedHostDoes)
{
    const Lines lines = ofOutputVectors(*com);

    EXPECT_EQ(lines, ofOutputVectors(*inProcess));
    EXPECT_THAT(lines, Contains("vector 1 minimum = 0"));
}

TEST_P(Adapter, ReadsFunctionsAsTheEmbeddedHostDoes)
{
    const Lines lines = ofFunctions(*com, inBoth(true));

    EXPECT_EQ(lines, ofFunctions(*inProcess, inBoth(false)));
    EXPECT_THAT(lines, Contains("2 title = E-Modul über Temperatur"));
}

TEST_P(Adapter, ReadsLoadDefinitionsAsTheEmbeddedHostDoes)
{
    const Lines lines = ofLoadDefinitions(*com);

    EXPECT_EQ(lines, ofLoadDefinitions(*inProcess));
    EXPECT_THAT(lines, Contains("definition 1 load 1 meshID -1 = 2:441"));
}

TEST_P(Adapter, MeasuresMassAsTheEmbeddedHostDoes)
{
    const Lines lines = ofMassProperties(*com);

    EXPECT_EQ(lines, ofMassProperties(*inProcess));
    EXPECT_THAT(lines, Contains(HasSubstr("mass = ")));
}

TEST_P(Adapter, GivesBackEveryReference)
{
    const int before = standin.control().call("standinObjectCount").number();

    ofSets(*com);
    ofOutputVectors(*com);
    ofLoadDefinitions(*com);
    ofChanges(*com, SolverFolder());

    EXPECT_TRUE(
        comesTrue([&] { return standin.control().call("standinObjectCount").number() == before; }));
}

TEST_P(Adapter, ShowsMessagesWithTheirColourAndPerCentSigns)
{
    com->feAppMessage(MessageColour::Error, "100 % of 5%s für Ø");
    com->feAppMessage(MessageColour::Normal, "plain");

    EXPECT_EQ(standin.control().call("standinMessages").text(), "3 100 % of 5%s für Ø\n0 plain\n");
}

TEST_P(Adapter, CutsALongMessageWithoutLosingAPerCentSign)
{
    com->feAppMessage(MessageColour::Error, std::string(158, 'x') + "%%%");

    const std::string shown = standin.control().call("standinMessages").text();
    EXPECT_THAT(shown,
                AnyOf("3 " + std::string(158, 'x') + "\n", "3 " + std::string(157, 'x') + "%\n"));
}

TEST_P(Adapter, LocksAndUnlocksAsOftenAsItIsAsked)
{
    com->feAppLock();
    com->feAppLock();
    com->feAppUnlock();

    EXPECT_EQ(standin.control().call("standinLockCount").number(), 1);
}

TEST_P(Adapter, RegistersAPaneWithItsArgumentsInOrder)
{
    femap::AddInPane pane;
    pane.windowID = 4711;
    pane.messageID = 4712;
    pane.location = 2;
    com->feAppRegisterAddInPane(pane);
    pane.regster = false;
    pane.bPreventHide = true;
    com->feAppRegisterAddInPane(pane);

    EXPECT_EQ(standin.control().call("standinRegistrations").text(),
              "1 4711 4712 0 0 2 0\n0 4711 4712 0 1 2 0\n");
}

TEST_P(Adapter, SaysWhatFemapSaysWhenAModelCannotBeOpened)
{
    EXPECT_EQ(com->feFileOpen(false, "Z:\\no\\such\\model.neu"), femap::ReturnCode::Fail);
    EXPECT_EQ(com->ModelName(), inProcess->ModelName());
}

TEST_P(Adapter, TellsFemapsVersion)
{
    EXPECT_GE(com->Info_Version(), 11.2);
}

TEST_P(Adapter, OpensAModel)
{
    standin.control().call("standinModel", "none");
    EXPECT_EQ(com->feAppGetAllModels(), 0);
    EXPECT_THROW(com->ModelName(), sys::RuntimeError);

    EXPECT_EQ(com->feFileOpen(false, panelModel()), femap::ReturnCode::Ok);

    EXPECT_EQ(com->ModelName(), panelModel());
    EXPECT_EQ(com->feAppGetAllModels(), 1);
}

TEST_P(Adapter, RaisesWhatAFailingMemberSays)
{
    standin.control().call("standinFailAt", 1);

    try {
        com->ModelName();
        FAIL() << "did not raise";
    }
    catch (const sys::RuntimeError& error) {
        EXPECT_EQ(error.description(),
                  "FEMAP's application.ModelName failed: FEMAP was told to fail here");
    }
}

TEST_P(Adapter, CallsNoMemberAgainAfterItFailed)
{
    standin.control().call("standinFailAt", 1);
    const int before = standin.control().call("standinCallCount").number();

    EXPECT_THROW(com->feAppLock(), sys::RuntimeError);

    EXPECT_EQ(standin.control().call("standinCallCount").number(), before + 1);
}

TEST_P(Adapter, ShowsTheProgressBar)
{
    EXPECT_NO_THROW(com->feAppStatusShow(true, 100));
    EXPECT_NO_THROW(com->feAppStatusUpdate(50));
    EXPECT_NO_THROW(com->feAppStatusShow(false, 0));
    EXPECT_NO_THROW(com->feAppVisible(true));
}

}  // namespace comtest
