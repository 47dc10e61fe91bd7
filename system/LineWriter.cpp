#include "system/LineWriter.h"

#include "system/RuntimeError.h"

#include <utility>

namespace sys
{

namespace
{
constexpr std::size_t pieceSize = 1 << 18;
constexpr std::string_view lineEnd = "\r\n";
}  // namespace

LineWriter::LineWriter(std::unique_ptr<OutputFile> file, const CodePage& codePage)
    : file_(std::move(file)), codePage_(codePage)
{}

void LineWriter::line(std::span<const std::string_view> pieces)
{
    ++lines_;
    for (const std::string_view piece : pieces)
        buffer_ += piece;
    buffer_ += lineEnd;
    if (buffer_.size() >= pieceSize)
        drain();
}

void LineWriter::drain()
{
    file_ = drainedFile();
}

void LineWriter::flush()
{
    std::unique_ptr<OutputFile> file = drainedFile();
    file->flush();
    file_ = std::move(file);
}

void LineWriter::close()
{
    drainedFile()->close();
}

std::size_t LineWriter::firstLossyLine()
{
    encodeGathered();
    return firstLossyLine_;
}

// Encodes many lines at a time, and only those that are not ASCII, because encoding is slow.
void LineWriter::encodeGathered()
{
    if (!isAscii(std::string_view(buffer_).substr(encoded_))) {
        const std::string lines = buffer_.substr(encoded_);
        buffer_.resize(encoded_);
        if (!codePage_.encode(lines, buffer_) && firstLossyLine_ == 0)
            findLossyLine(lines);
    }
    encoded_ = buffer_.size();
    encodedLines_ = lines_;
}

void LineWriter::findLossyLine(std::string_view lines)
{
    firstLossyLine_ = encodedLines_ + 1;
    std::string ignored;
    for (std::size_t end = lines.find(lineEnd); codePage_.encode(lines.substr(0, end), ignored);
         end = lines.find(lineEnd)) {
        lines.remove_prefix(end + lineEnd.size());
        ++firstLossyLine_;
    }
}

std::unique_ptr<OutputFile> LineWriter::drainedFile()
{
    std::unique_ptr<OutputFile> file = std::move(file_);
    if (file == nullptr)
        throw RuntimeError(ErrorNumber::FileError, "The file is not open for writing");
    encodeGathered();
    if (!buffer_.empty())
        file->write(buffer_);
    buffer_.clear();
    encoded_ = 0;
    return file;
}

}  // namespace sys
