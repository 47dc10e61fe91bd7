#pragma once

#include "fake/TemporaryFolder.h"
#include "study/StudyProgram.h"
#include "system/System.h"

#include <functional>
#include <map>
#include <memory>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

namespace study
{

/// velmar-study in a folder of its own on the real disk, with a small model: four nodes, an
/// element, a plate property, a material, a function, a load definition and an output vector.
class StudyFixture
{
public:
    StudyFixture();

    fake::TemporaryFolder folder;
    std::istringstream input;
    std::ostringstream output;
    std::ostringstream errors;
    double seconds = 0;
    double secondsPerLook = 0;  // how much the clock goes on each time it is looked at
    std::function<std::unique_ptr<femap::Connector>(femap::SelectionDialogs&)> runningFemap;
    std::function<void(const std::string&, const std::string&)> recordedForm;
    std::function<int(const std::vector<std::string>&, std::ostream&)> femapProbe;
    bool showsColours = false;
    std::map<std::string, std::string> environment;  // TEMP is the folder

    /// Runs the program with these arguments; returns its exit code.
    int call(const std::vector<std::string>& arguments);
    /// Runs it with the script, which goes into "beam.study". Its errors name it by that.
    int runScript(const std::string& script);
    /// The same after a line that starts the form with the model; it is line 1.
    int run(const std::string& script);

    std::string modelPath() const { return folder.path("beam.neu"); }
    /// What stands on standard error, without the folder before the name of the script.
    std::string error() const;
    std::vector<std::string> outputLines() const;
    void write(const std::string& name, const std::string& content) const;
    std::string read(const std::string& name) const;
    /// The lines of the log that the started form writes.
    std::vector<std::string> log() const;

private:
    sys::System system_;
};

/// Lines without their ends.
std::vector<std::string> splitLines(std::string_view text);

}  // namespace study
