// One member of an object in FEMAP's type libraries, and the short words that their tables use.
#pragma once

#include <string_view>

namespace femap::library
{

enum class Kind
{
    Property,  // can be read and written
    Indexed,   // the same, by one index or two; when it is written, the value follows them
    Method,
};

/// Which type libraries: any of FEMAP 11.2, 2021.2, 2201, 2022.1, 2301 and 2306.
enum Versions : unsigned
{
    v11_2 = 1,
    v2021_2 = 2,
    v2201 = 4,
    v2022_1 = 8,
    v2301 = 16,
    v2306 = 32,
    since2301 = v2301 | v2306,
    since2021 = v2021_2 | v2201 | v2022_1 | since2301,
    all = v11_2 | since2021,
    old = v11_2,
};

/// A type is a letter: i I4, l I8, d R8, b BOOL, s BSTR, v VARIANT, o an object. An argument with a
/// capital letter goes by reference, and FEMAP fills it.
struct Member
{
    std::string_view name;
    Kind kind;
    int number;                  // its DISPID
    std::string_view arguments;  // of an indexed property: its indices
    char returned;               // of a property: its type
    Versions versions;
};

}  // namespace femap::library
