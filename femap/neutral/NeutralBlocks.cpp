#include "femap/neutral/NeutralBlocks.h"

namespace femap::neutral
{

namespace
{

// The line that begins or ends a block is just three blanks and -1. Lists inside a block end with a
// record that begins with -1, too, but has more in it or other blanks.
constexpr std::string_view blockMark = "   -1";
constexpr std::string_view blanks = " \t\r";
constexpr std::string_view libraryComment = "$COM";
constexpr std::string_view noText = "<NULL>";

bool isBlank(std::string_view text)
{
    return text.find_first_not_of(blanks) == std::string_view::npos;
}

bool isBlockMark(std::string_view line)
{
    return line.starts_with(blockMark) && isBlank(line.substr(blockMark.size()));
}

}  // namespace

std::optional<Block> Blocks::next()
{
    if (!skipToStart())
        return std::nullopt;
    Block block;
    block.number = takeNumber();
    block.content = lines_.rest();
    while (!lines_.atEnd()) {
        const std::string_view line = lines_.text();
        if (isBlockMark(line)) {
            const auto size = static_cast<std::size_t>(line.data() - block.content.data());
            block.content = block.content.substr(0, size);
            return block;
        }
        ++block.lineCount;
    }
    block.hasEnd = false;
    return block;
}

void Blocks::refuseWithoutEnd(const Block& block) const
{
    failAtEnd("the file is cut: the block " + std::to_string(block.number) + " has no end");
}

// Skips the line that begins the next block; false at the end of the file.
bool Blocks::skipToStart()
{
    while (!lines_.atEnd()) {
        const std::string_view line = lines_.text();
        if (isBlockMark(line)) {
            first_ = false;
            return true;
        }
        const bool comment = line.starts_with(libraryComment);
        if (!first_ && !comment && !isBlank(line))
            throw FormatError(line.data(), "this line stands between two blocks");
    }
    return false;
}

int Blocks::takeNumber()
{
    if (lines_.atEnd())
        failAtEnd("the file is cut: a block has no number");
    Fields fields(lines_.text());
    const int number = fields.integer();
    if (number <= 0)
        fields.fail("a block has no number");
    fields.expectEnd();
    return number;
}

// Called after something was read, so the file is not empty.
void Blocks::failAtEnd(const std::string& problem) const
{
    throw FormatError(lines_.rest().data() - 1, problem);
}

std::string BlockReading::title()
{
    std::string_view text = lines.text();
    text = text.substr(0, text.find_last_not_of(blanks) + 1);
    return text == noText ? std::string() : codePage.decode(text);
}

}  // namespace femap::neutral
