// velmar-evaluate starts here on Windows.
#include "loop/evaluate/EvaluateProgram.h"
#include "windows/Text.h"

int wmain(int argc, wchar_t* argv[])
{
    std::vector<std::string> arguments;
    for (int i = 1; i < argc; ++i)
        arguments.push_back(windows::fromWide(argv[i]));
    return loop::evaluate::runHere(arguments);
}
