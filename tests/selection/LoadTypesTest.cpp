#include "fake/FormFixture.h"
#include "selection/LoadDefinitionInputs.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <set>
#include <string>
#include <vector>

namespace selection
{

using fake::FormFixture;
using testing::ElementsAre;

namespace
{

using Prefixes = std::array<std::string, 4>;

Prefixes prefixesOf(const form::MainForm& form)
{
    return {form.firstPrefix, form.secondPrefix, form.thirdPrefix, form.fourthPrefix};
}

struct KindOfLoad
{
    std::string name;
    std::vector<int> types;
    Prefixes prefixes;
    std::string logText;
};

// clang-format off
const std::vector<KindOfLoad> kindsOfLoad = {
    {"Force",                  {1, 81, 121, 122, 123, 161, 162, 163},
        {"Fx", "Fy", "Fz", ""}, "Found force"},
    {"Moment",                 {2, 82, 124, 125, 126, 164, 165, 166},
        {"Mx", "My", "Mz", ""}, "Found moment"},
    {"Flux",                   {10, 44, 90, 134, 135, 136, 140, 174, 175, 176, 180},
        {"Flux", "", "", ""}, "Found flux"},
    {"Generation",             {11, 47, 91, 137, 143, 177, 183},
        {"Generation", "", "", ""}, "Found generation"},
    {"Convection",             {45, 141, 181},
        {"Coefficient", "Temperature", "", ""}, "Found convection"},
    {"Radiation",              {46, 142, 182},
        {"Emissivity", "Absorptivity", "Temperature", "View Factor"}, "Found radiation"},
    {"Pressure",               {13, 14, 42, 92, 93, 144, 145, 138, 184, 185, 178, 101},
        {"Pressure", "", "", ""}, "Found pressure"},
    {"Displacement",           {3, 83, 127, 167},
        {"Tx", "Ty", "Tz", ""}, "Found displacement"},
    {"Rotation",               {4, 84, 128, 168},
        {"Rx", "Ry", "Rz", ""}, "Found rotational displacement"},
    {"Velocity",               {5, 85, 129, 169},
        {"Vx", "Vy", "Vz", ""}, "Found velocity"},
    {"RotationalVelocity",     {6, 86, 130, 170},
        {"VRx", "VRy", "VRz", ""}, "Found rotational velocity"},
    {"Acceleration",           {7, 87, 131, 171},
        {"Ax", "Ay", "Az", ""}, "Found acceleration"},
    {"RotationalAcceleration", {8, 88, 132, 172},
        {"ARx", "ARy", "ARz", ""}, "Found roataional acceleration"},
};
// clang-format on

struct TypeOfLoad
{
    int type;
    KindOfLoad kind;
};

std::vector<TypeOfLoad> typesOfLoad()
{
    std::vector<TypeOfLoad> result;
    for (const KindOfLoad& kind : kindsOfLoad)
        for (const int type : kind.types)
            result.push_back({type, kind});
    return result;
}

}  // namespace

class LoadType : public testing::TestWithParam<TypeOfLoad>
{};

TEST_P(LoadType, NamesItsComponentsAndIsLogged)
{
    FormFixture f;
    const KindOfLoad& kind = GetParam().kind;

    initialisePrefix(f.context, GetParam().type);

    EXPECT_EQ(prefixesOf(f.form), kind.prefixes);
    EXPECT_THAT(
        f.log(),
        ElementsAre("DEBUG: At start of initialisePrefix", "DEBUG: " + kind.logText,
                    "DEBUG: Selected Load Type=" + std::to_string(GetParam().type) +
                        " firstPrefix=" + kind.prefixes[0] + " secondPrefix=" + kind.prefixes[1] +
                        " thirdPrefix=" + kind.prefixes[2] + " fourthPrefix=" + kind.prefixes[3],
                    "DEBUG: At end of initialisePrefix"));
}

INSTANTIATE_TEST_SUITE_P(EachType, LoadType, testing::ValuesIn(typesOfLoad()), [](const auto& one) {
    return one.param.kind.name + std::to_string(one.param.type);
});

TEST(LoadTypes, OutsideTheTableHaveNoComponents)
{
    FormFixture f;
    std::set<int> inTable;
    for (const TypeOfLoad& one : typesOfLoad())
        inTable.insert(one.type);

    for (int type = -2; type < 300; ++type) {
        f.form.fourthPrefix = "left over";
        initialisePrefix(f.context, type);

        EXPECT_EQ(prefixesOf(f.form) == Prefixes(), !inTable.contains(type)) << type;
    }
    initialisePrefix(f.context, 2147483647);
    EXPECT_EQ(prefixesOf(f.form), Prefixes());
}

TEST(LoadTypes, OutsideTheTableAreLoggedWithoutAKind)
{
    FormFixture f;

    initialisePrefix(f.context, 48);

    EXPECT_THAT(
        f.log(),
        ElementsAre(
            "DEBUG: At start of initialisePrefix",
            "DEBUG: Selected Load Type=48 firstPrefix= secondPrefix= thirdPrefix= fourthPrefix=",
            "DEBUG: At end of initialisePrefix"));
}

TEST(LoadTypes, ClearThePrefixesOfTheTypeBefore)
{
    FormFixture f;

    initialisePrefix(f.context, 46);
    initialisePrefix(f.context, 45);

    EXPECT_EQ(prefixesOf(f.form), (Prefixes{"Coefficient", "Temperature", "", ""}));
}

}  // namespace selection
