#include "app/study/RunningFemap.h"
#include "femap/com/Apartment.h"
#include "femap/com/BusyFilter.h"
#include "femap/com/ComApplication.h"
#include "femap/com/WindowsSystem.h"

#include <iostream>
#include <memory>
#include <string>

namespace study
{

namespace
{

// COM is there for as long as the way to FEMAP.
class RunningFemap : public femap::Connector
{
public:
    explicit RunningFemap(femap::SelectionDialogs& dialogs) : connector_(&dialogs, patience_)
    {
        patience_->report = [](const std::string& text) { std::cerr << text << std::endl; };
    }

    std::unique_ptr<femap::Application> attach() override { return connector_.attach(); }
    std::unique_ptr<femap::Application> create() override { return connector_.create(); }

private:
    femap::com::Apartment apartment_;
    std::shared_ptr<femap::com::Patience> patience_ = std::make_shared<femap::com::Patience>();
    femap::com::BusyFilter filter_{*patience_};
    femap::com::ComConnector connector_;
};

}  // namespace

std::function<std::unique_ptr<femap::Connector>(femap::SelectionDialogs&)> runningFemap()
{
    return [](femap::SelectionDialogs& dialogs) { return std::make_unique<RunningFemap>(dialogs); };
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
