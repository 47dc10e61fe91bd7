#include "loop/Values.h"

#include "femap/NumberText.h"
#include "generate/Targets.h"
#include "system/RuntimeError.h"

#include <algorithm>
#include <utility>

namespace loop
{

using form::ParameterRow;

namespace
{

constexpr std::string_view blanks = " \t";
constexpr std::string_view valuesCure =
    "; let the optimiser write it, or press \"Apply\" in the form again";
constexpr std::string_view orderCure =
    "; the lines must have the names of the rows of the description, in their order";

bool isFunction(const ParameterRow& row)
{
    return row.cell(form::inputColumn::kind) == form::functionKind;
}

bool isBlank(std::string_view line)
{
    return line.find_first_not_of(blanks) == std::string_view::npos;
}

/// Goes through rows and lines side by side. After a difference it looks a little ahead on either
/// side, so that one line too many or too few is one problem.
class Matching
{
public:
    Matching(const Description& inputs, const std::vector<std::string>& lines, Problems& problems)
        : inputs_(inputs), lines_(lines), problems_(problems), values_(inputs.rows.size())
    {}

    std::vector<GivenValue> values()
    {
        for (passBlankLines(); row_ < values_.size() || line_ < lines_.size(); passBlankLines())
            step();
        return std::move(values_);
    }

private:
    static constexpr std::size_t lookedAhead = 50;

    void step()
    {
        if (row_ < values_.size() && fits(row_, line_))
            take();
        else if (row_ < values_.size() && isFunction(rowAt(row_)))
            ++row_;
        else
            tellDifference();
    }

    void tellDifference()
    {
        const std::size_t rows = std::min(lookedAhead, values_.size() - row_);
        const std::size_t lines = std::min(lookedAhead, lines_.size() - line_);
        std::size_t missing = 0;
        while (missing < rows && !fits(row_ + missing, line_))
            ++missing;
        std::size_t surplus = 0;
        while (surplus < lines && !fits(row_, line_ + surplus))
            ++surplus;
        if (lines == 0 || (missing < rows && missing <= surplus))
            tellMissing();
        else if (rows == 0 || surplus < lines)
            tellSurplus();
        else
            tellRenamed();
    }

    void tellMissing()
    {
        tell(std::min(line_ + 1, lines_.size()), "the line of " + wanted() + " is missing");
        ++row_;
    }
    void tellSurplus()
    {
        tell(line_ + 1, "the line is of no row of " + inputs_.file + " here");
        ++line_;
    }
    void tellRenamed()
    {
        tell(line_ + 1, "the line should be that of " + wanted());
        ++row_;
        ++line_;
    }
    void tell(std::size_t line, const std::string& problem)
    {
        problems_.add(inputs_.valuesFile, line, problem + std::string(orderCure));
    }

    void take()
    {
        const ParameterRow row = rowAt(row_);
        GivenValue& value = values_[row_++];
        const std::string_view text = *valueBehind(row.name(), lines_[line_++]);
        value.line = line_;
        if (isFunction(row))
            return;
        value.number = femap::realNumberOfOthers(text);
        if (!value.number)
            problems_.add(
                inputs_.valuesFile, line_,
                std::string(row.name()) +
                    (isBlank(text) ? std::string(" has no value")
                                   : " has \"" + std::string(text) + "\", which is no number") +
                    "; write it as 12.5 or 1.5E-05");
    }

    bool fits(std::size_t row, std::size_t line) const
    {
        return row < values_.size() && line < lines_.size() &&
               valueBehind(rowAt(row).name(), lines_[line]).has_value();
    }
    std::string wanted() const
    {
        const DescribedRow& row = inputs_.rows[row_];
        return std::string(ParameterRow(row.text).name()) + " (" + inputs_.file + ':' +
               std::to_string(row.line) + ')';
    }
    ParameterRow rowAt(std::size_t row) const { return ParameterRow(inputs_.rows[row].text); }
    void passBlankLines()
    {
        while (line_ < lines_.size() && isBlank(lines_[line_]))
            ++line_;
    }

    const Description& inputs_;
    const std::vector<std::string>& lines_;
    Problems& problems_;
    std::vector<GivenValue> values_;
    std::size_t row_ = 0;
    std::size_t line_ = 0;
};

}  // namespace

std::optional<std::string_view> valueBehind(std::string_view name, std::string_view line)
{
    if (!line.starts_with(name))
        return std::nullopt;
    line.remove_prefix(name.size());
    const std::size_t begin = std::min(line.find_first_not_of(blanks), line.size());
    if (begin == 0 && !line.empty())
        return std::nullopt;
    line.remove_prefix(begin);
    return line.substr(0, line.find_last_not_of(blanks) + 1);
}

std::vector<GivenValue> readValues(sys::System& system, const Description& inputs,
                                   Problems& problems)
{
    const auto lines = readLines(system, inputs.folder, inputs.valuesFile, valuesCure, problems);
    if (!lines)
        return std::vector<GivenValue>(inputs.rows.size());
    return Matching(inputs, *lines, problems).values();
}

GivenFunctions readFunctions(sys::System& system, const Description& inputs, Problems& problems)
{
    constexpr std::int64_t copiesDiffer = 2;  // seconds: what some file systems round times to

    GivenFunctions result;
    const std::string file(generate::functionDataFile);
    const auto facts = system.files.facts(inputs.pathOf(file));
    if (!facts || facts->size == 0)
        return result;
    const auto ofInputs = system.files.facts(inputs.pathOf(inputs.file));
    if (ofInputs && facts->changed + copiesDiffer < ofInputs->changed) {
        result.remark = file + " is older than " + inputs.file +
                        " and left out: it is of another \"Apply\". Remove it, or press \"Apply\" "
                        "in the form again";
        return result;
    }
    if (const auto lines = readLines(system, inputs.folder, file, {}, problems))
        result.blocks =
            generate::readFunctionBlocks(*lines, [&](std::size_t line, const std::string& what) {
                problems.add(file, line, what + "; press \"Apply\" in the form again");
            });
    return result;
}

}  // namespace loop
