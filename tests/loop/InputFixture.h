#pragma once

#include "FailingFiles.h"
#include "fake/FakeConnector.h"
#include "fake/FormFixture.h"
#include "fake/TemporaryFolder.h"
#include "loop/Program.h"
#include "system/System.h"

#include <sstream>
#include <string>
#include <vector>

namespace loop
{

/// A study in a folder of the real disk, with one input of each kind, beside a FEMAP that has its
/// model open. InputValues.txt holds other values than the model.
class InputStudy
{
public:
    InputStudy();

    /// Runs CAEInput with these arguments and --folder.
    int run(std::vector<std::string> arguments = {});
    /// What it said, afterwards.
    std::string said() const { return output.str(); }
    std::string told() const { return errors.str(); }

    void write(const std::string& file, const std::string& text);
    std::string read(const std::string& file) const;
    bool has(const std::string& file) const;
    /// Puts another line in place of one.
    void change(const std::string& file, const std::string& line, const std::string& by);

    /// All values of the inputs, as the model has them …
    std::string values();
    /// … at first, and when those of the files are in it.
    static const std::string formerValues;
    static const std::string wantedValues;

    fake::TemporaryFolder folder;
    sys::System machine = sys::thisMachine();
    FailingFiles files{machine.files};
    sys::System system = sys::withDisk(machine, files);
    fake::QueuedDialogs dialogs;
    femap::embedded::Host host{dialogs};
    fake::FakeConnector femap{host};
    femap::Connector* connector = &femap;
    std::ostringstream output;
    std::ostringstream errors;
};

inline const std::string journalName = "beamFormer.json";
inline const std::string oldDeck = "old deck";

/// The model, the deck and the folder are as they were before a run, but for old results.
void expectAsBefore(InputStudy& study);

}  // namespace loop
