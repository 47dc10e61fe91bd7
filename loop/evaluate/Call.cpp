#include "loop/evaluate/Call.h"

#include "femap/NumberText.h"

#include <algorithm>
#include <iterator>

namespace loop::evaluate
{

const std::string_view usage =
    R"text(usage: velmar-evaluate [OPTIONS]
       velmar-evaluate [OPTIONS] --points TABLE.csv --results OUT.csv [--again]
                       [-j COUNT [--with FILE]...]
       velmar-evaluate [OPTIONS] --dakota PARAMETERS RESULTS
       velmar-evaluate [OPTIONS] --prove
       velmar-evaluate [--folder DIR] --table

Runs a study in its folder: InputValues.txt, CAEInput, the solver, CAEOutput, OutputValues.txt.
The values that the model and InputValues.txt had come back at the end.

  --points TABLE.csv     a point for each row; the head has names of inputs, the others keep the
                         values of InputValues.txt
  --results OUT.csv      where the results are appended; a repeated call goes on where it stopped
  --again                repeat the points that failed
  -j COUNT               so many points side by side, in copies of the folder (model host)
  --with FILE            a further file that the solver needs in a copy
  --dakota P R           one point, with Dakota's files of parameters and results
  --prove                run the values as they are, and compare with the stored results
  --table                write MODELBounds.csv, in which bounds of the inputs may be edited

  --folder DIR           the study's folder; else the current one
  --femap=running        with the FEMAP that runs on this machine, or a new one (Windows)
  --femap=embedded       with the model host of the programs themselves
  --solver LINE          the line that runs the solver, in place of that in FDFemap.bat
  --timeout SECONDS      end a step that takes longer

Exit code 0: all is done. 1: not all, see standard error. 2: wrong arguments.
)text";

namespace
{

// Takes the words of the call one by one.
class Words
{
public:
    explicit Words(const std::vector<std::string>& words) : words_(words) {}

    bool areLeft() const { return at_ < words_.size(); }
    const std::string& next() { return words_[at_++]; }
    // The value of an option.
    std::string valueOf(const std::string& option, Call& call)
    {
        if (areLeft())
            return next();
        call.problem = option + " needs a value behind it";
        return {};
    }

private:
    const std::vector<std::string>& words_;
    std::size_t at_ = 0;
};

void takeCopies(Call& call, const std::string& text)
{
    constexpr int most = 256;
    const std::optional<int> count = ::femap::wholeNumber(text);
    if (!call.problem.empty())
        return;
    if (!count || *count < 1 || *count > most)
        call.problem = "-j takes a number from 1 to 256, not \"" + text + '"';
    else
        call.copies = static_cast<std::size_t>(*count);
}

void takeTimeout(Call& call, const std::string& text)
{
    call.timeout = ::femap::realNumber(text);
    if (call.problem.empty() && (!call.timeout || *call.timeout <= 0))
        call.problem = "--timeout takes seconds, such as 600, not \"" + text + '"';
}

struct Option
{
    std::string_view name;
    void (*take)(Call& call, Words& words);
};

constexpr Option options[] = {
    {"--help", [](Call& call, Words&) { call.wantsHelp = true; }},
    {"--prove", [](Call& call, Words&) { call.proves = true; }},
    {"--table", [](Call& call, Words&) { call.writesTable = true; }},
    {"--again", [](Call& call, Words&) { call.repeatsFailures = true; }},
    {"--femap=embedded", [](Call& call, Words&) { call.isEmbedded = true; }},
    {"--femap=running", [](Call& call, Words&) { call.isEmbedded = false; }},
    {"--folder", [](Call& call, Words& w) { call.folder = w.valueOf("--folder", call); }},
    {"--points", [](Call& call, Words& w) { call.points = w.valueOf("--points", call); }},
    {"--results", [](Call& call, Words& w) { call.results = w.valueOf("--results", call); }},
    {"--solver", [](Call& call, Words& w) { call.solver = w.valueOf("--solver", call); }},
    {"--with",
     [](Call& call, Words& w) { call.furtherFiles.push_back(w.valueOf("--with", call)); }},
    {"--timeout", [](Call& call, Words& w) { takeTimeout(call, w.valueOf("--timeout", call)); }},
    {"-j", [](Call& call, Words& w) { takeCopies(call, w.valueOf("-j", call)); }},
    {"--dakota",
     [](Call& call, Words& w) {
         call.dakotaParameters = w.valueOf("--dakota", call);
         call.dakotaResults = w.valueOf("--dakota", call);
     }},
};

// What of a call does not go together; empty: nothing.
std::string contradictionIn(const Call& call)
{
    const bool hasPoints = !call.points.empty();
    const int ways = static_cast<int>(hasPoints) +
                     static_cast<int>(!call.dakotaParameters.empty()) +
                     static_cast<int>(call.proves) + static_cast<int>(call.writesTable);
    if (ways > 1)
        return "--points, --dakota, --prove and --table exclude each other";
    if (hasPoints != !call.results.empty())
        return "--points and --results go together";
    if (hasPoints && call.points == call.results)
        return "--points and --results name the same file";
    if (!hasPoints && (call.repeatsFailures || call.copies > 1))
        return "--again and -j are for --points";
    if (call.copies == 1 && !call.furtherFiles.empty())
        return "--with is for the copies of -j";
    return {};
}

}  // namespace

Call parseCall(const std::vector<std::string>& arguments)
{
    Call call;
    for (Words words(arguments); words.areLeft() && call.problem.empty();) {
        const std::string& word = words.next();
        const auto* const option = std::ranges::find(options, word, &Option::name);
        if (option != std::end(options))
            option->take(call, words);
        else
            call.problem = (word.starts_with('-') ? "unknown option " : "unknown argument ") + word;
    }
    if (call.problem.empty())
        call.problem = contradictionIn(call);
    return call;
}

}  // namespace loop::evaluate
