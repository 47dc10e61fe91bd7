#include "fake/NeutralText.h"
#include "fake/RandomSeed.h"
#include "fake/RealModels.h"
#include "femap/embedded/Deck.h"
#include "femap/embedded/HostChanges.h"
#include "femap/embedded/HostFixture.h"
#include "femap/embedded/HostLoads.h"
#include "femap/embedded/HostObjects.h"
#include "femap/embedded/NeutralPatch.h"
#include "property/Generators.h"
#include "property/RandomNeutralFile.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <tuple>

namespace property
{

namespace
{

using femap::MemberName;
using femap::ModelValues;
using femap::Value;
using femap::embedded::PatchProblem;
using femap::embedded::writePatched;
using femap::neutral::Model;

constexpr int roundsOfPatches = 100;
constexpr int mostValues = 40;
constexpr int mostLoads = 8;  // of a definition that are looked at

/// Values of a model that its file holds.
class RandomValues
{
public:
    /// As they are in the model, or random ones.
    RandomValues(Random& random, HostFixture& f, bool asTheyAre)
        : random_(random), f_(f), asTheyAre_(asTheyAre)
    {}

    ModelValues make()
    {
        static constexpr void (RandomValues::*kinds[])() = {
            &RandomValues::addOfNode,     &RandomValues::addOfElement, &RandomValues::addOfProperty,
            &RandomValues::addOfMaterial, &RandomValues::addOfLoad,    &RandomValues::addFunction};
        for (int i = random_.between(1, mostValues); i > 0; --i)
            (this->*random_.of(kinds))();
        std::ranges::stable_sort(values_.loads, {}, [](const femap::LoadValue& value) {
            return std::tuple(value.loadSet, value.definition, value.load);
        });
        return std::move(values_);
    }

private:
    Value valueFor(const Value& before)
    {
        if (asTheyAre_)
            return before;
        if (std::holds_alternative<double>(before))
            return randomReal(random_);
        return random_.oneIn(2) ? Value(std::int64_t{random_.below(1000)})
                                : Value(random_.below(1000) + 0.0);
    }
    void addMember(const std::string& word, int id, const MemberName& name)
    {
        const auto entity = femap::embedded::makeEntity(f_.host, word);
        ASSERT_EQ(entity->Get(id), femap::ReturnCode::Ok);
        const Value before =
            name.index ? entity->member(name.name, *name.index) : entity->member(name.name);
        values_.entities.push_back({word, id, name, valueFor(before)});
    }
    template <class Table>
    auto* anyOf(Table& table)
    {
        const int at = table.empty() ? 0 : random_.below(static_cast<int>(table.size()));
        return table.empty() ? nullptr : &*(table.begin() + at);
    }

    void addOfNode()
    {
        static const MemberName names[] = {{"x"}, {"Y"}, {"z"}, {"defCSys"}, {"color"}, {"layer"}};
        if (const auto* const node = anyOf(f_.model().nodes))
            addMember("Node", node->id, random_.of(names));
    }
    void addOfElement()
    {
        static const MemberName names[] = {{"propID"},    {"color"},     {"layer"},
                                           {"node", 0},   {"node", 10},  {"orient", 0},
                                           {"offset", 0}, {"offset", 3}, {"PlateOffset"}};
        if (const auto* const element = anyOf(f_.model().elements))
            addMember("Elem", element->id, random_.of(names));
    }
    void addOfProperty()
    {
        const auto* const property = anyOf(f_.model().properties);
        if (property == nullptr)
            return;
        const int places = static_cast<int>(property->pval.size());
        if (places == 0 || random_.oneIn(5))
            addMember("Prop", property->id, {random_.oneIn(2) ? "matlID" : "layer"});
        else
            addMember("Prop", property->id, {"pval", random_.below(std::min(places, 200))});
    }
    void addOfMaterial()
    {
        static const MemberName names[] = {{"Ex"}, {"density"}, {"color"}, {"layer"}};
        if (const auto* const material = anyOf(f_.model().materials))
            addMember(
                "Matl", material->id,
                random_.oneIn(2) ? MemberName{"mval", random_.below(200)} : random_.of(names));
    }
    void addOfLoad()
    {
        const auto* const set = anyOf(f_.model().loadSets);
        const auto* const definition = set == nullptr ? nullptr : anyOf(set->definitions);
        if (definition == nullptr)
            return;
        femap::embedded::HostLoadDefinition loads(f_.host);
        ASSERT_EQ(loads.Get(set->id, definition->id), femap::ReturnCode::Ok);
        const std::size_t wanted = static_cast<std::size_t>(random_.below(mostLoads));
        auto load = loads.nextLoad();
        for (std::size_t i = 0; i < wanted && load != nullptr; ++i)
            load = loads.nextLoad();
        if (load == nullptr)
            return;
        const bool isTemperature = definition->dataType >= 15;
        const MemberName name = isTemperature ? MemberName{"temp"} : MemberName{"load", 0};
        const Value before = isTemperature ? load->member("temp") : load->member("load", 0);
        values_.loads.push_back({set->id, definition->id, wanted, name, valueFor(before)});
    }
    void addFunction()
    {
        const auto* const function = anyOf(f_.model().functions);
        if (function == nullptr)
            return;
        femap::FunctionPoints points{function->x, function->y};
        for (double& x : points.x)
            x = asTheyAre_ ? x : randomReal(random_);
        values_.functions.push_back({function->id, std::move(points)});
    }

