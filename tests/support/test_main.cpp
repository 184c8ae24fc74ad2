// The main function of every test program.
#include <gmock/gmock.h>
#include <win.h>

#include "tests/support/watchdog.h"

int main(int argc, char** argv) {
    // A crash ends the program at once instead of asking somebody.
    SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOGPFAULTERRORBOX);
    // A device of the classic size, unless somebody asks for a look at another: what fits the desktop differs between
    // desktops.
    if (!GetEnvironmentVariableW(L"CE_SCREEN", nullptr, 0)) SetEnvironmentVariableW(L"CE_SCREEN", L"240x320");
    testing::InitGoogleMock(&argc, argv);
    InstallWatchdog(60);
    return RUN_ALL_TESTS();
}
