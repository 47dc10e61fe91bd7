#include "app/study/Platform.h"

#include <unistd.h>

namespace study
{

std::function<std::unique_ptr<femap::Connector>(femap::SelectionDialogs&)> runningFemap()
{
    return {};
}

logging::System platformSystem()
{
    return logging::standardSystem();
}

std::function<void(const std::string& script, const std::string& arguments)> recordedForm()
{
    return {};
}

bool errorsShowColours()
{
    return isatty(STDERR_FILENO) == 1;
}

}  // namespace study
