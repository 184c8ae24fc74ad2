// The entry editor's two pages, and the body with its zoom and view.
#include "aygshell.h"
#include "editor/entry_editor.h"
#include "res/ids.h"
#include "ui/application.h"
#include "ui/menu_bar.h"
#include "ui/resource_text.h"

namespace {
constexpr int kPictures = 3;  // in the bar's bitmap
}

void EntryEditor::UseMenuBar(UINT resource) {
    CreateMenuBar(false);
    CreateMenuBar(true, 0, resource, Application::Current()->GetInstance(), IDB_EDITOR_BAR, kPictures);
}

// The focus goes into the page, except for one who walks along the strip with the arrow keys.
void EntryEditor::OnTabChosen() {
    const bool byKey = ::GetFocus() == tabs_.GetHandle() && GetKeyState(VK_LBUTTON) >= 0;
    GoToPage(static_cast<Page>(tabs_.GetSelection()));
    if (byKey) tabs_.SetFocus();
}

void EntryEditor::GoToPage(Page page) {
    if (page == page_) return;
    if (page == kNotePage) {
        ShowNotePage();
    } else if (StoreBody()) {
        ShowEntryPage();
    }
    tabs_.SetSelection(page_);
}

void EntryEditor::ShowNotePage() {
    CloseEditor();
    page_ = kNotePage;
    UseMenuBar(IDR_EDITOR_NOTE_BAR);
    if (bodyField_) body_.Load(*bodyField_);
    bodyChanged_ = false;
    body_.ApplySettings();
    CheckZoom(ZoomItem(body_.StoredZoom()));
    ShowViewMode();
    Layout();
    list_.Hide();
    body_.Show();
    body_.SetFocus();
}

void EntryEditor::ShowEntryPage() {
    page_ = kEntryPage;
    UseMenuBar(IDR_EDITOR_ENTRY_BAR);
    Layout();
    body_.Hide();
    list_.Show();
    list_.SetFocus();
}

// Takes a changed body over into its field. False, after saying so, when there is no memory for it: the page stays, so
// that nothing written is lost.
bool EntryEditor::StoreBody() {
    if (!bodyField_) return true;
    body_.EndStroke();
    if (!bodyChanged_) return true;
    if (!body_.Store(*bodyField_)) {
        SHShowOutOfMemory(GetHandle(), 0);
        return false;
    }
    bodyChanged_ = false;
    ShowField(*bodyField_);
    return true;
}

void EntryEditor::CheckZoom(int item) {
    MenuBar bar;
    bar.Attach(GetMenuBar());
    const HMENU menu = bar.GetSubMenu(IDM_ZOOM_MENU);
    for (int i = 0; i < static_cast<int>(std::size(kZoomPercents)); ++i) {
        CheckMenuItem(menu, static_cast<UINT>(i), MF_BYPOSITION | (i == item ? MF_CHECKED : MF_UNCHECKED));
    }
}

void EntryEditor::OnZoom(int item) {
    body_.ChangeZoom(kZoomPercents[item]);
    CheckZoom(item);
    body_.SetFocus();
}

void EntryEditor::ShowViewMode() {
    MenuBar bar;
    bar.Attach(GetMenuBar());
    bar.CheckButton(IDM_VIEW_MODE, body_.StoredView() == VT_DRAWINGVIEW);
}

void EntryEditor::OnViewMode() {
    MenuBar bar;
    bar.Attach(GetMenuBar());
    body_.ChangeView(bar.IsButtonChecked(IDM_VIEW_MODE) ? VT_DRAWINGVIEW : VT_TYPINGVIEW);
}

void EntryEditor::ShowLimitReached() {
    MessageBox(LoadText(IDS_NOTE_LIMIT).c_str(), LoadText(IDS_NOTE_LIMIT_TITLE).c_str(), MB_OK | MB_ICONEXCLAMATION);
}
