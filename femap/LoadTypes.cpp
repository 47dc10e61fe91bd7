#include "femap/LoadTypes.h"

#include <algorithm>
#include <iterator>

namespace femap
{

namespace
{

// clang-format off
constexpr int forces[]                 = {1, 81, 121, 122, 123, 161, 162, 163};
constexpr int moments[]                = {2, 82, 124, 125, 126, 164, 165, 166};
constexpr int displacements[]          = {3, 83, 127, 167};
constexpr int rotations[]              = {4, 84, 128, 168};
constexpr int velocities[]             = {5, 85, 129, 169};
constexpr int angularVelocities[]      = {6, 86, 130, 170};
constexpr int accelerations[]          = {7, 87, 131, 171};
constexpr int angularAccelerations[]   = {8, 88, 132, 172};
constexpr int heatFluxes[]             = {10, 44, 90, 134, 135, 136, 140, 174, 175, 176, 180};
constexpr int heatGenerations[]        = {11, 47, 91, 137, 143, 177, 183};
constexpr int pressures[]              = {13, 14, 42, 92, 93, 144, 145, 138, 184, 185, 178,
                                          101};  // a periodic condition at a point
constexpr int convections[]            = {45, 141, 181};
constexpr int radiations[]             = {46, 142, 182};

constexpr LoadType loadTypes[] = {
    {"force",                     {"Fx", "Fy", "Fz"},            forces},
    {"moment",                    {"Mx", "My", "Mz"},            moments},
    {"flux",                      {"Flux"},                      heatFluxes},
    {"generation",                {"Generation"},                heatGenerations},
    {"convection",                {"Coefficient", "Temperature"}, convections},
    {"radiation",                 {"Emissivity", "Absorptivity", "Temperature", "View Factor"},
                                                                 radiations},
    {"pressure",                  {"Pressure"},                  pressures},
    {"displacement",              {"Tx", "Ty", "Tz"},            displacements},
    {"rotational displacement",   {"Rx", "Ry", "Rz"},            rotations},
    {"velocity",                  {"Vx", "Vy", "Vz"},            velocities},
    {"rotational velocity",       {"VRx", "VRy", "VRz"},         angularVelocities},
    {"acceleration",              {"Ax", "Ay", "Az"},            accelerations},
    {"roataional acceleration",   {"ARx", "ARy", "ARz"},         angularAccelerations},  // sic
};

// FEMAP numbers the types by what the load acts on; those below are loads on nodes and elements.
struct Geometry
{
    int firstLoadType;
    int type;
};
constexpr Geometry geometries[] = {
    {161, 5},  // surface
    {121, 4},  // curve
    {81,  3},  // point
};
// clang-format on

}  // namespace

const LoadType* findLoadType(int number)
{
    const auto* const found = std::ranges::find_if(loadTypes, [number](const LoadType& type) {
        return std::ranges::find(type.numbers, number) != type.numbers.end();
    });
    return found == std::end(loadTypes) ? nullptr : found;
}

int geometryTypeOf(int loadType)
{
    const auto* const found = std::ranges::find_if(
        geometries, [loadType](const Geometry& one) { return loadType >= one.firstLoadType; });
    return found == std::end(geometries) ? 0 : found->type;
}

}  // namespace femap
