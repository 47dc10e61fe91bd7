// Writes the provenance sheet beside the generated files: what they were made of, and when.
#pragma once

#include "findings/Finding.h"
#include "form/Context.h"

#include <span>
#include <string>
#include <string_view>

namespace provenance
{

/// What the form and FEMAP do not tell.
struct Circumstances
{
    std::string_view toolVersion;
    std::span<const findings::Finding> found;  // before "Apply"
    std::span<const std::string> files;        // the paths that it wrote
};

/// Replaces the sheet of the open model, whole or not at all. Raises RuntimeError.
void writeStudySheet(form::Context& context, const Circumstances& circumstances);

}  // namespace provenance