    Random& random_;
    HostFixture& f_;
    bool asTheyAre_;
    ModelValues values_;
};

std::string patched(const std::string& text, const ModelValues& values)
{
    std::string result;
    const auto problems =
        writePatched(text, "wing.neu", values, [&](std::string_view piece) { result += piece; });
    for (const PatchProblem& problem : problems)
        ADD_FAILURE() << problem.line << ": " << problem.what;
    return result;
}

std::string deckOf(const Model& model)
{
    std::string deck;
    femap::embedded::writeDeck(model, [&](const std::string& lines) { deck += lines; });
    return deck;
}

std::vector<std::string> fieldsOf(const std::string& text)
{
    std::vector<std::string> fields(1);
    for (const char c : text) {
        const bool isSeparator = std::string_view(", \t\r\n").find(c) != std::string_view::npos;
        if (isSeparator)
            fields.emplace_back();
        else
            fields.back() += c;
    }
    return fields;
}

std::size_t differences(const std::string& before, const std::string& after)
{
    const auto one = fieldsOf(before);
    const auto other = fieldsOf(after);
    EXPECT_EQ(one.size(), other.size());
    std::size_t count = 0;
    for (std::size_t i = 0; i < std::min(one.size(), other.size()); ++i)
        count += one[i] == other[i] ? 0 : 1;
    return count;
}

std::size_t numbersIn(const ModelValues& values)
{
    std::size_t count = values.entities.size() + values.loads.size();
    for (const auto& each : values.functions)
        count += each.points.x.size() + each.points.y.size();
    return count;
}

void expectPatchesAsTheHost(Random& random, const std::string& text)
{
    HostFixture f;
    f.host.model = neutral::read(text);
    const ModelValues present = RandomValues(random, f, true).make();
    const ModelValues values = RandomValues(random, f, false).make();

    EXPECT_EQ(patched(text, {}), text);
    EXPECT_EQ(patched(text, present), text);
    const std::string result = patched(text, values);

    femap::embedded::makeChanges(f.host)->put(values);
    EXPECT_EQ(deckOf(neutral::read(result)), deckOf(f.model()));
    EXPECT_LE(differences(text, result), numbersIn(values));
}

}  // namespace

TEST(NeutralPatchOfRandomModels, MakesTheModelThatTheHostMakesOfTheValues)
{
    Random random(fake::randomSeed());

    for (int i = 0; i < roundsOfPatches && !testing::Test::HasFailure(); ++i) {
        const std::string text = randomNeutralFile(random);
        expectPatchesAsTheHost(random, text);
    }
}

TEST(NeutralPatchOfModelsByFemap, MakesTheModelThatTheHostMakesOfTheValues)
{
    Random random(fake::randomSeed());

    for (const char* const name :
         {"C731.NEU", "ME361.NEU", "MB361_CFlux.NEU", "callback.NEU", "lam1.neu"}) {
        if (!std::filesystem::exists(fake::realModel(name)))
            continue;  // two of them are kept elsewhere
        const std::string text = fake::contentOfModel(name);
        for (int i = 0; i < 5 && !testing::Test::HasFailure(); ++i)
            expectPatchesAsTheHost(random, text);
    }
}

}  // namespace property
