// Pocket Outlook, logged on to.
#pragma once

#include <pimstore.h>

#include <string>

#include "ui/unique_handle.h"

struct ComReleaser {
    void operator()(IUnknown* object) const { object->Release(); }
};
// Owns one reference to an object.
template <class Interface>
using UniqueCom = UniqueHandle<Interface*, ComReleaser>;

// The text that a method hands out, empty when it fails.
template <class Interface>
std::wstring OutlookText(Interface& item, HRESULT (STDMETHODCALLTYPE Interface::*get)(BSTR*)) {
    BSTR text = nullptr;
    if (FAILED((item.*get)(&text)) || !text) return {};
    const std::wstring copy(text, SysStringLen(text));
    SysFreeString(text);
    return copy;
}

// The session ends with the object. It initialises COM for itself: a screen may outlive the main window, which does so
// for the program.
class OutlookSession {
public:
    OutlookSession() = default;
    ~OutlookSession() { Close(); }
    OutlookSession(const OutlookSession&) = delete;
    OutlookSession& operator=(const OutlookSession&) = delete;

    // False when there is no Pocket Outlook, or it lets nobody in. `window` is the one that its own would open over.
    bool Open(HWND window);
    void Close();

    // Null when not open.
    IPOutlookApp* Application() const { return application_.get(); }

private:
    bool comInitialised_ = false;
    UniqueCom<IPOutlookApp> application_;
};
