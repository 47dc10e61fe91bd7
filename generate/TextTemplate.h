// Fixed text of generated files with named slots (@name@), and filling lines into the slots.
#pragma once

#include <functional>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

namespace generate
{

/// A range that a generated file gives to a parameter, as it stands there.
struct FixedBounds
{
    std::string_view lower;
    std::string_view upper;
};

/// What stands in a text behind a passage of it and the blanks that follow, up to the next blank or
/// the end of the line; so that others need not repeat what a file says.
constexpr std::string_view wordBehind(std::string_view text, std::string_view passage)
{
    text.remove_prefix(text.find(passage) + passage.size());
    text.remove_prefix(text.find_first_not_of(' '));
    return text.substr(0, text.find_first_of(" \n"));
}

/// Is called with each line.
using LineSink = std::function<void(std::string_view line)>;

/// The lines that a slot stands for.
class Lines
{
public:
    Lines(std::initializer_list<std::string_view> lines) : lines_(lines.begin(), lines.end()) {}
    /// Lines that are made one by one whenever they are wanted, so that a million rows of a grid
    /// need not lie in memory twice.
    explicit Lines(std::function<void(const LineSink&)> produce) : produce_(std::move(produce)) {}

    void forEach(const LineSink& visit) const;

private:
    std::vector<std::string> lines_;
    std::function<void(const LineSink&)> produce_;
};

/// What the name between two "@" of a text stands for.
struct Slot
{
    std::string_view name;
    Lines lines;
};

/// Fills the slots of a text and calls write with each line. A line of the text with a slot is
/// repeated for each line of the slot; a slot without lines removes it. What is filled in may hold
/// "@". A line feed at the very start of the text is left out, so that a raw literal can begin at
/// column 0. Throws std::logic_error for a slot that is not given.
void fillIn(std::string_view text, std::initializer_list<Slot> slots, const LineSink& write);

/// The same as one text, each line ended by a line feed.
std::string fillIn(std::string_view text, std::initializer_list<Slot> slots);

}  // namespace generate
