// A preview as text: a line for each file, and the unified difference of one.
#pragma once

#include "preview/Preview.h"
#include "system/CodePage.h"

#include <functional>
#include <string>
#include <string_view>

namespace preview
{

/// "changed 540 InputValues.txt: 512 bytes before, first difference in line 3".
std::string lineOf(const File& file);

/// That of each file, and what would be told in place of the result.
std::string textOf(const Preview& preview);

/// What "Apply" would tell in place of its result, for a preview that has a problem.
std::string problemOf(const Preview& preview);

/// Takes pieces of a text.
using Sink = std::function<void(std::string_view text)>;

/// What of the file that was asked for is not as it is in the folder: its unified difference, or
/// its line where there is none to be made.
void writeDifference(const Preview& preview, const File& file, const sys::CodePage& codePage,
                     const Sink& write);

}  // namespace preview
