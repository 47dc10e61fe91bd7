#include "app/window/KeptPlaces.h"

#include "form/Layout.h"
#include "system/RuntimeError.h"

#include <algorithm>
#include <sstream>

namespace window
{

namespace
{

constexpr int largestLength = 100'000;  // pixels or twips; more is no screen

using Numbers = std::vector<int>;

bool areWithin(const Numbers& numbers, int least, int most)
{
    return std::ranges::all_of(numbers, [=](int each) { return each >= least && each <= most; });
}

void takeWindow(KeptPlaces& places, const Numbers& numbers)
{
    if (numbers.size() == 4 && areWithin(numbers, -largestLength, largestLength) &&
        numbers[0] < numbers[2] && numbers[1] < numbers[3])
        places.window = {numbers[0], numbers[1], numbers[2], numbers[3]};
}

void takeMaximised(KeptPlaces& places, const Numbers& numbers)
{
    places.isMaximised = numbers == Numbers{1};
}

template <std::vector<int> KeptPlaces::*widths>
void takeWidths(KeptPlaces& places, const Numbers& numbers)
{
    if (areWithin(numbers, 0, largestLength))
        places.*widths = numbers;
}

void takeShare(KeptPlaces& places, const Numbers& numbers)
{
    if (numbers.size() == 1 && areWithin(numbers, 0, form::wholeShare))
        places.inputShare = numbers.front();
}

struct Line
{
    std::string_view name;
    void (*take)(KeptPlaces& places, const Numbers& numbers);
    Numbers (*numbers)(const KeptPlaces& places);
};

// clang-format off
constexpr Line lines[] = {
    {"window", takeWindow, [](const KeptPlaces& places) {
         const form::ScreenPlace place = places.window.value_or(form::ScreenPlace());
         return Numbers{place.left, place.top, place.right, place.bottom};
     }},
    {"maximised", takeMaximised,
     [](const KeptPlaces& places) { return Numbers{places.isMaximised ? 1 : 0}; }},
    {"inputs", takeWidths<&KeptPlaces::inputWidths>,
     [](const KeptPlaces& places) { return places.inputWidths; }},
    {"outputs", takeWidths<&KeptPlaces::outputWidths>,
     [](const KeptPlaces& places) { return places.outputWidths; }},
    {"share", takeShare, [](const KeptPlaces& places) {
         return places.inputShare ? Numbers{*places.inputShare} : Numbers();
     }},
};
// clang-format on

}  // namespace

std::string toText(const KeptPlaces& places)
{
    std::ostringstream text;
    text.imbue(std::locale::classic());
    for (const Line& line : lines) {
        text << line.name;
        for (const int number : line.numbers(places))
            text << ' ' << number;
        text << '\n';
    }
    return text.str();
}

KeptPlaces keptPlaces(std::string_view text)
{
    KeptPlaces places;
    std::istringstream rest{std::string(text)};
    for (std::string line; std::getline(rest, line);) {
        std::istringstream words(line);
        words.imbue(std::locale::classic());
        std::string name;
        words >> name;
        const auto* const known = std::ranges::find(lines, name, &Line::name);
        Numbers numbers;
        for (int number = 0; words >> number;)
            numbers.push_back(number);
        if (known != std::end(lines) && words.eof())
            known->take(places, numbers);
    }
    return places;
}

KeptPlaces readPlaces(sys::Files& files, const std::string& path)
{
    try {
        return keptPlaces(files.read(path));
    }
    catch (const sys::RuntimeError&) {
        return {};
    }
}

void writePlaces(sys::Files& files, const std::string& path, const KeptPlaces& places)
{
    sys::TemporaryFile temporary;
    try {
        const std::string folder = path.substr(0, path.find_last_of(sys::pathSeparators));
        if (!files.folderExists(folder))
            files.createFolder(folder);
        temporary = files.createBeside(path);
        temporary.file->write(toText(places));
        temporary.file->close();
        files.replace(path, temporary.path);
    }
    catch (const sys::RuntimeError&) {
        temporary.file.reset();
        if (!temporary.path.empty())
            files.remove(temporary.path);
    }
}

}  // namespace window
