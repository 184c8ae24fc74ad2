#include "app/main_window.h"

#include <aygshell.h>
#include <px.h>
#include <windbase.h>

#include <utility>

#include "app/context_menu.h"
#include "data/db_journal.h"
#include "data/link_message.h"
#include "editor/entry_editor.h"
#include "editor/unsaved_entries.h"
#include "filter/filter_settings.h"
#include "filter/registry_filter_store.h"
#include "res/ids.h"
#include "ui/application.h"
#include "ui/resource_text.h"

namespace {

constexpr int kBarImages = 5;

// What the shell's setting changes that concern the input panel have in common. Other settings share single bits.
constexpr WPARAM kInputPanelBits = 0xE0;

}  // namespace

MainWindow* MainWindow::live_ = nullptr;

MainWindow::MainWindow(DbJournal& journal, SelectionMemory& selection, FilterSettings& filter)
    : bar_(journal, filter),
      list_(journal, selection, filter),
      journal_(journal),
      selection_(selection),
      filter_(filter) {}

MainWindow::~MainWindow() = default;

LRESULT CALLBACK MainWindow::Procedure(HWND hwnd, UINT message, WPARAM wparam, LPARAM lparam) noexcept {
    if (message == WM_CREATE && live_ == nullptr) {
        live_ = static_cast<MainWindow*>(reinterpret_cast<CREATESTRUCTW*>(lparam)->lpCreateParams);
        live_->Attach(hwnd);
        live_->Lock();
    }
    if (live_ == nullptr || live_->GetHandle() != hwnd) return DefWindowProcW(hwnd, message, wparam, lparam);
    const LRESULT result = live_->OnMessage(message, wparam, lparam);
    if (message == WM_NCDESTROY) {
        live_->Detach();
        live_ = nullptr;
    }
    return result;
}

LRESULT MainWindow::OnMessage(UINT message, WPARAM wparam, LPARAM lparam) {
    LRESULT refusal = 0;
    if (locked_ && Refuses(message, wparam, lparam, &refusal)) return refusal;
    switch (message) {
        case WM_CREATE: return OnCreate();
        case WM_DESTROY: return OnDestroy();
        case WM_CLOSE: return OnClose(true);
        case kHibernate: return OnClose(false);
        case kOfferUnsaved: return OnOfferUnsaved();
        case WM_SETTINGCHANGE: return OnSettingChange(wparam, lparam);
        case WM_MEASUREITEM:
            return contextMenu_ ? contextMenu_->Measure(reinterpret_cast<MEASUREITEMSTRUCT*>(lparam)) : FALSE;
        case WM_DRAWITEM:
            return contextMenu_ ? contextMenu_->Draw(*reinterpret_cast<DRAWITEMSTRUCT*>(lparam), GetBrush()) : FALSE;
        case WM_NOTIFY: return OnNotify(reinterpret_cast<NMHDR*>(lparam));
        case WM_COMMAND: return OnCommand(HIWORD(wparam), LOWORD(wparam));
        case WM_ENABLE: return OnEnable(wparam != FALSE);
        case kBusyMessage: return OnBusyMessage(wparam);
        case WM_DROPFILES: return OnDropFiles(reinterpret_cast<HDROP>(wparam));
        case kLinkMessage: return OnLinkMessage(LOWORD(wparam), static_cast<CEOID>(lparam));
        default: return DefWindowProcW(GetHandle(), message, wparam, lparam);
    }
}

LRESULT MainWindow::OnCreate() {
    // Asked for as a single-threaded apartment: the system's file dialogs need one.
    comInitialised_ = SUCCEEDED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED));
    if (!comInitialised_) {
        MessageBox(LoadText(IDS_NO_POCKET_OUTLOOK).c_str(), LoadText(IDS_JOURNAL_ERROR).c_str(), MB_OK);
        return -1;
    }
    if (CreateMenuBar(true, 0, IDR_MAIN, GetModuleHandleW(nullptr), IDB_MAIN_BAR, kBarImages) == -1) return -1;
    if (!MakeControls()) return -1;
    if (!journal_.Open(GetHandle())) return -1;
    list_.RefreshList();
    list_.Show();
    list_.SetFocus();
    DragAcceptFiles(GetHandle(), TRUE);
    return 0;
}

