// The report of a probe: a line for each thing that was tried, in the file as soon as it is known.
// What is being tried stands there before its verdict, so that a FEMAP that hangs or dies shows at
// what.
#pragma once

#include "probe/Questions.h"
#include "system/Files.h"

#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace probe
{

enum class Verdict
{
    Same,      // as the tool believes
    Found,     // something that the tool did not know, or needs no belief about
    Differs,   // FEMAP is not what the tool believes
    Absent,    // FEMAP lacks it, and the tool believes that it has it
    Refused,   // the call failed, and the tool believes that it does not
    NotTried,  // there was nothing to try it with
};

class Report
{
public:
    /// The file must outlive the report. hidesNames: names of the model and paths become marks.
    Report(sys::OutputFile& file, bool hidesNames);

    /// A heading.
    void section(const std::string& title);
    /// A line that is no finding.
    void say(const std::string& text);

    void begin(const std::string& what);
    void end(Verdict verdict, const std::string& text);
    void line(const std::string& what, Verdict verdict, const std::string& text);
    /// The line that was begun gets no verdict any more.
    void breakOff(const std::string& why);

    /// A part of the answer to a question; parts that were told before are left out.
    void answer(Question question, const std::string& text);

    /// A title or a path of the model, between quotes or as a mark that is the same for the same
    /// text throughout the report.
    std::string name(const std::string& text);
    /// Words of FEMAP or Windows, in which names that came up before are replaced as well.
    std::string words(std::string text) const;

    /// What is different, the answers and the numbers of verdicts.
    void summary();

private:
    void write(const std::string& text);
    std::string markOf(const std::string& text) const;

    sys::OutputFile& file_;
    const bool hidesNames_;
    const std::uint64_t salt_;
    std::string what_;  // of the line that was begun
    std::string heading_;
    // A line to be looked at.
    struct Finding
    {
        std::string heading;
        std::string what;
        Verdict verdict = Verdict::Differs;
        std::string text;
    };
    void tellAbsent();

    std::vector<Finding> toLookAt_;
    std::string end_;  // why the report broke off
    std::map<Verdict, int> counts_;
    std::map<Question, std::vector<std::string>> answers_;
    std::set<std::string> names_;
};

}  // namespace probe
