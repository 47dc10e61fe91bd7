#pragma once

#include "app/form/Context.h"

#include <cstddef>
#include <optional>
#include <string>

namespace form
{

/// How far a walk over many entities has come, for the engineer who waits: on the status line and
/// on FEMAP's progress bar. Shows nothing of a walk that takes less than a second.
class Progress
{
public:
    /// what: "Reading inputs". total: how many steps there will be.
    Progress(Context& context, std::string what, std::size_t total);
    /// The same where nobody knows how many there will be: shows how many there were.
    Progress(Context& context, std::string what);
    /// The end of a walk that an error cut short.
    ~Progress();
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    /// One more is done, or as many. Cheap enough for every entity of a large model.
    void step(std::size_t count = 1);

    /// The end of the walk: FEMAP's bar goes off, and the status line says again what it said
    /// before, unless a message came in between.
    void finish();

private:
    int percent() const;
    void show();
    template <class Step>
    bool tryBar(Step&& step);

    Context& context_;
    std::string what_;
    std::optional<std::size_t> total_;
    std::size_t done_ = 0;
    std::size_t nextLook_;  // at the clock
    double nextShow_;       // in the clock's seconds
    std::string shownCaption_;
    std::string captionBefore_;
    bool barIsOn_ = false;
    bool barIsUsable_ = true;
};

}  // namespace form
