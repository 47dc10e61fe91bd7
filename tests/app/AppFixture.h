#pragma once

#include "app/Bindings.h"
#include "app/Dispatch.h"
#include "app/Program.h"
#include "app/Session.h"
#include "fake/FakeConnector.h"
#include "fake/FormFixture.h"
#include "fake/MemoryFiles.h"
#include "fake/QueuedPropertyList.h"

#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace app
{

/// What a run of the tool finds around it: a FEMAP in which "/models/beam.neu" is open, a disk in
/// memory, a clock that stands still.
class AppFixture
{
public:
    AppFixture()
    {
        femap.modelName = "/models/beam.neu";
        connector.openStatus = femap::ReturnCode::Ok;
    }

    fake::MemoryFiles files;
    std::map<std::string, std::string> environment = {{"TEMP", "/temp"}};
    logging::LocalTime time = {2024, 3, 7, 9, 5, 2, 45};
    logging::System system{files, logging::windows1252(), [this] { return time; },
                           [] { return 0.0; },
                           [this](const std::string& name) { return environment[name]; }};
    fake::QueuedDialogs dialogs;
    femap::embedded::Host femap{dialogs};
    fake::FakeConnector connector{femap};
    fake::FakeFormHost host;
    fake::QueuedPropertyList lists;

    /// Gives the model some result vectors with these IDs.
    void addVectors(const std::vector<int>& ids)
    {
        femap::embedded::OutputSet set;
        set.id = 1;
        for (const int id : ids) {
            femap::embedded::OutputVector vector;
            vector.id = id;
            vector.title = "Vector";
            set.vectors.put(vector);
        }
        femap.openModel().outputSets.put(set);
    }

    std::vector<std::string> messages() const
    {
        std::vector<std::string> result;
        for (const femap::embedded::Host::Message& message : femap.messages)
            result.push_back(message.text);
        return result;
    }

    /// The lines of a log file as far as they are on the disk.
    std::vector<std::string> logLines(const std::string& name = "beam.log") const
    {
        std::vector<std::string> result;
        std::string_view rest = files.contents.at("/temp/korva/" + name);
        for (; !rest.empty(); rest.remove_prefix(rest.find("\r\n") + 2))
            result.emplace_back(rest.substr(0, rest.find("\r\n")));
        return result;
    }
};

/// The same with the parts of the program apart.
class SessionFixture : public AppFixture
{
public:
    SessionFixture() { bindComboBoxes(session); }

    Session session{connector, host, lists, system};
    form::MainForm& form = session.form;
    form::Context& context = session.context;

    std::vector<std::string> log(const std::string& name = "beam.log")
    {
        context.log.flush();
        return logLines(name);
    }
    /// Forgets the lines that were written so far.
    void forgetLog()
    {
        context.log.flush();
        files.contents["/temp/korva/beam.log"].clear();
    }
};

/// The same with the whole program.
class ProgramFixture : public AppFixture
{
public:
    Program program{connector, host, lists, system};
    form::MainForm& form = program.form();

    void start() { program.start("/models/beam.neu$beam.log$ALWAYS"); }
    /// Ends the run, which brings the log onto the disk.
    std::vector<std::string> log()
    {
        program.close();
        return logLines();
    }
};

/// The same after start-up.
class StartedProgram : public ProgramFixture
{
public:
    StartedProgram()
    {
        start();
        connector.calls.clear();
    }

    /// Does something while a procedure runs: "Apply" reads the name of the model first of all.
    void duringApply(const std::function<void()>& meanwhile)
    {
        connector.beforeCall = [meanwhile, isDone = false](const std::string&) mutable {
            if (!std::exchange(isDone, true))
                meanwhile();
        };
        program.raise("GenerateButton_Click");
    }
};

}  // namespace app
