// The picture of the rooms on a page of the documentation.
#pragma once

#include <map>
#include <set>
#include <string>

namespace house
{

/// The rooms of the product, their floors and their arrows, as a page draws them in Mermaid's
/// flowchart language: a subgraph is a floor, the first one the top floor.
class Diagram
{
public:
    using Arrows = std::map<std::string, std::set<std::string>>;

    /// text: the lines between the fences. Raises std::runtime_error at a line that is neither a
    /// floor, nor a room on one (`name["folder"]`, or the bare name when they are the same), nor an
    /// arrow, nor the class of rooms for Windows; at an arrow that goes up; and at one that closes
    /// a circle.
    explicit Diagram(const std::string& text);
    /// The one on the page. file: from the project's folder. Raises std::runtime_error when there
    /// is none.
    static Diagram ofPage(const std::string& file);

    bool has(const std::string& room) const { return arrows_.count(room) != 0; }
    bool isForWindows(const std::string& room) const { return windows_.count(room) != 0; }
    /// Where the room's own arrows end, for each room.
    const Arrows& arrows() const { return arrows_; }
    /// Whether arrows lead there, by way of others too.
    bool leads(const std::string& from, const std::string& to) const;

    /// The same house with each top folder as one room, on the floor of the room of that name.
    /// Raises std::runtime_error when an arrow then goes up or closes a circle.
    Diagram ofTopFolders() const;

private:
    Diagram() = default;
    void addArrow(const std::string& from, const std::string& to);

    std::map<std::string, int> floors_;  // from the top, by room
    Arrows arrows_;
    std::set<std::string> windows_;
};

}  // namespace house
