// Reading a model through COM, out of process: a late-bound script, one value at a time, and in
// bulk. Prints a table in Markdown.

#include "bench/com/FormStart.h"
#include "fake/FormFixture.h"
#include "fake/QueuedPropertyList.h"
#include "femap/com/Apartment.h"
#include "femap/com/ComApplication.h"
#include "form/Context.h"
#include "selection/InputSelection.h"
#include "selection/OutputSelection.h"
#include "selection/ValueRefresh.h"
#include "standin/StartedStandin.h"
#include "windows/Text.h"

#include <chrono>
#include <cstdio>
#include <iostream>
#include <map>
#include <numeric>
#include <optional>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

namespace bench
{
namespace
{

using comtest::StartedStandin;
using femap::com::Reading;
using Texts = std::vector<std::string>;

struct Measured
{
    int values = 0;
    int calls = 0;
    double seconds = 0;

    double secondsPerValue() const { return seconds / values; }
};

struct Work
{
    std::string name;
    std::string selection;
    Texts choices;                               // none: all
    std::optional<int> entities = std::nullopt;  // none: as many as the model has nodes
};

constexpr int smallModel = 2000;
constexpr int bigModel = 100'000;
constexpr int properties = 1000;  // and as many materials

const Work inputWorks[] = {
    {"nodes", "Nodes", {"x", "y", "z"}},
    {"elements", "Elements", {"node1", "node2", "node3", "node4"}},
    {"properties",
     "Properties",
     {"End A Area", "I1", "I2", "I12", "J", "ShearAr, K1", "ShearAr, K2", "NS Mass/Len"},
     properties},
    {"materials",
     "Materials",
     {"Ex", "Ey", "Ez", "Gx", "Gy", "Gz", "Nuxy", "Nuyz", "Nuxz", "Density"},
     properties},
};
const Work outputWork = {"vectors", "Nodes", {}};

// The form beside the stand-in, with dialogs that are answered at once.
class Form
{
public:
    explicit Form(Reading reading)
        : connector_(&dialogs_, std::make_shared<femap::com::RetryPolicy>(), reading)
    {
        context_.application = connector_.attach();
    }

    Measured measure(StartedStandin& standin, const Work& work, int nodes)
    {
        const int entities = work.entities.value_or(nodes);
        std::vector<int> ids(static_cast<std::size_t>(entities));
        std::iota(ids.begin(), ids.end(), 1);
        dialogs_.answers.push_back({femap::ReturnCode::Ok, std::move(ids)});
        if (work.choices.empty())
            list_.chooseAll();
        else
            list_.choose(work.choices);

        const bool isOutput = &work == &outputWork;
        if (isOutput)
            dialog_.UpdateCollection();
        (isOutput ? form_.OutputSelection : form_.InputSelection).Text = work.selection;
        const form::ParameterGrid& grid = isOutput ? form_.OutputsList : form_.InputsList;
        const int before = grid.Rows();
        Measured result = timed(standin, [&] {
            (isOutput ? selection::OutputsButton_Click : selection::InputsButton_Click)(context_,
                                                                                        dialog_);
        });
        result.values = grid.Rows() - before + (before == 2 ? 1 : 0);  // the blank row goes
        return result;
    }

    Measured measureRefresh(StartedStandin& standin)
    {
        Measured result = timed(standin, [&] {
            selection::RefreshInputs_Click(context_);
            selection::RefreshOutputs_Click(context_);
        });
        result.values = form_.InputsList.Rows() + form_.OutputsList.Rows() - 2;
        return result;
    }

private:
    template <class Step>
    static Measured timed(StartedStandin& standin, const Step& step)
    {
        Measured result;
        const int before = standin.control().call("standinCallCount").number();
        const auto start = std::chrono::steady_clock::now();
        step();
        result.seconds =
            std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
        result.calls = standin.control().call("standinCallCount").number() - before;
        return result;
    }

