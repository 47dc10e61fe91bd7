// CAEInput starts here on POSIX systems.
#include "loop/Input.h"
#include "loop/connection/Start.h"

int main(int argc, char* argv[])
{
    return loop::connection::runHere("CAEInput", loop::runInput, {argv + 1, argv + argc});
}
