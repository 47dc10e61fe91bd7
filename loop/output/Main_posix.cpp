// CAEOutput starts here on POSIX systems.
#include "loop/Output.h"
#include "loop/connection/Start.h"

int main(int argc, char* argv[])
{
    return loop::connection::runHere("CAEOutput", loop::runOutput, {argv + 1, argv + argc});
}
