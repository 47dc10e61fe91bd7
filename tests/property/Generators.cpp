#include "property/Generators.h"

#include "fake/GridRows.h"

#include <iterator>

namespace property
{

namespace
{

constexpr std::string_view inTheCodePage[] = {
    "a", "B",  "c", "Elem", "N", "x", "0", "7", "42", " ", "  ", "-", "/",  ",",     ".", "_",
    "'", "\"", "@", "%",    "!", "<", ">", "[", "]",  "(", ")",  "$", "\\", "#",     "&", ";",
    "ä", "Ö",  "ß", "é",    "Ø", "ÿ", "µ", "°", "€",  "„", "–",  "™", "Œ",  "\u00A0"};
constexpr std::string_view beyondTheCodePage[] = {"Ω", "ж", "漢", "\u0301", "\u200B", "ﬁ", "😀"};

constexpr std::string_view entityKinds[] = {"Node", "Elem", "Prop", "Matl"};
constexpr std::string_view loadKinds[] = {"LoadMesh", "LoadGeom", "LoadETemp", "LoadNTemp"};
constexpr std::string_view extremeKinds[] = {"maxval", "minval"};
constexpr std::string_view nameStarts[] = {"Elem", "Ele", "elem"};  // "Elem" is a constraint
constexpr std::string_view massTags[] = {"Length", "MassTotal", "StructuralCG", "InertiaCG"};
constexpr std::string_view values[] = {"0", "-1.5", "1E-05", "123456789012345.67", "True", ""};

constexpr int largestId = 2'000'000'000;

std::string randomName(Random& random)
{
    return random.oneIn(8) ? std::string() : randomText(random, 1, 20);
}

std::string randomValue(Random& random)
{
    return random.oneIn(4) ? randomText(random, 0, 8) : std::string(random.of(values));
}

std::string randomId(Random& random)
{
    return std::to_string(1 + random.below(largestId));
}

Row randomInput(Random& random)
{
    const std::string name = randomName(random);
    switch (random.below(4)) {
    case 0:
        return {name, randomValue(random), std::string(random.of(entityKinds)), randomId(random),
                "color"};
    case 1:
        return {name, "X-Y Values", "Function", " " + randomId(random), ""};
    case 2:
        return {name,
                randomValue(random),
                std::string(random.of(loadKinds)),
                " " + randomId(random),
                "0",
                "0"};
    default:
        return {name,
                randomValue(random),
                std::string(random.of(entityKinds)),
                randomId(random),
                "pval",
                std::to_string(random.below(80))};
    }
}

Row randomOutput(Random& random)
{
    std::string name = randomName(random);
    if (random.oneIn(3))
        name.insert(0, random.of(nameStarts));
    const std::string id = randomId(random);
    switch (random.below(3)) {
    case 0:
        return {name, randomValue(random), id, randomId(random), "Output"};
    case 1:
        return {name, randomValue(random), id, id, std::string(random.of(extremeKinds))};
    default:
        return {name, randomValue(random), std::string(random.of(massTags)),
                random.oneIn(2) ? "" : std::to_string(random.below(6)), "MassProperties"};
    }
}

std::vector<Row> randomRows(Random& random, int most, Row (*randomRow)(Random&))
{
    std::vector<Row> rows;
    for (int i = random.below(most + 1); i > 0; --i)
        rows.push_back(randomRow(random));
    return rows;
}

}  // namespace

std::string randomText(Random& random, int leastCharacters, int mostCharacters)
{
    std::string text;
    for (int i = random.between(leastCharacters, mostCharacters); i > 0; --i)
        text += random.oneIn(30) ? random.of(beyondTheCodePage) : random.of(inTheCodePage);
    return text;
}

std::vector<std::string> charactersOf(std::string_view text)
{
    std::vector<std::string> characters;
    for (const char c : text) {
        if ((static_cast<unsigned char>(c) & 0xC0U) != 0x80U)
            characters.emplace_back();
        characters.back() += c;
    }
    return characters;
}

std::string afterTheCodePage(std::string text)
{
    for (const std::string_view lacking : beyondTheCodePage)
        for (std::size_t place = 0; (place = text.find(lacking, place)) != std::string::npos;)
            text.replace(place, lacking.size(), "?");
    return text;
}

std::vector<Row> randomInputs(Random& random, int most)
{
    return randomRows(random, most, randomInput);
}

std::vector<Row> randomOutputs(Random& random, int most)
{
    return randomRows(random, most, randomOutput);
}

std::vector<Row> named(const std::vector<Row>& rows)
{
    std::vector<Row> result;
    std::copy_if(rows.begin(), rows.end(), std::back_inserter(result),
                 [](const Row& row) { return !row.front().empty(); });
    return result;
}

std::string joined(const Row& row)
{
    std::string text = row.front();
    for (std::size_t i = 1; i < row.size(); ++i)
        text += '\t' + row[i];
    return text;
}

std::string joined(const Row& row, int columns)
{
    Row whole = row;
    whole.resize(static_cast<std::size_t>(columns));
    return joined(whole);
}

void putInto(form::ParameterGrid& grid, const std::vector<Row>& rows)
{
    std::vector<std::string> texts;
    for (const Row& row : rows)
        texts.push_back(joined(row));
    fake::fill(grid, texts);
}

}  // namespace property
