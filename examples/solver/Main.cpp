// panel-solver: stands in for a solver in the examples. It computes the panel by closed formulas
// from the neutral file beside the deck and leaves its results in another one.
#include "examples/solver/Panel.h"
#include "examples/solver/ResultsFile.h"
#include "femap/neutral/NeutralFile.h"
#include "system/CodePage.h"
#include "system/Files.h"
#include "system/Memory.h"

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <string>

namespace
{

constexpr const char* usage =
    "panel-solver DECK\n"
    "An example, and no solver for other models: it computes the examples' panel by closed\n"
    "formulas. For the deck panel.dat it reads panel.run.neu and writes panel.results.neu.\n";

void write(const std::string& path, const std::string& bytes)
{
    const auto file = sys::DiskFiles().create(path);
    file->write(bytes);
    file->close();
}

void solveBeside(const std::string& deck)
{
    const std::size_t point = deck.rfind('.');
    const std::string name = deck.substr(0, point);
    const bool isOfNeNastran = point != std::string::npos && deck.substr(point) == ".nas";
    const std::string modelFile = name + ".run.neu";
    const std::string results = name + ".results.neu";

    femap::neutral::Model model;
    readNeutralFile(sys::DiskFiles().read(modelFile), modelFile, sys::windows1252(), model);
    write(results, resultsFile(examples::solver::solve(model)));
    // Where the solver's own results would be.
    write(name + (isOfNeNastran ? ".fno" : ".op2"),
          "From panel-solver, an example. Its results are in the neutral file beside this one.\n");
    std::printf("panel-solver is an example: closed formulas, no finite elements. Results in %s\n",
                results.c_str());
}

}  // namespace

int main(int argc, char* argv[])
{
    if (argc != 2) {
        static_cast<void>(std::fputs(usage, stderr));
        return 2;
    }
    try {
        solveBeside(argv[1]);
    }
    catch (const std::exception& error) {
        static_cast<void>(std::fprintf(stderr, "panel-solver: %s\n", sys::reasonOf(error)));
        return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
}
