// A program that another one starts, watches and ends, together with all that it has started
// itself.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace loop::evaluate
{

/// What is started: a program with its arguments, or a line for the shell of the system.
struct Command
{
    std::string program;
    std::vector<std::string> arguments;
    std::string line;  // of the shell, where no program is named

    bool operator==(const Command&) const = default;
};

/// A running program. It hears of no Ctrl+C but of its end only, and its input is empty.
class Process
{
public:
    /// The working folder, and the file behind which the program's output and errors go. Raises
    /// RuntimeError when the program cannot be started.
    Process(const Command& command, const std::string& folder, const std::string& outputFile);
    ~Process();  // ends it
    Process(const Process&) = delete;
    Process& operator=(const Process&) = delete;

    /// The exit code; nothing while the program runs. A program that was ended from outside has
    /// one that is not 0.
    std::optional<int> exitCode();

    /// Ends it at once, with all that it has started.
    void end();

private:
    class Started;  // what the platform knows of it
    std::unique_ptr<Started> started_;
    std::optional<int> exitCode_;
};

}  // namespace loop::evaluate
