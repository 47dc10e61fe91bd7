#include "loop/Description.h"

#include "generate/ModelPath.h"
#include "generate/Targets.h"
#include "system/Platform.h"
#include "system/RuntimeError.h"

#include <system_error>
#include <utility>

namespace loop
{

namespace
{

constexpr std::string_view applyAgain = "; press \"Apply\" in the form again";

// Without the folder, which a description never names.
bool isPlainName(std::string_view name)
{
    return name.find_first_of("/\\:") == std::string_view::npos;
}

std::vector<std::string> splitLines(std::string_view text)
{
    std::vector<std::string> lines;
    while (!text.empty()) {
        const std::size_t end = text.find('\n');
        std::string_view line = text.substr(0, end);
        if (line.ends_with('\r'))
            line.remove_suffix(1);
        lines.emplace_back(line);
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    }
    return lines;
}

}  // namespace

std::string Description::name() const
{
    return generate::splitModelPath(model).name;
}

std::optional<std::vector<std::string>> readLines(sys::System& system, const std::string& folder,
                                                  const std::string& file, std::string_view cure,
                                                  Problems& problems)
{
    const std::string path = folder + file;
    if (system.files.isMissing(path)) {
        std::error_code unknown;
        problems.add(file, 0,
                     "the file is not in the folder " +
                         sys::fullPath(folder.empty() ? "." : folder, unknown) + std::string(cure));
        return std::nullopt;
    }
    try {
        return splitLines(system.codePage.decode(system.files.read(path)));
    }
    catch (const sys::RuntimeError& error) {
        problems.add(file, 0, error.description());
        return std::nullopt;
    }
}

std::string inCodePage(const sys::CodePage& codePage, const std::string& text)
{
    std::string bytes;
    codePage.encode(text, bytes);
    return codePage.decode(bytes);
}

Description readDescription(sys::System& system, const std::string& folder,
                            const generate::ExchangeFormat& format, Problems& problems)
{
    Description result;
    result.folder = folder;
    result.file = format.description;
    const auto lines = readLines(system, folder, result.file,
                                 "; go to the folder of the model, or name it by --folder, and "
                                 "press \"Apply\" in the form if it is not there either",
                                 problems);
    if (!lines)
        return result;

    const generate::ExchangeHead head = generate::readExchangeHead(*lines, format);
    result.model = head.model;
    result.solver = head.solver;
    result.solverFile = head.solverFile;
    result.valuesFile = head.values;
    if (!head.isWhole || !isPlainName(head.model) || !isPlainName(head.solverFile) ||
        !isPlainName(head.values))
        problems.add(
            result.file, head.lines + (head.isWhole ? 0 : 1),
            "the head of the file is not as \"Apply\" writes it" + std::string(applyAgain));
    else if (head.solver == nullptr && !head.solverFile.empty())
        problems.add(result.file, 2, "the solver is none that is known" + std::string(applyAgain));
    for (std::size_t i = head.lines; head.isWhole && i < lines->size(); ++i) {
        const std::string& line = (*lines)[i];
        if (std::optional<std::string> row = format.rowOfLine(line))
            result.rows.push_back({i + 1, *std::move(row)});
        else
            problems.add(result.file, i + 1,
                         "the line is not as \"Apply\" writes it" + std::string(applyAgain));
    }
    return result;
}

}  // namespace loop
