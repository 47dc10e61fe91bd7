// The main form: its controls, and what it keeps for the whole run.
#pragma once

#include "femap/Objects.h"
#include "form/AppliedRows.h"
#include "form/ControlTable.h"
#include "form/Status.h"

#include <cstddef>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace form
{

/// What this run knows of the selections that are stored beside models.
struct StoredSelections
{
    /// The control files, by path, that were read to their end or looked for in vain.
    std::set<std::string> readFiles;
    /// Those that this run read whole or wrote, with a hash of what they hold.
    std::map<std::string, std::size_t> knownFiles;
    /// The rows of the latest of those.
    AppliedRows applied;
};

struct MainForm : FormControls
{
    MainForm();
    // Not copied: the list of controls points into the form itself.
    MainForm(const MainForm&) = delete;
    MainForm& operator=(const MainForm&) = delete;

    std::string Caption = "Velmar-Femap Interface";
    int ScaleWidth = 0;  // inner size in twips
    int ScaleHeight = 0;

    Status status{StatusLine.Caption};  // what the status line tells
    /// Where the window has a line of its own about the model. No control: scripts do not know it.
    Control modelLine;

    /// Every control, in the order of the table.
    const std::vector<NamedControl>& controls() const { return controls_; }
    /// A control of this form, with its row.
    const NamedControl& named(const Control& control) const;
    void setMousePointers(int pointer);
    /// Called by setMousePointers; empty where no window shows the pointers.
    std::function<void()> pointersChanged;
    void setEnabled(bool enabled);

    // Kept for the whole run.
    std::string fileExtension;       // of the model named on the command line, if one is
    std::string openModelExtension;  // of the model that FEMAP has open
    std::optional<std::string>
        openModel;                  // its file, empty while never saved; none without a model
    std::string ownCommandLine;     // as the tool wrote it last; else the engineer edited it
    bool commandLineIsDue = false;  // the model had no name when it was to be written
    StoredSelections stored;
    int modelEntityCount = 0;  // output vectors at start-up or at the last new model
    int addInPaneResult = 0;
    int returnCode = 0;                         // of FEMAP's last selection dialog
    std::unique_ptr<femap::Function> function;  // created on first use
    std::string firstPrefix;
    std::string secondPrefix;
    std::string thirdPrefix;
    std::string fourthPrefix;

private:
    std::vector<NamedControl> controls_;
};

}  // namespace form
