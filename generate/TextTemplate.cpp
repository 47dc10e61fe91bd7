#include "generate/TextTemplate.h"

#include <algorithm>
#include <span>
#include <stdexcept>

namespace generate
{

namespace
{

constexpr char mark = '@';

// A piece of fixed text and the slot that follows it in the same line.
struct Piece
{
    std::string_view text;
    const Lines* lines = nullptr;  // null at the end of the line
};

const Lines& linesOf(std::string_view name, std::initializer_list<Slot> slots)
{
    const auto* const found = std::find_if(slots.begin(), slots.end(),
                                           [&](const Slot& slot) { return slot.name == name; });
    if (found == slots.end())
        throw std::logic_error("Nothing is given for the slot @" + std::string(name) + "@");
    return found->lines;
}

std::vector<Piece> piecesOf(std::string_view line, std::initializer_list<Slot> slots)
{
    std::vector<Piece> pieces;
    for (;;) {
        const std::size_t open = line.find(mark);
        if (open == std::string_view::npos)
            break;
        const std::size_t close = line.find(mark, open + 1);
        if (close == std::string_view::npos)
            throw std::logic_error("A slot has no end: " + std::string(line));
        const std::string_view name = line.substr(open + 1, close - open - 1);
        pieces.push_back({line.substr(0, open), &linesOf(name, slots)});
        line.remove_prefix(close + 1);
    }
    pieces.push_back({line});
    return pieces;
}

// Adds the pieces to the line begun and writes it, once for each combination of slot lines.
void complete(std::string& begun, std::span<const Piece> pieces, const LineSink& write)
{
    const std::size_t before = begun.size();
    begun += pieces.front().text;
    if (pieces.front().lines == nullptr) {
        write(begun);
    }
    else {
        const std::size_t filled = begun.size();
        pieces.front().lines->forEach([&](std::string_view line) {
            begun += line;
            complete(begun, pieces.subspan(1), write);
            begun.resize(filled);
        });
    }
    begun.resize(before);
}

}  // namespace

void Lines::forEach(const LineSink& visit) const
{
    if (produce_)
        produce_(visit);
    for (const std::string& line : lines_)
        visit(line);
}

void fillIn(std::string_view text, std::initializer_list<Slot> slots, const LineSink& write)
{
    if (text.starts_with('\n'))
        text.remove_prefix(1);
    std::string begun;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        complete(begun, piecesOf(text.substr(0, end), slots), write);
        text.remove_prefix(std::min(end + 1, text.size()));
    }
}

std::string fillIn(std::string_view text, std::initializer_list<Slot> slots)
{
    std::string filled;
    fillIn(text, slots, [&](std::string_view line) { filled.append(line) += '\n'; });
    return filled;
}

}  // namespace generate
