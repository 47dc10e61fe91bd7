#include "selection/LoadDefinitionFixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

namespace selection
{

using fake::FormFixture;
using femap::LoadDataType;
using femap::ReturnCode;
using sys::RuntimeError;
using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::IsSupersetOf;
using testing::Not;

TEST_F(LoadDefinitionInputs, ACancelledSelectionIsToldInTwoWordings)
{
    define(2, "Wind", LoadDataType::Mesh, 42);
    f.dialogs.answers.push_back({ReturnCode::Cancel, {}});

    UpdateLoadDefinitionInputs(f.context);

    EXPECT_THAT(f.femap.messages,
                ElementsAre(AllOf(testing::Field(&femap::embedded::Host::Message::colour,
                                                 femap::MessageColour::Error),
                                  testing::Field(&femap::embedded::Host::Message::text,
                                                 "Load Definition selection cancelled..."))));
    EXPECT_EQ(f.form.StatusLine.Caption, "Load Definition selection cancelled...");
    EXPECT_THAT(f.log(),
                ElementsAre("DEBUG: Before fetching load definition data",
                            "DEBUG: Acquired femap lock before getting load definition data",
                            "DEBUG: intialize feLoadDefinition", "DEBUG: intialize loadDefSet",
                            "DEBUG: Before getting active loadset ID",
                            "DEBUG: After getting active loadset ID. Active loadset id=1",
                            "DEBUG: Load definition selection cancelled...",
                            "DEBUG: Released femap lock before getting load definition data",
                            "DEBUG: After fetching load definition data"));
    EXPECT_THAT(f.names(f.form.InputsList), ElementsAre(""));
    EXPECT_EQ(f.form.returnCode, 2);
    EXPECT_TRUE(isUnlocked());
}

TEST_F(LoadDefinitionInputs, AFailedSelectionIsToldInTwoWordings)
{
    for (const int code : {0, 3, 4}) {
        FormFixture g;
        g.dialogs.answers.push_back({static_cast<ReturnCode>(code), {}});

        UpdateLoadDefinitionInputs(g.context);

        EXPECT_THAT(g.messages(), ElementsAre("Load Definition  selection failed...")) << code;
        EXPECT_THAT(g.log(), AllOf(Contains("DEBUG: Load definition selection failed..."),
                                   Not(Contains(HasSubstr("selection cancelled")))));
        EXPECT_THAT(g.names(g.form.InputsList), ElementsAre(""));
        EXPECT_EQ(g.form.returnCode, code);
        EXPECT_EQ(g.femap.lockCount, 0);
        EXPECT_EQ(g.context.lockDepth, 0);
    }
}

TEST_F(LoadDefinitionInputs, AnEmptySelectionAddsNothingAndFailsNothing)
{
    define(2, "Wind", LoadDataType::Mesh, 42);

    pick({});

    EXPECT_THAT(f.log(), IsSupersetOf({"DEBUG: 0 Load definitions selected",
                                       "DEBUG: Check for blank variable in Input List"}));
    EXPECT_THAT(f.names(f.form.InputsList), ElementsAre(""));
    EXPECT_THAT(f.messages(), IsEmpty());
    EXPECT_TRUE(isUnlocked());
}

TEST_F(LoadDefinitionInputs, ADefinitionWithoutRowsIsToldAndTheWalkGoesOn)
{
    define(1, "Bolt", LoadDataType::Mesh, 48);
    define(2, "Empty", LoadDataType::Geometry, 81);
    define(3, "Wind", LoadDataType::Mesh, 42);
    loads().meshLoads.push_back({.id = 1, .definitionID = 1, .load = {5}});
    loads().meshLoads.push_back({.id = 2, .definitionID = 3, .load = {5}});

    pick({1, 2, 3});

    EXPECT_THAT(rows(), ElementsAre("Wind_3_Pressure\t 5\tLoadMesh\t 3\t0\t0"));
    EXPECT_THAT(f.messages(), ElementsAre("Load definition selection failed...",
                                          "Load definition selection failed..."));
    const std::vector<std::string> log = f.log();
    EXPECT_EQ(std::count(log.begin(), log.end(), "DEBUG: Load definition selection failed..."), 2);
    EXPECT_TRUE(isUnlocked());
}

TEST_F(LoadDefinitionInputs, TheBlankRowOfAnEmptyGridStaysWhenNothingWasAdded)
{
    define(1, "Bolt", LoadDataType::Mesh, 48);

    pick({1});

    EXPECT_THAT(f.names(f.form.InputsList), ElementsAre(""));
    EXPECT_THAT(f.log(), AllOf(Not(Contains(HasSubstr("Blank row found"))),
                               Contains("DEBUG: After fetching load definition data")));
    EXPECT_TRUE(isUnlocked());
}

TEST_F(LoadDefinitionInputs, ALoadOfAnotherDataTypeIsLoggedAndGivesNoRow)
{
    script.dataType = 99;
    script.loadType = 41;
    script.loads = {{}, {}};

    pickScripted();

    const std::vector<std::string> log = f.log();
    EXPECT_EQ(std::count(log.begin(), log.end(),
                         "DEBUG: Load definition of load type = 41and data type = 99 not "
                         "supported"),
              2);
    EXPECT_THAT(f.names(f.form.InputsList), ElementsAre(""));
    EXPECT_THAT(f.messages(), ElementsAre("Load definition selection failed..."));
}

TEST_F(LoadDefinitionInputs, WholeNumbersAndSinglesAreValuesToo)
{
    script.loads = {
        {{{"load", 0}, std::int64_t{-3}}, {{"load", 1}, 0.1F}, {{"load", 2}, 0.1 + 0.2}}};

    pickScripted();

    EXPECT_THAT(rows(), ElementsAre("Scripted_3_Fx\t-3\tLoadMesh\t 3\t0\t0",
                                    "Scripted_3_Fy\t .1\tLoadMesh\t 3\t0\t0",
                                    "Scripted_3_Fz\t .30000000000000004\tLoadMesh\t 3\t0\t0"));
}

TEST_F(LoadDefinitionInputs, AValueThatCannotBeReadCostsItsRowOnly)
{
    script.loads = {{{{"load", 0}, 1.0}, {{"load", 2}, 3.0}},
                    {{{"load", 0}, std::string("much")}, {{"load", 1}, true}, {{"load", 2}, {}}}};

    pickScripted();

    EXPECT_THAT(f.names(f.form.InputsList), ElementsAre("Scripted_3_Fx", "Scripted_3_Fz"));
    const std::string message = "4 of 6 values of loads could not be read; they have no rows";
    EXPECT_THAT(f.messages(), ElementsAre(message));
    EXPECT_EQ(f.form.StatusLine.Caption, message);
    EXPECT_THAT(f.log(), Contains("DEBUG: " + message));
    EXPECT_THAT(f.log(), IsSupersetOf({"ERROR: --------------------Reading a load of "
                                       "Scripted--------------------",
                                       "ERROR: There is no member load",
                                       "ERROR: The value of a load is not a number"}));
    EXPECT_FALSE(f.context.error.isPending());
    EXPECT_TRUE(isUnlocked());
}

TEST_F(LoadDefinitionInputs, AFieldThatIsOnlyLoggedCostsNoRow)
{
    script.loadType = 42;
    script.loads = {{{{"load", 0}, 1.0}}};

    pickScripted();

    EXPECT_THAT(f.names(f.form.InputsList), ElementsAre("Scripted_3_Pressure"));
    EXPECT_THAT(f.log(),
                IsSupersetOf({"ERROR: There is no member FaceNumber", "DEBUG: FaceNumber = "}));
}

TEST_F(LoadDefinitionInputs, WithTheLogOffTheRowsAreTheSame)
{
    std::string name = "off.log";
    std::string level = "NOTHING";
    f.context.log.DeinitialiseLogger();
    f.context.log.InitialiseLogger(name, level);
    define(2, "Wind", LoadDataType::Mesh, 42);
    loads().meshLoads.push_back({.id = 1, .definitionID = 2, .load = {1.5}});

    pick({2});

    EXPECT_THAT(rows(), ElementsAre("Wind_2_Pressure\t 1.5\tLoadMesh\t 2\t0\t0"));
}

TEST_F(LoadDefinitionInputs, ADefinitionThatFemapDoesNotLoadIsSkipped)
{
    script.getCode = ReturnCode::NotExist;

    pickScripted();

    EXPECT_THAT(f.names(f.form.InputsList), ElementsAre(""));
    EXPECT_THAT(f.log(), AllOf(Contains("ERROR: FEMAP has no load definition with the ID 3"),
                               Contains("DEBUG: Error occured Reading load definition"),
                               Not(Contains(HasSubstr("Load Defination")))));
    EXPECT_THAT(f.messages(),
                ElementsAre("1 of 1 load definitions could not be read; it has no rows"));
    EXPECT_EQ(f.form.StatusLine.Caption, f.messages().front());
    EXPECT_TRUE(isUnlocked());
}

TEST_F(LoadDefinitionInputs, AnErrorGoesUpAfterFemapWasUnlocked)
{
    script.loads = {{{{"load", 0}, 1.0}, {{"load", 1}, 2.0}, {{"load", 2}, 3.0}}};
    script.walkBreaksDown = true;

    EXPECT_THROW(pickScripted(), RuntimeError);

    EXPECT_TRUE(isUnlocked());
    EXPECT_THAT(f.names(f.form.InputsList),
                ElementsAre("", "Scripted_3_Fx", "Scripted_3_Fy", "Scripted_3_Fz"));
    EXPECT_EQ(f.log().back(), "DEBUG: Released femap lock before getting load definition data");
}

TEST_F(LoadDefinitionInputs, ALostConnectionGoesUpWithoutAnotherCall)
{
    fake::CallWatch& femap = f.watchFemap();
    femap.dieAt("feLoadDefinition");

    EXPECT_THROW(UpdateLoadDefinitionInputs(f.context), femap::ConnectionLost);

    EXPECT_EQ(femap.calls.back(), "feLoadDefinition");
    EXPECT_THAT(f.names(f.form.InputsList), ElementsAre(""));
}

TEST_F(LoadDefinitionInputs, WithoutFemapTheErrorGoesUp)
{
    f.context.application.reset();

    EXPECT_THROW(UpdateLoadDefinitionInputs(f.context), RuntimeError);

    EXPECT_EQ(f.context.lockDepth, 0);
}

}  // namespace selection
