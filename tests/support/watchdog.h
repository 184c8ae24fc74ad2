// Ends the test program, with the titles of the windows it shows, when a test hangs: a modal loop nobody expected
// must fail in a minute, not hold the run for ever.
#pragma once

// Puts the watchdog into GoogleTest's list of listeners. Called once, before the tests run.
void InstallWatchdog(unsigned secondsPerTest);
