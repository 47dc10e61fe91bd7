// One run of the tool: both forms and the connections to FEMAP.
#pragma once

#include "femap/Application.h"
#include "form/Context.h"
#include "form/MainForm.h"
#include "selection/PropertyListDialog.h"
#include "system/ModelMark.h"
#include "system/System.h"

#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace app
{

/// On the status line while the form cannot be used, when FEMAP is gone, and after it came back.
constexpr std::string_view startingWithFemap =
    "Waiting for FEMAP to answer and to open the model. The form can be used when it has …";
constexpr std::string_view noModelOpen = "FEMAP has no model open.";
constexpr std::string_view femapIsGone =
    "FEMAP has ended or cannot be reached. The rows are kept; the form goes on when FEMAP is back.";
constexpr std::string_view paneIsGone =
    "FEMAP has ended and took its pane with it. The form is a window of its own now; it goes on "
    "with "
    "its rows when FEMAP is back.";
constexpr std::string_view femapIsBack =
    "FEMAP is back. The rows are kept; look whether their model is the one that is open.";

/// What the end of a wait for a busy FEMAP left undone there; it is done when FEMAP answers again.
struct EndedWait
{
    bool isThere = false;
    int locks = 0;               // that FEMAP has, or gets from the call that was abandoned
    bool showsProgress = false;  // its progress bar is on
    bool takesOver = false;      // start-up or a change of the model was cut short
    std::string reason;          // why nobody waits
    std::string told;            // on the status line
};

struct Session
{
    /// Everything given here must outlive the session.
    Session(femap::Connector& femapConnector, form::FormHost& host,
            selection::PropertyListHost& dialogHost, sys::System& system)
        : connector(femapConnector),
          context(form, host, system),
          propertyList(femapConnector, dialogHost)
    {}
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    femap::Connector& connector;
    form::MainForm form;
    form::Context context;
    selection::frmPropertyList propertyList;

    /// The second reference to FEMAP, taken when its events are hooked.
    std::unique_ptr<femap::Application> eventFemap;
    bool eventsAreHooked = false;

    /// Whether the tool started the FEMAP that it uses.
    bool femapWasStarted = false;
    /// Which one of several FEMAPs it is, as was told last; empty where there was one.
    std::string femapInUse;

    /// Whether "Apply" leaves a provenance sheet beside its files.
    bool keepsProvenance = false;
    EndedWait endedWait;

    /// The model that other forms see to be in use here, and how they do.
    std::string markedModel;
    std::unique_ptr<sys::ModelMark> modelMark;
    std::function<std::unique_ptr<sys::ModelMark>(const std::string& path)> markModel =
        sys::markModel;

    /// Full path of the log when the run has ended and it is closed; empty when there was none.
    std::string closedLog;

    /// Set by a procedure that wants both forms unloaded; that is done when it has ended.
    bool closeWanted = false;

    /// Whether the boxes have their first choices and the columns their widths.
    bool hasInitialChoices = false;

    // Why the model could not be opened, and why FEMAP was neither found nor started; empty when
    // all went well.
    std::string openFailure;
    std::string femapFailure;
};

}  // namespace app