bool MainWindow::MakeControls() {
    const UniqueBitmap weave(LoadBitmapW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(IDB_MENU_WEAVE)));
    HoldBrush(UniqueBrush(CreatePatternBrush(weave.get())));

    RECT client;
    GetClientRect(&client);
    if (!bar_.CreateIn(GetHandle(), client.right)) return false;
    filter_.Load(RegistryFilterStore(*Application::Current()));  // before the bar names it
    bar_.SetShowText();
    bar_.SetSortText();
    bar_.Show();
    return list_.CreateIn(GetHandle(), ListPlace());
}

RECT MainWindow::ListPlace() const {
    RECT client;
    GetClientRect(&client);
    client.top = Px(ButtonBar::kHeight);
    if (client.bottom < client.top) client.bottom = client.top;
    return client;
}

LRESULT MainWindow::OnClose(bool asks) {
    if (asking_) return 0;
    EntryEditor::FinishOpen();  // the shell may close the program while an entry is being edited
    // Behind the password nobody is told what is in the journal.
    if (asks && !locked_) {
        asking_ = true;
        const bool closes = MayCloseUnsaved(*this);
        asking_ = false;
        if (!closes || !IsWindow()) return 0;
    }
    journal_.Close();
    selection_.Clear();
    Destroy();
    return 0;
}

// Once: what keeps the journal from being written, a full disk above all.
void MainWindow::TellLimit() {
    DWORD limit = 0;
    if (std::exchange(toldLimit_, true) || !CeObjectStoreLimit(&limit) || limit == 0) return;
    const UINT text = limit == ERROR_DISK_FULL ? IDS_STORE_NO_ROOM : IDS_STORE_READ_ONLY;
    MessageBox(LoadText(text).c_str(), LoadText(IDS_APP_TITLE).c_str(), MB_OK | MB_ICONEXCLAMATION);
}

LRESULT MainWindow::OnOfferUnsaved() {
    if (!asking_ && IsVisible() && IsEnabled()) TellLimit();
    if (!asking_ && IsWindow() && IsVisible() && IsEnabled()) {
        asking_ = true;
        const bool wanted = WantsUnsaved(*this);
        asking_ = false;
        if (wanted && IsWindow()) OnCommandId(IDM_NEW_ENTRY);
    }
    return 0;
}

LRESULT MainWindow::OnDestroy() {
    RemovePropW(GetHandle(), kLockedProperty);
    if (GetMenuBar() != nullptr) CreateMenuBar(false);
    if (comInitialised_) CoUninitialize();
    comInitialised_ = false;
    PostQuitMessage(0);
    return 0;
}

LRESULT MainWindow::OnSettingChange(WPARAM wparam, LPARAM lparam) {
    HandleSettingChange(wparam, lparam);
    if ((wparam & kInputPanelBits) == kInputPanelBits && list_.IsWindow() && list_.IsVisible()) {
        RECT client;
        GetClientRect(&client);
        bar_.Fit(client.right);
        list_.Place(ListPlace());
    }
    return 0;
}

LRESULT MainWindow::OnNotify(NMHDR* header) {
    // Taps that another program posts behind an open screen.
    if (IsBehindScreen() && (header->code == TBN_DROPDOWN || header->code == GN_CONTEXTMENU)) return 0;
    if (header->code == NMN_GETAPPREGKEY) return OnNewMenu(reinterpret_cast<NMNEWMENU*>(header));
    if (header->code == GN_CONTEXTMENU) return OnContextMenu(*reinterpret_cast<NMRGINFO*>(header));
    if (list_.IsWindow() && header->hwndFrom == list_.GetHeader()) return list_.OnNotify(header);
    if (header->idFrom == IDC_ENTRY_LIST) return list_.OnNotify(header);
    if (header->idFrom == IDC_BUTTON_BAR) return bar_.OnNotify(header);
    return 0;
}

LRESULT MainWindow::OnBusyMessage(WPARAM what) {
    if (what == 1) {
        Application::Current()->SetBusy(true);
    } else if (what == 2) {
        Application::Current()->SetBusy(false);
        list_.RefreshList();
    }
    return 0;
}
