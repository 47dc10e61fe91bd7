#pragma once

#include "app/Bindings.h"
#include "app/EventDispatcher.h"
#include "app/Program.h"
#include "app/Session.h"
#include "fake/FakeConnector.h"
#include "fake/FormFixture.h"
#include "fake/QueuedPropertyList.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace app
{

/// The argument string of a run with everything: the model, a log and its most talkative level.
const std::string allArguments = "/models/beam.neu$beam.log$ALWAYS";

/// The registration that makes the form's window a pane of FEMAP, or takes that back.
inline void expectPane(const femap::AddInPane& pane, bool isRegistered, int location)
{
    EXPECT_EQ(pane.regster, isRegistered);
    EXPECT_EQ(pane.windowID, 4711);
    EXPECT_EQ(pane.messageID, 4711);
    EXPECT_FALSE(pane.bPreventClose);
    EXPECT_FALSE(pane.bPreventHide);
    EXPECT_EQ(pane.location, location);
    EXPECT_EQ(pane.neighborID, 0);
}

/// What a run of the tool finds around it, and its way to FEMAP.
class AppFixture : public fake::Environment
{
public:
    AppFixture() { connector.answers["feFileOpen"] = femap::ReturnCode::Ok; }

    fake::FakeConnector connector{femap};
    fake::QueuedPropertyList lists;

    /// Gives the model some result vectors with these IDs.
    void addVectors(const std::vector<int>& ids)
    {
        femap::neutral::OutputSet set;
        set.id = 1;
        for (const int id : ids) {
            femap::neutral::OutputVector vector;
            vector.id = id;
            vector.title = "Vector";
            set.vectors.put(vector);
        }
        model().outputSets.put(set);
    }

    /// The lines of a log file as far as they are on the disk.
    std::vector<std::string> logLines(const std::string& name = "beam.log") const
    {
        return files.lines(logPath(name));
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
        files.contents[logPath("beam.log")].clear();
    }
};

/// The same with the whole program.
class ProgramFixture : public AppFixture
{
public:
    Program program{connector, host, lists, system};
    form::MainForm& form = program.form();

    void start() { program.start(allArguments); }
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
        program.raise(form::click("GenerateButton"));
    }
};

}  // namespace app
