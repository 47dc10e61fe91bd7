#include "loop/ImportedResults.h"

#include "system/PendingError.h"
#include "system/RuntimeError.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <memory>
#include <string_view>
#include <vector>

namespace loop
{

using femap::EntityType;
using sys::ErrorNumber;
using sys::RuntimeError;

namespace
{

std::string counted(std::size_t sets)
{
    return std::to_string(sets) + (sets == 1 ? " output set" : " output sets");
}

std::string listed(const std::vector<int>& ids)
{
    std::string text;
    for (const int id : ids)
        text.append(text.empty() ? "" : ", ").append(std::to_string(id));
    return text;
}

class OutputSetsOfRun
{
public:
    OutputSetsOfRun(femap::Application& femap, const ResultsFile& results)
        : femap_(femap),
          results_(results),
          changes_(femap.changes()),
          before_(all()),
          active_(femap.Info_ActiveID(EntityType::OutputSet))
    {}

    /// Imports them and makes the one to be read active.
    void import()
    {
        changes_->feFileReadNastranResults(results_.brand, results_.path);
        const std::vector<int> made = fresh();
        if (made.size() != std::max<std::size_t>(before_.size(), 1))
            throw RuntimeError(ErrorNumber::ObjectFailed, unlikeBefore(made.size()));
        changes_->activateOutputSet(made[rankOfStudy()]);
    }

    /// Each of the two is tried, whatever becomes of the other one.
    void leave(Problems& problems)
    {
        std::vector<int> made;
        sys::PendingError left;
        const bool isDeleted = left.attempt([&] {
            made = fresh();
            if (!made.empty())
                changes_->deleteOutputSets(made);
        });
        if (!isDeleted)
            problems.add(results_.name, 0, notDeleted(made) + left.description());

        sys::PendingError lost;
        const bool isActive = lost.attempt([&] {
            if (femap_.Info_ActiveID(EntityType::OutputSet) != active_)
                changes_->activateOutputSet(active_);
        });
        if (!isActive)
            problems.add(results_.name, 0,
                         "the output set that was active before could not be made active again; "
                         "activate it in FEMAP (0: none): " +
                             std::to_string(active_) + ": " + lost.description());
    }

private:
    std::vector<int> all()
    {
        const std::unique_ptr<femap::EntitySet> sets = femap_.feSet();
        if (const femap::ReturnCode code = sets->AddAll(EntityType::OutputSet);
            code != femap::ReturnCode::Ok)
            throw RuntimeError(ErrorNumber::ObjectFailed, "FEMAP could not list its output sets");
        return sets->ids();
    }

    std::vector<int> fresh()
    {
        std::vector<int> result;
        std::ranges::set_difference(all(), before_, std::back_inserter(result));
        return result;
    }

    std::size_t rankOfStudy() const
    {
        const auto place = std::ranges::find(before_, active_);
        return place == before_.end() ? 0 : static_cast<std::size_t>(place - before_.begin());
    }

    std::string unlikeBefore(std::size_t made) const
    {
        constexpr std::string_view cureOfNone =
            "solve one subcase, or load the results into the model that the study is made with";
        constexpr std::string_view cureOfSome =
            "leave in the model only the results of one run of these subcases";
        return "FEMAP made " + counted(made) + " of the results, and the model had " +
               counted(before_.size()) +
               " before, so it cannot be told which one the study reads; " +
               std::string(before_.empty() ? cureOfNone : cureOfSome);
    }

    static std::string notDeleted(const std::vector<int>& made)
    {
        return "the output sets that were made of the results could not be deleted; delete them in "
               "FEMAP" +
               (made.empty() ? std::string() : " (" + listed(made) + ")") + ": ";
    }

    femap::Application& femap_;
    const ResultsFile& results_;
    std::unique_ptr<femap::ModelChanges> changes_;
    std::vector<int> before_;  // ascending
    int active_;
};

}  // namespace

void withImportedResults(form::Context& context, const ResultsFile& results, Problems& problems,
                         const std::function<void()>& read)
{
    sys::PendingError failed;
    failed.attempt([&] {
        OutputSetsOfRun sets(context.femap(), results);
        sys::PendingError inside;
        try {
            inside.attempt([&] {
                sets.import();
                read();
            });
        }
        catch (const femap::WaitEnded&) {
            problems.add(results.name, 0,
                         "FEMAP did not answer while it had the results; look in FEMAP for output "
                         "sets that were made of them, and delete them");
            throw;
        }
        if (inside.isPending())
            problems.add(results.name, 0, inside.description());
        sets.leave(problems);
    });
    if (failed.isPending())
        problems.add(results.name, 0, failed.description());
}

}  // namespace loop
