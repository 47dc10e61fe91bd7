#include "form/Progress.h"

#include <algorithm>
#include <functional>
#include <utility>

namespace form
{

namespace
{

constexpr std::size_t stepsBetweenLooks = 256;  // how often the clock is read
constexpr double quietSeconds = 1;              // a shorter walk shows nothing
constexpr double secondsBetweenShows = 0.2;
constexpr int percentDone = 100;

// When FEMAP refuses its bar it is not asked again: the walk matters more. The error is only logged
// and does not become the pending one of the procedure.
bool tryBar(Context& context, const std::function<void(femap::Application&)>& step)
{
    sys::PendingError error;
    const bool isDone = error.attempt([&] { step(context.femap()); });
    if (!isDone)
        context.log.writeLogWithLevel(context.log.LogLevel_error,
                                      "FEMAP refused its progress bar: " + error.description());
    return isDone;
}

}  // namespace

void endProgress(Context& context)
{
    context.form.status.showProgress({});
    if (std::exchange(context.femapShowsProgress, false))
        tryBar(context,
               [](femap::Application& femap) { femap.feAppStatusShow(false, percentDone); });
}

Progress::Progress(Context& context, std::string what, std::size_t total)
    : context_(context),
      what_(std::move(what)),
      total_(total),
      nextShow_(context.system.monotonicSeconds() + quietSeconds)
{}

Progress::Progress(Context& context, std::string what) : Progress(context, std::move(what), 0)
{
    total_.reset();
}

void Progress::step(std::size_t count)
{
    done_ += count;
    passRows(count);
}

void Progress::passRows(std::size_t count)
{
    passed_ += count;
    if (passed_ >= stepsBetweenLooks)
        look();
}

void Progress::finished(const std::string& file)
{
    finishedFiles_.push_back(file);
    ++done_;
    look();
}

void Progress::look()
{
    passed_ = 0;
    const double now = context_.system.monotonicSeconds();
    if (now <= nextShow_)
        return;
    nextShow_ = now + secondsBetweenShows;
    show();
}

// What the bar shows. Without a total it starts again after 99, so that it is seen to move.
int Progress::percent() const
{
    if (!total_)
        return static_cast<int>(done_ / stepsBetweenLooks % percentDone);
    const std::size_t part = *total_ == 0 ? percentDone : done_ * percentDone / *total_;
    return static_cast<int>(std::min<std::size_t>(part, percentDone));
}

void Progress::show()
{
    context_.form.status.showProgress(
        what_ + " … " + (total_ ? std::to_string(percent()) + " %" : std::to_string(done_)));
    context_.host.showProgress();

    if (!barIsUsable_)
        return;
    barIsUsable_ = tryBar(context_, [this](femap::Application& femap) {
        if (!context_.femapShowsProgress)
            femap.feAppStatusShow(true, percentDone);
        context_.femapShowsProgress = true;
        femap.feAppStatusUpdate(percent());
    });
}

}  // namespace form
