// The call of velmar-evaluate: its words taken apart.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace loop::evaluate
{

extern const std::string_view usage;

struct Call
{
    bool wantsHelp = false;
    bool proves = false;
    bool writesTable = false;
    bool repeatsFailures = false;
    std::optional<bool> isEmbedded;  // none: the call does not say
    std::string folder;              // empty: the working folder
    std::string points;              // the table of points; empty: none
    std::string results;             // the table of their results
    std::string dakotaParameters;    // empty: Dakota did not call
    std::string dakotaResults;
    std::size_t copies = 1;                 // of the study, that run side by side
    std::vector<std::string> furtherFiles;  // for these
    std::optional<std::string> solver;      // a line for the shell, in place of FDFemap.bat
    std::optional<double> timeout;          // in seconds
    std::string problem;                    // empty: none
};

Call parseCall(const std::vector<std::string>& arguments);

}  // namespace loop::evaluate
