#include "Diagram.h"

#include "Project.h"

#include <algorithm>
#include <regex>
#include <stdexcept>

namespace house
{

Diagram::Diagram(const std::string& text)
{
    // How the picture looks, and nothing else.
    const std::regex looks("\\s*(flowchart .*|classDef .*|end)?");
    const std::regex floor(R"re(\s*subgraph .*)re");
    const std::regex room(R"re(\s*(\w+)(\["([^"]+)"\])?)re");
    const std::regex arrow("\\s*(\\w+) --> (\\w+)");
    const std::regex marked("\\s*class ([\\w,]+) windows");

    std::map<std::string, std::string> rooms;
    int floorsSoFar = 0;
    for (const std::string& line : linesOf(text)) {
        std::smatch found;
        if (std::regex_match(line, looks))
            continue;
        if (std::regex_match(line, floor)) {
            ++floorsSoFar;
        }
        else if (std::regex_match(line, found, room)) {
            const std::string& name = rooms[found[1]] = found[3].matched ? found[3] : found[1];
            arrows_[name];
            floors_[name] = floorsSoFar;
        }
        else if (std::regex_match(line, found, arrow) && rooms.count(found[1]) != 0 &&
                 rooms.count(found[2]) != 0) {
            addArrow(rooms[found[1]], rooms[found[2]]);
        }
        else if (std::regex_match(line, found, marked)) {
            for (const std::string& each : allMatches(found[1], "(\\w+)"))
                windows_.insert(rooms.at(each));
        }
        else {
            throw std::runtime_error("neither a floor, a room nor an arrow between two: " + line);
        }
    }
}

void Diagram::addArrow(const std::string& from, const std::string& to)
{
    const std::string arrow = from + " --> " + to;
    if (floors_.at(from) > floors_.at(to))
        throw std::runtime_error("goes up: " + arrow);
    if (from == to || leads(to, from))
        throw std::runtime_error("goes round in a circle: " + arrow);
    arrows_[from].insert(to);
}

Diagram Diagram::ofTopFolders() const
{
    const auto top = [](const std::string& room) { return room.substr(0, room.find('/')); };
    Diagram folded;
    for (const auto& [room, targets] : arrows_)
        folded.floors_[top(room)] = floors_.at(floors_.contains(top(room)) ? top(room) : room);
    for (const auto& [room, targets] : arrows_)
        for (const std::string& target : targets)
            if (top(room) != top(target))
                folded.addArrow(top(room), top(target));
    return folded;
}

Diagram Diagram::ofPage(const std::string& file)
{
    const auto drawn = allMatches(textOf(file), "```mermaid\n([^`]*)```");
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
