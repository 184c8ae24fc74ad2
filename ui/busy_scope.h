// The wait cursor for as long as an object lives.
#pragma once

#include "ui/application.h"

class BusyScope {
public:
    BusyScope() { Application::Current()->SetBusy(true); }
    ~BusyScope() { Application::Current()->SetBusy(false); }
    BusyScope(const BusyScope&) = delete;
    BusyScope& operator=(const BusyScope&) = delete;
};
