// A window handle with the operations that screens need. Every screen, dialog and control wrapper is one.
#pragma once

#include <win.h>

#include <aygshell.h>

#include <forward_list>
#include <string>

#include "ui/unique_handle.h"

// A window object is detached (no handle) or attached to one window. It holds no policy: operations forward to the
// system, and messages reach a screen through the screen's own static window or dialog procedure.
//
// Life: the object does not own the window. The system destroys a window with its parent, so the destructor leaves the
// window alone; it frees what the object itself made (timers, the font and the brush it holds) and takes back a
// procedure it put in. The object does not see WM_NCDESTROY: the screen's procedure calls Detach() there when the
// object outlives its window. Child controls that die with their dialog may keep the stale handle.
//
// Unless told otherwise, an operation on a detached object fails as the system fails on a null handle (FALSE, 0).
// The order of the virtual operations is fixed; new ones go to derived classes.
class Window {
public:
    Window() = default;
    Window(const Window&) = delete;
    Window& operator=(const Window&) = delete;

    // ---- Life ----
    virtual ~Window();
    // Frees the font and the brush held, then destroys the window and forgets its handle. False when none was there.
    virtual bool Destroy();
    // Creates a window and keeps its handle; position and size in device pixels. True when it is a window. `parameter`
    // arrives as lpCreateParams. While WM_CREATE runs the object may still be detached: the procedure attaches it.
    virtual bool Create(const wchar_t* className, const wchar_t* title, DWORD style, int x, int y, int width,
                        int height, HWND parent, HMENU menuOrId, HINSTANCE instance, void* parameter);
    virtual bool CreateEx(DWORD exStyle, const wchar_t* className, const wchar_t* title, DWORD style, int x, int y,
                          int width, int height, HWND parent, HMENU menuOrId, HINSTANCE instance, void* parameter);
    // Takes a handle. False, and nothing changes, when the object is attached already.
    virtual bool Attach(HWND handle);
    // Forgets the handle and the menu bar, kills the timers and takes the object's procedure out; the window lives on.
    // False when there was no handle.
    virtual bool Detach();
    // A hook for a class that wants to see messages before they are dispatched. Here it answers false: not taken.
    virtual bool PreTranslate(MSG* message);

    // ---- Handle and state ----
    virtual bool FillRect(HDC dc, const RECT& rect, HBRUSH brush) const;
    virtual HWND GetHandle() const;
    virtual HWND GetParent() const;
    // The shell's menu bar made by CreateMenuBar, 0 when none.
    virtual HWND GetMenuBar() const;
    virtual bool IsVisible() const;
    virtual bool IsEnabled() const;
    virtual bool IsWindow() const;
    // Whether the window's class name begins with `className`, ignoring case: a longer name counts too (see
    // window_class.h).
    virtual bool IsClass(const wchar_t* className) const;
    // Whether the input panel is shown now.
    virtual bool IsInputPanelUp() const;

    // ---- Styles and window words ----
    virtual DWORD GetStyle() const;
    virtual DWORD GetExStyle() const;
    // Answer the style before.
    virtual DWORD SetStyle(DWORD style);
    virtual DWORD SetExStyle(DWORD exStyle);
    virtual LONG_PTR GetWindowLong(int index) const;
    virtual LONG_PTR SetWindowLong(int index, LONG_PTR value);

    // ---- Geometry, device pixels ----
    virtual bool GetWindowRect(RECT* rect) const;
    // The client area above the menu bar: the bar is a child at the bottom of the window, so that layout ends above it.
    virtual bool GetClientRect(RECT* rect) const;
    virtual bool MoveWindow(int x, int y, int width, int height, bool repaint = true);
    virtual bool SetWindowPos(HWND after, int x, int y, int width, int height, UINT flags);
    // True when the window was disabled before.
    virtual bool Enable(bool enable = true);
    // True when the window was visible before.
    virtual bool Show(int command = SW_SHOW);
    virtual bool Hide();

