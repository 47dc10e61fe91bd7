#include "fake/GenerateFixture.h"
#include "fake/RandomSeed.h"
#include "femap/NumberText.h"
#include "generate/GenerationDriver.h"
#include "property/Generators.h"
#include "selection/InputList.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdlib>

namespace property
{

namespace
{

constexpr int numbersOfEachExponent = 8;

// What a reader in C makes of a text that is a number and nothing else.
template <class Real>
Real readBack(const std::string& text, Real (*read)(const char*, char**))
{
    char* end = nullptr;
    const Real number = read(text.c_str(), &end);
    EXPECT_FALSE(text.empty());
    EXPECT_EQ(*end, '\0') << '"' << text << '"';
    return number;
}

// A blank, or the minus that a zero loses; then no zero in front of the point.
bool hasSignPlace(const std::string& text, bool isNegative)
{
    return text.starts_with(isNegative ? '-' : ' ') && text.substr(1, 2) != "0.";
}

double randomDouble(Random& random)
{
    constexpr std::uint64_t withoutExponent = 0x800F'FFFF'FFFF'FFFF;
    for (;;) {
        std::uint64_t bits = random.bits();
        if (random.oneIn(4))
            bits &= withoutExponent;  // denormal
        auto number = std::bit_cast<double>(bits);
        if (random.oneIn(4))
            number = std::bit_cast<float>(static_cast<std::uint32_t>(bits));
        if (random.oneIn(8))
            number = random.between(-1000, 1000) / 8.0;
        if (std::isfinite(number))
            return number;
    }
}

}  // namespace

TEST(SignBlankTextOfEveryExponent, ReadsBackToTheSameDouble)
{
    constexpr std::uint64_t exponents = 0x7FF;  // the next one is that of infinity
    Random random(fake::randomSeed());

    for (std::uint64_t exponent = 0; exponent < exponents && !HasFailure(); ++exponent)
        for (int i = 0; i < numbersOfEachExponent; ++i) {
            const std::uint64_t sign = random.bits() >> 63 << 63;
            const auto number = std::bit_cast<double>(sign | exponent << 52 | random.bits() >> 12);
            const std::string text = femap::signBlankText(number);
            EXPECT_EQ(readBack<double>(text, std::strtod), number) << text;
            EXPECT_TRUE(hasSignPlace(text, number < 0)) << text;
        }
}

TEST(SignBlankTextOfEveryExponent, ReadsBackToTheSameSingle)
{
    constexpr std::uint32_t exponents = 0xFF;
    Random random(fake::randomSeed());

    for (std::uint32_t exponent = 0; exponent < exponents && !HasFailure(); ++exponent)
        for (int i = 0; i < 8 * numbersOfEachExponent; ++i) {
            const auto bits = static_cast<std::uint32_t>(random.bits());
            const auto number = std::bit_cast<float>((bits & 0x807F'FFFFU) | exponent << 23);
            const std::string text = femap::signBlankText(number);
            EXPECT_EQ(readBack<float>(text, std::strtof), number) << text;
            EXPECT_TRUE(hasSignPlace(text, number < 0)) << text;
            EXPECT_EQ(readBack<float>(femap::numberText(number), std::strtof), number);
        }
}

TEST(ValuesOfARandomModel, AreTheSameDoublesInTheFileOfInputValues)
{
    constexpr int nodes = 100;
    Random random(fake::randomSeed());

    for (int round = 0; round < 20 && !HasFailure(); ++round) {
        generate::GenerateFixture f;
        std::map<std::string, double> expected;
        for (int id = 1; id <= nodes; ++id) {
            femap::neutral::Node node;
            node.id = id;
            node.x = randomDouble(random);
            expected["XAtNode" + std::to_string(id)] = node.x;
            f.model().nodes.put(node);
        }
        const auto set = f.context.femap().feSet();
        set->AddAll(femap::EntityType::Node);

        selection::UpdateInputList(f.context, "Node", set->ids(), {"X"}, {{"X", "x"}}, {});
        generate::GenerateButton_Click(f.context);

        std::map<std::string, double> read;
        for (const std::string& line : f.written("InputValues.txt")) {
            const std::size_t gap = line.find("  ");
            read[line.substr(0, gap)] = readBack<double>(line.substr(gap + 2), std::strtod);
        }
        EXPECT_EQ(read, expected);
    }
}

TEST(PointsOfARandomFunction, AreTheSameDoublesInTheFileOfFunctions)
{
    constexpr int points = 500;
    Random random(fake::randomSeed());
    generate::GenerateFixture f;
    std::vector<double> x;
    std::vector<double> y;
    for (int i = 0; i < points; ++i) {
        x.push_back(randomDouble(random));
        y.push_back(randomDouble(random));
    }
    f.addFunction(3, "Load", x, y);
    f.addInput({"Load", "X-Y Values", "Function", " 3"});

    generate::GenerateButton_Click(f.context);

    const std::vector<std::string> lines = f.written("FunctionsInputvalues.txt");
    ASSERT_EQ(lines.size(), 4U + points);
    for (std::size_t i = 0; i < points; ++i) {
        const std::string& line = lines[4 + i];
        const std::size_t gap = line.find('_');
        EXPECT_EQ(readBack<double>(line.substr(0, gap), std::strtod), x[i]);
        EXPECT_EQ(readBack<double>(line.substr(gap + 1), std::strtod), y[i]);
    }
}

}  // namespace property
