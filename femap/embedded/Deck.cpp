#include "femap/embedded/Deck.h"

#include "femap/Value.h"
#include "femap/embedded/HostLoads.h"
#include "femap/embedded/MemberTables.h"

#include <array>
#include <cstdint>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

namespace femap::embedded
{

namespace
{

constexpr std::size_t lengthOfPiece = 65536;

/// Collects lines and hands them on.
class Pieces
{
public:
    explicit Pieces(const std::function<void(const std::string&)>& write) : write_(write) {}

    /// A value, after a comma unless it is the first of its line.
    void addText(std::string_view value)
    {
        if (!startsLine_)
            text_ += ',';
        startsLine_ = false;
        text_ += value;
    }
    void add(const Value& value) { addText(toText(value)); }
    void endLine()
    {
        text_ += '\n';
        startsLine_ = true;
        if (text_.size() > lengthOfPiece)
            finish();
    }
    void finish() { write_(std::exchange(text_, {})); }

private:
    const std::function<void(const std::string&)>& write_;
    std::string text_;
    bool startsLine_ = true;
};

Value valueOf(int number)
{
    return std::int64_t{number};
}
template <class Plain>
Value valueOf(const Plain& plain)
{
    return plain;
}

// Without the zeros at the end: most of the places of a property are not used.
template <class Numbers>
void addNumbers(Pieces& pieces, const Numbers& numbers)
{
    std::size_t used = numbers.size();
    while (used > 0 && numbers[used - 1] == 0)
        --used;
    pieces.add(valueOf(static_cast<int>(used)));
    for (std::size_t i = 0; i < used; ++i)
        pieces.add(valueOf(numbers[i]));
}

template <class Plain>
void addMember(Pieces& pieces, const Plain& plain)
{
    pieces.add(valueOf(plain));
}
template <class Number, std::size_t size>
void addMember(Pieces& pieces, const std::array<Number, size>& numbers)
{
    addNumbers(pieces, numbers);
}
void addMember(Pieces& pieces, const std::vector<double>& numbers)
{
    addNumbers(pieces, numbers);
}

// The names of single numbers of an array are left out, for the array stands there.
template <class Data>
void addHead(Pieces& pieces, Kind<Data> kind)
{
    pieces.addText("$ " + std::string(Kind<Data>::object));
    for (const Member<Data>& member : membersOf(kind))
        if (member.element < 0)
            pieces.addText(member.name);
    pieces.endLine();
}

template <class Data>
void addEntity(Pieces& pieces, const Data& data)
{
    for (const Member<Data>& member : membersOf(Kind<Data>()))
        if (member.element < 0)
            std::visit([&](const auto& pointer) { addMember(pieces, data.*pointer); },
                       member.pointer);
    pieces.endLine();
}

template <class Data>
void addAll(Pieces& pieces, const neutral::Table<Data>& table)
{
    addHead(pieces, Kind<Data>());
    for (const Data& data : table)
        addEntity(pieces, data);
}

template <class Data, class Load>
void addLoads(Pieces& pieces, const std::vector<Load>& loads, int setID,
              Data (*shown)(const Load&, int))
{
    addHead(pieces, Kind<Data>());
    for (const Load& load : loads)
        addEntity(pieces, shown(load, setID));
}

void addLayups(Pieces& pieces, const neutral::Table<neutral::Layup>& layups)
{
    pieces.addText("$ plies of a layup, from its bottom: material, thickness");
    pieces.endLine();
    for (const neutral::Layup& layup : layups) {
        pieces.add(valueOf(layup.id));
        for (const neutral::Ply& ply : layup.plies) {
            pieces.add(valueOf(ply.matlID));
            pieces.add(valueOf(ply.thickness));
        }
        pieces.endLine();
    }
}

void addFunctions(Pieces& pieces, const neutral::Table<neutral::Function>& functions)
{
    pieces.addText("$ feFunction,ID,type,title,x,y");
    pieces.endLine();
    for (const neutral::Function& function : functions) {
        pieces.add(valueOf(function.id));
        pieces.add(valueOf(function.type));
        pieces.add(valueOf(function.title));
        addNumbers(pieces, function.x);
        addNumbers(pieces, function.y);
        pieces.endLine();
    }
}

void addLoadSet(Pieces& pieces, const neutral::LoadSet& set)
{
    pieces.addText("$ load set " + std::to_string(set.id));
    pieces.add(valueOf(set.title));
    pieces.endLine();
    for (const neutral::LoadDefinition& definition : set.definitions) {
        pieces.addText("$ load definition " + std::to_string(definition.id));
        pieces.add(valueOf(definition.dataType));
        pieces.add(valueOf(definition.loadType));
        pieces.add(valueOf(definition.title));
        pieces.endLine();
    }
    addLoads(pieces, set.meshLoads, set.id, meshLoad);
    addLoads(pieces, set.geometryLoads, set.id, geometryLoad);
    addLoads(pieces, set.nodalTemperatures, set.id, nodalTemperature);
    addLoads(pieces, set.elementTemperatures, set.id, elementalTemperature);
}

}  // namespace

void writeDeck(const neutral::Model& model, const std::function<void(const std::string&)>& write)
{
    Pieces pieces(write);
    addAll(pieces, model.nodes);
    addAll(pieces, model.elements);
    addAll(pieces, model.properties);
    addAll(pieces, model.materials);
    addLayups(pieces, model.layups);
    addFunctions(pieces, model.functions);
    for (const neutral::LoadSet& set : model.loadSets)
        addLoadSet(pieces, set);
    pieces.finish();
}

}  // namespace femap::embedded
