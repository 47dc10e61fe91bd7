#pragma once

#include "FailingFiles.h"
#include "OutputFixture.h"
#include "fake/WatchedFemap.h"
#include "loop/Former.h"
#include "loop/Output.h"

#include <chrono>
#include <filesystem>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

namespace loop
{

inline const std::string headOfOutputs =
    "Reference Model (FEMAP) = beam.neu\r\n"
    "Results File (NastranNX) = beam.op2\r\n"
    "OutputNameValue = OutputValues.txt\r\n";
inline const std::string resultRows =
    "Output  TotalTrans1AtNode4  4  1\r\n"
    "maxval  TotalTranslatiMaxAtNode1  1  1\r\n";
inline const std::string massRow = "MassProperties  TotalMass  MassTotal  \r\n";
inline const std::string valuesOfRun =
    "TotalTrans1AtNode4  0.75\r\nTotalTranslatiMaxAtNode1  0.75\r\nTotalMass  1\r\n";

inline const std::string descriptionOfInputs =
    "Reference Model (FEMAP) = beam.neu\r\n"
    "Input Deck (NastranNX) = beam.dat\r\n"
    "NameValue = InputValues.txt\r\n"
    "Prop  ThicknessAtProp1  1  pval  0\r\n";

/// The model of all kinds with a density, so that its plate has a mass.
inline std::string heavyModel()
{
    const std::string stiffness = "210000.,0.3,";
    std::string zeros;
    for (int i = 2; i < 49; ++i)
        zeros += "0.,";
    const std::string light = neutral::material(1, "Steel", stiffness);
    std::string text = neutral::completeFile();
    return text.replace(text.find(light), light.size(),
                        neutral::material(1, "Steel", stiffness + zeros + "4.,"));
}

/// The folder of a study behind a run of the solver, with values of an earlier one.
class FolderOfRun
{
public:
    FolderOfRun()
    {
        write("beam.neu", heavyModel());
        write("CAEOutput.txt", headOfOutputs + resultRows + massRow);
        write("CAEInput.txt", descriptionOfInputs);
        write("InputValues.txt", "ThicknessAtProp1  0.25\r\n");
        write("OutputValues.txt", "old");
        write("beam.dat", "deck");
        write("beam.run.neu", heavyModel());
        write("beam.op2", "binary");
        write("beam.results.neu",
              textOfResults({{{1, "Total Translation", 7, {{1, 0.25}, {4, 0.75}}}}}));
    }

    void write(const std::string& name, const std::string& text)
    {
        writeText(folder.path(name), text);
    }
    void remove(const std::string& name) { std::filesystem::remove(sys::toPath(path(name))); }
    /// Makes a file so many seconds older than all others.
    void age(const std::string& name, int seconds)
    {
        const auto file = sys::toPath(path(name));
        std::filesystem::last_write_time(
            file, std::filesystem::last_write_time(file) - std::chrono::seconds(seconds));
    }
    std::string path(const std::string& name) const { return folder.path(name); }
    bool hasValues() const { return folder.listing().contains("OutputValues.txt"); }
    std::string values() { return sys::DiskFiles().read(path("OutputValues.txt")); }

    /// A FEMAP that has the model open.
    void openInFemap()
    {
        femap.openNeutralFile(path("beam.neu"));
        connector = std::make_shared<fake::WatchedConnector>(femap);
    }

    double& thickness() { return femap.openModel().properties.find(1)->pval[0]; }
    std::string journal() const { return path(formerFile("beam")); }
    /// What a run leaves that is ended while the thickness is another one.
    void leaveJournal(double thickness)
    {
        Former former;
        former.model = "beam.neu";
        former.values.entities = {{"Prop", 1, {"pval", 0}, thickness}};
        keepFormer(system, journal(), former);
    }
    bool hasJournal() const { return folder.listing().contains(formerFile("beam")); }

    int run(std::vector<std::string> arguments = {})
    {
        arguments.insert(arguments.end(), {"--folder", folder.path()});
        const Environment environment{output, errors, system, [&] { return embedded(); },
                                      [&] { return running(); }};
        return runOutput(arguments, environment);
    }
    int runEmbedded() { return run({"--femap=embedded"}); }

    fake::TemporaryFolder folder;
    fake::QueuedDialogs dialogs;
    femap::embedded::Host femap{dialogs};
    std::shared_ptr<fake::WatchedConnector> connector;
    FailingFiles files{disk_};
    sys::System system = sys::withDisk(sys::thisMachine(), files);
    std::ostringstream output;
    std::ostringstream errors;

private:
    Connection embedded()
    {
        femap.model.reset();
        connector = std::make_shared<fake::WatchedConnector>(femap);
        return {connector, [](auto&&...) { return std::vector<UnfitValue>(); }};
    }
    Connection running() { return {connector}; }

    sys::DiskFiles disk_;
};

}  // namespace loop
