// What was found in a study last, and which of its rows it belongs to, so that those who draw rows
// ask at little cost.
#pragma once

#include "findings/Finding.h"
#include "form/Context.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace findings
{

class LatestFindings
{
public:
    /// The context must outlive this.
    explicit LatestFindings(form::Context& context) : context_(context) {}

    /// Looks anew for what the form alone tells, if that has changed; what files and FEMAP told of
    /// the study before goes then, and with an action in any case. Whether it looked.
    bool follow(const std::string& modelFile, bool isAction);
    /// What all rules found just now.
    void take(std::vector<Finding> found, const std::string& modelFile, bool withFilesAndFemap);

    std::span<const Finding> found() const { return found_; }
    bool isWithFilesAndFemap() const { return withFilesAndFemap_; }
    /// Grows with each look.
    std::uint64_t looks() const { return looks_; }

    // Of a row, counted from 1; nothing once its grid has changed again.
    std::optional<Severity> gravestOf(Place place) const;
    /// Each finding with its cure, in lines of their own; the gravest first.
    std::string textOf(Place place) const;

private:
    // What the rules that are always followed go by.
    struct Seen
    {
        std::array<std::uint64_t, 2> changes{};  // of the grids
        std::string modelFile;
        std::string extension;
        std::string solver;
        std::string optimizer;
        std::string command;

        bool operator==(const Seen&) const = default;
    };

    Seen seenNow(const std::string& modelFile) const;
    void keep(std::vector<Finding> found);
    bool isOfGridAsItIs(Grid grid) const;

    form::Context& context_;
    std::optional<Seen> seen_;
    std::vector<Finding> found_;
    bool withFilesAndFemap_ = false;
    std::uint64_t looks_ = 0;
    // For each row of a grid how grave its gravest finding is, from 1; 0: it has none.
    std::array<std::vector<std::uint8_t>, 2> gravity_;
};

}  // namespace findings
