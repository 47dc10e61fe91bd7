// The provenance sheet that can lie beside the generated files: its name, and what it tells of
// them.
#pragma once

#include "generate/Targets.h"
#include "system/Files.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace generate
{

/// It is written after "Apply" where that is asked for, and is none of the files of a tool.
constexpr Target studySheet = "@model@Study.json";

/// A generated file as the sheet keeps it.
struct SheetFile
{
    std::string name;
    std::uint64_t size = 0;
    std::string time;  // as utcText writes it

    bool operator==(const SheetFile&) const = default;
};

SheetFile sheetFile(std::string name, const sys::FileFacts& facts);

/// The files of a sheet; nothing when the text is no sheet or a damaged one.
std::optional<std::vector<SheetFile>> filesInSheet(std::string_view text);

/// Seconds since the beginning of 1970 as "2024-03-07T09:05:02Z".
std::string utcText(std::int64_t seconds);

}  // namespace generate
