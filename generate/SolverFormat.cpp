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
    {"NENastran", "NastranNE", "nastran nastran.ini ", "nas", "fno", "", "NEiNastran Engine V84",
                                                              femap::SolverBrand::NeNastran},
    {"NXNastran", "NastranNX", "nastran ",             "dat", "op2", " notify=no", "",
                                                              femap::SolverBrand::NxNastran},
};
// clang-format on

const SolverFormat* findBy(std::string_view SolverFormat::*part, std::string_view text)
{
    const auto* const found = std::ranges::find(formats, text, part);
    return found == std::end(formats) ? nullptr : found;
}

}  // namespace

const SolverFormat* findSolverFormat(std::string_view solver)
{
    return findBy(&SolverFormat::solver, solver);
}

const SolverFormat* findSolverCode(std::string_view codeName)
{
    return findBy(&SolverFormat::codeName, codeName);
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
