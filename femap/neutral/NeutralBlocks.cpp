#include "femap/neutral/NeutralBlocks.h"

#include "femap/NumberText.h"
#include "system/RuntimeError.h"

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
constexpr double firstVersion = 4.4;
constexpr double firstUnknownVersion = 12;

bool isBlank(std::string_view text)
{
    return text.find_first_not_of(blanks) == std::string_view::npos;
}

bool isBlockMark(std::string_view line)
{
    return line.starts_with(blockMark) && isBlank(line.substr(blockMark.size()));
}

double readVersion(const Block& header)
{
    Lines lines(header.content);
    lines.skipText(1);  // title
    Fields fields = lines.record();
    const double version = fields.real();
    if (version < firstVersion || version >= firstUnknownVersion)
        fields.fail("the file has the version " + numberText(version) +
                    ", but only the versions 4.4 to 11 can be read");
    if (!lines.atEnd())
        lines.record().fail("the header has more lines than a title and a version");
    return version;
}

// A solver leaves out the last mark of its results.
void demandEnd(const Block& block)
{
    if (!block.hasEnd && block.number != outputVectorsBlock)
        refuseWithoutEnd(block);
}

// The layout of every other block depends on the version, so it must be known before them.
double findVersion(std::string_view file)
{
    Blocks blocks(file);
    while (const std::optional<Block> block = blocks.next()) {
        demandEnd(*block);
        if (block->number == headerBlock)
            return readVersion(*block);
    }
    throw FormatError(file.data(), "this is no FEMAP neutral file, or its header is missing");
}

// The line of a position in the text, counted from 1.
std::ptrdiff_t lineNumber(std::string_view content, const char* position)
{
    return std::count(content.data(), position, '\n') + 1;
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

void refuseWithoutEnd(const Block& block)
{
    throw FormatError(block.content.data() + block.content.size() - 1,
                      "the file is cut: the block " + std::to_string(block.number) + " has no end");
}

void forEachBlock(std::string_view file, const BlockVisitor& visit)
{
    double version = findVersion(file);
    Blocks blocks(file);
    while (const std::optional<Block> block = blocks.next()) {
        demandEnd(*block);
        if (block->number == headerBlock)
            version = readVersion(*block);  // files that were joined have several
        else
            visit(*block, version);
    }
}

void nameFileAndLine(std::string_view content, const std::string& fileName,
                     const std::function<void()>& read)
{
    try {
        read();
    }
    catch (const FormatError& error) {
        throw sys::RuntimeError(
            sys::ErrorNumber::FileError,
            fileName + ":" + std::to_string(lineNumber(content, error.position())) + ": " +
                error.what() +
                ". Export the model again from FEMAP as a neutral file of version 4.4 to 11.");
    }
}

std::string BlockReading::title()
{
    std::string_view text = lines.text();
    text = text.substr(0, text.find_last_not_of(blanks) + 1);
    return text == noText ? std::string() : codePage.decode(text);
}

}  // namespace femap::neutral
