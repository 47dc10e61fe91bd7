// A provenance sheet of any bytes tells its files or none, and those of a sheet made of them again.

#include "fuzz/Fuzz.h"
#include "generate/StudySheet.h"
#include "system/Json.h"

using fuzz::require;

namespace
{

std::string sheetOf(const std::vector<generate::SheetFile>& files)
{
    std::string text = R"({"tool":"1","files":[)";
    for (const generate::SheetFile& file : files)
        text += (&file == &files.front() ? "" : ",") + std::string(R"({"name":)") +
                sys::quotedJson(file.name) + R"(,"size":)" + std::to_string(file.size) +
                R"(,"time":)" + sys::quotedJson(file.time) + '}';
    return text + "]}";
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string text = fuzz::textOf(data, size);
    const auto files = generate::filesInSheet(text);
    if (files)
        require(generate::filesInSheet(sheetOf(*files)) == files, "the files are told again");

    sys::JsonReader reader(text);
    reader.enterArray();
    std::size_t values = 0;
    for (; reader.hasNextValue(); ++values)
        reader.skip();
    require(values <= size, "a value has bytes");
    return 0;
}
