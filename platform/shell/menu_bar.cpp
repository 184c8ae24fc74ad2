#include "platform/shell/menu_bar.h"

#include <algorithm>
#include <new>
#include <utility>

#include "aygshell.h"
#include "platform/shell/input_panel.h"
#include "platform/shell/screen.h"
#include "platform/window_support.h"
#include "px.h"

namespace {

constexpr wchar_t kFrameClass[] = L"CBFRAME";
constexpr wchar_t kMenuClass[] = L"Menu";
constexpr int kPictureSide = 16;
constexpr int kPictureButton = 26;  // width of a button with a picture
constexpr int kTextMargin = 7;      // on each side of a text
constexpr int kArrowPart = 15;      // the arrow of a two-part button
constexpr int kSeparator = 8;
constexpr int kDoneButton = 36;
constexpr int kFontHeight = 11;
constexpr UINT kFirstShellString = 100;  // string ids below it are the shell's

// The shell's strings by their ids, from IDS_SHNEW on.
constexpr const wchar_t* kShellStrings[] = {L"New", L"Edit", L"Tools", L"View", L"File", L"Go", L"Favorites", L"Open"};

std::wstring LoadText(HINSTANCE module, UINT id) {
    if (id >= 1 && id <= ARRAYSIZE(kShellStrings)) return kShellStrings[id - 1];
    if (id < kFirstShellString) return {};
    const wchar_t* text = nullptr;
    const int length = LoadStringW(module, id, reinterpret_cast<wchar_t*>(&text), 0);
    return length > 0 ? std::wstring(text, length) : std::wstring();
}

// The text of the item with that command anywhere in a menu, without its access key and shortcut.
std::wstring MenuText(HMENU menu, UINT command) {
    wchar_t text[128];
    if (!menu || !GetMenuStringW(menu, command, text, ARRAYSIZE(text), MF_BYCOMMAND)) return {};
    std::wstring name = text;
    name.resize(std::min(name.size(), name.find(L'\t')));
    std::erase(name, L'&');
    return name;
}

HFONT MakeFont(int weight) {
    return CreateFontW(-Px(kFontHeight), 0, 0, 0, weight, FALSE, FALSE, FALSE, DEFAULT_CHARSET, OUT_DEFAULT_PRECIS,
                       CLIP_DEFAULT_PRECIS, CLEARTYPE_QUALITY, DEFAULT_PITCH | FF_SWISS, L"Tahoma");
}

}  // namespace

MenuBar::MenuBar(HWND owner) : owner_(owner), font_(MakeFont(FW_NORMAL)), boldFont_(MakeFont(FW_BOLD)) {}

MenuBar::~MenuBar() {
    if (menu_) DestroyMenu(menu_);
    DeleteObject(font_);
    DeleteObject(boldFont_);
}

bool MenuBar::RegisterClasses() {
    INITCOMMONCONTROLSEX controls{sizeof(INITCOMMONCONTROLSEX), ICC_BAR_CLASSES | ICC_COOL_CLASSES};
    return InitCommonControlsEx(&controls) && RegisterWindowClass(kFrameClass, FrameProcedure) &&
           RegisterWindowClass(kMenuClass, MenuProcedure);
}

MenuBar* MenuBar::Of(HWND bar) {
    if (!bar || GetClassLongPtrW(bar, GCLP_WNDPROC) != reinterpret_cast<ULONG_PTR>(FrameProcedure)) return nullptr;
    return reinterpret_cast<MenuBar*>(GetWindowLongPtrW(bar, GWLP_USERDATA));
}

HWND MenuBar::CreateEmpty(HWND owner, DWORD flags) {
    if (!RegisterClasses()) return nullptr;
    auto* bar = new (std::nothrow) MenuBar(owner);
    return bar ? bar->CreateFrame(flags) : nullptr;
}

HWND MenuBar::Create(HWND owner, HINSTANCE module, UINT id, UINT pictures, DWORD flags) {
    const HWND frame = CreateEmpty(owner, flags | SHCMBF_HIDDEN);
    if (!frame) return nullptr;
    if (!Of(frame)->Load(module, id, pictures)) {
        const DWORD error = GetLastError();
        DestroyWindow(frame);
        SetLastError(error);
        return nullptr;
    }
    if (!(flags & SHCMBF_HIDDEN)) ShowWindow(frame, SW_SHOWNA);
    return frame;
}

