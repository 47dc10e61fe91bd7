#pragma once

#include <map>
#include <set>
#include <string>

namespace house
{

/// The folders of the product and their arrows, as a page draws them in Mermaid's flowchart
/// language.
class Diagram
{
public:
    /// text: the lines between the fences. Raises std::runtime_error at a line that is neither a
    /// folder (`name["folder"]`, or the bare name when they are the same) nor an arrow, and at one
    /// that closes a circle.
    explicit Diagram(const std::string& text);
    /// The one on the page. file: from the project's folder. Raises std::runtime_error when there
    /// is none.
    static Diagram ofPage(const std::string& file);

    bool has(const std::string& folder) const { return arrows_.count(folder) != 0; }
    /// Where the folder's own arrows end, for each folder.
    const std::map<std::string, std::set<std::string>>& arrows() const { return arrows_; }
    /// Whether arrows lead there, by way of others too.
    bool leads(const std::string& from, const std::string& to) const;

private:
    std::map<std::string, std::set<std::string>> arrows_;
};

}  // namespace house
