#include "loop/connection/Start.h"

#include "loop/connection/Connections.h"
#include "system/Memory.h"
#include "system/ProgramStart.h"
#include "system/System.h"

#include <exception>
#include <iostream>

namespace loop::connection
{

int runHere(std::string_view program, Run run, const std::vector<std::string>& arguments)
{
    try {
        sys::prepareProgram();
        sys::System system = sys::thisMachine();
        return run(arguments, {std::cout, std::cerr, system, [] { return toModelHost(std::cerr); },
                               toFemap(std::cerr)});
    }
    catch (const std::exception& error) {
        std::cerr << program << ": " << sys::reasonOf(error) << '\n';
        return exitNotDone;
    }
}

}  // namespace loop::connection
