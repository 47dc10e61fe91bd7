// Many points: each in the first folder that is free, its results in the table as soon as it ends.
#pragma once

#include "loop/evaluate/ResultTable.h"
#include "loop/evaluate/Run.h"

#include <cstddef>
#include <functional>
#include <iosfwd>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace loop::evaluate
{

struct Tally
{
    std::size_t done = 0;
    std::size_t failed = 0;
    bool isStopped = false;
};

class Campaign
{
public:
    /// All must outlive it; isToStop is asked again and again.
    Campaign(const Setting& setting, const Study& study, ResultTable& results,
             std::ostream& progress, const std::function<bool()>& isToStop);

    /// Runs the points in the folders. Raises RuntimeError when the table cannot be written.
    Tally run(std::span<const Point* const> points, std::span<const std::string> folders);

private:
    struct Place
    {
        std::string folder;
        std::optional<Run> run;
        const Point* point = nullptr;
    };

    bool goOn(Place& place);
    void take(const Point& point, const Result& result);
    void tellProgress();
    void stop();

    const Setting& setting_;
    const Study& study_;
    ResultTable& results_;
    std::ostream& progress_;
    const std::function<bool()>& isToStop_;

    std::vector<Place> places_;
    std::span<const Point* const> left_;  // were not begun
    std::size_t wanted_ = 0;
    double began_ = 0;
    std::optional<double> told_;
    Tally tally_;
};

/// A time as an engineer says it: "40 s", "12 min", "3.5 h".
std::string roughTime(double seconds);

}  // namespace loop::evaluate
