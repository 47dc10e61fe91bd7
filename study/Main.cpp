// velmar-study with the things of this machine: both mains call runHere.
#include "study/Platform.h"
#include "study/StudyProgram.h"
#include "system/Memory.h"
#include "system/ProgramStart.h"
#include "system/System.h"

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <iostream>

namespace study
{

int runHere(const std::vector<std::string>& arguments)
{
    try {
        sys::prepareProgram();
        sys::System system = sys::thisMachine();
        const bool showsColours = system.environment("NO_COLOR").empty() && errorsShowColours();
        return runStudy(arguments, {std::cin, std::cout, std::cerr, system, runningFemap(),
                                    recordedForm(), femapProbe(), showsColours});
    }
    catch (const std::exception& error) {
        static_cast<void>(std::fprintf(stderr, "velmar-study: %s\n", sys::reasonOf(error)));
        return EXIT_FAILURE;
    }
}

}  // namespace study
