#include "generate/PreviousSelection.h"

#include "system/RuntimeError.h"

#include <functional>
#include <optional>

namespace generate
{

using form::Context;
using sys::ErrorNumber;
using sys::RuntimeError;

namespace
{

constexpr std::string_view copyEnd = ".previous";
constexpr std::string_view fileEnd = ".txt";

// None when there is no such file.
std::optional<std::string> contentOf(Context& context, const std::string& path)
{
    try {
        return context.system.files.read(path);
    }
    catch (const RuntimeError& error) {
        if (error.number() == ErrorNumber::FileNotFound)
            return std::nullopt;
        throw;
    }
}

bool isKnown(const Context& context, const std::string& path, const std::string& content)
{
    const auto& known = context.form.stored.knownFiles;
    const auto place = known.find(path);
    return place != known.end() && place->second == std::hash<std::string>()(content);
}

void writeWhole(Context& context, const std::string& path, const std::string& content)
{
    sys::Files& files = context.system.files;
    const sys::TemporaryFile copy = files.createBeside(path);
    try {
        copy.file->write(content);
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

// Returns the path of a copy with that content; an earlier copy with another one stays.
std::string copied(Context& context, const std::string& path, const std::string& content)
{
    const std::string begin = path.substr(0, path.size() - fileEnd.size()).append(copyEnd);
    for (int number = 1;; ++number) {
        std::string copy = begin;
        copy.append(number == 1 ? "" : std::to_string(number)).append(fileEnd);
        const std::optional<std::string> there = contentOf(context, copy);
        if (!there)
            writeWhole(context, copy, content);
        if (!there || *there == content)
            return copy;
    }
}

}  // namespace

void keepPreviousSelection(Context& context, const std::string& path)
{
    try {
        const std::optional<std::string> content = contentOf(context, path);
        if (!content || content->empty() || isKnown(context, path, *content))
            return;
        const std::string copy = copied(context, path, *content);
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
    context.form.stored.knownFiles[path] = std::hash<std::string_view>()(bytes);
}

void rememberWrittenControlFile(Context& context, const std::string& path)
{
    context.form.stored.knownFiles.erase(path);
    sys::PendingError unread;  // then it counts as unknown
    unread.attempt([&] { rememberControlFile(context, path, context.system.files.read(path)); });
}

}  // namespace generate
