#include "probe/Probe.h"

#include "probe/Dialogs.h"
#include "probe/Machine.h"
#include "probe/Names.h"
#include "probe/Reads.h"
#include "probe/Registration.h"
#include "probe/Session.h"
#include "probe/Writes.h"
#include "windows/Text.h"

#include <array>
#include <charconv>
#include <cstdio>
#include <objbase.h>

namespace probe
{

namespace
{

constexpr std::string_view intro =
    R"text(Each line tells what was tried, a verdict, what was found and how long it took.
same: as the tool believes. found: a fact. DIFFERS, ABSENT, REFUSED: to be looked at; they stand
together at the end. When the end is missing, FEMAP or the probe ended at the last line.)text";

// COM on this thread; all objects must be gone before.
class Com
{
public:
    Com()
    {
        const HRESULT result = CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
        if (FAILED(result))
            throw std::runtime_error("COM could not be initialised: " + windows::describe(result));
    }
    ~Com() { CoUninitialize(); }
    Com(const Com&) = delete;
    Com& operator=(const Com&) = delete;
};

std::string timeText(const sys::LocalTime& now)
{
    std::array<char, 64> text{};
    static_cast<void>(std::snprintf(text.data(), text.size(), "%04d-%02d-%02d %02d:%02d:%02d",
                                    now.year, now.month, now.day, now.hour, now.minute,
                                    now.second));
    return text.data();
}

std::string optionsText(const Options& options)
{
    return std::string("read") + (options.asks ? ", ask" : "") +
           (options.eventSeconds > 0 ? ", events" : "") + (options.copy.empty() ? "" : ", write") +
           (options.hidesNames ? ", no names" : "");
}

void readAll(Session& session, const Object& application, Generation generation)
{
    probeNames(session, application, generation);
    probeApplication(session, application, generation);
    probeEntities(session, application, generation);
    probeResults(session, application, generation);
    probeLoads(session, application);
    probeMass(session, application);
    probeFunction(session, application);
    probeBeyondTheEnd(session, application);
}

void probeAll(Session& session, const Object& application, const Options& options,
              std::ostream& said)
{
    session.connection.watch.follow(session.processes);
    if (!options.copy.empty())
        demandIsOpen(application, options.copy);
    const Generation generation = generationOf(session, application);
    readAll(session, application, generation);
    if (!options.copy.empty())
        probeWrites(session, application, generation, options.copy);
    if (options.asks)
        probeDialogs(session, application, said);
    if (options.eventSeconds > 0)
        probeEvents(session, application, options.eventSeconds, said);
}

// True when there was a FEMAP to probe.
bool probeFemap(Session& session, const Options& options, std::ostream& said)
{
    probeMachine(session);
    probeRegistration(session);
    if (const Object running = attach(session); running.isThere()) {
        probeAll(session, running, options, said);
        return true;
    }
    if (!session.processes.empty()) {  // one that runs with other rights, or shows a dialog
        said << "FEMAP runs, but cannot be reached from here.\n";
        return false;
    }
    if (const Object started = start(session); started.isThere()) {
        session.read(started, "feAppVisible", statusAnd(), list(true));
        probeAll(session, started, options, said);
    }
    else {
        said << "FEMAP does not run and could not be started.\n";
        return false;
    }
    watchEnd(session);
    return true;
}

}  // namespace

std::string parse(const std::vector<std::string>& arguments, Options& options)
{
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::string& argument = arguments[i];
        const bool hasNext = i + 1 < arguments.size();
        if (argument == "--ask") {
            options.asks = true;
        }
        else if (argument == "--no-names") {
            options.hidesNames = true;
        }
        else if (argument == "--write" && hasNext) {
            options.copy = arguments[++i];
        }
        else if (argument == "--events" && hasNext) {
            const std::string& number = arguments[++i];
            const char* const end = number.data() + number.size();
            const auto [last, problem] = std::from_chars(number.data(), end, options.eventSeconds);
            if (problem != std::errc() || last != end || options.eventSeconds < 1 ||
                options.eventSeconds > 3600)
                return "--events takes seconds from 1 to 3600, not " + number;
        }
        else if (argument.starts_with('-')) {
            return "--probe knows no " + argument;
        }
        else if (!options.report.empty()) {
            return "one report at a time, not also " + argument;
        }
        else {
            options.report = argument;
        }
    }
    return options.report.empty() ? "no file for the report is named" : "";
}

bool run(const Options& options, sys::System& system, std::string_view version, std::ostream& said)
{
    const auto file = system.files.create(options.report);
    Report report(*file, options.hidesNames);
    report.say("Probe of FEMAP by velmar-study " + std::string(version) + ", " +
               timeText(system.localTime()));
    report.say("Done: " + optionsText(options));
    for (std::string_view rest = intro; !rest.empty();) {
        report.say(std::string(rest.substr(0, rest.find('\n'))));
        rest.remove_prefix(std::min(rest.find('\n'), rest.size() - 1) + 1);
    }
    const Com com;
    bool isThere = false;
    try {
        Session session(system, report);
        isThere = probeFemap(session, options, said);
    }
    catch (const FemapGone& gone) {
        report.breakOff(gone.what());
        said << "FEMAP has ended or cannot be reached any more.\n";
    }
    report.summary();
    file->close();
    return isThere;
}

int runProbe(const std::vector<std::string>& arguments, sys::System& system,
             std::string_view version, std::ostream& said)
{
    constexpr int exitOk = 0;
    constexpr int exitStopped = 1;
    constexpr int exitWrongCall = 2;

    Options options;
    const std::string problem = parse(arguments, options);
    if (!problem.empty()) {
        said << "velmar-study: " << problem << "\n";
        return exitWrongCall;
    }
    const bool isThere = run(options, system, version, said);
    said << "The report is in " << options.report << ". Look at its end, and send it to us.\n";
    return isThere ? exitOk : exitStopped;
}

}  // namespace probe
