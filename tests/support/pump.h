// Waiting for something with a deadline, while this thread's windows go on working.
#pragma once

#include <functional>

constexpr unsigned kPatience = 10'000;  // milliseconds; long, because the machine may be busy, and never waited out

// Dispatches this thread's messages until `done` answers true (then true) or `milliseconds` have passed (then false).
[[nodiscard]] bool PumpUntil(const std::function<bool()>& done, unsigned milliseconds = kPatience);

// Dispatches what is in the queue now and returns.
void PumpOnce();
