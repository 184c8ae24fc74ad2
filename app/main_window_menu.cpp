// The menus that the main window opens or adds to; the drawing of the context menu is its own.
#include <aygshell.h>

#include "app/context_menu.h"
#include "app/main_window.h"
#include "res/ids.h"
#include "ui/resource_text.h"

LRESULT MainWindow::OnNewMenu(NMNEWMENU* query) {
    AppendMenuW(query->hMenu, MF_STRING, IDM_NEW_ENTRY, LoadText(IDS_APP_TITLE).c_str());
    return 0;
}

LRESULT MainWindow::OnContextMenu(const NMRGINFO& gesture) {
    if (contextMenu_) return 0;  // asked for once more while it is open
    contextMenu_ = std::make_unique<ContextMenu>();
    contextMenu_->Open(*this, gesture.ptAction);
    contextMenu_.reset();
    return 0;
}
