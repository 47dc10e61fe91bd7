#include "Diagram.h"

#include "Documents.h"

#include <algorithm>
#include <regex>
#include <sstream>
#include <stdexcept>

namespace house
{

Diagram::Diagram(const std::string& text)
{
    // How the picture looks, and nothing else.
    const std::regex looks("\\s*(flowchart .*|classDef .*|class .*)?");
    const std::regex folder(R"re(\s*(\w+)(\["([^"]+)"\])?)re");
    const std::regex arrow("\\s*(\\w+) --> (\\w+)");

    std::map<std::string, std::string> folders;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        std::smatch found;
        if (std::regex_match(line, looks))
            continue;
        if (std::regex_match(line, found, folder)) {
            const std::string& name = folders[found[1]] = found[3].matched ? found[3] : found[1];
            arrows_[name];
        }
        else if (std::regex_match(line, found, arrow) && folders.count(found[1]) != 0 &&
                 folders.count(found[2]) != 0) {
            const std::string& from = folders[found[1]];
            const std::string& to = folders[found[2]];
            if (from == to || leads(to, from))
                throw std::runtime_error("goes round in a circle: " + line);
            arrows_[from].insert(to);
        }
        else {
            throw std::runtime_error("neither a folder nor an arrow between two: " + line);
        }
    }
}

Diagram Diagram::ofPage(const std::string& file)
{
    const auto drawn = allMatches(contentOf(file), "```mermaid\n([^`]*)```");
    if (drawn.size() != 1)
        throw std::runtime_error(file + " has no diagram or several");
    return Diagram(drawn.front());
}

bool Diagram::leads(const std::string& from, const std::string& to) const
{
    const auto found = arrows_.find(from);
    return found != arrows_.end() &&
           std::any_of(found->second.begin(), found->second.end(),
                       [&](const std::string& next) { return next == to || leads(next, to); });
}

}  // namespace house
