#include "examples/solver/ResultsFile.h"

#include "system/CodePage.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <concepts>

namespace examples::solver
{

namespace
{

// A real always has a point.
std::string field(double number)
{
    std::array<char, 32> digits{};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number,
                                   std::chars_format::scientific);
    std::string text(digits.data(), end.ptr);
    if (text.find('.') == std::string::npos)
        text.insert(text.find('e'), 1, '.');
    std::ranges::replace(text, 'e', 'E');
    return text;
}
std::string field(int number)
{
    return std::to_string(number);
}

// One line of values, each followed by a comma.
template <class... Values>
void addRecord(std::string& text, Values... values)
{
    (text.append(field(values)).append(1, ','), ...);
    text += '\n';
}

void addZeros(std::string& text, int count)
{
    for (int i = 0; i < count; ++i)
        text += "0,";
}

constexpr const char* blockMark = "   -1\n";

void addBlock(std::string& text, int number, const std::string& lines)
{
    text.append(blockMark).append("   ").append(std::to_string(number)).append("\n");
    text.append(lines).append(blockMark);
}

std::string headOf(int set, const std::string& title)
{
    std::string lines;
    addRecord(lines, set);
    lines += title + '\n';
    addRecord(lines, 36, 1);
    addRecord(lines, 0.0);
    addRecord(lines, 1);
    lines += "From: panel-solver, an example\n";
    addRecord(lines, 0, 0);
    return lines;
}

void addVector(std::string& lines, int set, const ResultVector& vector)
{
    const VectorKind& kind = *vector.kind;
    const auto byValue = [](const auto& one, const auto& other) {
        return one.second < other.second;
    };
    const auto [lowest, highest] =
        std::minmax_element(vector.values.begin(), vector.values.end(), byValue);
    const double low = lowest->second;
    const double high = highest->second;
    addRecord(lines, set, kind.id, 1);
    lines.append(kind.title).append("\n");
    addRecord(lines, low, high, std::max(std::abs(low), std::abs(high)));
    const auto [one, two, three] = kind.parts;
    lines += field(one) + ',' + field(two) + ',' + field(three) + ',';
    constexpr int partsOnALine = 10;
    addZeros(lines, partsOnALine - static_cast<int>(kind.parts.size()));
    lines += '\n';
    addZeros(lines, partsOnALine);
    lines += '\n';
    addRecord(lines, 0);
    addRecord(lines, lowest->first, highest->first, kind.outputType,
              static_cast<int>(kind.location));
    addRecord(lines, 1, 0, 1);
    for (const auto& [id, value] : vector.values)
        addRecord(lines, id, value);
    addRecord(lines, -1, 0.0);
}

}  // namespace

std::string resultsFile(const std::vector<ResultSet>& sets)
{
    std::string head = "<NULL>\n";
    addRecord(head, 11.0);
    std::string text;
    addBlock(text, 100, head);
    int number = 0;
    for (const ResultSet& set : sets) {
        ++number;
        addBlock(text, 450, headOf(number, set.title));
        std::string vectors;
        for (const ResultVector& vector : set.vectors)
            addVector(vectors, number, vector);
        addBlock(text, 1051, vectors);
    }
    std::string bytes;
    sys::windows1252().encode(text, bytes);
    return bytes;
}

}  // namespace examples::solver
