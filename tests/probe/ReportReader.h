#pragma once

#include "fake/TemporaryFolder.h"
#include "femap/com/Dispatch.h"

#include <functional>
#include <string>
#include <vector>

namespace probetest
{

using Lines = std::vector<std::string>;
using Control = std::function<void(femap::com::Dispatch& standin)>;

/// A report of velmar-study beside a stand-in that has the example model open, without its line
/// ends. standin, options: of the two command lines.
Lines probe(const std::string& standin, const std::string& options = "");
/// The same with another model. before, meanwhile: what is done with the stand-in before the probe
/// and while it runs. exitCode: of the probe, as it must be.
Lines probeModel(const std::string& standin, const std::string& model, const std::string& options,
                 const Control& before = {}, const Control& meanwhile = {}, int exitCode = 0);
/// The same without a FEMAP.
Lines probeAlone(int exitCode = 1);

/// Whether the condition came true within a minute.
bool comesInAMinute(const std::function<bool()>& condition);

/// Without what differs from machine to machine and from run to run: the sections of the machine,
/// times, what rounding leaves of 0, and where the project lies.
Lines masked(const Lines& report);

/// A copy of the example model with what a solver leaves beside it, for as long as this lives.
class SolvedCopy
{
public:
    SolvedCopy();
    std::string model() const { return folder_.path("panel.neu"); }
    std::string deck() const { return folder_.path("velmar-probe.dat"); }
    /// The report of a probe that changes it.
    Lines probe(const std::string& standin, const Control& before = {}) const;
    /// Without where it lies, too.
    Lines masked(const Lines& report) const;

private:
    fake::TemporaryFolder folder_;
};

/// The line that begins with that, up to its verdict; empty when there is none.
std::string lineOf(const Lines& report, const std::string& what);

/// What is told of the question of that number.
Lines answersTo(int question, const Lines& report);

}  // namespace probetest
