#include "World.h"
#include "fake/GenerateFixture.h"
#include "fake/RandomSeed.h"
#include "generate/GenerationDriver.h"
#include "property/Generators.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

namespace reliability
{

using generate::GenerateFixture;
using testing::Contains;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

namespace
{

const std::string tools[] = {"Velmar", "Ombra"};

int linesWith(const std::vector<std::string>& log, const std::string& text)
{
    return static_cast<int>(std::ranges::count_if(
        log, [&](const std::string& line) { return line.find(text) != std::string::npos; }));
}

// Whether each line ends in CR LF and nothing else ends or cuts one.
bool hasWholeLines(const std::string& content)
{
    const auto isBroken = [&](std::size_t i) {
        const char before = i == 0 ? '\0' : content[i - 1];
        const char after = i + 1 == content.size() ? '\0' : content[i + 1];
        return content[i] == '\0' || (content[i] == '\n' && before != '\r') ||
               (content[i] == '\r' && after != '\n');
    };
    for (std::size_t i = 0; i < content.size(); ++i)
        if (isBroken(i))
            return false;
    return content.empty() || content.ends_with('\n');
}

}  // namespace

TEST(EveryGeneratedFile, HasWholeLinesAndNoByteOrderMarkWhateverTheGridsHold)
{
    property::Random random(fake::randomSeed());

    for (int round = 0; round < 150 && !testing::Test::HasFailure(); ++round)
        for (const std::string& tool : tools) {
            GenerateFixture f;
            property::putInto(f.form.InputsList, property::randomInputs(random, 8));
            property::putInto(f.form.OutputsList, property::randomOutputs(random, 8));
            f.form.CommandLine.Text = property::randomText(random, 0, 40);
            f.form.Optimizer.Text = tool;

            generate::GenerateButton_Click(f.context);

            EXPECT_GE(f.workFolder().size(), 8U);
            for (const auto& [name, content] : f.workFolder()) {
                EXPECT_TRUE(hasWholeLines(content)) << name;
                EXPECT_THAT(content, Not(StartsWith("\xEF\xBB\xBF"))) << name;
            }
        }
}

// A letter that only looks alike would be a wrong letter.
TEST(TextOutsideTheCodePage, BecomesQuestionMarksAndTheLogNamesEachFileAndItsFirstSuchRow)
{
    // Greek, Cyrillic, Chinese, a letter with a combining mark, a letter with a stroke, emoji.
    const std::string strange[] = {"\u03B1", "\u0416", "\u6881", "e\u0301", "\u0141", "\U0001F600"};
    for (const std::string& text : strange)
        for (const std::string& tool : tools) {
            GenerateFixture f;
            f.form.Optimizer.Text = tool;
            f.addInput({"Träger", "0.25", "Prop", "1", "pval", "0"});
            f.addInput({"x" + text, "1", "Prop", "2", "pval", "0"});
            f.addInput({"y" + text, "1", "Prop", "3", "pval", "0"});

            const std::vector<std::string> log =
                f.logOf([&] { generate::GenerateButton_Click(f.context); });

            EXPECT_THAT(f.written("CAEInput.txt"), Contains(HasSubstr("Tr\xE4ger")));
            EXPECT_THAT(f.written("InputValues.txt"),
                        Contains(text == "e\u0301" ? "xe?  1" : "x?  1"));
            EXPECT_EQ(linesWith(log, generate::inWork("InputValues.txt") + ": line 2 is the first"),
                      1);
            EXPECT_EQ(linesWith(log, generate::inWork("beamControl.txt") + ": line 2 is the first"),
                      1);
            EXPECT_EQ(linesWith(log, generate::inWork("OutputValues.txt") + ": line"), 0);
            EXPECT_EQ(f.form.InputsList.text(2, 0), "x" + text);
        }
}

TEST(AnUmlaut, SurvivesTheWayFromFemapThroughGridAndControlFileBackIntoTheGrid)
{
    World world;
    world.femap.openModel().functions.find(1)->title = "Träger Ø12 – 100 % €";
    world.start();
    world.program.raise(form::click("ClearAll"));
    world.form.InputSelection.Text = "Functions";
    world.pick({1});
    world.program.raise(form::click("InputsButton"));
    const std::vector<std::string> rows = world.inputs();
    world.program.raise(form::click("GenerateButton"));

    World next;
    next.files.contents = world.files.contents;
    next.start();

    EXPECT_THAT(rows, Contains(StartsWith("Träger Ø12 – 100 % €\t")));
    EXPECT_EQ(next.inputs(), rows);
}

TEST(AControlCharacterInATitle, NeverTearsARowApart)
{
    for (const char character : std::string("\t\r\n\0\x01\x1A\x1F\x7F", 8)) {
        World world;
        const std::string title = std::string("a") + character + "b";
        femap::neutral::Model& model = world.femap.openModel();
        model.functions.find(1)->title = title;
        model.loadSets.find(1)->definitions.front().title = title;
        model.outputSets.find(1)->vectors.find(1)->title = title;
        world.start();
        world.program.raise(form::click("ClearAll"));
        for (const char* const action : {"SelectsAFunction", "SelectsALoadDefinition",
                                         "SelectsResultsOfNodes", "SelectsExtremesOfNodes"}) {
            const auto place = std::ranges::find(actions(), std::string(action),
                                                 [](const Action& each) { return each.name; });
            place->prepare(world);
            place->run(world);
        }
        const std::vector<std::string> inputs = world.inputs();
        const std::vector<std::string> outputs = world.outputs();
        world.program.raise(form::click("GenerateButton"));

        World next;
        next.files.contents = world.files.contents;
        next.start();

        EXPECT_EQ(inputs.size(), 4U);
        EXPECT_EQ(outputs.size(), 4U);
        for (const std::string& row : inputs)
            EXPECT_EQ(std::ranges::count(row, '\t'), 5) << row;
        for (const std::string& row : outputs)
            EXPECT_EQ(std::ranges::count(row, '\t'), 4) << row;
        EXPECT_THAT(inputs, Contains(StartsWith("a b\t")));
        EXPECT_EQ(next.inputs(), inputs);
        EXPECT_EQ(next.outputs(), outputs);
    }
}

}  // namespace reliability
