#include "StreamRule.h"

#include <array>
#include <string_view>

namespace house
{

namespace
{

constexpr std::array<std::string_view, 5> fileStreams = {
    "std::ofstream", "std::ifstream", "std::fstream", "std::filebuf", "<fstream>"};

bool isProduct(const SourceFile& file)
{
    return file.isCode() && !file.path.starts_with("tests/") && !file.path.starts_with("bench/");
}

}  // namespace

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
