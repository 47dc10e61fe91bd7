#include "loop/StudyFiles.h"

namespace loop
{

std::string neutralFile(const Description& description)
{
    return description.name() + ".neu";
}

std::string runFile(const Description& description)
{
    return description.name() + ".run.neu";
}

std::string neutralResults(const Description& description)
{
    return description.name() + ".results.neu";
}

std::vector<std::string> resultsOf(const Description& description, const Connection& connection)
{
    std::vector<std::string> files;
    if (description.solver != nullptr)
        files.push_back(description.name() + '.' + std::string(description.solver->results));
    if (connection.isEmbedded())
        files.push_back(neutralResults(description));
    return files;
}

}  // namespace loop
