// What the window is like for the engineer's hand, kept from run to run in a file of the user's:
// where it stands, how wide columns are, how the two lists share their height.
#pragma once

#include "form/ScreenPlace.h"
#include "system/Files.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace window
{

struct KeptPlaces
{
    std::optional<form::ScreenPlace> window;  // in pixels; none where it was never a window
    bool isMaximised = false;
    std::vector<int> inputWidths;  // of the columns, in twips; empty: the given ones
    std::vector<int> outputWidths;
    std::optional<int> inputShare;  // in thousandths

    bool operator==(const KeptPlaces&) const = default;
};

/// One line for each thing: its name and its numbers.
std::string toText(const KeptPlaces& places);
/// Lines that are not as they are written are left out.
KeptPlaces keptPlaces(std::string_view text);

/// As the file has it; nothing kept when it cannot be read.
KeptPlaces readPlaces(sys::Files& files, const std::string& path);
/// Does nothing when it cannot be written, for the next start then has the given places.
void writePlaces(sys::Files& files, const std::string& path, const KeptPlaces& places);

}  // namespace window
