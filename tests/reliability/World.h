#pragma once

#include "app/Program.h"
#include "fake/FormFixture.h"
#include "fake/QueuedPropertyList.h"
#include "fake/WatchedFemap.h"

#include <map>
#include <span>
#include <string>
#include <vector>

namespace reliability
{

/// The whole tool beside a FEMAP every call of which can fail, on a disk in memory every operation
/// of which can fail. The model has one of each kind of entity; an older selection and the files
/// of its "Apply" are there.
class World : public fake::Environment
{
public:
    World() : World(nullptr, "") {}
    /// The same beside another FEMAP, which has the model of that file open.
    World(femap::Connector* other, const std::string& modelFile);

    std::string modelFolder;  // ends in the path separator
    std::string modelName;    // of the file, without its ending
    fake::WatchedConnector connector;
    fake::QueuedPropertyList lists;
    app::Program program{connector, host, lists, system};
    form::MainForm& form = program.form();

    app::Started start();

    /// The rows that each action begins with, in both grids.
    void fillGrids();
    std::vector<std::string> inputs() const;
    std::vector<std::string> outputs() const;
    /// What lies in the folder of the model, by name.
    std::map<std::string, std::string> generatedFiles() const;
    std::string controlFileName() const { return modelName + "Control.txt"; }
    std::string controlFile() const;
    /// Ends the run, which brings the log onto the disk, and gives all of it.
    std::string endAndReadLog();
    bool pointersAreDefault() const { return fake::pointersAreDefault(form); }
};

/// Something that an engineer or FEMAP does with the form.
struct Action
{
    const char* name;
    void (*prepare)(World& world);  // after the grids were filled
    app::Ended (*run)(World& world);
};

std::span<const Action> actions();
void PrintTo(const Action& action, std::ostream* out);

/// Everything up to, but without, the action itself.
void begin(World& world, const Action& action);

}  // namespace reliability
