// velmar-study on POSIX systems, which have neither FEMAP nor the form.
#include "study/Platform.h"
#include "system/TemporaryFiles.h"

#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace study
{

namespace
{

// What a file is opened as, where a standard stream is closed, would get what the stream is told.
void openStandardStreams()
{
    int stream = 0;
    while (stream >= 0 && stream <= STDERR_FILENO)
        stream = open("/dev/null", O_RDWR);
    if (stream > STDERR_FILENO)
        close(stream);
}

}  // namespace

void prepareProcess()
{
    openStandardStreams();
    // A reader that is gone, and a file that may not grow, are told as other failures are.
    for (const int signal : {SIGPIPE, SIGXFSZ})
        static_cast<void>(std::signal(signal, SIG_IGN));
    sys::removeTemporariesWhenEnded();
}

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
