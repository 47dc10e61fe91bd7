#include "femap/embedded/Members.h"

#include "femap/NumberText.h"
#include "femap/Numbers.h"
#include "femap/embedded/Host.h"
#include "femap/embedded/MemberTables.h"
#include "system/RuntimeError.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <span>
#include <variant>

namespace femap::embedded
{

using sys::ErrorNumber;
using sys::RuntimeError;

namespace
{

/// Whether the member means something for this entity; otherwise it reads as 0.
template <class Data>
bool appliesTo(const Member<Data>& member, const Data& data)
{
    return member.appliesTo == nullptr || member.appliesTo(data);
}

template <class Data>
const Member<Data>* findMember(std::string_view name)
{
    const auto members = membersOf(Kind<Data>());
    const auto found =
        std::find_if(members.begin(), members.end(),
                     [&](const Member<Data>& member) { return isSameName(member.name, name); });
    return found == members.end() ? nullptr : &*found;
}

template <class Data>
const Member<Data>& requireMember(const std::string& name)
{
    const Member<Data>* const member = findMember<Data>(name);
    if (member == nullptr)
        throw RuntimeError(ErrorNumber::NoSuchMember,
                           std::string(Kind<Data>::object) + " has no member " + name);
    return *member;
}

/// A member that a caller asks for.
struct Request
{
    std::string_view object;
    const std::string& name;
    std::optional<int> index;
};

std::string nameOf(const Request& request)
{
    return request.name + " of " + std::string(request.object);
}

/// Raises when there is an index and the member takes none, or the other way round.
void checkForm(const Request& request, int length)
{
    if (length > 0 && !request.index)
        throw RuntimeError(ErrorNumber::InvalidCall, nameOf(request) + " needs an index");
    if (length == 0 && request.index)
        throw RuntimeError(ErrorNumber::InvalidCall, nameOf(request) + " takes no index");
}

bool isBeyond(const Request& request, int length)
{
    return request.index && (*request.index < 0 || *request.index >= length);
}

[[noreturn]] void refuseIndex(const Request& request)
{
    throw RuntimeError(ErrorNumber::SubscriptOutOfRange,
                       nameOf(request) + " has no place " + std::to_string(*request.index));
}

[[noreturn]] void refuseChange(const Request& request, const std::string& id)
{
    throw RuntimeError(ErrorNumber::InvalidCall, nameOf(request) + " " + id + " cannot be changed");
}

/// An index beyond every array, where a 0 is read.
constexpr std::size_t noIndex = static_cast<std::size_t>(-1);

// What a member holds, ready to be read.
using Content =
    std::variant<Value, std::span<const bool>, std::span<const int>, std::span<const double>>;

Value toValue(bool flag)
{
    return flag;
}
Value toValue(int number)
{
    return std::int64_t{number};
}
Value toValue(double number)
{
    return number;
}
Value toValue(const std::string& text)
{
    return withoutControlCharacters(text);
}

template <class Plain>
Content contentOf(const Plain& plain)
{
    return toValue(plain);
}
template <class Number, std::size_t size>
Content contentOf(const std::array<Number, size>& numbers)
{
    return std::span<const Number>(numbers);
}
Content contentOf(const std::vector<double>& numbers)
{
    return std::span<const double>(numbers);
}

/// Reads one of the numbers; 0 for those of a property or material that a file did not carry.
struct ReadAt
{
    std::size_t index;

