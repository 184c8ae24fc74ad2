#include "app/journal_app.h"

#include <aygshell.h>
#include <inkx.h>
#include <pimstore.h>
#include <px.h>
#include <richink.h>

#include "app/main_window.h"
#include "lock/password_lock.h"
#include "res/ids.h"
#include "ui/bring_forward.h"

namespace {

constexpr int kTries = 3;  // for the password

// Whether the journal runs already; its window, or the screen open over it, is brought forward then.
bool BringRunningForward(const wchar_t* className, const wchar_t* title) {
    if (FindWindowW(className, title) == nullptr) return false;
    BringForward(FindWindowW(className, title));
    return true;
}

}  // namespace

JournalApp::JournalApp(DbJournal& journal, SelectionMemory& selection, FilterSettings& filter)
    : Application(kSettings), journal_(journal), selection_(selection), filter_(filter) {}

bool JournalApp::InitInstance(HINSTANCE instance, int showFlag) {
    wchar_t className[100] = L"";
    wchar_t title[100] = L"";
    LoadStringW(instance, IDS_APP_CLASS, className, 100);
    LoadStringW(instance, IDS_APP_TITLE, title, 100);
    if (BringRunningForward(className, title)) return false;

    if (!InitCommonControls()) return false;
    InitInkX();
    InitRichInkDLL();
    PimRegisterServer();  // if it cannot be, there is no Pocket Outlook
    if (!RegisterWindowClass(instance, className, MainWindow::Procedure)) return false;
    Application::InitInstance(instance, showFlag);

    if (!CreateMainWindow(className, title)) return false;

    const HWND focus = GetFocus();
    PasswordLock lock(*GetMainWindow());
    if (!PassLock(lock)) {
        GetMainWindow()->SendMessage(WM_CLOSE);
        return false;
    }
    MainWindow& window = static_cast<MainWindow&>(*GetMainWindow());
    window.Unlock();
    // Taps posted from outside have selected rows that the list did not hear of.
    if (lock.IsActive()) window.List().RefreshList();
    window.Show(showFlag);
    // The pad went while nothing else of the program was to be seen: the system may have turned to another program.
    if (lock.IsActive()) GetMainWindow()->SetForeground();
    ::SetFocus(focus);
    GetMainWindow()->Update();
    GetMainWindow()->PostMessage(MainWindow::kOfferUnsaved);
    return true;
}

bool JournalApp::PassLock(PasswordLock& lock) {
    if (!lock.IsActive()) return true;
    // Hidden so far, the window can be closed from outside while the pad is up.
    for (int tries = 0; tries < kTries && GetMainWindow()->IsWindow(); ++tries) {
        if (lock.Check()) return true;
    }
    return false;
}

bool JournalApp::CreateMainWindow(const wchar_t* className, const wchar_t* title) {
    SIPINFO panel = {};
    panel.cbSize = sizeof(panel);
    if (!SHSipInfo(SPI_GETSIPINFO, 0, &panel, 0)) return false;
    const RECT& desktop = panel.rcVisibleDesktop;
    SIZE size = {desktop.right - desktop.left, desktop.bottom - desktop.top};
    if ((panel.fdwFlags & SIPF_ON) == 0) size.cy -= Px(kMenuBarHeight);
    DWORD style = WS_VISIBLE;
    SHScreenWindow(&style, &size);

    auto window = std::make_unique<MainWindow>(journal_, selection_, filter_);
    MainWindow* made = window.get();
    SetMainWindow(std::move(window));
    return made->Create(className, title, style, CW_USEDEFAULT, CW_USEDEFAULT, size.cx, size.cy, nullptr, nullptr,
                        GetInstance(), made);
}
