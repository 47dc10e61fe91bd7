#include "fake/FormFixture.h"
#include "study/StudyDialogs.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace study
{
namespace
{

using femap::EntityType;
using femap::ReturnCode;
using femap::Selection;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* nodes = "Select Nodes to Control";

class DialogsFixture
{
public:
    StudyDialogs dialogs;
    fake::QueuedDialogs noDialogs;
    femap::embedded::Host host{noDialogs};
    selection::frmPropertyList list{host, dialogs};

    Selection pick(const std::string& argument, const std::vector<int>& available,
                   bool onlyOne = false)
    {
        dialogs.queue(parsePick({4, "pick", argument}));
        return dialogs.answer(EntityType::Node, nodes, onlyOne, available);
    }
    void choose(const std::string& argument)
    {
        dialogs.queue(parseChoice({5, "choose", argument}));
        list.Show();
    }
    void offerVectors()
    {
        femap::neutral::OutputSet set;
        set.id = 1;
        for (const auto& [id, title] : std::vector<std::pair<int, std::string>>{
                 {1, "Total Translation"}, {2, "T1"}, {12, "A | B"}}) {
            femap::neutral::OutputVector vector;
            vector.id = id;
            vector.title = title;
            set.vectors.put(vector);
        }
        host.openModel().outputSets.put(set);
        list.UpdateCollection();
        list.GetPropertyList("Output", "Node");
    }

    template <class Step>
    static std::string errorOf(int line, Step&& step)
    {
        try {
            step();
        }
        catch (const ScriptError& error) {
            EXPECT_EQ(error.line(), line);
            return error.what();
        }
        return "";
    }
};

TEST(StudyPick, GivesIdsInOrderWithoutRepetition)
{
    DialogsFixture f;

    const Selection result = f.pick("7-9 1 8", {1, 2, 7, 8, 9});

    EXPECT_EQ(result.code, ReturnCode::Ok);
    EXPECT_THAT(result.ids, ElementsAre(1, 7, 8, 9));
}

TEST(StudyPick, GivesAllThatIsOnOffer)
{
    DialogsFixture f;

    EXPECT_THAT(f.pick("all", {3, 5}).ids, ElementsAre(3, 5));
}

TEST(StudyPick, GivesNothingWhenThereIsNothingOfThatKind)
{
    DialogsFixture f;

    EXPECT_EQ(f.pick("all", {}).code, ReturnCode::NotExist);
}

TEST(StudyPick, AnswersWithItsWords)
{
    DialogsFixture f;

    EXPECT_EQ(f.pick("cancel", {1}).code, ReturnCode::Cancel);
    EXPECT_EQ(f.pick("missing", {1}).code, ReturnCode::NotExist);
    EXPECT_EQ(f.pick("fail", {1}).code, ReturnCode::Fail);
    EXPECT_THAT(f.pick("cancel", {1}).ids, IsEmpty());
}

TEST(StudyPick, GivesOneIdToADialogThatTakesOne)
{
    DialogsFixture f;

    EXPECT_THAT(f.pick("5", {3, 5}, true).ids, ElementsAre(5));
    EXPECT_THAT(f.pick("all", {3}, true).ids, ElementsAre(3));
}

TEST(StudyPick, RefusesSeveralIdsForADialogThatTakesOne)
{
    DialogsFixture f;
    const std::string error =
        "FEMAP's dialog \"Select Nodes to Control\" takes one ID; it offers 3 5";

    EXPECT_EQ(f.errorOf(4, [&] { f.pick("3 5", {3, 5}, true); }), error);
    EXPECT_EQ(f.errorOf(4, [&] { f.pick("all", {3, 5}, true); }), error);
}

TEST(StudyPick, RefusesAnIdThatTheModelDoesNotHave)
{
    DialogsFixture f;
    const std::vector<int> available = {1, 2, 3, 7, 9, 10};

    EXPECT_EQ(f.errorOf(4, [&] { f.pick("1 8", available); }),
              "FEMAP's dialog \"Select Nodes to Control\" does not offer the ID 8; "
              "it offers 1-3 7 9-10");
    EXPECT_EQ(f.errorOf(4, [&] { f.pick("2-2000000000", available); }),
              "FEMAP's dialog \"Select Nodes to Control\" does not offer the ID 4; "
              "it offers 1-3 7 9-10");
    EXPECT_EQ(f.errorOf(4, [&] { f.pick("2147483647", available); }),
              "FEMAP's dialog \"Select Nodes to Control\" does not offer the ID 2147483647; "
              "it offers 1-3 7 9-10");
}

TEST(StudyPick, CutsALongListOfWhatIsOnOffer)
{
    DialogsFixture f;
    std::vector<int> available;
    for (int i = 1; i < 60; i += 2)
        available.push_back(i);

    EXPECT_EQ(f.errorOf(4, [&] { f.pick("2", available); }),
              "FEMAP's dialog \"Select Nodes to Control\" does not offer the ID 2; "
              "it offers 1 3 5 7 9 11 13 15 17 19 21 23 …");
}

TEST(StudyPick, IsMissedAtTheLineThatOpenedTheDialog)
{
    DialogsFixture f;
    f.dialogs.setLine(9);

    EXPECT_EQ(f.errorOf(9, [&] { f.dialogs.answer(EntityType::Node, nodes, false, {1}); }),
              "FEMAP's dialog \"Select Nodes to Control\" opened without an answer; "
              "put a pick before this line");
}

TEST(StudyChoice, TicksItemsByTheirTextAndAccepts)
{
    DialogsFixture f;
    f.list.GetPropertyList("Prop", "Plate");

    f.choose("NS Mass/Len | Thickness");

    EXPECT_THAT(f.list.selectedFields, ElementsAre("Thickness", "NS Mass/Len"));
}

TEST(StudyChoice, TicksAllOrNothing)
{
    DialogsFixture f;

    f.list.GetPropertyList("Prop", "");
    f.choose("all");
    EXPECT_EQ(f.list.selectedFields.size(), 5u);

    f.list.GetPropertyList("Prop", "");
    f.choose("none");
    EXPECT_THAT(f.list.selectedFields, IsEmpty());
}

TEST(StudyChoice, Cancels)
{
    DialogsFixture f;
    f.list.GetPropertyList("Prop", "");

    f.choose("cancel");

    EXPECT_THAT(f.list.selectedFields, IsEmpty());
    EXPECT_FALSE(f.list.Visible);
}

TEST(StudyChoice, NamesAVectorByItsTextOrByItsId)
{
    DialogsFixture f;
    f.offerVectors();

    f.choose("1 - Total Translation | 12");

    EXPECT_THAT(f.list.chosenEntries(), ElementsAre("1 ", "12 "));
}

TEST(StudyChoice, TakesNoPieceOfATextForAnItem)
{
    DialogsFixture f;
    f.offerVectors();

    EXPECT_EQ(f.errorOf(5, [&] { f.choose("T1"); }),
              "the list \"Node Output Properties\" has no item \"T1\"; "
              "it offers 1 - Total Translation | 2 - T1 | 12 - A | B");
}

TEST(StudyChoice, RefusesAnItemThatTheListDoesNotOffer)
{
    DialogsFixture f;
    f.list.GetPropertyList("Node", "");

    EXPECT_EQ(f.errorOf(5, [&] { f.choose("x | Thickness"); }),
              "the list \"Node Properties\" has no item \"Thickness\"; "
              "it offers x | y | z | defCSys | outCSys");
}

TEST(StudyChoice, CutsALongListOfWhatIsOnOffer)
{
    DialogsFixture f;
    f.list.GetPropertyList("Matl", "");

    EXPECT_EQ(f.errorOf(5, [&] { f.choose("Area"); }),
              "the list \"Material Properties\" has no item \"Area\"; it offers Ex | Ey | Ez | "
              "Gx | Gy | Gz | Nuxy | Nuyz | Nuxz | Alphaxx | Alphayy | Alphazz | …");
}

TEST(StudyChoice, IsMissedAtTheLineThatOpenedTheDialog)
{
    DialogsFixture f;
    f.list.GetPropertyList("Node", "");
    f.dialogs.setLine(9);

    EXPECT_EQ(f.errorOf(9, [&] { f.list.Show(); }),
              "the list \"Node Properties\" opened without an answer; "
              "put a choose before this line");
}

const std::string unusedPick =
    "this pick was never used: no selection dialog of FEMAP opened for it; "
    "remove it or put it before the click that opens the dialog";
const std::string unusedChoice =
    "this choose was never used: no property list dialog opened for it; "
    "remove it or put it before the click that opens the dialog";

TEST(StudyDialogs, HaveNothingLeftWhenNothingWasQueued)
{
    DialogsFixture f;

    EXPECT_NO_THROW(f.dialogs.checkNothingIsLeft());
}

TEST(StudyDialogs, NameTheFirstAnswerThatIsLeft)
{
    DialogsFixture f;
    f.dialogs.queue(parseChoice({6, "choose", "all"}));
    EXPECT_EQ(f.errorOf(6, [&] { f.dialogs.checkNothingIsLeft(); }), unusedChoice);

    f.dialogs.queue(parsePick({7, "pick", "all"}));
    EXPECT_EQ(f.errorOf(6, [&] { f.dialogs.checkNothingIsLeft(); }), unusedChoice);

    DialogsFixture g;
    g.dialogs.queue(parsePick({5, "pick", "all"}));
    EXPECT_EQ(g.errorOf(5, [&] { g.dialogs.checkNothingIsLeft(); }), unusedPick);
    g.dialogs.queue(parseChoice({6, "choose", "all"}));
    EXPECT_EQ(g.errorOf(5, [&] { g.dialogs.checkNothingIsLeft(); }), unusedPick);
}

}  // namespace
}  // namespace study
