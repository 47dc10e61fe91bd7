#pragma once

#include <string>
#include <vector>

namespace house
{

/// A text file of the project.
struct SourceFile
{
    std::string path;  // from the project's folder, with "/"
    std::vector<std::string> lines;

    /// "app/form" of "app/form/MainForm.h"; empty at the top.
    std::string folder() const;
    /// C++ code.
    bool isCode() const;
};

/// Every text file below the folder but what is built, generated or test data.
std::vector<SourceFile> readSources(const std::string& projectFolder);
/// Those of this project, read once.
const std::vector<SourceFile>& sources();

}  // namespace house
