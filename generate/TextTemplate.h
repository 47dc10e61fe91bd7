#pragma once

#include <functional>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

namespace generate
{

/// Takes one line.
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

/// Fills a text's slots in and hands on line after line. A line of the text with a slot is
/// repeated for each line that the slot stands for, so one without any removes it. What is filled
/// in is never looked at again: it may hold "@". A line feed right at the start of the text is not
/// part of it, so that a raw literal can begin at column 0.
/// Throws std::logic_error for a slot that is not given.
void fillIn(std::string_view text, std::initializer_list<Slot> slots, const LineSink& write);

/// The same as one text, each line ended by a line feed.
std::string fillIn(std::string_view text, std::initializer_list<Slot> slots);

}  // namespace generate
