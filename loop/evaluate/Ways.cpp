#include "loop/evaluate/Ways.h"

#include "femap/NumberText.h"
#include "loop/evaluate/Bounds.h"
#include "loop/evaluate/Campaign.h"
#include "loop/evaluate/DakotaFiles.h"
#include "loop/evaluate/Points.h"
#include "loop/evaluate/StudyCopies.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numeric>
#include <ostream>

namespace loop::evaluate
{

namespace
{

std::string inSeconds(double seconds)
{
    return ::femap::numberText(std::round(seconds * 100) / 100) + " s";
}

// Those that are to be run now.
std::vector<const Point*> openPoints(const std::vector<Point>& points, const ResultTable& results,
                                     bool repeatsFailures)
{
    std::vector<const Point*> open;
    for (const Point& point : points) {
        const ResultTable::Known known = results.known(point);
        if (known == ResultTable::Known::Nothing ||
            (known == ResultTable::Known::Failure && repeatsFailures))
            open.push_back(&point);
    }
    return open;
}

std::size_t failuresIn(const std::vector<Point>& points, const ResultTable& results)
{
    return static_cast<std::size_t>(std::ranges::count_if(points, [&](const Point& point) {
        return results.known(point) == ResultTable::Known::Failure;
    }));
}

Tally runIn(const Work& work, ResultTable& results, const std::vector<const Point*>& points,
            std::size_t mostPlaces)
{
    const Environment& environment = work.environment;
    Campaign campaign(work.setting, work.study, results, environment.errors, environment.isToStop);
    const std::size_t places = std::min(mostPlaces, points.size());
    if (places < 2)
        return campaign.run(points, std::array{work.study.folder});
    const StudyCopies copies(work.study, places, work.call.furtherFiles);
    return campaign.run(points, copies.folders());
}

int tellTally(const Tally& tally, std::size_t doneBefore, std::size_t failedBefore, std::size_t all,
              const Work& work)
{
    const std::size_t done = doneBefore + tally.done;
    const std::size_t failed = failedBefore + tally.failed;
    work.environment.output << done << " of " << all << " points are done";
    if (failed != 0)
        work.environment.output << ", " << failed << " failed (--again repeats them)";
    if (tally.isStopped)
        work.environment.output << ", stopped (the same call goes on)";
    work.environment.output << "; the results are in " << work.call.results << '\n';
    return done == all ? exitDone : exitNotDone;
}

}  // namespace

Result runInFolder(const Work& work, const std::optional<Values>& values)
{
    Run run(work.setting, work.study, work.study.folder, values);
    const Environment& environment = work.environment;
    Result result = finished(run, environment.system, environment.isToStop);
    if (!result.problem.empty())
        environment.errors << ownName << result.problem << '\n';
    if (result.endOfOutput.find('\n') != std::string::npos)
        environment.errors << "the end of its output:\n" << result.endOfOutput << '\n';
    return result;
}

int runPoint(const Work& work)
{
    const Result result = runInFolder(work, std::nullopt);
    if (!result.problem.empty())
        return exitNotDone;
    work.environment.output << work.study.outputs.valuesFile
                            << " is written: " << result.outputs.size() << " outputs in "
                            << inSeconds(std::reduce(result.seconds.begin(), result.seconds.end()))
                            << '\n';
    return exitDone;
}

int runPoints(const Work& work)
{
    sys::System& system = work.environment.system;
    const std::size_t places = work.setting.isEmbedded ? work.call.copies : 1;
    if (places != work.call.copies)
        work.environment.errors << ownName
                                << "-j is for the model host; FEMAP takes one point after the "
                                   "other\n";
    Problems problems;
    const Bounds bounds = readBounds(system, work.study, problems);
    const std::vector<Point> points = readPoints(system.files.read(work.call.points),
                                                 work.call.points, work.study, bounds, problems);
    ResultTable results(system, work.call.results, work.study, problems);
    if (!problems.empty())
        return tellProblems(problems, work.environment);
    if (const std::size_t strangers = results.strangers(points); strangers != 0)
        work.environment.errors << ownName << work.call.results << " has results of " << strangers
                                << " other points than the table; they stay\n";

    const bool repeats = work.call.repeatsFailures;
    const std::vector<const Point*> open = openPoints(points, results, repeats);
    const std::size_t failed = repeats ? 0 : failuresIn(points, results);
    results.open(repeats);
    const Tally tally = runIn(work, results, open, places);
    return tellTally(tally, points.size() - open.size() - failed, failed, points.size(), work);
}

int runForDakota(const Work& work)
{
    sys::System& system = work.environment.system;
    const std::string& file = work.call.dakotaParameters;
    system.files.remove(work.call.dakotaResults);
    Problems problems;
    const Bounds bounds = readBounds(system, work.study, problems);
    const DakotaParameters parameters =
        readDakotaParameters(system.files.read(file), file, problems);
    const std::vector<std::size_t> inputs =
        placesOf(parameters.variables, variableNames(work.study), file, problems);
    const std::vector<std::size_t> outputs =
        placesOf(parameters.functions, work.study.outputNames(), file, problems);
    if (!problems.empty())
        return tellProblems(problems, work.environment);
    demandNominal(work.study, inputs, problems);
    const Values values =
        pointValues(work.study, bounds, inputs, parameters.variables, file, problems);
    if (!problems.empty())
        return tellProblems(problems, work.environment);

    const Result result = runInFolder(work, values);
    const bool isDone = result.problem.empty();
    std::vector<double> numbers;
    for (std::size_t i = 0; isDone && i < outputs.size(); ++i)
        numbers.push_back(result.outputs[outputs[i]]);
    const std::string text =
        isDone ? dakotaResults(parameters.functions, numbers) : std::string(dakotaFailure);
    writeWhole(system, work.call.dakotaResults, text);
    return isDone ? exitDone : exitNotDone;
}

int writeTable(const Work& work)
{
    sys::System& system = work.environment.system;
    Problems problems;
    const Bounds before = readBounds(system, work.study, problems);
    if (!problems.empty())
        return tellProblems(problems, work.environment);
    const std::string file = boundsFile(work.study);
    writeWhole(system, work.study.pathOf(file), boundsTable(system, work.study, before));
    work.environment.output << file << " is written: " << work.study.variables.size()
                            << " inputs\n";
    return exitDone;
}

}  // namespace loop::evaluate
