// Takes down what one rule finds and puts it into words, equal findings gathered.
#pragma once

#include "findings/Finding.h"

#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace findings
{

/// What a rule says. Words between two "@" stand for what differs.
struct Wording
{
    std::string_view one;  // has @name@, @detail@ and @about@
    // Has @count@, @names@ and @about@, and @name@ and @detail@ of the first; empty: one is told.
    std::string_view several;
    std::string_view cure;
};

class Report
{
public:
    /// Something was found in these rows. detail: what is told of it besides; may be empty.
    void add(std::string_view name, std::string_view detail, std::initializer_list<Place> places);
    void add(std::string_view name, std::string_view detail = {}) { add(name, detail, {}); }
    /// The same of one row, which is named by it.
    void addRow(Place place, std::string_view name, std::string_view detail = {})
    {
        add(name, detail, {place});
    }
    /// What @about@ stands for: the same for all that is found.
    void setAbout(std::string text) { about_ = std::move(text); }
    /// A further row of what was found last.
    void addPlace(Place place) { places_.push_back(place); }

    /// All that was added; nothing when nothing was.
    std::optional<Finding> finding(std::string_view code, Severity severity,
                                   const Wording& wording) const;

private:
    struct Item
    {
        std::string name;
        std::string detail;
    };

    Finding one(const Wording& wording) const;
    Finding gathered(const Wording& wording) const;

    std::string about_;
    std::size_t count_ = 0;
    std::vector<Item> first_;  // as many as are ever told by name
    std::vector<Place> places_;
};

}  // namespace findings
