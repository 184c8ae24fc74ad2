// The rich-ink control: typed text and ink in one stream.
#pragma once

#include <win.h>

#include <richink.h>

#include <string>
#include <vector>

#include "ui/control.h"

class RichInk : public Control {
public:
    // How a note is shown. The scroll bar is always there: one that comes with the text makes some systems wrap a long
    // text all over again for every piece they load, for minutes and until the stack is used up.
    static constexpr DWORD kNoteStyle =
        WS_TABSTOP | WS_VSCROLL | ES_DISABLENOSCROLL | ES_MULTILINE | ES_AUTOVSCROLL | ES_WANTRETURN;

    RichInk() : Control(WC_RICHINK) {}

    // As every control is made; there is nothing to undo afterwards.
    bool CreateIn(HWND parent, int id, DWORD style, const RECT& place);

    // Moves the control; the text keeps a little away from its borders.
    void Place(const RECT& place);

    // ---- Streams ----
    // Replaces the contents with a stream of `format` (SF_RTF 2, or SF_UTEXT 17). Not a change: the modified flag is
    // off afterwards and no EN_CHANGE comes. False when the control refused the stream; the contents are then empty.
    bool StreamIn(UINT format, const std::vector<BYTE>& bytes);
    // The contents as a stream of that format. Empty on failure.
    std::vector<BYTE> StreamOut(UINT format) const;
    // StreamOut in format 17 as text, without a closing NUL.
    std::wstring StreamOutText() const;

    // ---- Contents and selection ----
    // A stroke that is still being drawn is taken as it is, and told as any change.
    void EndStroke() const { IsModified(); }
    bool IsModified() const;
    void SetModified(bool modified);
    // Selects characters `first` up to, not including, `last`. 0, -1: everything; -1, -1: the caret goes to the end.
    void SetSelection(int first, int last);
    void GetSelection(int* first, int* last) const;
    void ReplaceSelection(const wchar_t* text, bool undoable);
    void ScrollToCaret();
    // Selects the first place where `text` stands and brings it into sight; nothing when it is empty or stands nowhere.
    void SelectFirst(const std::wstring& text, bool matchCase);
    void SetLimit(int characters);
    void SetReadOnly(bool readOnly);

    // ---- Editing ----
    bool CanUndo() const;
    bool CanRedo() const;
    bool CanPaste() const;
    void Undo();
    void Redo();
    void Cut();
    void Copy();
    void Paste();

    // ---- View ----
    // In percent; the control keeps to 75..300.
    void SetZoom(int percent);
    int GetZoom() const;
    // VT_TYPINGVIEW 0 or VT_DRAWINGVIEW 3.
    void SetView(UINT view);
    UINT GetView() const;

private:
    RECT place_ = {};
};
