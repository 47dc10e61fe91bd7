#include "generate/PreviousSelection.h"

#include "system/RuntimeError.h"

#include <algorithm>
#include <functional>
#include <memory>

namespace generate
{

using form::Context;
using sys::ErrorNumber;
using sys::RuntimeError;

namespace
{

constexpr std::string_view copyEnd = ".previous";
constexpr std::string_view fileEnd = ".txt";
constexpr std::size_t pieceSize = 1 << 18;  // as much of a file as is in memory at a time

// Null when there is no such file.
std::unique_ptr<sys::InputFile> opened(Context& context, const std::string& path)
{
    try {
        return context.system.files.openToRead(path);
    }
    catch (const RuntimeError& error) {
        if (error.number() == ErrorNumber::FileNotFound)
            return nullptr;
        throw;
    }
}

// Hashes texts piece by piece, the last piece being a shorter one.
class Digest
{
public:
    void add(std::string_view piece)
    {
        constexpr std::size_t spread = 31;
        value_ = value_ * spread + std::hash<std::string_view>()(piece);
    }
    std::size_t value() const { return value_; }

private:
    std::size_t value_ = 0;
};

std::size_t digestOf(sys::InputFile& file)
{
    Digest digest;
    for (std::string piece = file.next(pieceSize); !piece.empty(); piece = file.next(pieceSize))
        digest.add(piece);
    return digest.value();
}

bool isKnown(const Context& context, const std::string& path, std::size_t digest)
{
    const auto& known = context.form.stored.knownFiles;
    const auto place = known.find(path);
    return place != known.end() && place->second == digest;
}

bool holdTheSame(sys::InputFile& one, sys::InputFile& other)
{
    for (;;) {
        const std::string piece = one.next(pieceSize);
        if (piece != other.next(pieceSize))
            return false;
        if (piece.empty())
            return true;
    }
}

void writeWhole(Context& context, const std::string& path, sys::InputFile& content)
{
    sys::Files& files = context.system.files;
    const sys::TemporaryFile copy = files.createBeside(path);
    try {
        for (std::string piece = content.next(pieceSize); !piece.empty();
             piece = content.next(pieceSize))
            copy.file->write(piece);
        copy.file->flush();
        copy.file->close();
        files.replace(path, copy.path);
    }
    catch (const RuntimeError&) {
        sys::PendingError ignored;  // the error that ended the writing says more
        ignored.attempt([&] { files.remove(copy.path); });
        throw;
    }
}

// Returns the path of a copy with the same content; an earlier copy with another one stays.
std::string copied(Context& context, const std::string& path)
{
    const std::string begin = path.substr(0, path.size() - fileEnd.size()).append(copyEnd);
    for (int number = 1;; ++number) {
        std::string copy = begin;
        copy.append(number == 1 ? "" : std::to_string(number)).append(fileEnd);
        const std::unique_ptr<sys::InputFile> content = context.system.files.openToRead(path);
        const std::unique_ptr<sys::InputFile> there = opened(context, copy);
        if (there == nullptr)
            writeWhole(context, copy, *content);
        if (there == nullptr || holdTheSame(*there, *content))
            return copy;
    }
}

}  // namespace

void keepPreviousSelection(Context& context, const std::string& path)
{
    try {
        const std::unique_ptr<sys::InputFile> content = opened(context, path);
        if (content == nullptr)
            return;
        const std::size_t digest = digestOf(*content);
        if (digest == Digest().value() || isKnown(context, path, digest))
            return;  // it is empty, or nothing new
        const std::string copy = copied(context, path);
        context.form.status.tellHint("The selection that was stored there before is kept as " +
                                     copy.substr(copy.find_last_of(sys::pathSeparators) + 1));
    }
    catch (const RuntimeError& error) {
        throw RuntimeError(error.number(),
                           "The selection was not stored, for what was stored before cannot be "
                           "copied: " +
                               error.description());
    }
}

void rememberControlFile(Context& context, const std::string& path, std::string_view bytes)
{
    Digest digest;
    for (; !bytes.empty(); bytes.remove_prefix(std::min(pieceSize, bytes.size())))
        digest.add(bytes.substr(0, pieceSize));
    context.form.stored.knownFiles[path] = digest.value();
}

void rememberWrittenControlFile(Context& context, const std::string& path)
{
    context.form.stored.knownFiles.erase(path);
    sys::PendingError unread;  // then it counts as unknown
    unread.attempt([&] {
        const std::unique_ptr<sys::InputFile> written = context.system.files.openToRead(path);
        context.form.stored.knownFiles[path] = digestOf(*written);
    });
}

}  // namespace generate
