// A file in the place of another, in one step.
#pragma once

#include <string>
#include <system_error>

namespace sys
{

/// What is in the way of replacing the file at the path, as far as that can be known before: it is
/// held, protected, or no file. Nothing where there is no file. What the folder lets is not asked.
std::error_code reasonAgainstReplacing(const std::string& path);

/// What is in the way of creating files in a folder, as far as its rights tell. An empty path is
/// the working folder.
std::error_code reasonAgainstCreatingIn(const std::string& folder);

/// Gives the file "by" the rights and attributes of the one at the path and then its name, so that
/// this outlasts a power cut. Where it fails, the old file stays as it is.
std::error_code replaceFile(const std::string& path, const std::string& by);

}  // namespace sys
