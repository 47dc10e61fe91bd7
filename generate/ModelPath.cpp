#include "generate/ModelPath.h"

#include "system/Files.h"
#include "system/RuntimeError.h"

#include <algorithm>

namespace generate
{

namespace
{

std::size_t lengthOfFolder(const std::string& path)
{
    const std::size_t separator = path.find_last_of(sys::pathSeparators);
    return separator == std::string::npos ? 0 : separator + 1;
}

std::string_view lastPiece(std::string_view text, std::string_view separators)
{
    const std::size_t position = text.find_last_of(separators);
    std::string_view piece = position == std::string_view::npos ? text : text.substr(position + 1);
    piece.remove_prefix(std::min(piece.find_first_not_of(' '), piece.size()));
    return piece.substr(0, piece.find_last_not_of(' ') + 1);
}

}  // namespace

std::string modelFolder(const std::string& path)
{
    return path.substr(0, lengthOfFolder(path));
}

ModelPath splitModelPath(const std::string& path)
{
    const std::size_t start = lengthOfFolder(path);
    const std::size_t point = path.rfind('.');
    if (point == std::string::npos)
        return {path.substr(0, start), path.substr(start)};
    if (point < start)
        throw sys::RuntimeError(sys::ErrorNumber::InvalidCall,
                                "A folder of the model's file has a point in its name, but the "
                                "file has no extension of its own. Save the model under a name "
                                "with an extension: " +
                                    path);
    return {path.substr(0, start), path.substr(start, point - start)};
}

std::string GetFileExtension(std::string_view filename)
{
    return std::string(lastPiece(lastPiece(filename, sys::pathSeparators), "."));
}

ModelPath openModelPath(const form::Context& context)
{
    return splitModelPath(context.femap().ModelName());
}

}  // namespace generate
