#include "app/study/Platform.h"
#include "femap/com/WayToFemap.h"
#include "femap/com/WindowsSystem.h"

#include <iostream>
#include <memory>
#include <string>

namespace study
{

std::function<std::unique_ptr<femap::Connector>(femap::SelectionDialogs&)> runningFemap()
{
    return [](femap::SelectionDialogs& dialogs) {
        auto femap = std::make_unique<femap::com::WayToFemap>(&dialogs);
        femap->reportTo([](const std::string& text) { std::cerr << text << std::endl; });
        return femap;
    };
}

logging::System platformSystem()
{
    femap::com::takeLibrariesFromSystemOnly();
    return femap::com::windowsSystem();
}

bool errorsShowColours()
{
    return femap::com::errorsShowColours();
}

}  // namespace study
