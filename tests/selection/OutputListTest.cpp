#include "selection/OutputList.h"
#include "selection/SelectionFixture.h"
#include "system/RuntimeError.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <numeric>

namespace selection
{
namespace
{

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

const std::string restOfRow = "\told\t0\t0\tOutput";

class UpdateOutputListTest : public testing::Test
{
protected:
    SelectionFixture f;

    std::unique_ptr<femap::EntitySet> all(femap::EntityType type)
    {
        auto set = f.context.femap().feSet();
        set->AddAll(type);
        return set;
    }
    void updateNodes(const Texts& vectors)
    {
        const auto set = all(femap::EntityType::Node);
        const std::vector<int> setIDs = set->ids();
        UpdateOutputList(f.context, "Node", &setIDs, vectors);
    }
};

TEST_F(UpdateOutputListTest, AddsARowPerVectorAndEntity)
{
    f.addNodes({12, 13});
    f.addVector(1, "Total Translation", {12, 13}, {0.25, 1e-7});
    f.addVector(2, "T1-Tr/x", {12, 13}, {-3, 4});

    updateNodes({"1 ", "2 "});

    EXPECT_THAT(f.rows(f.form.OutputsList), ElementsAre("TotalTrans1AtNode12\t0.25\t12\t1\tOutput",
                                                        "TotalTrans1AtNode13\t1E-07\t13\t1\tOutput",
                                                        "T1Trx2AtNode12\t-3\t12\t2\tOutput",
                                                        "T1Trx2AtNode13\t4\t13\t2\tOutput"));
}

TEST_F(UpdateOutputListTest, AddsMaximumAndMinimumWithoutASet)
{
    f.addVector(1, "Total Translation");
    f.addVector(7, "Short");

    UpdateOutputList(f.context, "Node", nullptr, {"1 ", "7 "});

    EXPECT_THAT(
        f.rows(f.form.OutputsList),
        ElementsAre("TotalTranslatiMaxAtNode1\t7.5\t1\t1\tmaxval",
                    "TotalTranslatiMinAtNode1\t-2.5\t1\t1\tminval",
                    "ShortMaxAtNode7\t7.5\t7\t7\tmaxval", "ShortMinAtNode7\t-2.5\t7\t7\tminval"));
}

TEST_F(UpdateOutputListTest, CutsTitlesByCharacters)
{
    f.addNodes({1});
    f.addVector(1, "Größe über-Träger Ø12", {1}, {1});

    updateNodes({"1 "});
    UpdateOutputList(f.context, "Node", nullptr, {"1 "});

    EXPECT_THAT(
        f.names(f.form.OutputsList),
        ElementsAre("GrößeüberT1AtNode1", "GrößeüberTrägeMaxAtNode1", "GrößeüberTrägeMinAtNode1"));
}

TEST_F(UpdateOutputListTest, LogsEveryStepOfVectorRows)
{
    f.addNodes({12});
    f.addVector(1, "Total Translation", {12}, {0.25});

    const Texts log = f.logOf([&] { updateNodes({"1 "}); });

    EXPECT_THAT(log,
                ElementsAre("DEBUG: No Error found Before updating output list",
                            "DEBUG: Acquired Femap lock", "DEBUG:  Output title is  And Id is 0",
                            "DEBUG: Got entity of id = 1", "DEBUG: Got entity of id = 12",
                            "DEBUG: Before checking for duplicate entry in Output List",
                            "DEBUG: After checking for duplicate entry in Output List",
                            "DEBUG: Added variable to Output list Variable "
                            "Name=TotalTrans1AtNode12 value=0.25",
                            "DEBUG: Released FEMAP lock", "DEBUG: After updating output list"));
}

TEST_F(UpdateOutputListTest, LogsEveryStepOfExtremes)
{
    f.addVector(1, "Total Translation");
    fake::fill(f.form.OutputsList, {"TotalTranslatiMaxAtElem1\t0\t1\t1\tmaxval",
                                    "TotalTranslatiMinAtElem1\t0\t1\t1\tminval", "a"});

    const Texts log = f.logOf([&] { UpdateOutputList(f.context, "Elem", nullptr, {"1 "}); });

    EXPECT_THAT(log,
                ElementsAre("DEBUG: No Error found Before updating output list",
                            "DEBUG: Acquired Femap lock", "DEBUG:  Output title is  And Id is 0",
                            "DEBUG: Got entity of id = 1",
                            "DEBUG: Before checking for duplicate entry in Output List",
                            "DEBUG: Deleted entry for TotalTranslatiMaxAtElem1from Output List",
                            "DEBUG: After checking for duplicate entry in Output List",
                            "DEBUG: Added variable to Output list Variable "
                            "Name=TotalTranslatiMaxAtElem1 value=7.5",
                            "DEBUG: Before checking for duplicate entry in Output List",
                            "DEBUG: Deleted entry for TotalTranslatiMinAtElem1from Input List",
                            "DEBUG: After checking for duplicate entry in Output List",
                            "DEBUG: Added variable to Output list Variable "
                            "Name=TotalTranslatiMinAtElem1 value=-2.5",
                            "DEBUG: Released FEMAP lock", "DEBUG: After updating output list"));
}

TEST_F(UpdateOutputListTest, ReportsAnErrorThatWasPendingBefore)
{
    f.context.error.attempt(
        [] { throw sys::RuntimeError(sys::ErrorNumber::InvalidCall, "left over"); });

    const Texts log = f.logOf([&] { UpdateOutputList(f.context, "Node", nullptr, {}); });

    EXPECT_THAT(log, Contains("DEBUG: Error occured Before updating output list"));
    EXPECT_THAT(log, Contains("ERROR: left over"));
}

TEST_F(UpdateOutputListTest, TakesOnlyElementsOfTheGivenType)
{
    f.addElements({{1, femap::elementPlate}, {2, femap::elementSolid}, {3, femap::elementPlate}});
    f.addVector(7020, "Stress", {1, 2, 3}, {10, 20, 30});
    const auto set = all(femap::EntityType::Element);
    const std::vector<int> setIDs = set->ids();

    const Texts log = f.logOf(
        [&] { UpdateOutputList(f.context, "Elem", &setIDs, {"7020 "}, femap::elementPlate); });

    EXPECT_THAT(f.names(f.form.OutputsList), ElementsAre("Stress7020AtElem1", "Stress7020AtElem3"));
    EXPECT_THAT(log, Contains("DEBUG: Got entity of id = 2"));
}

TEST_F(UpdateOutputListTest, LeavesOutAnEntityWithoutAValue)
{
    f.addNodes({1, 2});
    f.addVector(1, "V", {2}, {5});

    const Texts log = f.logOf([&] { updateNodes({"1 "}); });

    EXPECT_THAT(f.names(f.form.OutputsList), ElementsAre("V1AtNode2"));
    EXPECT_THAT(log, Contains(HasSubstr("Added variable")).Times(1));
    EXPECT_THAT(log, Not(Contains(HasSubstr("ERROR"))));
    EXPECT_FALSE(f.context.error.isPending());
}

TEST_F(UpdateOutputListTest, SkipsEntitiesAndVectorsThatFemapLacks)
{
    f.addNodes({1, 2});
    f.addVector(1, "V", {1, 2}, {4, 5});
    const auto set = all(femap::EntityType::Node);
    const std::vector<int> setIDs = set->ids();
    f.model().nodes = {};
    f.addNodes({2});

    const Texts log = f.logOf([&] { UpdateOutputList(f.context, "Node", &setIDs, {"9 ", "1 "}); });

    EXPECT_THAT(f.names(f.form.OutputsList), ElementsAre("V1AtNode2"));
    EXPECT_THAT(log, Contains("ERROR: FEMAP has no output vector with the ID 9"));
    EXPECT_THAT(log, Not(Contains("DEBUG: Got entity of id = 9")));
    EXPECT_THAT(log, Contains("ERROR: FEMAP has no Node with the ID 1"));
}

TEST_F(UpdateOutputListTest, ReplacesARowThatIsChosenAgain)
{
    f.addNodes({1, 2});
    f.addVector(1, "V", {1, 2}, {4, 5});
    updateNodes({"1 "});
    f.model().nodes = {};
    f.addNodes({1});

    updateNodes({"1 "});

    EXPECT_THAT(f.names(f.form.OutputsList), ElementsAre("V1AtNode2", "V1AtNode1"));
}

TEST_F(UpdateOutputListTest, KeepsTheOnlyRowWhenItIsChosenAgain)
{
    f.addNodes({1});
    f.addVector(1, "V", {1}, {4});
    updateNodes({"1 "});
    f.model().outputSets.find(1)->vectors.find(1)->values = {8};

    const Texts log = f.logOf([&] { updateNodes({"1 "}); });

    EXPECT_THAT(f.rows(f.form.OutputsList), ElementsAre("V1AtNode1\t4\t1\t1\tOutput"));
    EXPECT_THAT(log, Not(Contains(HasSubstr("Deleted entry"))));
    EXPECT_THAT(log, Not(Contains(HasSubstr("Added variable"))));
    EXPECT_FALSE(f.context.error.isPending());
}

TEST_F(UpdateOutputListTest, KeepsTheOnlyExtremeAndAddsTheOther)
{
    f.addVector(1, "V");
    fill(f.form.OutputsList, {"VMaxAtNode1"}, restOfRow);

    UpdateOutputList(f.context, "Node", nullptr, {"1 "});

    EXPECT_THAT(f.rows(f.form.OutputsList),
                ElementsAre("VMaxAtNode1\told\t0\t0\tOutput", "VMinAtNode1\t-2.5\t1\t1\tminval"));
}

struct DuplicateCase
{
    Texts before;
    Texts after;  // choosing vector 1 at node 1
    int deleted;
};

class OutputDuplicates : public testing::TestWithParam<DuplicateCase>
{};

TEST_P(OutputDuplicates, GiveWayToTheNewRow)
{
    SelectionFixture f;
    f.addNodes({1});
    f.addVector(1, "V", {1}, {4});
    fill(f.form.OutputsList, GetParam().before, restOfRow);
    const auto set = f.context.femap().feSet();
    set->AddAll(femap::EntityType::Node);
    const std::vector<int> setIDs = set->ids();

    const Texts log = f.logOf([&] { UpdateOutputList(f.context, "Node", &setIDs, {"1 "}); });

    EXPECT_EQ(f.names(f.form.OutputsList), GetParam().after);
    EXPECT_THAT(
        log,
        Contains("DEBUG: Deleted entry for V1AtNode1from Output List").Times(GetParam().deleted));
}

const std::string same = "V1AtNode1";
INSTANTIATE_TEST_SUITE_P(IDIndex, OutputDuplicates,
                         testing::Values(DuplicateCase{{same, "z"}, {"z", same}, 1},
                                         DuplicateCase{{"z", same}, {"z", same}, 1},
                                         DuplicateCase{{same, same, "z"}, {same, "z", same}, 1},
                                         DuplicateCase{{"z", same, same}, {"z", same, same}, 1},
                                         DuplicateCase{{same, same}, {same, same}, 1},
                                         DuplicateCase{{same, "z", same}, {"z", same}, 2},
                                         DuplicateCase{{"z", "a"}, {"z", "a", same}, 0}));

TEST_F(UpdateOutputListTest, RemovesTheRowOfAnEntityThatHasNoValueAnyMore)
{
    f.addNodes({1, 2});
    f.addVector(1, "V", {1, 2}, {4, 5});
    updateNodes({"1 "});
    auto& vector = *f.model().outputSets.find(1)->vectors.find(1);
    vector.ids = {2};
    vector.values = {6};

    updateNodes({"1 "});

    EXPECT_THAT(f.rows(f.form.OutputsList), ElementsAre("V1AtNode2\t5\t2\t1\tOutput"));
}

TEST_F(UpdateOutputListTest, LeavesTheGridAtItsTop)
{
    f.addNodes({1});
    f.addVector(1, "V", {1}, {4});
    fill(f.form.OutputsList, {"a", "b"}, restOfRow);
    f.form.OutputsList.Row = 2;
    f.form.OutputsList.RowSel = 2;
    f.form.OutputsList.Col = 1;

    updateNodes({"1 "});

    EXPECT_EQ(f.form.OutputsList.Row, 1);
    EXPECT_EQ(f.form.OutputsList.RowSel, 1);
    EXPECT_EQ(f.form.OutputsList.Col, 0);
}

TEST_F(UpdateOutputListTest, KeepsTheBlankRowOfAGridThatStaysEmpty)
{
    UpdateOutputList(f.context, "Node", nullptr, {});

    EXPECT_THAT(f.names(f.form.OutputsList), ElementsAre(""));
}

TEST_F(UpdateOutputListTest, LocksFemapMeanwhile)
{
    f.addNodes({1});
    f.addVector(1, "V", {1}, {4});
    int locks = 0;
    int pointer = 0;
    f.watchFemap().before("Node.Get 1", [&] {
        locks = f.femap.lockCount;
        pointer = f.form.OutputsButton.MousePointer;
    });

    updateNodes({"1 "});

    EXPECT_EQ(locks, 1);
    EXPECT_EQ(pointer, form::pointerHourglass);
    EXPECT_EQ(f.femap.lockCount, 0);
    EXPECT_EQ(f.form.OutputsButton.MousePointer, form::pointerDefault);
}

TEST_F(UpdateOutputListTest, GoesOnWhenAFreshVectorHasNoTitle)
{
    f.addNodes({1});
    f.addVector(1, "V", {1}, {4});
    f.watchFemap().failAt("Output.Title", "nothing loaded");

    const Texts log = f.logOf([&] { updateNodes({"1 "}); });

    EXPECT_THAT(f.names(f.form.OutputsList), ElementsAre("V1AtNode1"));
    EXPECT_THAT(log, Contains("ERROR: nothing loaded"));
    EXPECT_THAT(log,
                Contains("DEBUG: Error occured After reading the title of a fresh output vector"));
}

TEST_F(UpdateOutputListTest, ShowsHowFarALongWalkHasCome)
{
    std::vector<int> ids(600);
    std::iota(ids.begin(), ids.end(), 1);
    f.addNodes(ids);
    f.addVector(1, "V");
    Texts captions;  // whenever the walk looks at the clock
    f.system.monotonicSeconds = [&] {
        captions.push_back(f.form.StatusLine.Caption);
        return f.seconds += 2;
    };

    updateNodes({"1 "});

    EXPECT_THAT(captions, Contains("Reading outputs … 42 %"));
    EXPECT_EQ(f.form.StatusLine.Caption, "");
}

TEST_F(UpdateOutputListTest, RefusesAnEntryThatIsNoNumber)
{
    f.addVector(1, "V");

    EXPECT_THROW(UpdateOutputList(f.context, "Node", nullptr, {"V "}), sys::RuntimeError);
}

TEST_F(UpdateOutputListTest, EndsAtOnceWhenFemapIsGone)
{
    f.addNodes({1});
    f.addVector(1, "V", {1}, {4});
    const auto set = all(femap::EntityType::Node);
    const std::vector<int> setIDs = set->ids();
    f.watchFemap().dieAt("Node.Get 1");

    EXPECT_THROW(UpdateOutputList(f.context, "Node", &setIDs, {"1 "}), femap::ConnectionLost);
}

class OutputListFailure : public testing::TestWithParam<const char*>
{};

TEST_P(OutputListFailure, EndsTheUpdate)
{
    SelectionFixture f;
    f.addElements({{3, femap::elementPlate}});
    f.addVector(1, "V", {3}, {4});
    const auto set = f.context.femap().feSet();
    set->AddAll(femap::EntityType::Element);
    const std::vector<int> setIDs = set->ids();
    f.watchFemap().failAt(GetParam());

    EXPECT_THROW(UpdateOutputList(f.context, "Elem", &setIDs, {"1 "}, femap::elementPlate),
                 sys::RuntimeError);

    EXPECT_THAT(f.log(), Not(Contains("DEBUG: After updating output list")));
}

INSTANTIATE_TEST_SUITE_P(Calls, OutputListFailure,
                         testing::Values("feAppLock", "feOutput", "entity Elem", "Elem.Get 3",
                                         "Elem.Type 3", "feAppUnlock"));

}  // namespace
}  // namespace selection
