#include "generate/ModelPath.h"

#include "system/Files.h"
#include "system/RuntimeError.h"

namespace generate
{

namespace
{

std::size_t lengthOfFolder(const std::string& path)
{
    const std::size_t separator = path.find_last_of(sys::pathSeparators);
    return separator == std::string::npos ? 0 : separator + 1;
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
                                "The model file " + path +
                                    " has a point in the name of a folder but no extension of "
                                    "its own. Save the model under a name with an extension");
    return {path.substr(0, start), path.substr(start, point - start)};
}

ModelPath openModelPath(const form::Context& context)
{
    return splitModelPath(context.femap().ModelName());
}

}  // namespace generate
