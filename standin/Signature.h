// How the members of the stand-in's objects are called: name, kind, arguments and number.
#pragma once

#include <windows.h>

#include <array>
#include <cstddef>
#include <initializer_list>
#include <oleauto.h>
#include <stdexcept>
#include <string_view>

namespace standin
{

/// The type of one argument. The member fills those that begin with Out.
enum class Type
{
    I4,
    R8,
    Bool,
    Text,
    Any,
    OutI4,
    OutR8,
    OutBool,
    OutText,
    OutAny,
    OutObject,
};

/// A call that asks for a property only is refused for a method.
enum class Kind
{
    Method,
    Property,
};

/// FEMAP before 2020.1, since then, or both.
enum class Generation
{
    All,
    Classic,
    Modern,
};

// Short, for the tables of members.
constexpr Kind method = Kind::Method;
constexpr Kind property = Kind::Property;
constexpr Generation classic = Generation::Classic;
constexpr Generation modern = Generation::Modern;

class Types
{
public:
    static constexpr std::size_t most = 17;

    constexpr Types(std::initializer_list<Type> types)
    {
        if (types.size() > most)
            throw std::length_error("too many arguments");
        for (const Type type : types)
            types_[count_++] = type;
    }

    constexpr std::size_t size() const { return count_; }
    constexpr Type operator[](std::size_t i) const { return types_[i]; }

private:
    std::array<Type, most> types_{};
    std::size_t count_ = 0;
};

struct Signature
{
    std::string_view name;
    Kind kind;
    Types arguments;  // of a property: its indices
    DISPID number;
    Generation generation = Generation::All;
};

}  // namespace standin
