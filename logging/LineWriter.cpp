#include "logging/LineWriter.h"

#include "logging/RuntimeError.h"

#include <utility>

namespace logging
{

namespace
{
constexpr std::size_t pieceSize = 1 << 18;
}

LineWriter::LineWriter(std::unique_ptr<OutputFile> file, const CodePage& codePage)
    : file_(std::move(file)), codePage_(codePage)
{}

void LineWriter::line(std::string_view text)
{
    ++lines_;
    if (!codePage_.encode(text, buffer_) && firstLossyLine_ == 0)
        firstLossyLine_ = lines_;
    buffer_ += "\r\n";
    if (buffer_.size() >= pieceSize)
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

std::unique_ptr<OutputFile> LineWriter::drainedFile()
{
    std::unique_ptr<OutputFile> file = std::move(file_);
    if (file == nullptr)
        throw RuntimeError(ErrorNumber::FileError, "The file is not open for writing");
    if (!buffer_.empty())
        file->write(buffer_);
    buffer_.clear();
    return file;
}

}  // namespace logging
