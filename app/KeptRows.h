// Rows that are not applied, kept in a file of the user's for each model and process, so that a run
// which ends by force, or is closed too early, loses none. The next run with that model finds them.
#pragma once

#include "form/MainForm.h"
#include "system/System.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace app
{

/// Rows of both grids as their texts.
struct RowTexts
{
    std::vector<std::string> inputs;
    std::vector<std::string> outputs;

    bool operator==(const RowTexts&) const = default;
};

/// What a file of kept rows holds; nothing when it is none, not whole or of another model.
std::optional<RowTexts> readKeptRows(std::string_view text, std::string_view modelFile);

class KeptRows
{
public:
    /// folder: where the files lie, ending in a separator; it is made when it is missing. The
    /// system must outlive this.
    KeptRows(sys::System& system, std::string folder);
    ~KeptRows();
    KeptRows(const KeptRows&) = delete;
    KeptRows& operator=(const KeptRows&) = delete;

    /// The form shows how things are after an action. Its rows are written when some of them are
    /// not applied, large grids not more often than every ten seconds; when none is, the file goes.
    /// When the model is another one than before, what an ended run left of it is looked for; the
    /// result is whether there is something. Raises RuntimeError when the file cannot be written;
    /// that is not tried again.
    bool follow(const form::MainForm& form);
    /// The same, and large grids at once: the run ends, and others may have its place.
    void finish(const form::MainForm& form);

    /// How many rows that an ended run left are not in the model's control file; 0: none is left.
    std::size_t leftCount() const { return leftCount_; }
    /// Those rows, all that there were. Raises RuntimeError when they cannot be read any more.
    RowTexts left() const;

private:
    void changeModel(const form::MainForm& form);
    void takePlace(const std::string& key);
    void letGo();
    void findLeft(const form::MainForm& form);
    void write(const form::MainForm& form);
    bool keep(const form::MainForm& form, bool atOnce);
    bool isUnchanged(const form::MainForm& form);

    sys::System& system_;
    std::string folder_;
    std::string modelFile_;
    std::unique_ptr<sys::OutputFile> lock_;  // of the place, while this run has it
    std::string place_;                      // beginning of the names of its files
    std::size_t leftCount_ = 0;
    bool isWritten_ = false;
    bool isOff_ = false;
    double writtenAt_ = 0;
    // As the form was seen last.
    std::uint64_t inputs_ = 0;
    std::uint64_t outputs_ = 0;
    std::uint64_t applied_ = 0;
    bool isDue_ = false;  // changed since it was written
};

}  // namespace app
