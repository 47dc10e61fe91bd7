// The FEMAP of this machine, over COM.
#include "femap/com/FemapConnector.h"
#include "loop/connection/Connections.h"

#include <chrono>
#include <memory>
#include <string>

namespace loop::connection
{

namespace
{

// The task description lets the optimiser end a program after five minutes, without a word.
constexpr std::chrono::minutes longestRun(4);

}  // namespace

std::function<Connection()> toFemap(std::ostream& said)
{
    const auto end = std::chrono::steady_clock::now() + longestRun;
    return [&said, end] {
        const auto femap = std::make_shared<femap::com::FemapConnector>(nullptr);
        femap->reportTo([&said](const std::string& text) { said << text << std::endl; });
        femap->endWaitsWhen([end] { return std::chrono::steady_clock::now() > end; });
        return Connection{femap};
    };
}

}  // namespace loop::connection
