// An argument string of any bytes gives its first three fields, a path of any bytes its extension.

#include "app/CommandLine.h"
#include "fuzz/Fuzz.h"
#include "generate/ModelPath.h"
#include "system/Files.h"

#include <algorithm>
#include <vector>

using fuzz::require;

namespace
{

// Character by character.
std::vector<std::string> fieldsOf(const std::string& arguments)
{
    std::vector<std::string> fields(1);
    for (const char c : arguments) {
        if (c == '$')
            fields.emplace_back();
        else if (c != '"')
            fields.back() += c;
    }
    fields.resize(std::max<std::size_t>(fields.size(), 3));
    return fields;
}

std::string extensionOf(const std::string& path)
{
    std::string extension;
    for (const char c : path) {
        if (c == sys::pathSeparator || c == '.')
            extension.clear();
        else
            extension += c;
    }
    while (extension.starts_with(' '))
        extension.erase(0, 1);
    while (extension.ends_with(' '))
        extension.pop_back();
    return extension;
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string text = fuzz::textOf(data, size);

    const app::CommandLine line = app::parseCommandLine(text);

    const std::vector<std::string> fields = fieldsOf(text);
    require(line.modelFile == fields[0], "the first field is the model");
    require(line.logFileName == fields[1], "the second field is the name of the log");
    require(line.logLevel == fields[2], "the third field is the level of the log");
    require(generate::GetFileExtension(text) == extensionOf(text), "the extension is what follows");
    return 0;
}
