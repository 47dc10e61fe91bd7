#pragma once

#include "fake/FormFixture.h"
#include "fake/TemporaryFolder.h"
#include "generate/GenerationDriver.h"

#include <string>
#include <vector>

namespace reliability
{

inline const std::string separator(1, sys::pathSeparator);

/// The form on the real disk, with a model in a folder of its own.
class RealFolder
{
public:
    /// The model lies below the folder, level by level.
    explicit RealFolder(const std::vector<std::string>& levels = {},
                        const std::string& modelName = "beam")
    {
        std::string path = folder.path();
        for (const std::string& level : levels) {
            path += separator + level;
            system.files.createFolder(path);
        }
        modelFolder = path + separator;
        femap.modelName = modelFolder + modelName + ".mod";
        context.application = femap.attach();
    }

    void apply(const std::string& tool)
    {
        form.CommandLine.Text = "nastran beam.dat";
        form.Optimizer.Text = tool;
        generate::GenerateButton_Click(context);
    }
    std::string read(const std::string& name) { return system.files.read(modelFolder + name); }

    fake::TemporaryFolder folder;
    std::string modelFolder;
    sys::System system = sys::thisMachine();
    fake::QueuedDialogs dialogs;
    femap::embedded::Host femap{dialogs};
    fake::FakeFormHost host;
    form::MainForm form;
    form::Context context{form, host, system};
};

/// Each file is where and what it should be, and the selection is found again.
void expectThatApplyWorks(RealFolder& place, const std::string& name);

}  // namespace reliability
