// Entries that another program asks for: for a contact, an appointment or a task of Pocket Outlook.
#include <algorithm>

#include "app/main_window.h"
#include "data/link_message.h"
#include "editor/entry_editor.h"
#include "list/selection_memory.h"
#include "outlook/linked_item.h"

namespace {

constexpr size_t kMostWaiting = 20;

// Whether a menu of this program is open.
bool IsInMenu() {
    GUITHREADINFO thread = {};
    thread.cbSize = sizeof(thread);
    return GetGUIThreadInfo(GetCurrentThreadId(), &thread) && (thread.flags & GUI_INMENUMODE);
}

}  // namespace

LRESULT MainWindow::OnLinkMessage(WORD kind, CEOID item) {
    if (!IsVisible()) return 0;  // the password is being asked for
    ReplyMessage(0);             // the sender does not wait for the user
    // No screen is opened over another that might use the same panels; the entry comes when the way is free.
    if (!IsEnabled()) {
        const std::pair link(kind, item);
        const bool known = std::find(waitingLinks_.begin(), waitingLinks_.end(), link) != waitingLinks_.end();
        if (!known && waitingLinks_.size() < kMostWaiting) waitingLinks_.push_back(link);
        SetForegroundWindow(GetLastActivePopup(GetHandle()));
        return 0;
    }
    if (IsInMenu()) {
        EndMenu();
        PostMessage(kLinkMessage, kind, static_cast<LPARAM>(item));
        return 0;
    }
    BeginLinkedEntry(kind, item);
    return 0;
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

void MainWindow::BeginLinkedEntry(WORD kind, CEOID item) {
    if (IsIconic(GetHandle())) Show(SW_RESTORE);
    SetForeground();
    LinkedItem linked;
    PimData record;
    if (!linked.Read(*this, kind, item, &record)) return;
    CEOID written = 0;
    const INT_PTR result = EntryEditor::Run(*this, journal_, record, written);
    if (!IsWindow()) return;  // closed together with the editor
    if (result != -1) selection_.SetCurrent(written);
    list_.RefreshList();
}
