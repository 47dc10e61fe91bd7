// velmar-evaluate starts here on POSIX systems.
#include "loop/evaluate/EvaluateProgram.h"

int main(int argc, char* argv[])
{
    return loop::evaluate::runHere({argv + 1, argv + argc});
}
