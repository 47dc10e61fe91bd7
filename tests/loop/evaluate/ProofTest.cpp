#include "EvaluateFixture.h"

#include <gmock/gmock.h>

#include <filesystem>

using testing::StartsWith;

namespace loop::evaluate
{

namespace
{

class Proof : public EvaluateFixture
{};

TEST_F(Proof, ShowsWhatIsStoredBesideWhatComesNow)
{
    EXPECT_EQ(evaluate({"--prove"}), 0) << errors.str();

    EXPECT_EQ(output.str(),
              "output      stored   now  difference\n"
              "Total mass       2  1.75     1.2e-01\n"
              "End \"B\"          7     7     0.0e+00\n"
              "largest relative difference: 1.2e-01\n");
}

TEST_F(Proof, LeavesTheStoredResults)
{
    write("OutputValues.txt", "Total mass  2\nEnd \"B\"  7 \xFC\n");
    EXPECT_EQ(evaluate({"--prove"}), 0) << errors.str();
    EXPECT_EQ(read("OutputValues.txt"), "Total mass  2\nEnd \"B\"  7 \xFC\n");

    write("output.fails", "");
    EXPECT_EQ(evaluate({"--prove"}), 1);
    EXPECT_EQ(read("OutputValues.txt"), "Total mass  2\nEnd \"B\"  7 \xFC\n");
    EXPECT_EQ(output.str(), "");
}

TEST_F(Proof, ShowsWhereNothingIsStored)
{
    write("OutputValues.txt", "Total mass  0\r\nEnd \"B\"  \r\n");
    write("InputValues.txt", "Skin  0\r\nWeb, left  0\r\n");

    EXPECT_EQ(evaluate({"--prove"}), 0) << errors.str();

    EXPECT_EQ(output.str(),
              "output      stored  now  difference\n"
              "Total mass       0    0     0.0e+00\n"
              "End \"B\"          -    7           -\n"
              "largest relative difference: 0.0e+00\n");
}

TEST_F(Proof, NeedsStoredResults)
{
    std::filesystem::remove(path("OutputValues.txt"));

    EXPECT_EQ(evaluate({"--prove"}), 1);

    EXPECT_THAT(errors.str(), StartsWith("OutputValues.txt: the file is not in "));
    EXPECT_EQ(callsOf("solver"), 0);
}

class TableOfBounds : public EvaluateFixture
{};

TEST_F(TableOfBounds, HasThoseOfTheTaskDescriptionForWhatItVaries)
{
    write("vELMARpanel.desc", "");

    EXPECT_EQ(evaluate({"--table"}), 0) << errors.str();

    EXPECT_EQ(read("panelBounds.csv"),
              "name,kind,value,lower,upper\r\nSkin,Prop,1.5,0.01,5.0\r\n"
              "\"Web, left\",Matl,.25,,\r\n");
    EXPECT_EQ(output.str(), "panelBounds.csv is written: 2 inputs\n");
    EXPECT_EQ(calls().size(), 0U);
}

TEST_F(TableOfBounds, HasThoseOfTheParameterFileForEveryInput)
{
    write("panel.par", "");

    EXPECT_EQ(evaluate({"--table"}), 0) << errors.str();

    EXPECT_EQ(read("panelBounds.csv"),
              "name,kind,value,lower,upper\r\nSkin,Prop,1.5,-9.425e6,9.425e6\r\n"
              "\"Web, left\",Matl,.25,-9.425e6,9.425e6\r\n");
}

TEST_F(TableOfBounds, KeepsWhatTheEngineerWrote)
{
    write("vELMARpanel.desc", "");
    write("panelBounds.csv", "name,kind,value,lower,upper\nSkin,Prop,99,,3\nGone,Prop,1,1,1\n");

    EXPECT_EQ(evaluate({"--table"}), 0) << errors.str();

    EXPECT_EQ(read("panelBounds.csv"),
              "name,kind,value,lower,upper\r\nSkin,Prop,1.5,,3\r\n"
              "\"Web, left\",Matl,.25,,\r\n");
}

TEST_F(TableOfBounds, ThatIsWrongIsToldAndStays)
{
    const std::string wrong =
        "name,kind,value,lower,upper\nSkin,Prop,1,x,1E2\nSkin,1\n"
        "\"Web, left\",Matl,1,2,1D0\n";
    write("panelBounds.csv", wrong);

    EXPECT_EQ(evaluate({"--table"}), 1);

    EXPECT_EQ(errors.str(),
              "panelBounds.csv:2: the bound \"x\" of Skin is no number; write it as 12.5 or "
              "1.5E-05, or leave it empty\n"
              "panelBounds.csv:3: the row has not the five cells of the head\n"
              "panelBounds.csv:4: the lower bound of Web, left is above the upper one; exchange "
              "them\n");
    EXPECT_EQ(read("panelBounds.csv"), wrong);

    write("panelBounds.csv", "name;kind;value;lower;upper\n");
    EXPECT_EQ(evaluate({"--table"}), 1);
    EXPECT_THAT(errors.str(), StartsWith("panelBounds.csv:1: the head is not name,kind,value"));
}

}  // namespace

}  // namespace loop::evaluate
