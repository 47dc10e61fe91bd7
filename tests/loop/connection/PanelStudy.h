#pragma once

#include "../FailingFiles.h"
#include "fake/TemporaryFolder.h"
#include "femap/embedded/Host.h"
#include "loop/Input.h"
#include "loop/Inputs.h"
#include "loop/PresentValues.h"
#include "loop/Session.h"
#include "loop/connection/Connections.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <sstream>

namespace loop::connection
{

/// A folder with the example model, worked on with the model host.
class PanelStudy
{
public:
    PanelStudy()
    {
        std::filesystem::copy(SOURCE_FOLDER "/examples/panel.neu", folder.path("panel.neu"));
    }
    /// With the files of an example, too.
    explicit PanelStudy(const std::string& example) : PanelStudy()
    {
        for (const char* const name :
             {"CAEInput.txt", "InputValues.txt", "FunctionsInputvalues.txt"}) {
            const std::filesystem::path file =
                std::filesystem::path(SOURCE_FOLDER "/tests/golden/example") / example / name;
            if (std::filesystem::exists(file))
                std::filesystem::copy(file, folder.path(name));
        }
    }

    int run(std::vector<std::string> arguments = {})
    {
        errors.str({});
        arguments.insert(arguments.end(), {"--folder", folder.path()});
        return runInput(arguments,
                        {output, errors, system, [this] { return toModelHost(errors); }});
    }

    std::string path() const { return folder.path() + sys::pathSeparator; }
    std::string read(const std::string& name) const { return disk.read(folder.path(name)); }
    void write(const std::string& name, const std::string& text)
    {
        const auto file = disk.create(folder.path(name));
        file->write(text);
        file->close();
    }
    bool has(const std::string& name) const { return disk.fileExists(folder.path(name)); }

    /// The same beside a FEMAP that has the model open.
    int runBeside(femap::embedded::Host& host)
    {
        const std::shared_ptr<femap::Connector> connector(std::shared_ptr<void>(), &host);
        return runInput({"--no-deck", "--folder", folder.path()},
                        {output, errors, system, {}, [&] { return Connection{connector}; }});
    }

    /// The values that the study asks for, of the places that it finds in the model.
    Inputs wanted()
    {
        Problems problems;
        const Description inputs =
            readDescription(system, path(), generate::inputExchange, problems);
        Session session(system, toModelHost(errors), folder.path("panel.neu"));
        return inputsInModel(session.context(), inputs, readValues(system, inputs, problems),
                             readFunctions(system, inputs, problems), problems);
    }
    /// What a file has at these places.
    femap::ModelValues valuesIn(const std::string& file, const femap::ModelValues& places)
    {
        Session session(system, toModelHost(errors), folder.path(file));
        return presentValues(session.femap(), places);
    }

    fake::TemporaryFolder folder;
    mutable sys::DiskFiles disk;
    FailingFiles files{disk};
    sys::System machine = sys::thisMachine();
    sys::System system = sys::withDisk(machine, files);
    std::ostringstream output;
    std::ostringstream errors;
};

/// To the last digit.
inline void expectSame(const femap::ModelValues& wanted, const femap::ModelValues& present)
{
    ASSERT_EQ(present.entities.size(), wanted.entities.size());
    for (std::size_t i = 0; i < wanted.entities.size(); ++i)
        EXPECT_EQ(present.entities[i].value, wanted.entities[i].value)
            << femap::toText(wanted.entities[i].value) << ' ' << wanted.entities[i].word
            << wanted.entities[i].id << wanted.entities[i].member.name;
    for (std::size_t i = 0; i < wanted.loads.size(); ++i)
        EXPECT_EQ(present.loads[i].value, wanted.loads[i].value);
    for (std::size_t i = 0; i < wanted.functions.size(); ++i) {
        EXPECT_EQ(present.functions[i].points.x, wanted.functions[i].points.x);
        EXPECT_EQ(present.functions[i].points.y, wanted.functions[i].points.y);
    }
}

}  // namespace loop::connection
