// The Pocket PC shell as far as a desktop has to be given one: menu bar, New menu, input panel, full-screen dialogs,
// tap-and-hold, extra controls.
//
// A "screen" here is a captioned, resizable top-level window whose client area is what a device would show below its
// title area. A menu bar lies INSIDE the client area of its owner, at the bottom, kMenuBarHeight logical pixels high,
// and follows the owner's size by itself. What has no counterpart on a device is marked "ours".
//
// The resource compiler reads this file too: types and functions stand behind RC_INVOKED.
#pragma once

// ---- Menu bar resource: SHMENUBAR data and the shell's own strings and commands ----
// Words of 16 bits: id of the MENU that holds the popups, number of buttons, then 7 words a button: image index or
// I_IMAGENONE (0xFFFE), command, TBSTATE_*, TBSTYLE_*, string id (0 none, below 100 the shell's), 0, index of the
// popup in the MENU or NOMENU. A button with an image shows the image; its string, or the text of the menu item with
// the same command, is its tooltip.
#define SHMENUBAR RCDATA
#define NOMENU 0xFFFF
#define IDS_SHNEW 1
#define IDS_SHEDIT 2
#define IDS_SHTOOLS 3
#define IDS_SHVIEW 4
#define IDS_SHFILE 5
#define IDS_SHGO 6
#define IDS_SHFAVORITES 7
#define IDS_SHOPEN 8
#define IDM_SHAREDNEW 10
#define IDM_SHAREDNEWDEFAULT 11
#define IDM_NEWMENUMAX 3000

#ifndef RC_INVOKED

#include <win.h>

#include "cehost.h"

inline constexpr int kMenuBarHeight = 26;  // logical pixels; ours

// ---- Menu bar ----
enum : DWORD { SHCMBF_EMPTYBAR = 0x1, SHCMBF_HIDDEN = 0x2, SHCMBF_HIDESIPBUTTON = 0x4 };

struct SHMENUBARINFO {
    DWORD cbSize;        // in: sizeof(SHMENUBARINFO)
    HWND hwndParent;     // in: the owner; gets WM_COMMAND, WM_NOTIFY and WM_INITMENUPOPUP
    DWORD dwFlags;       // in: SHCMBF_*
    UINT nToolBarId;     // in: SHMENUBAR resource; not used with SHCMBF_EMPTYBAR
    HINSTANCE hInstRes;  // in: module of the resources
    int nBmpId;          // in: BITMAP resource, a strip of 16x16 images, or 0. Its own alpha, or else the colour of its
                         //     first pixel, makes it transparent. As many images count as the strip holds.
    int cBmpImages;      // in: not needed, see above
    HWND hwndMB;         // out: the bar (a child of class CBFRAME), or null
};

// Makes the owner's menu bar. A bar that the owner has already (one made by SHInitDialog included) is destroyed first.
// FALSE with the last error set (87 bad arguments, 1814 no such resource, 13 damaged resource) and hwndMB null.
// WM_COMMAND of a button carries the command, code 0 and the bar's handle. TB_* messages sent to the bar act on its
// toolbar. The bar goes with its owner, or earlier by DestroyWindow; the OK button of the owner outlives its bars.
CEHOST_API BOOL SHCreateMenuBar(SHMENUBARINFO* info);

// Ours: the command of the bar's button that raises and lowers the input panel. The bar carries it out by itself; the
// owner does not get it. SHCMBF_HIDESIPBUTTON makes a bar without the button, and its screen never shows the panel.
inline constexpr UINT kInputPanelCommand = 2999;

// The bar of a window, or null.
CEHOST_API HWND SHFindMenuBar(HWND owner);

// Ours: how many device pixels at the bottom of the owner's client area its visible menu bar takes, and the input panel
// above it while that is up; 0 without either.
CEHOST_API int SHMenuBarHeight(HWND owner);

enum : UINT {
    SHCMBM_SETSUBMENU = WM_USER + 400,  // wParam command of the button, lParam HMENU -> the popup it had
    SHCMBM_GETSUBMENU = WM_USER + 401,  // lParam command of the button -> HMENU or 0
    SHCMBM_GETMENU = WM_USER + 402,     // -> the MENU that holds the popups, or 0
};
// A popup given to the bar stays the caller's; the bar destroys only what it loaded.
inline HMENU SHSetSubMenu(HWND bar, UINT id, HMENU menu) {
    return reinterpret_cast<HMENU>(SendMessageW(bar, SHCMBM_SETSUBMENU, id, reinterpret_cast<LPARAM>(menu)));
}
inline HMENU SHGetSubMenu(HWND bar, UINT id) {
    return reinterpret_cast<HMENU>(SendMessageW(bar, SHCMBM_GETSUBMENU, 0, static_cast<LPARAM>(id)));
}
inline HMENU SHGetMenu(HWND bar) {
    return reinterpret_cast<HMENU>(SendMessageW(bar, SHCMBM_GETMENU, 0, 0));
}

