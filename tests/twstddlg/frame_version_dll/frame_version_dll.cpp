// A module with a version resource that has no translation table and no
// DllGetVersion export, for the version tests.
#include <windows.h>

extern "C" __declspec(dllexport) int TwFrameVersionProbe()
{
    return 42;
}
