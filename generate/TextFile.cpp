#include "generate/TextFile.h"

#include "form/Progress.h"
#include "logging/Module1.h"
#include "system/Memory.h"
#include "system/PendingError.h"

#include <utility>

namespace generate
{

using logging::logDebug;
using sys::ErrorNumber;
using sys::RuntimeError;

namespace
{

// What happened to the file, and the cure.
std::string_view messageFor(ErrorNumber number)
{
    return number == ErrorNumber::PermissionDenied
               ? " was not written. See whether another program has it open or it is "
                 "write-protected, and try again: "
               : " was not written. See that its folder is there and the disk has room, and try "
                 "again: ";
}

// Runs a step that writes; its errors then name the final file and say what to do. The reason comes
// first and the path last, for FEMAP's message window cuts long texts.
template <class Step>
auto namingFile(const std::string& path, Step&& step)
{
    return sys::whileMemoryLasts(path, [&] {
        try {
            return step();
        }
        catch (const RuntimeError& error) {
            throw notWritten(error, path);
        }
    });
}

}  // namespace

RuntimeError notWritten(const RuntimeError& error, const std::string& path)
{
    const auto* const ofDisk = dynamic_cast<const sys::DiskError*>(&error);
    const std::string reason = ofDisk == nullptr ? error.description() : ofDisk->reason();
    const std::string name = path.substr(path.find_last_of(sys::pathSeparators) + 1);
    return {error.number(), reason + ". " + name + std::string(messageFor(error.number())) + path};
}

TextFile::TextFile(sys::System& system, logging::FemapLogger& log, const std::string& path)
    : system_(system),
      log_(log),
      path_(path),
      temporary_(namingFile(path, [&] { return system.files.createBeside(path); })),
      writer_(std::move(temporary_.file), system.codePage)
{}

TextFile::~TextFile()
{
    if (closed_)
        return;
    writer_.discard();
    sys::PendingError ignored;  // the error that ended the writing says more
    ignored.attempt([&] { system_.files.remove(temporary_.path); });
}

void TextFile::demandReplaceable(sys::System& system, const std::string& path)
{
    namingFile(path, [&] { system.files.demandReplaceable(path); });
}

void TextFile::line(std::span<const std::string_view> pieces)
{
    namingFile(path_, [&] { writer_.line(pieces); });
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
        system_.files.replace(path_, temporary_.path);
    });
    closed_ = true;
    if (writer_.firstLossyLine() != 0)
        logDebug(log_, path_, ": line ", writer_.firstLossyLine(),
                 " is the first with a character that the code page lacks; it is written as ?");
}

void finish(form::Progress& progress, TextFile& file)
{
    file.close();
    progress.finished(file.path());
}

}  // namespace generate
