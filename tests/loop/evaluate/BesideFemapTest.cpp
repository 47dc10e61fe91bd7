// velmar-evaluate beside a FEMAP that has the study's model open, which CAEInput changes.
#include "EvaluateFixture.h"
#include "loop/Former.h"
#include "loop/InputFixture.h"

#include <gmock/gmock.h>

using testing::HasSubstr;
using testing::StartsWith;

namespace loop::evaluate
{

namespace
{

class BesideFemap : public EvaluateFixture
{
protected:
    BesideFemap()
    {
        beam.write("CAEOutput.txt",
                   "Reference Model (FEMAP) = beam.modfem\r\n"
                   "Results File (NastranNX) = beam.op2\r\n"
                   "OutputNameValue = OutputValues.txt\r\n"
                   "MassProperties  TotalMass  MassTotal  \r\n");
        beam.write("FDFemap.bat", "echo 'TotalMass  7' >beam.op2\r\n");
        const auto script = system.files.create(programs.path("CAEInput"));
        script->write("#!/bin/sh\nsleep 0.2\n");
        script->close();
        const auto copy = system.files.create(programs.path("CAEOutput"));
        copy->write("#!/bin/sh\ncp beam.op2 OutputValues.txt\n");
        copy->close();
    }

    int evaluateBeam(std::vector<std::string> words = {})
    {
        output.str("");
        errors.str("");
        words.insert(words.end(), {"--femap=running", "--folder", beam.folder.path()});
        return runEvaluate(
            words, {output, errors, system, programs.path() + sys::pathSeparator, isToStop, [this] {
                        return Connection{{std::shared_ptr<void>(), beam.connector}};
                    }});
    }
    // What CAEInput does, which is a script here.
    void putValuesOnce()
    {
        if (!hasPut)
            codeOfInput = beam.run({"--locked"});
        hasPut = true;
    }

    InputStudy beam;
    bool hasPut = false;
    int codeOfInput = -1;
};

TEST_F(BesideFemap, TheModelHoldsItsFormerValuesAgainAfterARun)
{
    std::string meanwhile;
    isToStop = [&] {
        putValuesOnce();
        meanwhile = beam.values();
        return false;
    };

    EXPECT_EQ(evaluateBeam(), 0) << errors.str();

    EXPECT_EQ(codeOfInput, 0) << beam.told();
    EXPECT_EQ(meanwhile, InputStudy::wantedValues);
    EXPECT_EQ(beam.values(), InputStudy::formerValues);
    EXPECT_FALSE(beam.has("beamFormer.json"));
    EXPECT_EQ(beam.read("OutputValues.txt"), "TotalMass  7\n");
}

TEST_F(BesideFemap, TheModelHoldsItsFormerValuesAgainWhenTheRunIsStopped)
{
    isToStop = [&] {
        putValuesOnce();
        return true;
    };

    EXPECT_EQ(evaluateBeam(), 1);

    EXPECT_EQ(errors.str(), "velmar-evaluate: stopped\n");
    EXPECT_EQ(beam.values(), InputStudy::formerValues);
    EXPECT_FALSE(beam.has("beamFormer.json"));
}

TEST_F(BesideFemap, WhatARunLeftThatWasEndedByForceIsPutBackFirst)
{
    isToStop = [&]() -> bool {
        putValuesOnce();
        throw std::bad_alloc();  // nothing is put back
    };
    const std::string file = beam.folder.path("points.csv");
    beam.write("points.csv", "ThicknessAtProp12\n0.75\n");
    const std::string inputsBefore = beam.read("InputValues.txt");
    EXPECT_EQ(evaluateBeam({"--points", file, "--results", beam.folder.path("out.csv")}), 1);
    EXPECT_TRUE(beam.has("beamFormer.json"));
    EXPECT_NE(beam.values(), InputStudy::formerValues);

    isToStop = [] { return false; };
    EXPECT_EQ(evaluateBeam(), 1);

    EXPECT_EQ(errors.str(),
              "velmar-evaluate: an earlier run was ended; the values from before it are put back\n"
              "velmar-evaluate: InputValues.txt has its values from before that run; write those "
              "of your point again and repeat the call\n");
    EXPECT_EQ(beam.values(), InputStudy::formerValues);
    EXPECT_EQ(beam.read("InputValues.txt"), inputsBefore);
    EXPECT_EQ(evaluateBeam(), 0) << errors.str();
}

TEST_F(BesideFemap, WhatIsKeptOfItsModelIsNotLostByTheModelHost)
{
    Former former;
    former.model = "beam.modfem";
    former.values.entities.push_back({"Prop", 12, {"pval", 0}, 1.5});
    keepFormer(system, beam.folder.path("beamFormer.json"), former);

    EXPECT_EQ(runEvaluate({"--femap=embedded", "--folder", beam.folder.path()},
                          {output, errors, system, programs.path() + sys::pathSeparator, isToStop}),
              1);

    EXPECT_THAT(errors.str(),
                StartsWith("velmar-evaluate: an earlier run was ended, and its values "
                           "are still in FEMAP's model; "));
    EXPECT_TRUE(beam.has("beamFormer.json"));
}

TEST_F(BesideFemap, AStudyThatDoesNotFitTheModelIsToldBeforeAnythingIsRun)
{
    beam.change("CAEInput.txt", "ExAtMatl2  2", "ExAtMatl2  3");

    EXPECT_EQ(evaluateBeam(), 1);

    EXPECT_THAT(errors.str(), StartsWith("CAEInput.txt:7: "));
    EXPECT_FALSE(beam.has("beamFormer.json"));
}

TEST_F(BesideFemap, PointsRunOneAfterTheOther)
{
    beam.write("points.csv", "Tipload_5_Fx,ThicknessAtProp12,Tipload_5_Fx\n1,2,3\n4,5,6\n");

    EXPECT_EQ(evaluateBeam({"-j", "2", "--points", beam.folder.path("points.csv"), "--results",
                            beam.folder.path("out.csv")}),
              0)
        << errors.str();

    EXPECT_THAT(errors.str(), StartsWith("velmar-evaluate: -j is for the model host; FEMAP takes "
                                         "one point after the other\n"));
    EXPECT_THAT(beam.read("out.csv"), HasSubstr("\r\n1,2,9,-.125,7D4,35.5,1,3,7,done\r\n"
                                                "2,5,9,-.125,7D4,35.5,4,6,7,done\r\n"));
}

TEST_F(BesideFemap, ThereIsNoRunWhereThereIsNoFemap)
{
    EXPECT_EQ(evaluate({"--femap=running"}), 1);

    EXPECT_THAT(errors.str(), HasSubstr("on Windows only"));
}

}  // namespace

}  // namespace loop::evaluate
