#include "fake/FormFixture.h"
#include "fake/RandomSeed.h"
#include "property/Generators.h"
#include "selection/InputList.h"
#include "selection/LoadDefinitionInputs.h"
#include "selection/OutputList.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace property
{

namespace
{

constexpr int roundsOfNames = 3000;
constexpr int titlesAtOnce = 25;

// The rules of names, one step after the other, on whole characters.
class Name
{
public:
    explicit Name(const std::string& text) : characters_(charactersOf(text)) {}

    Name& remove(const std::string& character)
    {
        std::erase(characters_, character);
        return *this;
    }
    Name& keepFirst(std::size_t count)
    {
        characters_.resize(std::min(count, characters_.size()));
        return *this;
    }
    Name& add(const std::string& text)
    {
        for (const std::string& character : charactersOf(text))
            characters_.push_back(character);
        return *this;
    }
    std::string text() const
    {
        std::string result;
        for (const std::string& character : characters_)
            result += character;
        return result;
    }

private:
    std::vector<std::string> characters_;
};

std::string inputName(const std::string& field, const std::string& prefix, int id)
{
    return Name(field)
        .remove(" ")
        .remove("-")
        .remove("/")
        .keepFirst(15)
        .add("At" + prefix + std::to_string(id))
        .remove(",")
        .text();
}

std::string titleInName(const std::string& title, std::size_t length)
{
    return Name(title).remove(" ").remove("-").remove("/").keepFirst(length).text();
}

std::string loadName(const std::string& title, int id, const std::string& component)
{
    return Name(title)
        .add("_ " + std::to_string(id) + "_" + component)
        .remove(" ")
        .remove("[")
        .remove("]")
        .remove(".")
        .remove("/")
        .text();
}

// A form whose model has output vectors with these titles, numbered from 1, at node 7.
void addVectors(fake::FormFixture& f, const std::vector<std::string>& titles)
{
    femap::neutral::OutputSet set;
    set.id = 1;
    int id = 0;
    for (const std::string& title : titles) {
        femap::neutral::OutputVector vector;
        vector.id = ++id;
        vector.title = title;
        vector.ids = {7};
        vector.values = {1};
        set.vectors.put(std::move(vector));
    }
    f.model().outputSets.put(std::move(set));
    femap::neutral::Node node;
    node.id = 7;
    f.model().nodes.put(node);
}

std::vector<std::string> randomTitles(Random& random)
{
    std::vector<std::string> titles;
    for (int i = 0; i < titlesAtOnce; ++i)
        titles.push_back(randomText(random, 0, 24));
    return titles;
}

}  // namespace

TEST(NameOfARandomField, IsShortenedStepByStep)
{
    constexpr const char* prefixes[] = {"Node", "Elem", "Prop", "Matl"};
    Random random(fake::randomSeed());

    for (int round = 0; round < roundsOfNames && !HasFailure(); ++round) {
        const std::string field = randomText(random, 0, 24);
        const std::string prefix = random.of(prefixes);
        const int id = 1 + random.below(2'000'000'000);

        EXPECT_EQ(selection::variableName(field, prefix, id), inputName(field, prefix, id))
            << field;
    }
}

TEST(NameOfARandomVector, IsShortenedToTenCharactersAtAnEntityAndToFourteenForItsExtremes)
{
    Random random(fake::randomSeed());

    for (int round = 0; round < roundsOfNames / titlesAtOnce && !HasFailure(); ++round) {
        const std::vector<std::string> titles = randomTitles(random);
        fake::FormFixture f;
        addVectors(f, titles);
        std::vector<std::string> ids;
        std::vector<std::string> expected;
        for (const std::string& title : titles) {
            ids.push_back(std::to_string(ids.size() + 1));
            expected.push_back(titleInName(title, 10) + ids.back() + "AtNode7");
        }
        for (std::size_t i = 0; i < titles.size(); ++i)
            for (const char* const extreme : {"MaxAtNode", "MinAtNode"})
                expected.push_back(titleInName(titles[i], 14) + extreme + ids[i]);

        const auto nodes = f.context.femap().feSet();
        nodes->AddAll(femap::EntityType::Node);
        const std::vector<int> nodesIDs = nodes->ids();
        selection::UpdateOutputList(f.context, "Node", &nodesIDs, ids);
        selection::UpdateOutputList(f.context, "Node", nullptr, ids);

        EXPECT_EQ(f.names(f.form.OutputsList), expected);
    }
}

TEST(NameOfARandomLoadDefinition, LosesBlanksBracketsPointsAndSlashes)
{
    Random random(fake::randomSeed());

    for (int round = 0; round < roundsOfNames / titlesAtOnce && !HasFailure(); ++round) {
        fake::FormFixture f;
        femap::neutral::LoadSet set;
        set.id = 1;
        std::vector<int> ids;
        std::vector<std::string> expected;
        for (const std::string& title : randomTitles(random)) {
            const int id = static_cast<int>(ids.size()) + 1;
            ids.push_back(id);
            set.definitions.push_back({id, title, static_cast<int>(femap::LoadDataType::Mesh), 46});
            set.meshLoads.push_back({.id = id, .type = 46, .definitionID = id});
            for (const char* const component :
                 {"Emissivity", "Absorptivity", "Temperature", "View Factor"})
                expected.push_back(loadName(title, id, component));
        }
        f.model().loadSets.put(std::move(set));
        f.pick(ids);

        selection::UpdateLoadDefinitionInputs(f.context);

        EXPECT_EQ(f.names(f.form.InputsList), expected);
    }
}

}  // namespace property
