// Entries that another program asks for: for a contact, an appointment or a task of Pocket Outlook.
#include <utility>

#include "app/main_window.h"
#include "data/link_message.h"
#include "editor/entry_editor.h"
#include "list/selection_memory.h"
#include "outlook/linked_item.h"
#include "res/ids.h"
#include "ui/bring_forward.h"
#include "ui/resource_text.h"

namespace {

constexpr size_t kMostWaiting = 200;  // no person gets that far: a program has gone wrong

// Whether a menu of this program is open.
bool IsInMenu() {
    GUITHREADINFO thread = {};
    thread.cbSize = sizeof(thread);
    return GetGUIThreadInfo(GetCurrentThreadId(), &thread) && (thread.flags & GUI_INMENUMODE);
}

}  // namespace

LRESULT MainWindow::OnLinkMessage(WORD kind, CEOID item) {
    ReplyMessage(kLinkTaken);  // the sender does not wait for the user
    // No screen is opened over another that might use the same panels; the entry comes when the way is free.
    if (!IsEnabled()) {
        if (waitingLinks_.size() < kMostWaiting) {
            waitingLinks_.emplace_back(kind, item);
        } else {
            ++refusedLinks_;
        }
        BringForward(GetHandle());
        return kLinkTaken;
    }
    if (IsInMenu()) {
        EndMenu();
        PostMessage(kLinkMessage, kind, static_cast<LPARAM>(item));
        return kLinkTaken;
    }
    BeginLinkedEntry(kind, item);
    if (IsWindow() && waitingLinks_.empty()) TellRefusedLinks();
    return kLinkTaken;
}

// A screen over the window has closed, or one that was to open did not.
LRESULT MainWindow::OnEnable(bool enabled) {
    if (enabled && !waitingLinks_.empty()) {
        const auto [kind, item] = waitingLinks_.front();
        waitingLinks_.pop_front();
        PostMessage(kLinkMessage, kind, static_cast<LPARAM>(item));
    }
    return 0;
}

void MainWindow::TellRefusedLinks() {
    const int refused = std::exchange(refusedLinks_, 0);
    if (refused == 0) return;
    wchar_t text[200];
    wsprintfW(text, LoadText(IDS_LINKS_REFUSED).c_str(), refused);
    MessageBox(text, LoadText(IDS_APP_TITLE).c_str(), MB_OK | MB_ICONEXCLAMATION);
}

void MainWindow::BeginLinkedEntry(WORD kind, CEOID item) {
    if (IsIconic(GetHandle())) Show(SW_RESTORE);
    SetForeground();
    LinkedItem linked;
    PimData record;
    if (!linked.Read(*this, kind, item, &record)) return;
    CEOID written = 0;
    const INT_PTR result = EntryEditor::Run(*this, journal_, record, written);
    if (!IsWindow()) return;  // closed together with the editor
    if (result != -1) selection_.SelectOnly(written);
    list_.RefreshList();
}
