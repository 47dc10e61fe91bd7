// velmar-study on POSIX systems, which have neither FEMAP nor the form.
#include "study/Platform.h"

#include <unistd.h>

namespace study
{

std::function<std::unique_ptr<femap::Connector>(femap::SelectionDialogs&)> runningFemap()
{
    return {};
}

std::function<void(const std::string& script, const std::string& arguments)> recordedForm()
{
    return {};
}

std::function<int(const std::vector<std::string>& arguments, std::ostream& said)> femapProbe()
{
    return {};
}

bool errorsShowColours()
{
    return isatty(STDERR_FILENO) == 1;
}

}  // namespace study
