// Prints one line, then waits for ever: the runner's test ends it from outside.
#include <windows.h>

#include <cstdio>

int main()
{
    std::puts("tw_hang: waiting for ever");
    std::fflush(stdout);
    ::Sleep(INFINITE);
}
