#pragma once

#include "Project.h"

#include <string>
#include <string_view>
#include <vector>

namespace house
{

/// A fixed part of a message that a user can meet, and where it is made.
struct MessagePart
{
    std::string text;
    std::string place;  // "path:line"
};

/// The parts that stand in the calls with which messages are made and errors raised. Parts of one
/// word are left out.
std::vector<MessagePart> messagePartsIn(const File& file);

/// All texts between quotes, those joined that stand next to one another.
std::vector<std::string> literalsIn(const std::string& text);

/// The fixed parts of a message in which "…" stands for what varies; those of one word left out.
std::vector<std::string> partsOf(std::string_view message);

/// The messages of a page: the first cell of each row of its tables, heads left out.
std::vector<std::string> messagesOf(const std::string& page);

}  // namespace house
