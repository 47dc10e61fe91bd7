// What the programs of the loop have in common: their arguments, the FEMAP that they work with, and
// how they tell how they ended.
#pragma once

#include "femap/Application.h"
#include "system/System.h"

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <ostream>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace loop
{

constexpr int exitDone = 0;
constexpr int exitNotDone = 1;
constexpr int exitWrongCall = 2;

/// Why a value cannot be put into the text of a model's file.
struct UnfitValue
{
    std::size_t line = 0;  // 0: the file lacks it
    std::string what;
};

/// Hands out the text of a model's file with these values in it, unless some do not fit: those are
/// returned. Raises RuntimeError when the text cannot be read.
using PatchText = std::function<std::vector<UnfitValue>(
    std::string_view text, const std::string& fileName, const femap::ModelValues& values,
    const std::function<void(std::string_view)>& write)>;

/// A FEMAP to work with.
struct Connection
{
    std::shared_ptr<femap::Connector> connector;
    /// With the model host, whose model is a file that it cannot save. Empty with FEMAP itself.
    PatchText patch = {};

    bool isEmbedded() const { return static_cast<bool>(patch); }
};

/// What a program of the loop needs of the machine that it runs on.
struct Environment
{
    std::ostream& output;
    std::ostream& errors;
    sys::System& system;
    std::function<Connection()> embedded;
    std::function<Connection()> running = {};  // empty where FEMAP does not run
};

/// What the arguments of a call say.
struct Call
{
    std::optional<bool> isEmbedded;  // none: they do not say
    std::string folder;              // as the beginning of paths; empty: the working folder
    bool isLocked = false;           // the caller has the lock of the folder
    std::vector<std::string> flags;  // of the program's own

    bool has(std::string_view flag) const;
};

/// A program by its name, its help, and the flags of its own.
struct ProgramWords
{
    std::string_view name;
    std::string_view usage;
    std::span<const std::string_view> flags;
};

/// Runs a program's work with what its arguments say. Returns the exit code; an error that ends the
/// work is told.
int runProgram(const ProgramWords& words, const std::vector<std::string>& arguments,
               const Environment& environment, const std::function<int(const Call&)>& work);

/// The FEMAP that the call wants. Raises RuntimeError where there is none.
Connection connect(const Call& call, const Environment& environment);

/// Keeps the folder for this process, waiting a little for others; null where the caller has it.
/// Raises RuntimeError while another process goes on to have it.
std::unique_ptr<sys::FolderLock> lockFolder(const Call& call, sys::System& system);

}  // namespace loop
