#include "generate/SolverFormat.h"

#include "generate/LinePieces.h"

#include <algorithm>
#include <iterator>

namespace generate
{

namespace
{

// clang-format off
constexpr SolverFormat formats[] = {
    {"NENastran", "NastranNE", "nastran nastran.ini ", "nas", "fno", "", "NEiNastran Engine V84"},
    {"NXNastran", "NastranNX", "nastran ",             "dat", "op2", " notify=no", ""},
};
// clang-format on

}  // namespace

const SolverFormat* findSolverFormat(std::string_view solver)
{
    const auto* const found =
        std::find_if(std::begin(formats), std::end(formats),
                     [&](const SolverFormat& format) { return format.solver == solver; });
    return found == std::end(formats) ? nullptr : found;
}

std::span<const SolverFormat> solverFormats()
{
    return formats;
}

std::string deckName(const SolverFormat& format, std::string_view modelName)
{
    return concatenated({modelName, ".", format.deck});
}

std::string commandLine(const SolverFormat& format, std::string_view modelName)
{
    return concatenated({format.commandStart, deckName(format, modelName), format.commandEnd});
}

}  // namespace generate