// ---- New menu ----
// IDM_SHAREDNEW is a button of two parts: the button sends its command, its arrow opens the New menu.
// IDM_SHAREDNEWDEFAULT always opens the menu. Opening sends the owner WM_NOTIFY NMN_GETAPPREGKEY with an empty hMenu to
// fill; the chosen id is posted as WM_COMMAND; then NMN_NEWMENUDESTROY is sent. An empty menu is not shown.
enum : UINT {
    NMN_GETAPPREGKEY = 1101,
    NMN_NEWMENUDESTROY = 1102,
    NMN_INVOKECOMMAND = 1103,
    NMN_NEWBUTTONUPDATED = 1104
};

struct NMNEWMENU {
    NMHDR hdr;
    WCHAR szReg[80];  // not used here
    HMENU hMenu;      // the bar's; valid until NMN_NEWMENUDESTROY
    CLSID clsid;
};

// ---- Dialogs ----
enum : DWORD { SHIDIM_FLAGS = 0x1 };
enum : DWORD {
    SHIDIF_DONEBUTTON = 0x1,
    SHIDIF_SIZEDLG = 0x2,
    SHIDIF_SIZEDLGFULLSCREEN = 0x4,
    SHIDIF_SIPDOWN = 0x8,
    SHIDIF_FULLSCREENNOMENUBAR = 0x10,
};

struct SHINITDLGINFO {
    DWORD dwMask;  // SHIDIM_FLAGS
    HWND hDlg;
    DWORD dwFlags;  // SHIDIF_*
};

// Called in WM_INITDIALOG. With a size flag the dialog becomes a screen with the place and size of its owner's
// top-level window (or the device screen's size, centred, when it has none). SHIDIF_DONEBUTTON puts "ok" at the right
// end of its menu bar and makes an empty bar when it has none; a tap is WM_COMMAND IDOK. Closing it by its close box
// or Escape sends the command that SHSetCloseCommand names. Return in a multi-line edit control that is there at this
// time starts a line and does not press OK. FALSE (87) when the record or the handle is not usable.
CEHOST_API BOOL SHInitDialog(SHINITDLGINFO* info);

// Ours: the command that the close box and Escape send to a dialog that SHInitDialog made a screen. IDOK to begin with,
// so that closing loses nothing; IDCANCEL where the dialog has a control IDCANCEL then. FALSE for any other window.
CEHOST_API BOOL SHSetCloseCommand(HWND dialog, UINT command);

enum : DWORD { SHDB_SHOW = 0x1, SHDB_HIDE = 0x2 };
// Shows or hides the OK button on the window's menu bar.
CEHOST_API BOOL SHDoneButton(HWND window, DWORD state);

// ---- Screen ----
// Ours: turns the style and size of a device's top-level window (the size that start-up computes from SHSipInfo: the
// visible desktop, less the menu bar while the input panel is down) into those of the window on the desktop: caption,
// system menu, both boxes and a resizable frame are added to the style, the menu bar, the input panel that is up and
// the frame to the size, which is cut to the desktop's work area. WS_VISIBLE is taken out, so that the program's own
// Show decides when it appears.
CEHOST_API void SHScreenWindow(DWORD* style, SIZE* size);

// A window becomes a screen when it gets a menu bar or passes through SHInitDialog. From then on
// - its bar follows its size, and each change of its client size while it is visible sends it WM_SETTINGCHANGE with
//   SPI_SETSIPINFO after WM_SIZE, so that it lays itself out again;
// - a right click or the menu key in it that nobody else takes sends it WM_NOTIFY GN_CONTEXTMENU, as tap-and-hold does;
// - F10 or Alt leads into its menu bar;
// - the control that had the focus gets it back when the window is activated again.
// A window without an owner that passed through SHScreenWindow and is not shown yet is moved at that moment, and cannot
// be made smaller than 200x200 logical pixels within its frame from then on. It goes to the middle of the work area,
// or, unless CE_SCREEN or "Screen" forces its size, to the place, the size and the state it had last time with the same
// displays, as far as that is in view. They are kept under HKEY_CURRENT_USER\Software\Pocket PC\Places.

