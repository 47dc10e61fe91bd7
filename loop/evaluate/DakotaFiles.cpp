#include "loop/evaluate/DakotaFiles.h"

#include "femap/NumberText.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace loop::evaluate
{

namespace
{

constexpr std::string_view activeSetStart = "ASV_";
constexpr std::string_view wantsValueOnly = "1";

// "VALUE NAME"; a name may hold blanks, a number does not.
std::optional<NamedValue> standardEntry(std::string_view line)
{
    const std::size_t gap = line.find_first_of(" \t");
    if (gap == std::string_view::npos)
        return std::nullopt;
    return NamedValue{withoutBlanks(line.substr(gap)), std::string(line.substr(0, gap))};
}

// "{ NAME = VALUE }", texts between quotation marks.
std::optional<NamedValue> apreproEntry(std::string_view line)
{
    const std::size_t equals = line.find('=');
    if (!line.starts_with('{') || !line.ends_with('}') || equals == std::string_view::npos)
        return std::nullopt;
    const std::string name = withoutBlanks(line.substr(1, equals - 1));
    std::string value = withoutBlanks(line.substr(equals + 1, line.size() - equals - 2));
    if (value.size() > 1 && value.starts_with('"') && value.ends_with('"'))
        value = value.substr(1, value.size() - 2);
    return NamedValue{name, value, 0};
}

struct Layout
{
    std::optional<NamedValue> (*entry)(std::string_view line);
    std::string_view variables;
    std::string_view functions;
};

constexpr Layout standard = {standardEntry, "variables", "functions"};
constexpr Layout aprepro = {apreproEntry, "DAKOTA_VARS", "DAKOTA_FNS"};

// Takes the entries of a file one by one.
class Entries
{
public:
    Entries(std::string_view text, std::string_view file, Problems& problems)
        : rest_(text),
          file_(file),
          problems_(problems),
          layout_(withoutBlanks(text.substr(0, text.find('\n'))).starts_with('{') ? aprepro
                                                                                  : standard)
    {}

    std::vector<NamedValue> variables() { return counted(layout_.variables); }
    std::vector<NamedValue> functions() { return counted(layout_.functions); }

private:
    // As many as the next entry says, whose name that is.
    std::vector<NamedValue> counted(std::string_view name)
    {
        std::vector<NamedValue> entries;
        const std::optional<NamedValue> head = next();
        const std::optional<int> count =
            head && head->name == name ? ::femap::wholeNumber(head->value) : std::optional<int>();
        if (!count || *count < 0)
            return refuse("the number of " + std::string(name) + " is missing");
        for (int i = 0; i < *count; ++i) {
            std::optional<NamedValue> entry = next();
            if (!entry)
                return refuse("there are fewer " + std::string(name) + " than the " +
                              std::to_string(*count) + " that are announced");
            entries.push_back(*std::move(entry));
        }
        return entries;
    }

    std::optional<NamedValue> next()
    {
        if (rest_.empty() || hasFailed_)
            return std::nullopt;
        const std::size_t end = std::min(rest_.find('\n'), rest_.size() - 1);
        std::string_view line = rest_.substr(0, end + 1);
        rest_.remove_prefix(end + 1);
        ++line_;
        line = line.substr(0, line.find('\n'));
        std::optional<NamedValue> entry = layout_.entry(withoutBlanks(line));
        if (entry)
            entry->line = line_;
        return entry;
    }

    // Of the line that was taken last; the rest is not looked at.
    std::vector<NamedValue> refuse(const std::string& problem)
    {
        if (!std::exchange(hasFailed_, true))
            problems_.add(file_, std::max<std::size_t>(line_, 1),
                          problem +
                              "; the file is no parameters file of Dakota, in neither of its "
                              "layouts");
        return {};
    }

    std::string_view rest_;
    std::string_view file_;
    Problems& problems_;
    const Layout& layout_;
    std::size_t line_ = 0;
    bool hasFailed_ = false;
};

// "ASV_2:TotalMass" is the entry of TotalMass; older files have no name there.
std::string nameOfResponse(const NamedValue& entry)
{
    const std::size_t colon = entry.name.find(':');
    const bool isNamed = entry.name.starts_with(activeSetStart) && colon != std::string::npos;
    return isNamed ? entry.name.substr(colon + 1) : std::string();
}

}  // namespace

DakotaParameters readDakotaParameters(std::string_view text, std::string_view file,
                                      Problems& problems)
{
    Entries entries(text, file, problems);
    DakotaParameters parameters;
    parameters.variables = entries.variables();
    parameters.functions = entries.functions();
    for (NamedValue& entry : parameters.functions) {
        if (entry.value != wantsValueOnly)
            problems.add(file, entry.line,
                         entry.name + " is " + entry.value +
                             ", but only values can be had; let Dakota ask for neither gradients "
                             "nor Hessians (no_gradients or numerical_gradients, no_hessians)");
        entry.name = nameOfResponse(entry);
        if (entry.name.empty())
            problems.add(file, entry.line,
                         "the response has no name; take a version of Dakota that writes its "
                         "descriptors here");
    }
    return parameters;
}

std::string dakotaResults(std::span<const NamedValue> functions, std::span<const double> numbers)
{
    std::string text;
    for (std::size_t i = 0; i < functions.size(); ++i)
        text += ::femap::numberText(numbers[i]) + ' ' + functions[i].name + '\n';
    return text;
}

}  // namespace loop::evaluate
