// velmar-study starts here on POSIX systems.
#include "study/StudyProgram.h"

int main(int argc, char* argv[])
{
    return study::runHere({argv + 1, argv + argc});
}
