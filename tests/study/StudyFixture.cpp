#include "StudyFixture.h"

#include "fake/NeutralText.h"

#include <algorithm>

namespace study
{

std::vector<std::string> splitLines(std::string_view text)
{
    std::vector<std::string> result;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        std::string_view line = text.substr(0, end);
        if (line.ends_with('\r'))
            line.remove_suffix(1);
        result.emplace_back(line);
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return result;
}

StudyFixture::StudyFixture() : environment({{"TEMP", folder.path()}}), system_(sys::thisMachine())
{
    system_.environment = [this](const std::string& name) { return environment[name]; };
    system_.monotonicSeconds = [this] { return seconds += secondsPerLook; };
    write("beam.neu", neutral::completeFile());
}

int StudyFixture::call(const std::vector<std::string>& arguments)
{
    return runStudy(arguments, {input, output, errors, system_, runningFemap, recordedForm,
                                femapProbe, showsColours});
}

int StudyFixture::runScript(const std::string& script)
{
    write("beam.study", script);
    return call({folder.path("beam.study")});
}

int StudyFixture::run(const std::string& script)
{
    return runScript("start " + modelPath() + "$beam.log$ALWAYS\n" + script);
}

std::string StudyFixture::error() const
{
    std::string text = errors.str();
    const std::string before = folder.path("");
    for (std::size_t place; (place = text.find(before)) != std::string::npos;)
        text.erase(place, before.size());
    return text;
}

std::vector<std::string> StudyFixture::outputLines() const
{
    return splitLines(output.str());
}

void StudyFixture::write(const std::string& name, const std::string& content) const
{
    const auto file = sys::DiskFiles().create(folder.path(name));
    file->write(content);
    file->close();
}

std::string StudyFixture::read(const std::string& name) const
{
    return sys::DiskFiles().read(folder.path(name));
}

std::vector<std::string> StudyFixture::log() const
{
    return splitLines(read(std::string("korva") + sys::pathSeparator + "beam.log"));
}

}  // namespace study
