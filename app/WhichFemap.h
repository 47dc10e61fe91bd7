// What the engineer is told of the FEMAP in use: which one of several it is, and what may be lost
// with one that the tool started.
#pragma once

#include "app/Session.h"

#include <string_view>

namespace app
{

constexpr std::string_view femapIsHidden =
    "Another FEMAP is running, but it and this program cannot see each other: only one of the two "
    "was started as administrator. Start both the same way to use that FEMAP.";
constexpr std::string_view unsavedInForm =
    "The FEMAP that this tool started has changes that are not saved, and may end with the form. "
    "Save the model in FEMAP, or close the form once more.";
constexpr std::string_view unsavedInStudy =
    "The FEMAP that this tool started has changes that are not saved, and may end now. Save the "
    "model in FEMAP if it stays.";

/// Tells on the status line and in the log which of several FEMAPs is used. Where there is one,
/// does nothing.
void tellWhichFemap(Session& session);

/// When FEMAP has changes that are not saved, tells that in these words and returns true.
bool tellUnsavedChanges(Session& session, std::string_view text);

}  // namespace app