// ---- Input panel ----
// A small keyboard above the menu bar of every screen of the thread, raised and lowered by the button at the right end
// of the bar; down when the program starts. It never takes the focus; its keys are posted to the window that has it, as
// WM_CHAR or as WM_KEYDOWN and WM_KEYUP. Going up or down it sends every screen WM_SIZE and then WM_SETTINGCHANGE with
// SPI_SETSIPINFO, as a new size does, and SHMenuBarHeight tells how much room it takes.
enum : UINT { SPI_SETSIPINFO = 224, SPI_GETSIPINFO = 225 };
enum : DWORD { SIPF_OFF = 0x0, SIPF_ON = 0x1, SIPF_DOCKED = 0x2, SIPF_LOCKED = 0x4 };

struct SIPINFO {
    DWORD cbSize;           // in: sizeof(SIPINFO)
    DWORD fdwFlags;         // SIPF_*
    RECT rcVisibleDesktop;  // device pixels from the upper left corner of a screen's client area
    RECT rcSipRect;         // where the panel is or would be, in the same pixels
    DWORD dwImDataSize;
    void* pvImData;
};

// SPI_GETSIPINFO fills the record: the device screen (480x720 logical pixels, or what the environment variable
// CE_SCREEN or the value "Screen" of HKEY_CURRENT_USER\Software\Pocket PC says as WIDTHxHEIGHT, each 160 to 3840) less
// the 26 of the title area, and less what lies from the panel downwards while it is up. SPI_SETSIPINFO raises and
// lowers the panel by SIPF_ON. FALSE (87) otherwise.
CEHOST_API BOOL SHSipInfo(UINT action, UINT param, PVOID info, UINT winIni);

enum SIPSTATE { SIP_UP = 0, SIP_DOWN = 1, SIP_FORCEDOWN = 2, SIP_UNCHANGED = 3, SIP_INPUTDIALOG = 4 };
// What the window would like the panel to be: up; down, which any other wish within a moment takes back; down at once.
// The rest leaves it alone. TRUE.
CEHOST_API BOOL SHSipPreference(HWND window, SIPSTATE state);

struct SHACTIVATEINFO {  // zero before the first use
    DWORD cbSize;
    HWND hwndLastFocus;
    UINT fSipUp : 1;
    UINT fSipOnDeactivation : 1;
    UINT fActive : 1;
    UINT fReserved : 29;
};

// Answers TRUE and leaves the window's size alone: on a desktop the person sizes windows, not the input panel.
CEHOST_API BOOL SHHandleWMSettingChange(HWND window, WPARAM wparam, LPARAM lparam, SHACTIVATEINFO* info);
// Notes whether the window is active.
CEHOST_API BOOL SHHandleWMActivate(HWND window, WPARAM wparam, LPARAM lparam, SHACTIVATEINFO* info, DWORD flags);

// ---- Tap and hold ----
enum : UINT { GN_CONTEXTMENU = 1000 };
enum : DWORD { SHRG_RETURNCMD = 0x1, SHRG_NOTIFYPARENT = 0x2, SHRG_LONGDELAY = 0x8 };

struct SHRGINFO {
    DWORD cbSize;     // sizeof(SHRGINFO)
    HWND hwndClient;  // the window that got WM_LBUTTONDOWN
    POINT ptDown;     // in its client coordinates
    DWORD dwFlags;    // SHRG_*
};

struct NMRGINFO {
    NMHDR hdr;         // code GN_CONTEXTMENU
    POINT ptAction;    // screen coordinates
    DWORD dwItemSpec;  // 0
};

// Called on WM_LBUTTONDOWN: waits until the stylus is lifted or moved (0, the messages stay in the queue for the
// caller) or has rested 600 ms (SHRG_LONGDELAY 1200). A hold answers GN_CONTEXTMENU with SHRG_RETURNCMD; otherwise the
// answer of WM_NOTIFY GN_CONTEXTMENU sent to the window, or to its parent with SHRG_NOTIFYPARENT.
CEHOST_API DWORD SHRecognizeGesture(SHRGINFO* info);

// ---- The rest ----
// "There is not enough memory to complete this operation." Answers the message box's result; flags are 0.
CEHOST_API int SHShowOutOfMemory(HWND owner, UINT flags);

// Registers the classes CAPEDIT and SIPPREF. From then on the message boxes of this thread stand in the middle of the
// screen they belong to, show its icon and are wide enough for their captions. Harmless when called again.
CEHOST_API BOOL SHInitExtraControls(void);

#define WC_CAPEDITW L"CAPEDIT"  // an edit control that makes the first letter typed into it a capital
#define WC_CAPEDIT WC_CAPEDITW
#define WC_SIPPREF L"SIPPREF"  // invisible; sits last in a dialog
enum : UINT {
    CEM_UPCASEALLWORDS = WM_USER + 1,  // wParam TRUE: the first letter of each word
    CEM_ENABLEUPCASE = WM_USER + 2,    // wParam FALSE: leave letters alone
};

#endif
