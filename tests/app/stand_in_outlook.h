// A Pocket Outlook in the place of the registered one: it notes what it is asked, and fails where it is told to.
#pragma once

#include <pimstore.h>

#include <string>
#include <vector>

// There as long as the object lives. Its items are those of the real one, from the store of the test.
class StandInOutlook {
public:
    StandInOutlook();
    ~StandInOutlook();
    StandInOutlook(const StandInOutlook&) = delete;
    StandInOutlook& operator=(const StandInOutlook&) = delete;

    HRESULT creation = S_OK;
    HRESULT logon = S_OK;
    HRESULT lookup = S_OK;

    // Calls in order: "create", "logon <window>", "item <oid>", "logoff", "gone".
    std::vector<std::string> calls;
    // References to items that were held at each logoff.
    std::vector<unsigned long> heldAtLogoff;

private:
    class Application;
    class Factory;

    Factory* factory_ = nullptr;
    DWORD registration_ = 0;
};
