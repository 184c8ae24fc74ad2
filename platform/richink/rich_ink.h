// One rich-ink control: the system's rich edit behind the device's messages.
//
// 1. Messages reach the rich edit through Base only, so that a number which means something else there cannot.
// 2. Loading and clearing leave the control unmodified, with nothing to undo, and tell nobody.
// 3. The rich edit itself has no text limit; the one that counts is limit_.
#pragma once

#include <win.h>

#include <string>

#include "richink.h"

class RichInkControl {
public:
    // The class's procedure; makes the object with the window and deletes it with it.
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam);
    static WNDPROC* BaseProcedure();

private:
    explicit RichInkControl(HWND window) : window_(window) {}

    LRESULT Base(UINT message, WPARAM wparam = 0, LPARAM lparam = 0) const;
    LRESULT OnMessage(UINT message, WPARAM wparam, LPARAM lparam);
    LRESULT OnInkMessage(UINT message, WPARAM wparam, LPARAM lparam);
    void OnCreated();

    LRESULT Step(UINT message);  // EM_UNDO or EM_REDO

    // rich_ink_streams.cpp
    LRESULT OnStreamIn(UINT format, EDITSTREAM* stream);
    LRESULT OnStreamOut(UINT format, EDITSTREAM* stream) const;
    DWORD Load(UINT format, std::string bytes);
    void Clear();
    void SetDefaultFont();
    template <typename Act>
    void Quietly(Act act);

    // rich_ink_limit.cpp: each answers whether the message is dealt with.
    bool OnChar(wchar_t c);
    bool OnKeyDown(WPARAM key);
    bool OnPaste();
    bool OnReplace(bool undoable, const wchar_t* text);
    bool ReplaceWithin(bool undoable, const wchar_t* text);
    bool IsReadOnly() const;
    LONG Room() const;
    void TellFull();

    // The view.
    void SetZoom(UINT percent);
    void RefreshFonts();
    void SetView(UINT view);
    void SetAttributes(const VIEWATTRIBUTES& attributes);

    HWND window_;
    LONG limit_ = 32'767;
    UINT zoom_ = 100;
    UINT view_ = VT_TYPINGVIEW;
    UINT pageStyle_ = PS_NONE;
    UINT inkLayer_ = VL_SMARTINK;
    SHORT fontRound_ = 0;         // see RefreshFonts
    bool skipReturn_ = false;     // the character of a Return that was refused as a key
    bool skipSurrogate_ = false;  // the second half of a character whose first was refused
};
