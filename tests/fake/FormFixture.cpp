#include "fake/FormFixture.h"

#include <stdexcept>

namespace fake
{

namespace
{

const std::string separator(1, logging::pathSeparator);
const std::string logPath = "/temp" + separator + "korva" + separator + "test.log";

std::vector<std::string> split(const std::string& content)
{
    std::vector<std::string> result;
    for (std::size_t begin = 0; begin < content.size();) {
        const std::size_t end = content.find("\r\n", begin);
        if (end == std::string::npos)
            throw std::logic_error("a line does not end in CR LF");
        result.push_back(content.substr(begin, end - begin));
        begin = end + 2;
    }
    return result;
}

}  // namespace

femap::Selection QueuedDialogs::answer(femap::EntityType type, const std::string& title,
                                       bool onlyOne, const std::vector<int>& available)
{
    asked.push_back({type, title, onlyOne, available});
    if (answers.empty())
        return {femap::ReturnCode::Cancel, {}};
    femap::Selection result = answers.front();
    answers.pop_front();
    return result;
}

FormFixture::FormFixture()
    : system{files, logging::windows1252(), [this] { return time; }, [this] { return seconds; },
             [this](const std::string& name) { return environment[name]; }},
      femap(dialogs),
      context(form, host, system)
{
    femap.modelName = "/models/beam.neu";
    context.application = femap.attach();
    form.fileExtension = "neu";
    std::string name = "test.log";
    std::string level = "ALWAYS";
    context.log.InitialiseLogger(name, level);
}

std::vector<std::string> FormFixture::log()
{
    context.log.flush();
    return lines(logPath);
}

std::vector<std::string> FormFixture::lines(const std::string& path) const
{
    return split(files.contents.at(path));
}

std::vector<std::string> FormFixture::names(const form::ParameterGrid& grid) const
{
    std::vector<std::string> result;
    for (int row = 1; row < grid.Rows(); ++row)
        result.push_back(grid.text(row, form::ParameterGrid::nameColumn));
    return result;
}

std::vector<std::string> FormFixture::rows(const form::ParameterGrid& grid) const
{
    std::vector<std::string> result;
    for (int row = 1; row < grid.Rows(); ++row)
        result.push_back(grid.rowText(row));
    return result;
}

std::vector<std::string> FormFixture::messages() const
{
    std::vector<std::string> result;
    for (const femap::embedded::Host::Message& message : femap.messages)
        result.push_back(message.text);
    return result;
}

}  // namespace fake
