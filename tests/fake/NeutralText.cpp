#include "fake/NeutralText.h"

#include "femap/neutral/NeutralFile.h"
#include "system/RuntimeError.h"

#include <algorithm>

namespace neutral
{

namespace
{

constexpr int linesOfSetData = 19;

std::string repeated(const std::string& text, int count)
{
    std::string result;
    for (int i = 0; i < count; ++i)
        result += text;
    return result;
}

}  // namespace

std::string block(int number, const std::string& records)
{
    return "   -1\n   " + std::to_string(number) + "\n" + records + "   -1\n";
}

std::string header(const std::string& version)
{
    return block(100, "<NULL>\n" + version + ",\n");
}

std::string quad(int id, const std::string& nodes)
{
    return std::to_string(id) + ",124,1,17,4,1,0,0,\n" + nodes +
           ",0,0,0,0,0,0,\n0,0,0,0,0,0,0,0,0,0,\n" + repeated("0.,0.,0.,\n", 3) +
           "0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,\n";
}

std::string material(int id, const std::string& title, const std::string& reals,
                     int attachedFunctions)
{
    const auto given = static_cast<int>(std::count(reals.begin(), reals.end(), ','));
    const std::string tenIntegers = "0,0,0,0,0,0,0,0,0,0,\n";
    return std::to_string(id) + ",-601,104,1,2,3," + std::to_string(attachedFunctions) + ",\n" +
           title + "\n10,\n" + tenIntegers + "25,\n" + repeated(tenIntegers, 2) + "0,0,0,0,0,\n" +
           "200,\n" + reals + "\n" + repeated("0.,\n", 200 - given) + "50,\n" +
           repeated(tenIntegers, 5) + "70,\n" + repeated(tenIntegers, 7);
}

std::string loadSetHead(const std::string& head, const std::string& title)
{
    return head + "\n" + title + "\n" + repeated("0,0.,0.,\n", linesOfSetData);
}

std::string meshLoad(const std::string& head, const std::string& face, const std::string& values)
{
    return head + "\n" + face + "\n" + values + "\n0,0,0,0,0,\n0,0,0,0,0,\n0,0,0,\n0.,0.,0.,\n";
}

std::string geometryLoad(const std::string& head, const std::string& values)
{
    return meshLoad(head, "0,0,0,", values) + repeated("0.,0.,0.,\n", 4) + "<NULL>\nx*y\n" +
           repeated("0.,0.,0.,\n", 6);
}

std::string vectorHead(int setID, int id, const std::string& title, const std::string& extremes,
                       int entityType)
{
    return std::to_string(setID) + "," + std::to_string(id) + ",1,\n" + title + "\n" + extremes +
           "\n0,0,0,0,0,0,0,0,0,0,\n0,0,0,0,0,0,0,0,0,0,\n0,0,1," + std::to_string(entityType) +
           ",\n1,0,1,\n";
}

std::string completeFile()
{
    const std::string property =
        "1,110,1,17,1,0,0,\nPlate\n0,0,0,0,\n2,\n0,0,\n3,\n0.25,0.,0.,\n0,\n0,\n";
    const std::string loads = loadSetHead("1,", "Case A") +
                              meshLoad("1,1,10,1,0,0,0,1,", "1,1,1,", "0.,0.,200.,0.,0.,") +
                              listEnd + listEnd + "2,10,1,20.,-1.,0,0,0,\n" + listEnd + listEnd +
                              "-1,0,-1,0.,-1,\n1,13,1,\nForce\n-1,0,0,\n";
    return header() + block(601, material(1, "Steel", "210000.,0.3,")) + block(402, property) +
           block(403,
                 "1,0,0,1,46,0,0,0,0,0,0,0.,0.,0.,0,0,\n2,0,0,1,46,0,0,0,0,0,0,1.,0.,0.,0,0,\n"
                 "3,0,0,1,46,0,0,0,0,0,0,1.,1.,0.,0,0,\n4,0,0,1,46,0,0,0,0,0,0,0.,1.,0.,0,0,\n") +
           block(404, quad(1, "1,2,3,4")) + block(506, "1,\nFixed\n1,120,1,1,1,1,1,1,1,0,0,\n") +
           block(507, loads) + block(420, "1,1,\nRamp\n1,0.,0.,\n2,1.,5.,\n-1,0.,0.,\n") +
           block(450, "1,\nResult\n0,1,\n0.,\n1,\nNote\n") +
           block(451, vectorHead(1, 1, "Total Translation") + "1,0.5,\n4,2.5,\n-1,0.,\n");
}

femap::neutral::Model read(const std::string& text)
{
    femap::neutral::Model model;
    readInto(model, text);
    return model;
}

void readInto(femap::neutral::Model& model, const std::string& text)
{
    femap::neutral::readNeutralFile(text, "wing.neu", sys::windows1252(), model);
}

std::string errorOf(const std::string& text)
{
    try {
        read(text);
    }
    catch (const sys::RuntimeError& error) {
        return error.description();
    }
    return {};
}

std::string error(int line, const std::string& problem)
{
    return "wing.neu:" + std::to_string(line) + ": " + problem +
           ". Export the model again from FEMAP as a neutral file of version 4.4 to 11.";
}

int lineCount(std::string_view text)
{
    return static_cast<int>(std::count(text.begin(), text.end(), '\n'));
}

}  // namespace neutral
