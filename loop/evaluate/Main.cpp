// velmar-evaluate with the things of this machine: both mains call runHere.
#include "loop/connection/Connections.h"
#include "loop/evaluate/EvaluateProgram.h"
#include "loop/evaluate/Platform.h"
#include "system/Memory.h"

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <iostream>

namespace loop::evaluate
{

int runHere(const std::vector<std::string>& arguments)
{
    try {
        prepareProcess();
        sys::System system = sys::thisMachine();
        return runEvaluate(arguments, {std::cout, std::cerr, system, ownFolder(), isToStop,
                                       loop::connection::toFemap(std::cerr)});
    }
    catch (const std::exception& error) {
        static_cast<void>(std::fprintf(stderr, "velmar-evaluate: %s\n", sys::reasonOf(error)));
        return EXIT_FAILURE;
    }
}

}  // namespace loop::evaluate
