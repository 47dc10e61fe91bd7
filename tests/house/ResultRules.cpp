#include "ResultRules.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace house
{

namespace
{

constexpr std::array<std::string_view, 20> callsWithAResult = {
    "CLSIDFromProgID(",          "CoCreateInstance(",     "CoInitializeEx(",
    "CoRegisterClassObject(",    "GetActiveObject(",      "RegisterActiveObject(",
    "SafeArrayAccessData(",      "SafeArrayCopy(",        "SafeArrayGetElement(",
    "SafeArrayGetLBound(",       "SafeArrayGetUBound(",   "SafeArrayGetVartype(",
    "SafeArrayPutElement(",      "SafeArrayRedim(",       "VariantChangeType(",
    "VariantChangeTypeEx(",      "VariantCopy(",          "VariantCopyInd(",
    "SetDefaultDllDirectories(", "SHGetKnownFolderPath(",
};
constexpr std::array<std::string_view, 3> methodsWithAResult = {"->Invoke(", "->GetIDsOfNames(",
                                                                "->QueryInterface("};
constexpr std::array<std::string_view, 5> fileStreams = {
    "std::ofstream", "std::ifstream", "std::fstream", "std::filebuf", "<fstream>"};

bool beginsStatement(std::string_view lineBefore)
{
    return lineBefore.empty() || lineBefore.ends_with(';') || lineBefore.ends_with('{') ||
           lineBefore.ends_with('}') || lineBefore.ends_with(':') || lineBefore.starts_with("//");
}

bool isCallThatNobodyLooksAt(std::string_view line)
{
    line = line.starts_with("::") ? line.substr(2) : line;
    if (std::ranges::any_of(callsWithAResult,
                            [&](std::string_view call) { return line.starts_with(call); }))
        return true;
    return std::ranges::any_of(methodsWithAResult, [&](std::string_view method) {
        const std::size_t place = line.find(method);
        return place != std::string_view::npos &&
               line.substr(0, place).find_first_of(" =(") == std::string_view::npos;
    });
}

bool isProduct(const SourceFile& file)
{
    return file.isCode() && !file.path.starts_with("tests/") && !file.path.starts_with("bench/");
}

}  // namespace

std::vector<std::string> resultsThatNobodyLooksAt(const SourceFile& file)
{
    std::vector<std::string> broken;
    if (!isProduct(file))
        return broken;
    std::string_view before;
    for (std::size_t i = 0; i < file.lines.size(); ++i) {
        const std::string_view line = trimmed(file.lines[i]);
        if (beginsStatement(before) && isCallThatNobodyLooksAt(line))
            broken.push_back(at(file, i, "nobody looks at the result"));
        if (!line.empty())
            before = line;
    }
    return broken;
}

std::vector<std::string> streamsOnFiles(const SourceFile& file)
{
    std::vector<std::string> broken;
    // The stand-in is not part of the product: it takes FEMAP's place.
    if (!isProduct(file) || file.path.starts_with("standin/"))
        return broken;
    for (std::size_t i = 0; i < file.lines.size(); ++i)
        for (const std::string_view stream : fileStreams)
            if (file.lines[i].find(stream) != std::string::npos)
                broken.push_back(at(file, i, std::string(stream) + " keeps a failure to itself"));
    return broken;
}

}  // namespace house
