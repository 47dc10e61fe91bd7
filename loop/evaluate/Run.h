// One point from its values to its results: CAEInput, the solver's step, CAEOutput, one after the
// other in a folder of the study, without waiting for any of them.
#pragma once

#include "loop/evaluate/Process.h"
#include "loop/evaluate/Study.h"
#include "system/RuntimeError.h"
#include "system/System.h"

#include <chrono>
#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace loop::evaluate
{

/// What all runs of a call have in common.
struct Setting
{
    sys::System& system;
    std::string programFolder;               // where CAEInput and CAEOutput are
    bool isEmbedded = false;                 // with the model host, else with FEMAP
    std::optional<double> timeout = {};      // of each step, in seconds
    std::optional<std::string> solver = {};  // for the shell, in place of FDFemap.bat
};

/// How a point ended.
struct Result
{
    std::vector<double> outputs;
    std::string problem;      // a line that names the step; empty: the outputs are there
    std::string endOfOutput;  // the last lines of the step that failed
    bool isStopped = false;
    std::vector<double> seconds;  // that each step took
};

/// A call of CAEInput or CAEOutput for a folder whose lock this process has.
Command programCommand(const Setting& setting, const std::string& program,
                       const std::string& folder, std::vector<std::string> arguments = {});

/// The file beside the model that keeps what the steps of the last point said.
std::string runLog(const Study& study, const std::string& folder);

class Run
{
public:
    /// Setting and study must outlive it. The folder is the study's own or a copy of it.
    /// No values: those that InputValues.txt has there.
    Run(const Setting& setting, const Study& study, std::string folder,
        const std::optional<Values>& values);

    /// Goes on as far as it can without waiting; false: it has ended.
    bool goesOn();
    /// Ends what runs.
    void stop();
    const Result& result() const { return result_; }

    struct Step;

private:
    static const Step steps[];

    void begin();
    void endStep(int code);
    void failToRun(const sys::RuntimeError& error);
    void fail(const std::string& problem);

    void prepareSolver();
    Command inputCommand() const;
    Command solverCommand() const;
    Command outputCommand() const;
    void demandDone(int code);
    void demandSolved(int code);
    void takeOutputs(int code);

    std::string pathOf(const std::string& file) const { return folder_ + file; }
    std::vector<std::string> resultFiles() const;

    const Setting& setting_;
    const Study& study_;
    std::string folder_;
    std::size_t step_ = 0;
    std::unique_ptr<Process> process_;  // none: the next step was not begun yet
    double began_ = 0;
    std::optional<std::size_t> saidBefore_;  // bytes of the log, by the steps before
    bool hasEnded_ = false;
    Result result_;
};

/// Waits until a run has ended that is alone; ends it when somebody asks to stop.
Result finished(Run& run, const sys::System& system, const std::function<bool()>& isToStop);

/// How long to wait before looking again after something that went on for so many seconds.
std::chrono::milliseconds pauseAfter(double seconds);

}  // namespace loop::evaluate
