#include "app/CommandLine.h"

#include "system/Files.h"

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

std::string_view lastPiece(std::string_view text, std::string_view separators)
{
    const std::size_t position = text.find_last_of(separators);
    std::string_view piece = position == std::string_view::npos ? text : text.substr(position + 1);
    piece.remove_prefix(std::min(piece.find_first_not_of(' '), piece.size()));
    return piece.substr(0, piece.find_last_not_of(' ') + 1);
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

std::string GetFileExtension(std::string_view filename)
{
    return std::string(lastPiece(lastPiece(filename, sys::pathSeparators), "."));
}

}  // namespace app
