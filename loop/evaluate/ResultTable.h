// The table of results: a record for each point that has ended, appended at once, so that a call
// that was ended goes on where it stopped.
#pragma once

#include "loop/Problems.h"
#include "loop/evaluate/Points.h"
#include "loop/evaluate/Run.h"
#include "system/Files.h"

#include <cstddef>
#include <memory>
#include <span>
#include <string>
#include <unordered_map>
#include <vector>

namespace loop::evaluate
{

class ResultTable
{
public:
    /// Reads what is there: a record that was cut short is none. A table of another study is a
    /// problem. The system must outlive it.
    ResultTable(sys::System& system, std::string path, const Study& study, Problems& problems);

    enum class Known
    {
        Nothing,
        Failure,
        Outputs,
    };
    /// What the table has of a point: of its number, and of its values as numbers.
    Known known(const Point& point) const;
    /// How many records are of no point, or of other values than the point of their number.
    std::size_t strangers(std::span<const Point> points) const;

    /// Makes the file ready for records, and forgets failures where they are to be repeated. Raises
    /// RuntimeError.
    void open(bool forgetsFailures);
    /// Brings a record onto the disk. Raises RuntimeError.
    void add(const Point& point, const Result& result);

private:
    struct Entry
    {
        std::size_t number;  // of its point; 0: it has none
        Values values;
        bool hasFailed;
        std::vector<std::string> cells;
    };
    static bool isOf(const Entry& entry, const Point& point);

    sys::System& system_;
    std::string path_;
    std::vector<std::string> head_;
    std::vector<Entry> entries_;
    std::unordered_multimap<std::size_t, std::size_t> placesOfNumber_;  // among the entries
    std::unique_ptr<sys::OutputFile> file_;
};

}  // namespace loop::evaluate