    // ---- Messages and painting ----
    virtual LRESULT SendMessage(UINT message, WPARAM wparam = 0, LPARAM lparam = 0) const;
    virtual bool PostMessage(UINT message, WPARAM wparam = 0, LPARAM lparam = 0) const;
    // Null rect: the whole client area.
    virtual bool Invalidate(const RECT* rect = nullptr, bool erase = true);
    virtual bool Update();
    virtual bool SetForeground();

    // ---- Text; lengths in characters without the closing NUL ----
    virtual int GetTextLength() const;
    virtual void GetText(std::wstring& text) const;
    // Answers the characters copied; `size` counts the NUL, and the text is cut to fit.
    virtual int GetText(wchar_t* buffer, int size) const;
    virtual bool SetText(const wchar_t* text);

    // ---- Timers: those started here are kept in a list until they are killed ----
    // False when this object has no such timer.
    virtual bool KillTimer(UINT_PTR id);
    // Starts the timer, or restarts the one with that id; WM_TIMER comes every `milliseconds`. False on failure.
    virtual bool SetTimer(UINT_PTR id, UINT milliseconds, TIMERPROC procedure = nullptr);
    virtual bool FindTimer(UINT_PTR id) const;

    // ---- Held objects ----
    // The brush given with HoldBrush, 0 when none.
    virtual HBRUSH GetBrush() const;
    virtual void ReleaseBrush();

    // ---- More of the window ----
    // A message box owned by this window; answers the button (IDOK, IDYES...). It pumps messages: afterwards, assume
    // that the world has changed.
    virtual int MessageBox(const wchar_t* text, const wchar_t* title, UINT flags) const;
    virtual bool Validate(const RECT* rect = nullptr);
    virtual bool BringToTop();
    virtual bool ScreenToClient(POINT* point) const;
    virtual bool ScreenToClient(RECT* rect) const;
    virtual bool ClientToScreen(RECT* rect) const;
    // Answer the window that had it before, 0 when none.
    virtual HWND SetActive();
    // Sends WM_SETFONT. The caller keeps the font alive as long as the window shows text with it.
    virtual void SetFont(HFONT font, bool redraw = true);
    virtual HDC GetDC() const;
    virtual bool ReleaseDC(HDC dc) const;
    virtual HWND SetFocus();
    // Sends WM_KILLFOCUS with the window that gets the focus.
    virtual void KillFocus(HWND next);
    // What the window wants of the input panel: SIP_UP, SIP_DOWN...
    virtual bool SipPreference(SIPSTATE state);
    // With `create` set and no bar yet: makes the shell's menu bar from the menu bar resource (or an empty one with
    // SHCMBF_EMPTYBAR) with `imageCount` images from the bitmap, and keeps its handle. In any other case, so with
    // `create` set and a bar already there too, destroys the bar and forgets it. Answers 1; -1 when the bar could not
    // be made, fit to be a WM_CREATE answer.
    virtual int CreateMenuBar(bool create, DWORD flags = 0, UINT resourceId = 0, HINSTANCE instance = nullptr,
                              int bitmapId = 0, int imageCount = 0);
    // Puts `procedure` in and keeps the one that was there. False when already subclassed.
    virtual bool Subclass(WNDPROC procedure);
    // Puts the kept procedure back. False when not subclassed.
    virtual bool Unsubclass();

protected:
    // The object takes the font or brush over; the one held before is freed. HoldFont also sets it.
    void HoldFont(UniqueFont font);
    void HoldBrush(UniqueBrush brush);

    // Hands a message to the procedure that Subclass replaced (the system's default when there is none).
    LRESULT CallReplaced(UINT message, WPARAM wparam, LPARAM lparam) const;

private:
    void LetGo();

    std::forward_list<UINT_PTR> timers_;
    HWND menuBar_ = nullptr;
    HWND handle_ = nullptr;
    UniqueFont font_;
    UniqueBrush brush_;
    WNDPROC replaced_ = nullptr;  // null: not subclassed
};