// The window owns the object from WM_NCCREATE to WM_NCDESTROY.
HWND MenuBar::CreateFrame(DWORD flags) {
    const DWORD visible = flags & SHCMBF_HIDDEN ? 0 : WS_VISIBLE;
    const DWORD style = WS_CHILD | WS_CLIPSIBLINGS | WS_CLIPCHILDREN | visible;
    RECT client{};
    GetClientRect(owner_, &client);
    const int height = Px(kMenuBarHeight);
    const HWND frame = CreateWindowExW(WS_EX_NOPARENTNOTIFY, kFrameClass, nullptr, style, 0, client.bottom - height,
                                       client.right, height, owner_, nullptr, OwnModule(), this);
    if (frame) {
        SetWindowPos(frame, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
        if (flags & SHCMBF_HIDESIPBUTTON) ShowWindow(panel_, SW_HIDE);
        const Screen* screen = Screen::Of(owner_);
        ShowDone(screen && screen->HasDone());
    }
    return frame;
}

bool MenuBar::CreateParts(HWND frame) {
    frame_ = frame;
    constexpr DWORD kRebarStyle =
        WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN | WS_CLIPSIBLINGS | CCS_NODIVIDER | CCS_NOPARENTALIGN | CCS_NORESIZE;
    rebar_ =
        CreateWindowExW(0, REBARCLASSNAMEW, nullptr, kRebarStyle, 0, 0, 0, 0, frame, nullptr, OwnModule(), nullptr);
    if (!rebar_) return false;
    toolbar_ = CreateToolbar(rebar_);
    done_ = CreateToolbar(frame);
    panel_ = CreateToolbar(frame);
    if (!toolbar_ || !done_ || !panel_) return false;
    menuWindow_ = CreateWindowExW(0, kMenuClass, nullptr, WS_CHILD, 0, 0, 0, 0, toolbar_, nullptr, OwnModule(), this);
    AddButton(done_, {IDOK, -1, L"ok", nullptr, false}, TBSTATE_ENABLED, BTNS_BUTTON);
    SetButtonWidth(done_, IDOK, Px(kDoneButton));
    ShowWindow(done_, SW_HIDE);
    AddButton(panel_, {kInputPanelCommand, -1, L"Keyboard", nullptr, false}, TBSTATE_ENABLED, BTNS_BUTTON);
    SetButtonWidth(panel_, kInputPanelCommand, Px(kPictureButton));
    ShowPanelState();
    return menuWindow_ != nullptr;
}

HWND MenuBar::CreateToolbar(HWND parent) {
    constexpr DWORD kStyle = WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS | TBSTYLE_FLAT | TBSTYLE_LIST | TBSTYLE_TOOLTIPS |
                             CCS_NODIVIDER | CCS_NOPARENTALIGN | CCS_NORESIZE;
    const HWND bar =
        CreateWindowExW(0, TOOLBARCLASSNAMEW, nullptr, kStyle, 0, 0, 0, 0, parent, nullptr, OwnModule(), nullptr);
    if (!bar) return nullptr;
    SendMessageW(bar, TB_BUTTONSTRUCTSIZE, sizeof(TBBUTTON), 0);
    SendMessageW(bar, WM_SETFONT, reinterpret_cast<WPARAM>(font_), FALSE);
    SendMessageW(bar, TB_SETPARENT, reinterpret_cast<WPARAM>(frame_), 0);
    // A toolbar makes its buttons as high as their pictures: it is told of one as high as the bar.
    SendMessageW(bar, TB_SETINDENT, parent == frame_ ? 0 : Px(2), 0);
    SendMessageW(bar, TB_SETPADDING, 0, 0);
    SendMessageW(bar, TB_SETBITMAPSIZE, 0, MAKELPARAM(1, Px(kMenuBarHeight) - 1));
    SetWindowSubclass(bar, BarProcedure, 1, reinterpret_cast<DWORD_PTR>(this));
    return bar;
}

bool MenuBar::Load(HINSTANCE module, UINT id, UINT pictures) {
    const HRSRC found = FindResourceW(module, MAKEINTRESOURCEW(id), RT_RCDATA);
    const HGLOBAL loaded = found ? LoadResource(module, found) : nullptr;
    if (!loaded) return false;
    const auto resource = ReadMenuBarResource(LockResource(loaded), SizeofResource(module, found));
    if (!resource) {
        SetLastError(ERROR_INVALID_DATA);
        return false;
    }
    menu_ = LoadMenuW(module, MAKEINTRESOURCEW(resource->menu));
    if (pictures) pictures_.Load(module, pictures, Px(kPictureSide));
    for (const MenuBarButton& button : resource->buttons) {
        items_.push_back(ItemOf(button, module));
        AddButton(toolbar_, items_.back(), button.state, button.style);
    }
    Fit();
    return true;
}

MenuBar::Item MenuBar::ItemOf(const MenuBarButton& button, HINSTANCE module) const {
    const bool separator = (button.style & BTNS_SEP) != 0;
    const bool hasPicture = !separator && button.image < pictures_.Count();
    Item item{button.command, hasPicture ? button.image : -1, LoadText(module, button.text), nullptr, separator};
    if (item.text.empty()) item.text = MenuText(menu_, button.command);
    if (button.popup != MenuBarResource::kNoPopup && menu_) item.popup = GetSubMenu(menu_, button.popup);
    return item;
}

void MenuBar::AddButton(HWND bar, const Item& item, BYTE state, BYTE style) {
    TBBUTTON button{};
    button.idCommand = static_cast<int>(item.command);
    button.iBitmap = item.separator ? Px(kSeparator) : item.image >= 0 ? item.image : I_IMAGENONE;
    button.fsState = state;
    // The widths are computed here, and what drops down says so by its popup as well.
    button.fsStyle = style & ~BTNS_AUTOSIZE;
    if (item.popup || item.command == IDM_SHAREDNEW || item.command == IDM_SHAREDNEWDEFAULT) {
        button.fsStyle |= BTNS_DROPDOWN;
    }
    button.iString = item.text.empty() ? -1 : reinterpret_cast<INT_PTR>(item.text.c_str());
    SendMessageW(bar, TB_ADDBUTTONSW, 1, reinterpret_cast<LPARAM>(&button));
}

void MenuBar::Fit() {
    for (const Item& item : items_) {
        if (item.separator) continue;
        int width = Px(kPictureButton);
        if (item.image < 0) {
            width = TextWidth(TextOf(toolbar_, item.command)) + 2 * Px(kTextMargin);
            if (IsTwoPart(item.command)) width += Px(kArrowPart);
        }
        SetButtonWidth(toolbar_, item.command, width);
    }
}

RECT MenuBar::ArrowPart(const RECT& button) const {
    return {button.right - Px(kArrowPart), button.top, button.right, button.bottom};
}

void MenuBar::SetButtonWidth(HWND bar, UINT command, int width) const {
    TBBUTTONINFOW info{};
    info.cbSize = sizeof(info);
    info.dwMask = TBIF_SIZE;
    info.cx = static_cast<WORD>(width);
    SendMessageW(bar, TB_SETBUTTONINFOW, command, reinterpret_cast<LPARAM>(&info));
}

bool MenuBar::CanAct() const {
    return IsWindowVisible(owner_) && IsWindowEnabled(owner_);
}

bool MenuBar::HasPanelButton() const {
    return (GetWindowLongW(panel_, GWL_STYLE) & WS_VISIBLE) != 0;
}

void MenuBar::ShowPanelState() const {
    SendMessageW(panel_, TB_CHECKBUTTON, kInputPanelCommand, InputPanel::IsUp());
}

void MenuBar::ShowDone(bool shown) {
    ShowWindow(done_, shown ? SW_SHOWNA : SW_HIDE);
    LayOut();
}

void MenuBar::LayOut() const {
    RECT client;
    GetClientRect(frame_, &client);
    const bool hasDone = (GetWindowLongW(done_, GWL_STYLE) & WS_VISIBLE) != 0;
    const int doneWidth = hasDone ? Px(kDoneButton) + Px(2) : 0;
    const int panelWidth = HasPanelButton() ? Px(kPictureButton) : 0;
    const int width = std::max<int>(0, client.right - doneWidth - panelWidth);
    const int height = client.bottom - 1;  // the line along the top is the frame's
    MoveWindow(rebar_, 0, 1, width, height, TRUE);
    MoveWindow(toolbar_, 0, 0, width, height, TRUE);
    MoveWindow(panel_, width, 1, Px(kPictureButton), height, TRUE);
    MoveWindow(done_, width + panelWidth, 1, Px(kDoneButton), height, TRUE);
}

MenuBar::Item* MenuBar::Find(UINT command) {
    const auto found = std::find_if(items_.begin(), items_.end(),
                                    [&](const Item& item) { return !item.separator && item.command == command; });
    return found == items_.end() ? nullptr : &*found;
}

std::wstring MenuBar::TextOf(HWND bar, UINT command) const {
    wchar_t text[128] = {};
    TBBUTTONINFOW info{};
    info.cbSize = sizeof(info);
    info.dwMask = TBIF_TEXT;
    info.pszText = text;
    info.cchText = ARRAYSIZE(text);
    SendMessageW(bar, TB_GETBUTTONINFOW, command, reinterpret_cast<LPARAM>(&info));
    return text;
}

HMENU MenuBar::SetPopup(UINT command, HMENU popup) {
    Item* item = Find(command);
    return item ? std::exchange(item->popup, popup) : nullptr;
}

// Whoever changes a button's text changes its width.
LRESULT MenuBar::OnToolbarMessage(UINT message, WPARAM wparam, LPARAM lparam) {
    const LRESULT result = SendMessageW(toolbar_, message, wparam, lparam);
    if (message == TB_SETBUTTONINFOW && (reinterpret_cast<const TBBUTTONINFOW*>(lparam)->dwMask & TBIF_TEXT) != 0) {
        Fit();
    }
    return result;
}

LRESULT MenuBar::OnNotify(NMHDR* notice) {
    switch (notice->code) {
        case static_cast<UINT>(NM_CUSTOMDRAW): return OnCustomDraw(reinterpret_cast<NMTBCUSTOMDRAW*>(notice));
        case static_cast<UINT>(TBN_DROPDOWN): return OnDropDown(*reinterpret_cast<NMTOOLBARW*>(notice));
        case static_cast<UINT>(TBN_GETINFOTIPW): {
            const auto* tip = reinterpret_cast<NMTBGETINFOTIPW*>(notice);
            const Item* item = Find(static_cast<UINT>(tip->iItem));
            // A text that is on the button needs no tip.
            if (notice->hwndFrom == toolbar_ && item && item->image >= 0) {
                lstrcpynW(tip->pszText, TextOf(toolbar_, item->command).c_str(), tip->cchTextMax);
            } else if (notice->hwndFrom == panel_) {
                lstrcpynW(tip->pszText, TextOf(panel_, kInputPanelCommand).c_str(), tip->cchTextMax);
            } else if (tip->cchTextMax > 0) {
                tip->pszText[0] = 0;
            }
            return 0;
        }
    }
    return 0;
}

LRESULT MenuBar::OnFrameMessage(UINT message, WPARAM wparam, LPARAM lparam) {
    switch (message) {
        case WM_CREATE: return CreateParts(frame_) ? 0 : -1;
        case WM_SIZE: LayOut(); return 0;
        case WM_ERASEBKGND: DrawFrame(reinterpret_cast<HDC>(wparam)); return TRUE;
        case WM_COMMAND: Send(LOWORD(wparam)); return 0;
        case WM_NOTIFY: return OnNotify(reinterpret_cast<NMHDR*>(lparam));
        case WM_CONTEXTMENU: return 0;  // not the screen's context menu
        case SHCMBM_SETSUBMENU:
            return reinterpret_cast<LRESULT>(SetPopup(static_cast<UINT>(wparam), reinterpret_cast<HMENU>(lparam)));
        case SHCMBM_GETSUBMENU: {
            const Item* item = Find(static_cast<UINT>(lparam));
            return reinterpret_cast<LRESULT>(item ? item->popup : nullptr);
        }
        case SHCMBM_GETMENU: return reinterpret_cast<LRESULT>(menu_);
        case WM_DESTROY:
            if (Screen* screen = Screen::Of(owner_)) screen->ForgetBar(frame_);
            return 0;
    }
    if (message >= WM_USER && message < SHCMBM_SETSUBMENU) return OnToolbarMessage(message, wparam, lparam);
    return DefWindowProcW(frame_, message, wparam, lparam);
}

LRESULT CALLBACK MenuBar::FrameProcedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
    if (message == WM_NCCREATE) {
        auto* created = static_cast<MenuBar*>(reinterpret_cast<CREATESTRUCTW*>(lparam)->lpCreateParams);
        created->frame_ = window;
        SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(created));
    }
    auto* bar = reinterpret_cast<MenuBar*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (!bar) return DefWindowProcW(window, message, wparam, lparam);
    if (message == WM_NCDESTROY) {
        SetWindowLongPtrW(window, GWLP_USERDATA, 0);
        delete bar;
        return 0;
    }
    return bar->OnFrameMessage(message, wparam, lparam);
}

BOOL SHCreateMenuBar(SHMENUBARINFO* info) {
    if (!info || info->cbSize != sizeof(SHMENUBARINFO) || !IsWindow(info->hwndParent)) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return FALSE;
    }
    info->hwndMB = nullptr;
    Screen* screen = Screen::Make(info->hwndParent);
    if (!screen) return FALSE;
    info->hwndMB = info->dwFlags & SHCMBF_EMPTYBAR ? MenuBar::CreateEmpty(info->hwndParent, info->dwFlags)
                                                   : MenuBar::Create(info->hwndParent, info->hInstRes, info->nToolBarId,
                                                                     static_cast<UINT>(info->nBmpId), info->dwFlags);
    if (!info->hwndMB) return FALSE;
    screen->SetBar(info->hwndMB);
    return TRUE;
}

HWND SHFindMenuBar(HWND owner) {
    const Screen* screen = Screen::Of(owner);
    return screen ? screen->Bar() : nullptr;
}

int SHMenuBarHeight(HWND owner) {
    const Screen* screen = Screen::Of(owner);
    return screen ? screen->BarHeight() + screen->PanelHeight() : 0;
}
