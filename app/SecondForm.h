// Two forms on one model know nothing of each other, and each "Apply" replaces what the other
// wrote.
#pragma once

#include "app/Session.h"

#include <string_view>

namespace app
{

constexpr std::string_view secondForm =
    "Another form works on this model. Use one of them: each \"Apply\" replaces the other's files";

/// Marks the model that is open now as one that a form works on, when it is another one than
/// before, and tells on the status line and in the log when another form did so first.
void lookForSecondForm(Session& session);

}  // namespace app
