#include "property/RandomNeutralFile.h"

#include "fake/NeutralText.h"
#include "femap/NumberText.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <string_view>

namespace property
{

namespace
{

constexpr int mostOfAKind = 8;

// A real number as some program may have written it.
std::string randomNumberText(Random& random)
{
    std::string text = femap::numberText(randomReal(random));
    if (text.find('E') != std::string::npos && random.oneIn(3))
        text.replace(text.find('E'), 1, "D");
    else if (text.find_first_of(".E") == std::string::npos && random.oneIn(2))
        text += '.';
    return text.starts_with('-') || !random.oneIn(5) ? text : '+' + text;
}

std::string reals(Random& random, int count)
{
    std::string text;
    for (int i = 0; i < count; ++i)
        text += randomNumberText(random) + ',';
    return text;
}

std::string list(Random& random, int count, int inALine)
{
    std::string lines = std::to_string(count) + ",\n";
    for (int i = 0; i < count; i += inALine)
        lines += reals(random, std::min(inALine, count - i)) + '\n';
    return lines;
}

class RandomNeutralFile
{
public:
    explicit RandomNeutralFile(Random& random) : random_(random) {}

    std::string make()
    {
        const std::string version = random_.of(versions);
        hasDefinitions_ = std::stod(version) >= 9.3;
        std::string text = neutral::header(version) + neutral::block(9999, "1,2,\nwhat it may\n");
        for (int i = random_.between(1, 2); i > 0; --i)
            text += neutral::block(403, each(&RandomNeutralFile::node)) +
                    neutral::block(404, each(&RandomNeutralFile::element)) +
                    neutral::block(402, each(&RandomNeutralFile::property)) +
                    neutral::block(601, each(&RandomNeutralFile::material)) +
                    neutral::block(420, each(&RandomNeutralFile::function)) +
                    neutral::block(507, each(&RandomNeutralFile::loadSet));
        return withOddBlanks(text);
    }

private:
    static constexpr const char* versions[] = {"8.2", "9.3", "11.", "4.4"};

    std::string number(int below) { return std::to_string(random_.below(below)) + ','; }

    std::string each(std::string (RandomNeutralFile::*record)(int id))
    {
        std::string records;
        for (int i = random_.below(mostOfAKind); i > 0; --i)
            records += (this->*record)(lastID_ += random_.between(1, 3));
        return records;
    }

    std::string node(int id)
    {
        return std::to_string(id) + ",0,0,1," + number(200) + "0,1,0,0,0,1," + reals(random_, 3) +
               (random_.oneIn(2) ? "0,0,\n" : "\n");
    }
    std::string element(int id)
    {
        const bool isRigid = random_.oneIn(4);
        std::string text = std::to_string(id) + "," + number(200) + number(9) +
                           (isRigid ? "29,13," : "17,4,") + "1,0,0,\n";
        for (int line = 0; line < 2; ++line) {
            for (int i = random_.between(1, 10); i > 0; --i)
                text += number(99);
            text += '\n';
        }
        for (int line = 0; line < 3; ++line)
            text += reals(random_, random_.between(1, 3)) + '\n';
        return text + (isRigid ? "0,0,0,0,0,0,0,0,0,0,0,0,1,\n3,0,1.,1,1,1,1,1,1,\n-1,-1,-1,\n"
                               : "0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,\n");
    }
    std::string property(int id)
    {
        return std::to_string(id) + "," + number(200) + number(9) +
               "17,1,0,\nSkin 1, 2\n0,0,0,0,\n" + list(random_, 3, 8) +
               list(random_, random_.between(1, 200), 5) + "0,\n0,\n";
    }
    std::string material(int id)
    {
        return neutral::material(id, "Steel", reals(random_, random_.between(1, 8)));
    }
    std::string function(int id)
    {
        std::string text = std::to_string(id) + ",1,\nRamp\n";
        for (int i = random_.below(mostOfAKind); i > 0; --i)
            text += "1," + reals(random_, 2) + '\n';
        return text + "-1,0.,0.,\n";
    }
    std::string definition()
    {
        return hasDefinitions_ ? std::to_string(random_.between(1, 2)) + ',' : "";
    }
    std::string load(int id)
    {
        static constexpr int types[] = {1, 42, 44, 46};
        return neutral::meshLoad(std::to_string(id) + ',' + std::to_string(random_.of(types)) +
                                     "," + number(99) + "1,0,0,0," + definition(),
                                 "1,1,1,", reals(random_, random_.between(1, 5)));
    }
    std::string geometryLoad(int id)
    {
        return neutral::geometryLoad(
            std::to_string(id) + ",181," + number(99) + "1,0,0,0," + definition(),
            reals(random_, 5));
    }
    std::string temperature(int id)
    {
        return std::to_string(id) + "," + number(99) + "1," + reals(random_, 2) + "0,0," +
               definition() + "\n";
    }
    std::string loadSet(int id)
    {
        std::string text = neutral::loadSetHead(std::to_string(id) + ',', "Case");
        for (const auto kind : {&RandomNeutralFile::load, &RandomNeutralFile::geometryLoad,
                                &RandomNeutralFile::temperature, &RandomNeutralFile::temperature})
            text += each(kind) + neutral::listEnd;
        if (hasDefinitions_)
            text += std::string("-1,0,-1,0.,-1,\n1,13,1,\nOne\n2,") +
                    (random_.oneIn(2) ? "14,181" : "15,9") + ",\nTwo\n-1,0,0,\n";
        return text;
    }

    // Blanks behind commas, and the line ends of one of two kinds.
    std::string withOddBlanks(const std::string& text)
    {
        const bool hasReturns = random_.oneIn(2);
        std::string result;
        for (const char c : text) {
            if (c == '\n' && hasReturns)
                result += '\r';
            result += c;
            if (c == ',' && random_.oneIn(10))
                result.append(static_cast<std::size_t>(random_.between(1, 2)), ' ');
        }
        return result;
    }

    Random& random_;
    bool hasDefinitions_ = false;
    int lastID_ = 0;
};

}  // namespace

double randomReal(Random& random)
{
    for (;;) {
        const auto number = std::bit_cast<double>(random.bits());
        if (random.oneIn(2))
            return random.between(-4000, 4000) / 8.0;
        if (std::isfinite(number))
            return number;
    }
}

std::string randomNeutralFile(Random& random)
{
    return RandomNeutralFile(random).make();
}

}  // namespace property
