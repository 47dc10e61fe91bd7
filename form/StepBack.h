// One step back: what the latest action took away from the grids, and what it added, so that the
// rows can come back to their former places.
#pragma once

#include "form/ParameterGrid.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace form
{

class StepBack
{
public:
    /// How the step ended, in rows.
    struct Result
    {
        std::size_t back = 0;
        std::size_t takenOut = 0;      // the action had added them
        std::size_t alreadyThere = 0;  // of the same name, added since; they stay as they are
    };
    using Grids = std::array<ParameterGrid*, 2>;

    /// Both grids must outlive this.
    explicit StepBack(const Grids& grids) : grids_(grids) {}

    /// An action begins that may take rows away. Those that it removes are moved here; where it may
    /// also add or sort, all rows are copied.
    void begin(bool mayAdd);
    /// It has ended. When it took rows away, the step is that of this action, else the former one;
    /// then what it added counts as added since. Returns whether it took rows away. An action that
    /// replaced all rows is always a step.
    bool end(bool isReplacement = false);
    void forget();

    bool isThere() const { return isThere_; }
    /// Brings the rows back and forgets the step. Rows added since stay behind them.
    Result goBack();

private:
    using Names = std::map<std::string, int>;  // and how many rows have each

    struct OfGrid
    {
        std::vector<GoneRow> gone;       // by former place
        std::vector<std::string> order;  // all former names, where the rows that stayed moved
        Names added;
        Names since;  // added by later actions
    };
    struct Watched
    {
        std::vector<std::string> rows;  // all of them, where the action may add …
        std::string first;              // … else the first one
        std::uint64_t changes = 0;
        OfGrid step;
    };
    static OfGrid compare(const std::vector<std::string>& before, const ParameterGrid& grid);
    static void addFirst(Watched& watched, const ParameterGrid& grid);
    static void goBack(OfGrid& step, ParameterGrid& grid, Result& result);

    Grids grids_;
    std::array<Watched, 2> watched_;  // while an action runs
    bool mayAdd_ = false;
    std::array<OfGrid, 2> step_;
    bool isThere_ = false;
};

}  // namespace form
