#pragma once

#include "Diagram.h"
#include "SourceTree.h"

#include <set>
#include <string>
#include <vector>

namespace house
{

// Each rule lists where a file breaks it, as "path:line: what is wrong".

/// Rooms depend on each other only along the arrows.
std::vector<std::string> includesAgainstTheArrows(const SourceFile& file, const Diagram& diagram);
/// Windows is reached only in the rooms that are marked for it, in their tests, and in files whose
/// names say so.
std::vector<std::string> windowsHeadersOutOfPlace(const SourceFile& file, const Diagram& diagram);
/// The product has no lines that are compiled on one platform only.
std::vector<std::string> conditionalLines(const SourceFile& file);
/// The first lines of a file of the product, or of the header of its name, tell what it is for.
/// paths: all files that there are.
std::vector<std::string> missingPurpose(const SourceFile& file, const std::set<std::string>& paths);
/// Tests lie where what they test lies.
std::vector<std::string> testsOutOfPlace(const SourceFile& file, const Diagram& diagram);
/// A name that is brought in from elsewhere, or made for a namespace, is used in its file.
std::vector<std::string> unusedNames(const SourceFile& file);
/// 400 lines a file, 100 columns a line; tables and text that is shown as it will be written may be
/// wider.
std::vector<std::string> tooLong(const SourceFile& file);

/// A folder in which anything of the project may be included: tests and benchmarks.
bool isFree(const std::string& folder);
/// Where the headers lie that a file includes by their folder, once for each.
std::vector<std::string> includedFolders(const SourceFile& file);

}  // namespace house
