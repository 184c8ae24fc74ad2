// Drawing states that end with the block they were begun in.
#pragma once

#include <win.h>

// Selects an object into a device context; the one that was selected comes back at the end of the block.
class [[nodiscard]] SelectedObject {
public:
    SelectedObject(HDC dc, HGDIOBJ object) : dc_(dc), previous_(SelectObject(dc, object)) {}
    ~SelectedObject() { SelectObject(dc_, previous_); }
    SelectedObject(const SelectedObject&) = delete;
    SelectedObject& operator=(const SelectedObject&) = delete;

private:
    HDC dc_;
    HGDIOBJ previous_;
};

// Answers a WM_PAINT: from BeginPaint to EndPaint.
class [[nodiscard]] PaintScope {
public:
    explicit PaintScope(HWND window) : window_(window) { BeginPaint(window_, &paint_); }
    ~PaintScope() { EndPaint(window_, &paint_); }
    PaintScope(const PaintScope&) = delete;
    PaintScope& operator=(const PaintScope&) = delete;

    HDC Dc() const { return paint_.hdc; }
    const RECT& Area() const { return paint_.rcPaint; }  // what has to be drawn, client coordinates

private:
    HWND window_;
    PAINTSTRUCT paint_ = {};
};

// The device context of a window's client area outside WM_PAINT, for measuring as a rule. Null window: the screen.
class [[nodiscard]] WindowDc {
public:
    explicit WindowDc(HWND window) : window_(window), dc_(GetDC(window)) {}
    ~WindowDc() { ReleaseDC(window_, dc_); }
    WindowDc(const WindowDc&) = delete;
    WindowDc& operator=(const WindowDc&) = delete;

    HDC Dc() const { return dc_; }

private:
    HWND window_;
    HDC dc_;
};
