#include "generate/StudySheet.h"

#include "system/Json.h"

#include <chrono>
#include <utility>

namespace generate
{

namespace
{

using sys::JsonReader;

std::string padded(int number, std::size_t digits)
{
    const std::string text = std::to_string(number);
    return std::string(digits - std::min(text.size(), digits), '0') + text;
}

SheetFile readFile(JsonReader& reader)
{
    SheetFile file;
    reader.enterObject();
    while (const auto name = reader.nextName()) {
        if (*name == "name")
            file.name = reader.text().value_or("");
        else if (*name == "size")
            file.size = reader.number().value_or(0);
        else if (*name == "time")
            file.time = reader.text().value_or("");
        else
            reader.skip();
    }
    return file;
}

}  // namespace

SheetFile sheetFile(std::string name, const sys::FileFacts& facts)
{
    return {std::move(name), facts.size, utcText(facts.changed)};
}

// The files stand before the rows, which need not be gone through.
std::optional<std::vector<SheetFile>> filesInSheet(std::string_view text)
{
    JsonReader reader(text);
    reader.enterObject();
    while (const auto name = reader.nextName()) {
        if (*name != "files") {
            reader.skip();
            continue;
        }
        std::vector<SheetFile> files;
        reader.enterArray();
        while (reader.hasNextValue())
            files.push_back(readFile(reader));
        if (!reader.hasFailed())
            return files;
    }
    return std::nullopt;
}

std::string utcText(std::int64_t seconds)
{
    using namespace std::chrono;
    const sys_seconds time{std::chrono::seconds(seconds)};
    const sys_days day = floor<days>(time);
    const year_month_day date(day);
    const hh_mm_ss clock(time - day);
    return padded(int(date.year()), 4) + '-' + padded(int(unsigned(date.month())), 2) + '-' +
           padded(int(unsigned(date.day())), 2) + 'T' +
           padded(static_cast<int>(clock.hours().count()), 2) + ':' +
           padded(static_cast<int>(clock.minutes().count()), 2) + ':' +
           padded(static_cast<int>(clock.seconds().count()), 2) + 'Z';
}

}  // namespace generate
