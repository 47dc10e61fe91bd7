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
    return line.substr(0, blockMark.size()) == blockMark && isBlank(line.substr(blockMark.size()));
}

}  // namespace

std::optional<Block> Blocks::next()
{
    if (!skipToStart())
        return std::nullopt;
    Block block;
    block.number = takeNumber();
    const char* const content = at_;
    while (at_ != end_) {
        const char* const lineBegin = at_;
        if (isBlockMark(takeLine())) {
            block.content = {content, static_cast<std::size_t>(lineBegin - content)};
            return block;
        }
        ++block.lineCount;
    }
    block.content = {content, static_cast<std::size_t>(end_ - content)};
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
    while (at_ != end_) {
        const std::string_view line = takeLine();
        if (isBlockMark(line)) {
            first_ = false;
            return true;
        }
        const bool comment = line.substr(0, libraryComment.size()) == libraryComment;
        if (!first_ && !comment && !isBlank(line))
            throw FormatError(line.data(), "this line stands between two blocks");
    }
    return false;
}

int Blocks::takeNumber()
{
    if (at_ == end_)
        failAtEnd("the file is cut: a block has no number");
    Fields fields(takeLine());
    const int number = fields.integer();
    if (number <= 0)
        fields.fail("a block has no number");
    fields.expectEnd();
    return number;
}

std::string_view Blocks::takeLine()
{
    Lines rest(std::string_view(at_, static_cast<std::size_t>(end_ - at_)));
    const std::string_view line = rest.text();
    at_ = line.data() + line.size();
    if (at_ != end_)
        ++at_;
    return line;
}

// Called after something was read, so the file is not empty.
void Blocks::failAtEnd(const std::string& problem) const
{
    throw FormatError(end_ - 1, problem);
}

std::string BlockReading::title()
{
    std::string_view text = lines.text();
    text = text.substr(0, text.find_last_not_of(blanks) + 1);
    return text == noText ? std::string() : codePage.decode(text);
}

}  // namespace femap::neutral
