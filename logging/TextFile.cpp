#include "logging/TextFile.h"

#include "logging/Module1.h"

namespace logging
{

namespace
{

// Runs a step on the way to the file; its error names the file itself and says what to do.
template <class Step>
auto namingFile(const std::string& path, Step&& step)
{
    try {
        return step();
    }
    catch (const RuntimeError& error) {
        throw RuntimeError(error.number(),
                           path + " was not written (" + error.description() +
                               "). See that its folder is there and can be written to, that no "
                               "other program has the file open, and try again");
    }
}

}  // namespace

TextFile::TextFile(System& system, FemapLogger& log, const std::string& path)
    : system_(system),
      log_(log),
      path_(path),
      temporaryPath_(path + ".part~"),
      writer_(namingFile(path, [&] { return system.files.create(temporaryPath_); }),
              system.codePage)
{}

TextFile::~TextFile()
{
    if (closed_)
        return;
    writer_.discard();
    PendingError ignored;  // an error that says more is on its way already
    ignored.attempt([&] { system_.files.remove(temporaryPath_); });
}

void TextFile::line(std::string_view text)
{
    namingFile(path_, [&] { writer_.line(text); });
}

void TextFile::write(std::string_view lines)
{
    while (!lines.empty()) {
        const std::size_t end = lines.find('\n');
        line(lines.substr(0, end));
        lines.remove_prefix(end == std::string_view::npos ? lines.size() : end + 1);
    }
}

void TextFile::close()
{
    namingFile(path_, [&] {
        writer_.flush();
        writer_.close();
        system_.files.replace(path_, temporaryPath_);
    });
    closed_ = true;
    if (writer_.firstLossyLine() != 0)
        logDebug(log_, path_, ": line ", writer_.firstLossyLine(),
                 " is the first with a character that the code page lacks; it is written as ?");
}

}  // namespace logging
