#include "FindingsFixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace findings
{
namespace
{

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

template <class Entity>
void takeOut(femap::neutral::Table<Entity>& table, int id)
{
    femap::neutral::Table<Entity> others;
    for (const Entity& each : table)
        if (each.id != id)
            others.put(each);
    table = others;
}

class ModelRules : public testing::Test
{
protected:
    FindingsFixture f;

    ModelRules()
    {
        femap::neutral::OutputSet& results = *f.model().outputSets.find(1);
        results.vectors.put({.id = 1,
                             .title = "Total Translation",
                             .minval = -1,
                             .maxval = 4,
                             .ids = {12},
                             .values = {0.75}});
        f.model().materials.put({.id = 1, .title = "Steel", .mval = {210}});
        f.addFunction(2, "Curve", {0, 1}, {1, 2});
        f.model().loadSets.put({.id = 1, .definitions = {{.id = 4, .title = "Press"}}});
        f.model().loadSets.put({.id = 2});
        f.addInput({"ExAtMatl1", "210", "Matl", "1", "Ex", ""});
        f.addInput({"Curve", "X-Y Values", "Function", " 2", "", ""});
        f.addInput({"Press_4_Pressure", " 2", "LoadMesh", " 4", "0", "0"});
        f.addOutput({"TotalTrans1AtNode12", "0.75", "12", "1", "Output"});
        f.addOutput({"TotalTranslatiMaxAtNode1", "4", "1", "1", "maxval"});
        f.addOutput({"TotalMass", "0", "MassTotal", "", "MassProperties"});
    }
};

TEST_F(ModelRules, FindNothingInRowsThatAreAsInTheModel)
{
    for (const char* const code :
         {"entity-gone", "vector-gone", "result-gone", "function-gone", "function-renamed",
          "load-not-active", "value-differs", "no-active-output-set", "not-checked"})
        EXPECT_THAT(f.found(code), IsEmpty());
}

TEST_F(ModelRules, TellEntitiesThatAreGone)
{
    takeOut(f.model().properties, 7);
    takeOut(f.model().nodes, 12);

    EXPECT_EQ(
        f.found("entity-gone"),
        "error entity-gone inputs:1 outputs:2: The model has no longer the entities of 2 rows: "
        "ThicknessAtProp7 (Prop 7 pval 0), TotalTrans1AtNode12 (12 1 Output).");
}

TEST_F(ModelRules, TellVectorsAndResultsThatAreGone)
{
    femap::neutral::OutputSet& results = *f.model().outputSets.find(1);
    results.vectors.find(85002)->ids.clear();
    results.vectors.find(85002)->values.clear();
    takeOut(results.vectors, 1);

    EXPECT_THAT(f.found("vector-gone"), HasSubstr("no vectors for 2 rows: TotalTrans1AtNode12"));
    EXPECT_THAT(f.places("vector-gone"),
                ElementsAre(Place{Grid::Outputs, 2}, Place{Grid::Outputs, 3}));
    EXPECT_THAT(f.found("result-gone"), HasSubstr("outputs:1 ElemForces85002AtElem40: The vector"));
}

TEST_F(ModelRules, TellFunctionsThatAreGoneOrHaveAnotherTitle)
{
    f.addFunction(2, "Other", {0, 1}, {1, 2});
    EXPECT_THAT(f.found("function-renamed"),
                HasSubstr("The function of Curve has the title Other now."));
    EXPECT_THAT(f.found("function-gone"), IsEmpty());

    takeOut(f.model().functions, 2);
    EXPECT_THAT(f.found("function-gone"), HasSubstr("error function-gone inputs:3 Curve: "));
    EXPECT_THAT(f.found("function-renamed"), IsEmpty());
}

TEST_F(ModelRules, TellLoadsThatTheActiveLoadSetLacks)
{
    f.model().activeLoadSet = 2;

    EXPECT_THAT(f.found("load-not-active"),
                HasSubstr("no load definition for Press_4_Pressure (LoadMesh  4 0 0)."));
}

TEST_F(ModelRules, TellValuesThatDifferFromTheModels)
{
    f.form.InputsList.setText(2, form::valueColumn, "2.1E+02");
    EXPECT_THAT(f.found("value-differs"), IsEmpty()) << "the same number";

    f.model().properties.find(7)->pval[0] = 0.5;
    f.model().outputSets.find(1)->vectors.find(1)->maxval = 5;
    f.form.OutputsList.setText(4, form::valueColumn, "12.5");

    EXPECT_EQ(
        f.found("value-differs"),
        "hint value-differs inputs:1 outputs:3-4: 3 rows have other values in the model: "
        "ThicknessAtProp7 (0.25 here, 0.5 there), TotalTranslatiMaxAtNode1 (4 here, 5 there), "
        "TotalMass (12.5 here, 0 there).");
}

TEST_F(ModelRules, ReadNoValueThatFemapLacks)
{
    f.addInput({"AlphazxAtMatl1", "", "Matl", "1", "Alphaxz", ""});

    EXPECT_THAT(f.found("value-differs"), IsEmpty());
    EXPECT_THAT(f.found("entity-gone"), IsEmpty());
}

TEST_F(ModelRules, TellThatNoneOfSeveralOutputSetsIsActive)
{
    fake::CallWatch& watch = f.watchFemap();
    watch.answers["Info_ActiveID"] = 0;
    EXPECT_THAT(f.found("no-active-output-set"), IsEmpty()) << "there is but one";

    f.model().outputSets.put({.id = 3});
    EXPECT_THAT(f.found("no-active-output-set"), HasSubstr("those of the lowest, 1."));

    f.form.OutputsList.removeRows({1, 3});  // the mass stays, which is of no output set
    EXPECT_THAT(f.found("no-active-output-set"), IsEmpty());
}

TEST_F(ModelRules, AnnounceWhatTheyReadAndMeasureTheMassOnce)
{
    f.addOutput({"TotalCGx", "0", "TotalCG", "0", "MassProperties"});
    fake::CallWatch& watch = f.watchFemap();

    f.all();

    EXPECT_EQ(watch.count("feMeasureMeshMassProp"), 1U);
    EXPECT_GE(watch.count("prefetch"), 4U);  // of two kinds of inputs, nodes, elements, vectors
    EXPECT_EQ(watch.count("feAppLock"), 0U);
}

}  // namespace
}  // namespace findings
