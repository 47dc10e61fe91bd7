// test-standin.exe: the stand-in with switches that tests need. They say how a FEMAP is that nobody
// has seen, and what goes wrong with it.
#include "femap/com/Apartment.h"
#include "standin/ControlledApplication.h"
#include "standin/IncomingCallFilter.h"
#include "standin/Registration.h"
#include "standin/SelectionWindow.h"
#include "standin/Server.h"
#include "standin/Service.h"
#include "windows/Text.h"

#include <windows.h>

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <sstream>
#include <string>

namespace
{

using standin::Modes;
using windows::fromWide;

constexpr const char* usage =
    R"text(usage: test-standin [--classic|--modern] [--model FILE] [--calls FILE]
                    [--no-rot|--late MILLISECONDS] [--modified] [--MODE]...
       test-standin /regserver | /unregserver

Takes the place of FEMAP ("femap.model") until it is told to quit. Decks are texts with all numbers
of the model. For a file of results, such as panel.op2, it reads the output sets of the neutral file
beside it, panel.results.neu.

  --classic       as FEMAP was before 2020.1
  --modern        as it is since then (the default)
  --model FILE    open this neutral file
  --calls FILE    write each call to this file
  --no-rot        run without being found by those who attach
  --late TIME     be found only after that time
  --modified      have changes that are not saved
  /regserver      register for good, so that COM can start it
  /unregserver    take the registration away

COM starts it without switches: FEMAP_STANDIN_SWITCHES stands for them. Modes:

)text";

struct Options
{
    bool isClassic = false;
    bool registers = false;
    bool unregisters = false;
    bool isModified = false;
    std::string model;
    std::string calls;
    Modes modes;
    standin::Offer offer;
};

// False when the switch makes no sense.
bool readSwitch(const std::string& text, std::istream& more, Options& options)
{
    const auto mode = text.starts_with("--") ? standin::modeNamed(text.substr(2)) : std::nullopt;
    const auto rest = [&](std::string& target) { return bool(std::getline(more, target, '\n')); };
    if (text == "--classic")
        options.isClassic = true;
    else if (text == "--modern")
        options.isClassic = false;
    else if (text == "--no-rot")
        options.offer.isFound = false;
    else if (text == "--modified")
        options.isModified = true;
    else if (text == "-Embedding" || text == "/Embedding")
        options.offer.wasStartedByCOM = true;
    else if (text == "/regserver")
        options.registers = true;
    else if (text == "/unregserver")
        options.unregisters = true;
    else if (text == "--model")
        return rest(options.model);
    else if (text == "--calls")
        return rest(options.calls);
    else if (text == "--late")
        return (more >> options.offer.foundAfter) && more.ignore();
    else if (mode)
        options.modes.turnOn(*mode);
    else
        return false;
    return true;
}

// One switch or its value on each line.
bool parse(const std::string& lines, Options& options)
{
    std::istringstream more(lines);
    for (std::string text; std::getline(more, text, '\n');)
        if (!text.empty() && !readSwitch(text, more, options))
            return false;
    return true;
}

std::string linesOf(int argc, wchar_t* argv[])
{
    std::string lines;
    for (int i = 1; i < argc; ++i)
        lines += fromWide(argv[i]) + '\n';
    const wchar_t* const more = _wgetenv(L"FEMAP_STANDIN_SWITCHES");
    const bool wasStartedByCOM = lines.find("Embedding") != std::string::npos;
    return wasStartedByCOM && more != nullptr ? lines + fromWide(more) + '\n' : lines;
}

void serve(const Options& options)
{
    standin::Server server(options.isClassic, options.modes);
    server.selections.ask = standin::selectionWindow(server);
    if (!options.calls.empty())
        server.recordTo(options.calls);
    if (!options.model.empty())
        server.host.openNeutralFile(options.model);
    server.host.isModified = options.isModified;
    const standin::IncomingCallFilter callFilter(server);
    standin::ControlledApplication application(server);
    standin::Offer offer = options.offer;
    if (options.modes[standin::Mode::Stays])
        offer.wasStartedByCOM = false;
    standin::serve(server, application, offer);
}

void run(const Options& options)
{
    const femap::com::Apartment apartment;
    if (options.registers)
        standin::Registration().add();
    else if (options.unregisters)
        standin::Registration().remove();
    else
        serve(options);
}

void tellUsage()
{
    static_cast<void>(std::fputs(usage, stderr));
    for (const standin::ModeName& one : standin::modeNames)
        static_cast<void>(std::fprintf(stderr, "  --%-18s %s\n", std::string(one.name).c_str(),
                                       std::string(one.meaning).c_str()));
}

}  // namespace

int wmain(int argc, wchar_t* argv[])
{
    try {
        SetProcessDPIAware();
        Options options;
        if (!parse(linesOf(argc, argv), options)) {
            tellUsage();
            return 2;
        }
        run(options);
        return EXIT_SUCCESS;
    }
    catch (const std::exception& error) {
        static_cast<void>(std::fprintf(stderr, "test-standin: %s\n", error.what()));
        return EXIT_FAILURE;
    }
}
