// femap-standin.exe: a COM server that takes the place of FEMAP on a machine without FEMAP.
#include "femap/com/Apartment.h"
#include "standin/ApplicationObject.h"
#include "standin/Registration.h"
#include "standin/SelectionWindow.h"
#include "standin/Server.h"
#include "standin/Service.h"
#include "windows/Text.h"

#include <windows.h>

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <string>

namespace
{

using windows::fromWide;

constexpr const char* usage =
    R"text(usage: femap-standin [--model FILE]
       femap-standin /regserver | /unregserver

Takes the place of FEMAP ("femap.model") until its program is ended, or its last client goes when COM
started it.

  --model FILE    open this neutral file
  /regserver      register for good, so that COM can start it
  /unregserver    take the registration away
)text";

void serve(const std::string& model, bool wasStartedByCOM)
{
    standin::Server server(false);
    server.selections.ask = standin::selectionWindow(server);
    if (!model.empty())
        server.host.openNeutralFile(model);
    standin::ApplicationObject application(server);
    standin::serve(server, application, {.wasStartedByCOM = wasStartedByCOM});
}

// False when the arguments make no sense.
bool run(int argc, wchar_t* argv[])
{
    const std::string argument = argc > 1 ? fromWide(argv[1]) : std::string();
    const bool isAlone = argc == 2;
    const femap::com::Apartment apartment;
    if (argc == 1)
        serve({}, false);
    else if (argc == 3 && argument == "--model")
        serve(fromWide(argv[2]), false);
    else if (isAlone && (argument == "-Embedding" || argument == "/Embedding"))
        serve({}, true);
    else if (isAlone && argument == "/regserver")
        standin::Registration().add();
    else if (isAlone && argument == "/unregserver")
        standin::Registration().remove();
    else
        return false;
    return true;
}

}  // namespace

int wmain(int argc, wchar_t* argv[])
{
    try {
        SetProcessDPIAware();
        if (run(argc, argv))
            return EXIT_SUCCESS;
        static_cast<void>(std::fputs(usage, stderr));
        return 2;
    }
    catch (const std::exception& error) {
        static_cast<void>(std::fprintf(stderr, "femap-standin: %s\n", error.what()));
        return EXIT_FAILURE;
    }
}
