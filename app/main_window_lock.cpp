// The locked main window: made and filled, but neither to be seen nor used.
#include "app/main_window.h"
#include "data/link_message.h"

namespace {

constexpr UINT kPopupSystemMenu = 0x0313;  // the system's own; the taskbar sends it

bool IsInput(UINT message) {
    return (message >= WM_KEYFIRST && message <= WM_KEYLAST) || (message >= WM_MOUSEFIRST && message <= WM_MOUSELAST) ||
           (message >= WM_NCLBUTTONDOWN && message <= WM_NCXBUTTONDBLCLK);
}

// What a row shows to whoever asks the list.
LRESULT AnswerBlank(NMHDR* header) {
    if (header->code != LVN_GETDISPINFOW) return 0;
    LVITEMW& item = reinterpret_cast<NMLVDISPINFOW*>(header)->item;
    if ((item.mask & LVIF_TEXT) && item.pszText != nullptr && item.cchTextMax > 0) item.pszText[0] = L'\0';
    return 0;
}

}  // namespace

void MainWindow::Lock() {
    locked_ = true;
    SetPropW(GetHandle(), kLockedProperty, reinterpret_cast<HANDLE>(1));
}

void MainWindow::Unlock() {
    locked_ = false;
    RemovePropW(GetHandle(), kLockedProperty);
}

bool MainWindow::Refuses(UINT message, WPARAM wparam, LPARAM lparam, LRESULT* answer) const {
    *answer = 0;
    switch (message) {
        case WM_NOTIFY: *answer = AnswerBlank(reinterpret_cast<NMHDR*>(lparam)); return true;
        case kLinkMessage: *answer = kLinkLocked; return true;
        case WM_SYSCOMMAND: return (wparam & 0xFFF0) != SC_CLOSE;
        // However it is to be shown, it stays hidden.
        case WM_WINDOWPOSCHANGING: reinterpret_cast<WINDOWPOS*>(lparam)->flags &= ~UINT{SWP_SHOWWINDOW}; return false;
        case WM_STYLECHANGING:
            if (static_cast<int>(wparam) == GWL_STYLE)
                reinterpret_cast<STYLESTRUCT*>(lparam)->styleNew &= ~DWORD{WS_VISIBLE};
            return false;
        case WM_SETREDRAW:  // turned on, it makes a hidden window visible
        case WM_PRINT:
        case WM_PRINTCLIENT:
        case WM_COMMAND:
        case WM_CONTEXTMENU:
        case kPopupSystemMenu:
        case kOfferUnsaved:
        case kBusyMessage: return true;
        default: return IsInput(message);
    }
}
