// The members of load definitions and loads
// in FEMAP's type libraries, as far as anything here uses them or stands in for them. By their
// DISPIDs; LibraryMember.h tells the letters.
#pragma once

#include "femap/LibraryMember.h"

namespace femap::library
{

using enum Kind;

// clang-format off
inline constexpr Member ILoadDefinition[] = {
    {"title",         Property, 10000, "",      's', all},
    {"loadType",      Property, 10001, "",      'i', all},
    {"dataType",      Property, 10002, "",      'i', old},
    {"DataType",      Property, 10002, "",      'i', since2021},
    {"ID",            Property, 17000, "",      'i', all},
    {"setID",         Property, 17001, "",      'i', old},
    {"SetID",         Property, 17001, "",      'i', since2021},
    {"Delete",        Method,   20000, "i",     'i', all},
    {"Get",           Method,   20001, "i",     'i', all},
    {"ResetNextLoad", Method,   20003, "",      'i', all},
    {"NextLoad",      Method,   20004, "O",     'i', all},
    {"CountLoads",    Method,   20005, "",      'i', all},
    {"IsTotalLoad",   Method,   20006, "",      'i', all},
    {"Put",           Method,   29005, "i",     'i', all},
    {"Exist",         Method,   29006, "i",     'i', all},
    {"Reset",         Method,   29009, "",      'i', all},
    {"Next",          Method,   29010, "",      'i', all},
    {"First",         Method,   29012, "",      'i', all},
    {"GetTitleList",  Method,   29021, "iiIVV", 'i', all},
    {"CountSet",      Method,   29027, "",      'i', all},
};

inline constexpr Member ILoadMesh[] = {
    {"meshID",           Property, 10000, "",  'i', all},
    {"type",             Property, 10005, "",  'i', all},
    {"subtype",          Property, 10006, "",  'i', all},
    {"layer",            Property, 10007, "",  'i', all},
    {"LoadDefinitionID", Property, 10009, "",  'i', all},
    {"color",            Property, 10010, "",  'i', all},
    {"expanded",         Property, 10011, "",  'b', all},
    {"FaceNumber",       Property, 10012, "",  'i', all},
    {"x",                Property, 10016, "",  'd', all},
    {"y",                Property, 10017, "",  'd', all},
    {"z",                Property, 10018, "",  'd', all},
    {"temp",             Property, 10019, "",  'd', all},
    {"phase",            Property, 10020, "",  'd', all},
    {"Pressure",         Property, 10026, "",  'd', all},
    {"HeatGen",          Property, 10027, "",  'd', all},
    {"HeatFlux",         Property, 10028, "",  'd', all},
    {"Absorptivity",     Property, 10029, "",  'd', all},
    {"ConvectionCoeff",  Property, 10035, "",  'd', all},
    {"Emissivity",       Property, 10042, "",  'd', all},
    {"ViewFactor",       Property, 10044, "",  'd', all},
    {"vload",            Property, 10054, "",  'v', all},
    {"ID",               Property, 17000, "",  'i', all},
    {"setID",            Property, 17001, "",  'i', old},
    {"SetID",            Property, 17001, "",  'i', since2021},
    {"dof",              Indexed,  18001, "i", 'i', all},
    {"load",             Indexed,  18003, "i", 'd', all},
    {"Function",         Indexed,  18005, "i", 'i', all},
    {"Put",              Method,   20000, "i", 'i', all},
    {"Get",              Method,   29004, "i", 'i', all},
    {"Exist",            Method,   29006, "i", 'i', all},
    {"CountSet",         Method,   29027, "",  'i', all},
};

inline constexpr Member ILoadGeom[] = {
    {"geomID",           Property, 10011, "",  'i', all},
    {"type",             Property, 10016, "",  'i', all},
    {"subtype",          Property, 10017, "",  'i', all},
    {"layer",            Property, 10018, "",  'i', all},
    {"LoadDefinitionID", Property, 10020, "",  'i', all},
    {"color",            Property, 10021, "",  'i', all},
    {"expanded",         Property, 10022, "",  'b', all},
    {"FaceNumber",       Property, 10023, "",  'i', all},
    {"x",                Property, 10027, "",  'd', all},
    {"y",                Property, 10028, "",  'd', all},
    {"z",                Property, 10029, "",  'd', all},
    {"temp",             Property, 10030, "",  'd', all},
    {"phase",            Property, 10031, "",  'd', all},
    {"Pressure",         Property, 10037, "",  'd', all},
    {"HeatGen",          Property, 10038, "",  'd', all},
    {"HeatFlux",         Property, 10039, "",  'd', all},
    {"Absorptivity",     Property, 10040, "",  'd', all},
    {"ConvectionCoeff",  Property, 10046, "",  'd', all},
    {"Emissivity",       Property, 10053, "",  'd', all},
    {"ViewFactor",       Property, 10055, "",  'd', all},
    {"vload",            Property, 10068, "",  'v', all},
    {"geomTYPE",         Property, 10072, "",  'i', all},
    {"ID",               Property, 17000, "",  'i', all},
    {"setID",            Property, 17001, "",  'i', old},
    {"SetID",            Property, 17001, "",  'i', since2021},
    {"dof",              Indexed,  18004, "i", 'i', all},
    {"load",             Indexed,  18006, "i", 'd', all},
    {"Function",         Indexed,  18008, "i", 'i', all},
    {"Put",              Method,   20000, "i", 'i', all},
    {"Get",              Method,   29004, "i", 'i', all},
    {"Exist",            Method,   29006, "i", 'i', all},
    {"CountSet",         Method,   29027, "",  'i', all},
};

inline constexpr Member ILoadETemp[] = {
    {"temp",             Property, 10000, "",  'd', all},
    {"phase",            Property, 10001, "",  'd', all},
    {"Function",         Property, 10002, "",  'i', all},
    {"layer",            Property, 10003, "",  'i', all},
    {"color",            Property, 10004, "",  'i', all},
    {"expanded",         Property, 10005, "",  'b', all},
    {"LoadDefinitionID", Property, 10006, "",  'i', all},
    {"gradient",         Property, 10007, "",  'd', all},
    {"ID",               Property, 17000, "",  'i', all},
    {"setID",            Property, 17001, "",  'i', old},
    {"SetID",            Property, 17001, "",  'i', since2021},
    {"Put",              Method,   20000, "i", 'i', all},
    {"Get",              Method,   29004, "i", 'i', all},
    {"Exist",            Method,   29006, "i", 'i', all},
    {"CountSet",         Method,   29027, "",  'i', all},
};

inline constexpr Member ILoadNTemp[] = {
    {"temp",             Property, 10000, "",  'd', all},
    {"phase",            Property, 10001, "",  'd', all},
    {"Function",         Property, 10002, "",  'i', all},
    {"layer",            Property, 10003, "",  'i', all},
    {"color",            Property, 10004, "",  'i', all},
    {"expanded",         Property, 10005, "",  'b', all},
    {"LoadDefinitionID", Property, 10006, "",  'i', all},
    {"ID",               Property, 17000, "",  'i', all},
    {"setID",            Property, 17001, "",  'i', old},
    {"SetID",            Property, 17001, "",  'i', since2021},
    {"Put",              Method,   20000, "i", 'i', all},
    {"Get",              Method,   29004, "i", 'i', all},
    {"Exist",            Method,   29006, "i", 'i', all},
    {"CountSet",         Method,   29027, "",  'i', all},
};
// clang-format on

}  // namespace femap::library
