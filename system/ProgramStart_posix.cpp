// ProgramStart.h on Linux and other POSIX systems.
#include "system/ProgramStart.h"
#include "system/TemporaryFiles.h"

#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace sys
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

void prepareProgram()
{
    openStandardStreams();
    // A reader that is gone, and a file that may not grow, are told as other failures are.
    for (const int signal : {SIGPIPE, SIGXFSZ})
        static_cast<void>(std::signal(signal, SIG_IGN));
    removeTemporariesWhenEnded();
}

}  // namespace sys
