// CAEOutput starts here on Windows.
#include "loop/Output.h"
#include "loop/connection/Start.h"
#include "windows/Text.h"

int wmain(int argc, wchar_t* argv[])
{
    std::vector<std::string> arguments;
    for (int i = 1; i < argc; ++i)
        arguments.push_back(windows::fromWide(argv[i]));
    return loop::connection::runHere("CAEOutput", loop::runOutput, arguments);
}
