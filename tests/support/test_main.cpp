// The main function of every test program.
#include <gmock/gmock.h>
#include <win.h>

#include "tests/support/watchdog.h"

int main(int argc, char** argv) {
    // A crash ends the program at once instead of asking somebody.
    SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOGPFAULTERRORBOX);
    testing::InitGoogleMock(&argc, argv);
    InstallWatchdog(60);
    return RUN_ALL_TESTS();
}
