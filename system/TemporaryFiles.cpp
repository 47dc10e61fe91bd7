#include "system/TemporaryFiles.h"

#include "system/Files.h"

#include <algorithm>

namespace sys
{

namespace
{
constexpr std::string_view nameStart = "velmar-";
constexpr std::string_view nameEnd = ".part~";
}  // namespace

std::string nextTemporaryName(unsigned long process)
{
    static unsigned long latest = 0;
    return std::string(nameStart) + std::to_string(process) + '-' + std::to_string(++latest) +
           std::string(nameEnd);
}

bool isTemporaryName(std::string_view name)
{
    if (!name.starts_with(nameStart) || !name.ends_with(nameEnd) ||
        name.size() <= nameStart.size() + nameEnd.size())
        return false;
    name.remove_prefix(nameStart.size());
    name.remove_suffix(nameEnd.size());
    return std::ranges::all_of(name, [](char c) { return (c >= '0' && c <= '9') || c == '-'; });
}

std::string folderPartOf(const std::string& path)
{
    return path.substr(0, path.find_last_of(pathSeparators) + 1);
}

}  // namespace sys
