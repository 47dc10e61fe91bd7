// Shows an engineer who waits how far a walk over many entities has come: on the status line and
// on FEMAP's progress bar. A walk that takes less than a second shows nothing.
#pragma once

#include "form/Context.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace form
{

/// Takes away what a walk left on the status line and in FEMAP, also one that an error cut short.
void endProgress(Context& context);

class Progress
{
public:
    /// what: "Reading inputs". total: how many steps there will be.
    Progress(Context& context, std::string what, std::size_t total);
    /// For a number of steps that is not known before: shows how many are done.
    Progress(Context& context, std::string what);
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    /// So many more steps are done. Cheap enough for every entity of a large model.
    void step(std::size_t count = 1);

    /// Where files are the steps: so many rows more of the file in hand are done …
    void passRows(std::size_t count);
    /// … and the file is.
    void finished(const std::string& file);
    const std::vector<std::string>& finishedFiles() const { return finishedFiles_; }

    /// Ends the walk: hides FEMAP's bar and takes the progress off the status line.
    void finish() { endProgress(context_); }

private:
    int percent() const;
    void look();
    void show();

    Context& context_;
    std::string what_;
    std::optional<std::size_t> total_;
    std::size_t done_ = 0;
    std::size_t passed_ = 0;  // steps or rows since the clock was read
    double nextShow_;         // the time at which the display changes again, in seconds
    std::vector<std::string> finishedFiles_;
    bool barIsUsable_ = true;
};

}  // namespace form