    sys::System system_ = sys::thisMachine();
    fake::QueuedDialogs dialogs_;
    fake::FakeFormHost host_;
    form::MainForm form_;
    form::Context context_{form_, host_, system_};
    femap::com::ComConnector connector_;
    fake::QueuedPropertyList list_;
    selection::frmPropertyList dialog_{connector_, list_};
};

using Results = std::map<std::string, Measured>;  // by the name of the work

Results measureAll(StartedStandin& standin, Reading reading, int nodes)
{
    Form form(reading);
    Results results;
    for (const Work& work : inputWorks)
        results[work.name] = form.measure(standin, work, nodes);
    results[outputWork.name] = form.measure(standin, outputWork, nodes);
    results["refresh of all"] = form.measureRefresh(standin);
    return results;
}

// What the script prints: "WORK|VALUES|SECONDS" lines.
Results measureScript(const std::string& script)
{
    constexpr const wchar_t* entities = L"250";
    const std::wstring command =
        L"cscript.exe //nologo \"" + windows::toWide(script) + L"\" " + entities;
    FILE* const pipe = _wpopen(command.c_str(), L"rt");
    if (pipe == nullptr)
        throw std::runtime_error("The script cannot be run");
    Results results;
    for (char line[200]; std::fgets(line, sizeof line, pipe) != nullptr;) {
        std::istringstream words(line);
        std::string name;
        std::string values;
        std::string seconds;
        std::getline(words, name, '|');
        std::getline(words, values, '|');
        std::getline(words, seconds);
        results[name] = {std::stoi(values), 0, std::stod(seconds)};
    }
    if (_pclose(pipe) != 0 || results.empty())
        throw std::runtime_error("The script failed");
    return results;
}

void printRow(const std::string& generation, const std::string& name, const Results& script,
              const Results& plain, const Results& bulk, const Results& big)
{
    // Entities and vectors may cost one call for a few thousand; the kinds of which there are few
    // are held against reading one by one.
    constexpr int fewTimesFewer = 5;
    constexpr double muchFaster = 100;
    constexpr int entitiesPerCall = 2000;
    const bool areFew = name == "properties" || name == "materials";
    const double fewer = double(plain.at(name).calls) / bulk.at(name).calls;
    const int grown = big.at(name).calls - bulk.at(name).calls;
    const int mayGrow = (bigModel - smallModel) / entitiesPerCall * (name == "vectors" ? 10 : 1);

    std::ostringstream faster;
    bool isMet = areFew ? fewer >= fewTimesFewer : grown <= mayGrow;
    if (const auto place = script.find(name); place != script.end()) {
        const double ratio = place->second.secondsPerValue() / bulk.at(name).secondsPerValue();
        faster << static_cast<int>(ratio);
        isMet = isMet && (areFew || ratio >= muchFaster);
    }
    std::cout << "| " << generation << " | " << name << " | " << bulk.at(name).values << " | "
              << plain.at(name).calls << " | " << bulk.at(name).calls << " | "
              << static_cast<int>(fewer) << " | " << big.at(name).calls << " | " << faster.str()
              << " | "
              << (name == "refresh of all" ? ""
                  : areFew                 ? "5 times fewer calls"
                                           : "100 times faster")
              << " | "
              << (name == "refresh of all" ? ""
                  : isMet                  ? "yes"
                                           : "no")
              << " |\n";
}

void run(const std::string& script, const std::string& smallFile, const std::string& bigFile)
{
    const femap::com::Apartment apartment;
    std::cout << "| FEMAP | work | values | calls one by one | calls in bulk | times fewer | calls "
                 "for 100 000 nodes | times faster than the script | goal | met |\n"
                 "|---|---|---|---|---|---|---|---|---|---|\n";
    std::map<std::string, double> formStart;
    for (const std::string generation : {"classic", "modern"}) {
        Results byScript;
        Results plain;
        Results bulk;
        Results big;
        {
            StartedStandin standin("--" + generation + " --model \"" + smallFile + '"');
            formStart[generation] = formStartSeconds("$bench.log$NOTHING");
            byScript = measureScript(script);
            plain = measureAll(standin, Reading::OneByOne, smallModel);
            bulk = measureAll(standin, Reading::InBulk, smallModel);
        }
        {
            StartedStandin standin("--" + generation + " --model \"" + bigFile + '"');
            big = measureAll(standin, Reading::InBulk, bigModel);
        }
        for (const Work& work : inputWorks)
            printRow(generation, work.name, byScript, plain, bulk, big);
        for (const char* name : {"vectors", "refresh of all"})
            printRow(generation, name, byScript, plain, bulk, big);
    }
    const double program = programStartSeconds();
    std::cout << "\n| Start | milliseconds | of a program that prints its version | ratio |\n"
                 "|---|---|---|---|\n";
    for (const auto& [generation, seconds] : formStart)
        std::cout << "| the form beside a " << generation << " FEMAP, until it can be used | "
                  << static_cast<int>(seconds * 1000) << " | " << static_cast<int>(program * 1000)
                  << " | " << static_cast<int>(seconds / program * 10) / 10.0 << " |\n";
}

}  // namespace
}  // namespace bench

int main(int argc, char* argv[])
{
    if (argc != 4) {
        std::cerr << "usage: com_bench SCRIPT.vbs SMALL.neu BIG.neu\n";
        return 2;
    }
    try {
        bench::run(argv[1], argv[2], argv[3]);
        return 0;
    }
    catch (const std::exception& error) {
        std::cerr << "com_bench: " << error.what() << '\n';
        return 1;
    }
}
