#include "fake/MemoryMachine.h"
#include "loop/Former.h"
#include "system/RuntimeError.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace loop
{

using testing::HasSubstr;
using testing::IsEmpty;

namespace
{

const std::string journal = "/study/beamFormer.json";

Former anyFormer()
{
    Former former;
    former.model = "be\"am.modfem";
    former.values.entities = {
        {"Prop", 12, {"pval", 0}, 0.1},
        {"Prop", 12, {"matlID"}, std::int64_t{-3}},
        {"Node", 7, {"x"}, 0.1F},
    };
    former.values.loads = {{1, 5, 2, {"load", 3}, -1E-300}, {1, 6, 0, {"temp"}, 1E+20}};
    former.values.functions = {{4, {{0, 0.1, 1E-05}, {-1, 2, 3}}}, {9, {}}};
    former.inputValues = "a  1\r\n\xE4\x81  2\r\n";
    former.switches = femap::DialogSwitches{1, 0};
    return former;
}

std::string kept(const Former& former)
{
    fake::MemoryMachine machine;
    keepFormer(machine.system, journal, former);
    return machine.files.contents.at(journal);
}

}  // namespace

TEST(FormerValues, ComeBackAsTheyWereKept)
{
    fake::MemoryMachine machine;
    const Former former = anyFormer();

    keepFormer(machine.system, journal, former);
    const std::optional<Former> found = findFormer(machine.system, journal);

    ASSERT_TRUE(found);
    EXPECT_EQ(found->model, former.model);
    EXPECT_EQ(found->inputValues, former.inputValues);
    EXPECT_EQ(found->switches, former.switches);
    ASSERT_EQ(found->values.entities.size(), 3U);
    for (std::size_t i = 0; i < 3; ++i) {
        EXPECT_EQ(found->values.entities[i].word, former.values.entities[i].word);
        EXPECT_EQ(found->values.entities[i].id, former.values.entities[i].id);
        EXPECT_EQ(found->values.entities[i].member, former.values.entities[i].member);
        EXPECT_EQ(found->values.entities[i].value, former.values.entities[i].value);
    }
    ASSERT_EQ(found->values.loads.size(), 2U);
    for (std::size_t i = 0; i < 2; ++i) {
        EXPECT_EQ(found->values.loads[i].loadSet, former.values.loads[i].loadSet);
        EXPECT_EQ(found->values.loads[i].definition, former.values.loads[i].definition);
        EXPECT_EQ(found->values.loads[i].load, former.values.loads[i].load);
        EXPECT_EQ(found->values.loads[i].member, former.values.loads[i].member);
        EXPECT_EQ(found->values.loads[i].value, former.values.loads[i].value);
    }
    ASSERT_EQ(found->values.functions.size(), 2U);
    EXPECT_EQ(found->values.functions[0].id, 4);
    EXPECT_EQ(found->values.functions[0].points.x, former.values.functions[0].points.x);
    EXPECT_EQ(found->values.functions[0].points.y, former.values.functions[0].points.y);
    EXPECT_THAT(found->values.functions[1].points.x, IsEmpty());
    EXPECT_EQ(kept(*found), kept(former));
}

TEST(FormerValues, MayBeWithoutInputValuesAndSwitches)
{
    fake::MemoryMachine machine;
    Former former = anyFormer();
    former.inputValues.reset();
    former.switches.reset();

    keepFormer(machine.system, journal, former);

    EXPECT_EQ(findFormer(machine.system, journal)->inputValues, std::nullopt);
    EXPECT_EQ(findFormer(machine.system, journal)->switches, std::nullopt);
}

TEST(FormerValues, AreNoneWhereNobodyKeptSome)
{
    fake::MemoryMachine machine;
    EXPECT_EQ(formerFile("beam"), "beamFormer.json");
    EXPECT_FALSE(findFormer(machine.system, journal));

    keepFormer(machine.system, journal, anyFormer());
    forgetFormer(machine.system, journal);

    EXPECT_FALSE(findFormer(machine.system, journal));
}

TEST(FormerValues, ThatAreCutAnywhereAreToldAsDamaged)
{
    const std::string whole = kept(anyFormer());
    for (std::size_t length = 0; length + 2 < whole.size(); ++length) {
        fake::MemoryMachine machine;
        machine.files.contents[journal] = whole.substr(0, length);
        EXPECT_THROW(findFormer(machine.system, journal), sys::RuntimeError) << length;
    }
}

TEST(FormerValues, OfAnotherShapeAreToldAsDamaged)
{
    for (const char* const text :
         {R"({"entities":[[["Prop","1"],["pval","0"],["word","1"]]]})",
          R"({"entities":[[["Prop","1","2"],["pval","0"],["whole","1"]]]})",
          R"({"entities":[[["Prop","1"],["pval","0"]]]})",
          R"({"entities":[[["Prop","x"],["pval","0"],["whole","1"]]]})",
          R"({"functions":[[["1"],["0","1"],["2"]]]})", R"({"dialogs":["1"]})", "[]", ""}) {
        fake::MemoryMachine machine;
        machine.files.contents[journal] = text;
        std::string told;
        try {
            findFormer(machine.system, journal);
        }
        catch (const sys::RuntimeError& error) {
            told = error.description();
        }
        EXPECT_THAT(told, HasSubstr("damaged. See that the model is as it should be")) << text;
    }
}

TEST(FormerValues, AreKeptWholeOrNotAtAll)
{
    for (int operation = 1;; ++operation) {
        fake::MemoryMachine machine;
        machine.files.contents[journal] = kept(Former());
        machine.files.failingOperation = machine.files.operations + operation;
        try {
            keepFormer(machine.system, journal, anyFormer());
        }
        catch (const sys::RuntimeError& error) {
            EXPECT_THAT(error.description(), HasSubstr("beamFormer.json was not written. See"));
            EXPECT_EQ(machine.files.contents.at(journal), kept(Former()));
            EXPECT_EQ(machine.files.contents.size(), 1U);
            continue;
        }
        EXPECT_GT(operation, 4);
        return;
    }
}

}  // namespace loop
