// What "Apply" would write, made by its own writers, while nothing is written, logged or told in
// FEMAP.
#pragma once

#include "form/Context.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace preview
{

enum class Mark
{
    New,  // no such file is there
    Changed,
    Same,
    WouldFail,
};

/// "new", "changed", "same", "would-fail".
std::string_view wordOf(Mark mark);

struct File
{
    std::string path;
    Mark mark = Mark::WouldFail;
    std::uint64_t size = 0;                     // in bytes, as it would be
    std::optional<std::uint64_t> sizeBefore{};  // none: no such file is there
    /// The first line that is not as it was, counted from 1; 0: there is none, or the file that is
    /// there cannot be read.
    std::size_t firstDifference = 0;
    /// What "Apply" would tell of it, or why the file that is there cannot be read; mostly empty.
    std::string reason{};

    /// Without its folder.
    std::string_view name() const;
};

/// A file's texts, in the code page of the files.
struct Texts
{
    std::string before;
    std::string after;
};

/// Files with more bytes or lines than that are told by sizes and first difference alone.
constexpr std::uint64_t mostBytes = 10'000'000;
constexpr std::size_t mostLines = 500'000;

struct Preview
{
    std::vector<File> files;
    /// What "Apply" would tell in place of its result; empty: it would be done.
    std::string problem;
    /// Those of the file that was asked for; none where that is too long or cannot be read.
    std::optional<Texts> texts;

    /// The file of that name; null when "Apply" would write none.
    const File* find(std::string_view name) const;
    /// The first one that is not as it was, else the first one; null when there is none.
    const File* firstToLookAt() const;
};

/// The form, the log, FEMAP and the disk stay as they are. No file's text is kept but that of the
/// one that is asked for by its name. ConnectionLost passes through.
Preview previewOfApply(form::Context& context, std::string_view wantedName = {});

}  // namespace preview
