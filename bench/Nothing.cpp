#include <iostream>

// Starts and ends as a C++ program does that has nothing to do.
int main()
{
    std::cout.flush();
}