    Value operator()(const Value& plain) const { return plain; }
    template <class Number>
    Value operator()(std::span<const Number> numbers) const
    {
        return toValue(index < numbers.size() ? numbers[index] : Number());
    }
};

// What a member holds, ready to be changed.
using Target = std::variant<bool*, int*, double*, std::string*>;

template <class Plain>
Target targetOf(Plain& plain, std::size_t)
{
    return &plain;
}
template <class Number, std::size_t size>
Target targetOf(std::array<Number, size>& numbers, std::size_t index)
{
    return &numbers[index];
}
Target targetOf(std::vector<double>& numbers, std::size_t index)
{
    if (index >= numbers.size())
        numbers.resize(index + 1);
    return &numbers[index];
}

[[noreturn]] void refuseText(const std::string& text, const std::string& kind)
{
    throw RuntimeError(ErrorNumber::InvalidCall, "\"" + text + "\" is no " + kind);
}

void assign(int& target, const std::string& text)
{
    const std::optional<int> number = wholeNumber(text);
    if (!number)
        refuseText(text, "whole number");
    target = *number;
}
void assign(double& target, const std::string& text)
{
    const char* const end = text.data() + text.size();
    double number = 0;
    const auto [parsed, problem] = std::from_chars(text.data(), end, number);
    if (problem != std::errc() || parsed != end || !std::isfinite(number))
        refuseText(text, "number");
    target = number;
}
void assign(bool& target, const std::string& text)
{
    const bool isTrue = isSameName(text, "True");
    if (!isTrue && !isSameName(text, "False"))
        refuseText(text, "True or False");
    target = isTrue;
}
void assign(std::string& target, const std::string& text)
{
    target = text;
}

// A title keeps its control characters.
std::string textOf(const Value& value)
{
    const std::string* const text = std::get_if<std::string>(&value);
    return text == nullptr ? toText(value) : *text;
}

// Whether the index is, after a look whether the member takes one. Raises for it where that is
// wanted.
bool isBeyondArray(const Request& request, int length, bool raises)
{
    checkForm(request, length);
    const bool isIt = isBeyond(request, length);
    if (isIt && raises)
        refuseIndex(request);
    return isIt;
}

}  // namespace

void refuseWord(const std::string& word)
{
    throw RuntimeError(ErrorNumber::NoSuchMember, "FEMAP has no object fe" + word);
}

template <class Data>
Value readMember(const Data& data, const std::string& name, std::optional<int> index,
                 bool indexBeyondArrayRaises)
{
    const Request request{Kind<Data>::object, name, index};
    const Member<Data>& member = requireMember<Data>(name);
    const bool beyond = isBeyondArray(request, arrayLength(member), indexBeyondArrayRaises);
    const auto element = static_cast<std::size_t>(index.value_or(member.element));
    const Content content =
        std::visit([&](const auto& pointer) { return contentOf(data.*pointer); }, member.pointer);
    return std::visit(ReadAt{beyond || !appliesTo(member, data) ? noIndex : element}, content);
}

template <class Data>
void writeMember(Data& data, const std::string& name, std::optional<int> index, const Value& value,
                 bool indexBeyondArrayRaises)
{
    const Request request{Kind<Data>::object, name, index};
    const Member<Data>& member = requireMember<Data>(name);
    const bool beyond = isBeyondArray(request, arrayLength(member), indexBeyondArrayRaises);
    if (beyond)
        return;
    if (!appliesTo(member, data))
        refuseChange(request, toText(readMember(data, "ID", std::nullopt, true)));
    const auto element = static_cast<std::size_t>(index.value_or(member.element));
    const Target target = std::visit(
        [&](const auto& pointer) { return targetOf(data.*pointer, element); }, member.pointer);
    std::visit([&](auto* held) { assign(*held, textOf(value)); }, target);
}

void putMember(Model& model, const std::string& word, int id, const std::string& member, int index,
               const std::string& value)
{
    withKind(word, [&]<class Data>(Kind<Data>) {
        Data* const entity = (model.*Kind<Data>::table).find(id);
        if (entity == nullptr)
            throw RuntimeError(ErrorNumber::InvalidCall,
                               "FEMAP has no " + word + " with the ID " + std::to_string(id));
        const std::optional<int> place = index == -1 ? std::nullopt : std::optional(index);
        if (isSameName(member, "ID"))
            refuseChange({Kind<Data>::object, member, place}, std::to_string(id));
        writeMember(*entity, member, place, value);
    });
}

bool isArrayMember(const std::string& word, const std::string& member)
{
    return withKind(word, [&]<class Data>(Kind<Data>) {
        const Member<Data>* const found = findMember<Data>(member);
        return found != nullptr && arrayLength(*found) > 0;
    });
}

template Value readMember(const Node&, const std::string&, std::optional<int>, bool);
template Value readMember(const Element&, const std::string&, std::optional<int>, bool);
template Value readMember(const Property&, const std::string&, std::optional<int>, bool);
template Value readMember(const Material&, const std::string&, std::optional<int>, bool);
template Value readMember(const MeshLoad&, const std::string&, std::optional<int>, bool);
template Value readMember(const GeometryLoad&, const std::string&, std::optional<int>, bool);
template Value readMember(const NodalTemperature&, const std::string&, std::optional<int>, bool);
template Value readMember(const ElementalTemperature&, const std::string&, std::optional<int>,
                          bool);

template void writeMember(Node&, const std::string&, std::optional<int>, const Value&, bool);
template void writeMember(Element&, const std::string&, std::optional<int>, const Value&, bool);
template void writeMember(Property&, const std::string&, std::optional<int>, const Value&, bool);
template void writeMember(Material&, const std::string&, std::optional<int>, const Value&, bool);
template void writeMember(MeshLoad&, const std::string&, std::optional<int>, const Value&, bool);
template void writeMember(GeometryLoad&, const std::string&, std::optional<int>, const Value&,
                          bool);
template void writeMember(NodalTemperature&, const std::string&, std::optional<int>, const Value&,
                          bool);
template void writeMember(ElementalTemperature&, const std::string&, std::optional<int>,
                          const Value&, bool);

}  // namespace femap::embedded
