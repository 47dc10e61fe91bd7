// Which output set the results are read from.
#pragma once

#include "form/Context.h"

#include <vector>

namespace selection
{

struct OutputSets
{
    std::vector<int> ids;  // ascending
    int active = 0;        // 0: none

    /// Then the results are those of the lowest.
    bool severalAndNoneActive() const { return ids.size() > 1 && active == 0; }
};

/// Those of the open model; which is active is asked only when there are several.
OutputSets outputSets(form::Context& context);

/// When the model has several output sets: says on the status line which one is read, and in the
/// log, too, when none is active and the lowest is taken.
void tellOutputSet(form::Context& context);

}  // namespace selection
