// CAEInput.txt and CAEOutput.txt read back: which model, solver and files a study has, and its
// rows.
#pragma once

#include "generate/ExchangeFiles.h"
#include "generate/SolverFormat.h"
#include "loop/Problems.h"
#include "system/System.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace loop
{

struct DescribedRow
{
    std::size_t line = 0;  // of the description
    std::string text;      // the row of the grid, its value empty
};

struct Description
{
    std::string folder;  // as the beginning of paths; empty: the working folder
    std::string file;    // its own name
    std::string model;   // the model's file, "panel.modfem"
    const generate::SolverFormat* solver = nullptr;  // null: the study has none
    std::string solverFile;                          // the deck or the results
    std::string valuesFile;
    std::vector<DescribedRow> rows;

    std::string pathOf(const std::string& name) const { return folder + name; }
    /// The model's name, after which files of the study are named: "panel".
    std::string name() const;
};

/// What is wrong becomes problems; then the result is of no use.
Description readDescription(sys::System& system, const std::string& folder,
                            const generate::ExchangeFormat& format, Problems& problems);

/// The lines of a text file of the study, in UTF-8 and without their ends. None, and a problem,
/// when the file is not there or cannot be read; cure: what to do when it is not there.
std::optional<std::vector<std::string>> readLines(sys::System& system, const std::string& folder,
                                                  const std::string& file, std::string_view cure,
                                                  Problems& problems);

/// A text as the study's files hold it: with ? for what their code page lacks.
std::string inCodePage(const sys::CodePage& codePage, const std::string& text);

}  // namespace loop
