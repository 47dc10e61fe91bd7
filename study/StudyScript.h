// Study scripts: reads them line by line, and the answers to dialogs that lines hold.
#pragma once

#include "femap/IDRanges.h"

#include <cstddef>
#include <limits>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace study
{

/// Stops the replay: a line of the script asks for what cannot be done. Not a RuntimeError, so that
/// no procedure of the form carries on after it.
class ScriptError : public std::runtime_error
{
public:
    ScriptError(int line, const std::string& what) : std::runtime_error(what), line_(line) {}

    int line() const { return line_; }

private:
    int line_;
};

/// A line needs what is not there at present, so that nobody can say whether the line is right.
class Unavailable : public ScriptError
{
public:
    using ScriptError::ScriptError;
};

/// One action of a script.
struct ScriptLine
{
    int number = 0;  // in the file, counted from 1
    std::string action;
    std::string argument;  // the rest of the line without the blanks around it
};

/// Gives the actions of a script one by one, one a line; skips blank lines and comments.
class StudyScript
{
public:
    explicit StudyScript(std::string content);
    StudyScript(const StudyScript&) = delete;  // rest_ points into content_
    StudyScript& operator=(const StudyScript&) = delete;

    /// Nothing at the end. Raises ScriptError for a line that is no text.
    std::optional<ScriptLine> next();

private:
    std::string content_;
    std::string_view rest_;
    int number_ = 0;
};

/// Takes the first word off a text and the blanks around it.
std::string takeWord(std::string_view& text);

/// The answer to one of FEMAP's selection dialogs.
struct Pick
{
    enum class Kind
    {
        Ids,
        All,
        Cancel,
        Missing,
        Fail,
    };

    int line = 0;
    Kind kind = Kind::Ids;
    std::vector<femap::IDRange> ranges;
};

/// The answer to the property list dialog.
struct Choice
{
    enum class Kind
    {
        Items,
        All,
        None,
        Cancel,
    };

    int line = 0;
    Kind kind = Kind::Items;
    std::vector<std::string> items;
};

// Both raise ScriptError when the argument is no such answer.
Pick parsePick(const ScriptLine& line);
Choice parseChoice(const ScriptLine& line);

}  // namespace study
