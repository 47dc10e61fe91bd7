#include "loop/evaluate/Campaign.h"

#include "femap/NumberText.h"

#include <algorithm>
#include <cmath>
#include <ostream>

namespace loop::evaluate
{

Campaign::Campaign(const Setting& setting, const Study& study, ResultTable& results,
                   std::ostream& progress, const std::function<bool()>& isToStop)
    : setting_(setting), study_(study), results_(results), progress_(progress), isToStop_(isToStop)
{}

Tally Campaign::run(std::span<const Point* const> points, std::span<const std::string> folders)
{
    left_ = points;
    wanted_ = points.size();
    began_ = setting_.system.monotonicSeconds();
    for (const std::string& folder : folders)
        places_.push_back({folder, std::nullopt, nullptr});
    double moved = began_;
    for (bool isBusy = wanted_ != 0; isBusy;) {
        const std::size_t before = left_.size() + tally_.done + tally_.failed;
        isBusy = false;
        for (Place& place : places_)
            isBusy = goOn(place) || isBusy;
        if (isToStop_()) {
            stop();
            break;
        }
        const double now = setting_.system.monotonicSeconds();
        if (before != left_.size() + tally_.done + tally_.failed)
            moved = now;
        if (isBusy)
            setting_.system.wait(pauseAfter(now - moved));
    }
    return tally_;
}

// False: the place is free, and nothing is left for it.
bool Campaign::goOn(Place& place)
{
    if (place.run && !place.run->goesOn()) {
        take(*place.point, place.run->result());
        place.run.reset();
    }
    if (!place.run && !left_.empty()) {
        place.point = left_.front();
        left_ = left_.subspan(1);
        place.run.emplace(setting_, study_, place.folder, place.point->values);
    }
    return place.run.has_value();
}

void Campaign::take(const Point& point, const Result& result)
{
    results_.add(point, result);
    ++(result.problem.empty() ? tally_.done : tally_.failed);
    if (!result.problem.empty())
        progress_ << "velmar-evaluate: row " << point.number << ": " << result.problem << '\n';
    tellProgress();
}

// Once a second at most, and at the end.
void Campaign::tellProgress()
{
    const std::size_t ended = tally_.done + tally_.failed;
    const double now = setting_.system.monotonicSeconds();
    if (told_ && now - *told_ < 1 && ended != wanted_)
        return;
    told_ = now;
    progress_ << ended << " of " << wanted_ << " points";
    if (tally_.failed != 0)
        progress_ << ", " << tally_.failed << " failed";
    if (ended != wanted_)
        progress_ << ", about "
                  << roughTime((now - began_) / static_cast<double>(ended) *
                               static_cast<double>(wanted_ - ended))
                  << " left";
    progress_ << std::endl;
}

void Campaign::stop()
{
    for (Place& place : places_)
        if (place.run)
            place.run->stop();
    tally_.isStopped = true;
}

std::string roughTime(double seconds)
{
    constexpr double minute = 60;
    constexpr double hour = 60 * minute;
    const auto rounded = [](double number) { return ::femap::numberText(std::round(number)); };
    if (seconds < 2 * minute)
        return rounded(seconds) + " s";
    if (seconds < 2 * hour)
        return rounded(seconds / minute) + " min";
    return ::femap::numberText(std::round(10 * seconds / hour) / 10) + " h";
}

}  // namespace loop::evaluate
