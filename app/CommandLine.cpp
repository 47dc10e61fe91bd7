#include "app/CommandLine.h"

#include <algorithm>

namespace app
{

namespace
{

constexpr char fieldSeparator = '$';

// Takes the text up to the next separator off the rest.
std::string nextField(std::string_view& rest)
{
    const std::size_t end = std::min(rest.find(fieldSeparator), rest.size());
    std::string field(rest.substr(0, end));
    std::erase(field, '"');
    rest.remove_prefix(std::min(end + 1, rest.size()));
    return field;
}

}  // namespace

CommandLine parseCommandLine(std::string_view arguments)
{
    CommandLine result;
    result.modelFile = nextField(arguments);
    result.logFileName = nextField(arguments);
    result.logLevel = nextField(arguments);
    return result;
}

}  // namespace app
