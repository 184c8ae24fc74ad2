#include "outlook/outlook_session.h"

bool OutlookSession::Open(HWND window) {
    Close();
    comInitialised_ = SUCCEEDED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED));
    if (!comInitialised_) return false;
    IPOutlookApp* made = nullptr;
    if (FAILED(CoCreateInstance(CLSID_Application, nullptr, CLSCTX_INPROC_SERVER, IID_IPOutlookApp,
                                reinterpret_cast<void**>(&made)))) {
        return false;
    }
    UniqueCom<IPOutlookApp> application(made);
    // A window's handle has 32 bits that count.
    if (FAILED(application->Logon(static_cast<long>(reinterpret_cast<LONG_PTR>(window))))) return false;
    application_ = std::move(application);
    return true;
}

void OutlookSession::Close() {
    if (application_) {
        application_->Logoff();
        application_.reset();
    }
    if (comInitialised_) CoUninitialize();
    comInitialised_ = false;
}
