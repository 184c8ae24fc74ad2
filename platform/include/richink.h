// The rich-ink control: formatted text and ink in one editable stream. Class "RichInk", over the system's
// rich edit. The messages have the device's numbers; those of the system's rich edit from WM_USER+101 on mean
// something else there and are not passed on.
#pragma once

#include <win.h>

#include "cehost.h"

#define WC_RICHINK L"RichInk"

// Registers the class. Harmless when called again.
CEHOST_API void InitRichInkDLL(void);

// In VT_DRAWINGVIEW mouse, touch and pen draw: each stroke becomes part of a picture in the text (\pict\emfblip in the
// stream), which stays where it was drawn; it is a change and one step to undo. A picture counts as one character
// (U+200B) in positions and in WM_GETTEXT, and is left out of format 17. Pictures that other programs have put into a
// stream are kept as they are; embedded objects are not. From the clipboard come plain text, and from another control
// of this class rich text with ink.
//
// The control is multi-line, has word wrap, keeps Return for itself, starts in Tahoma and holds 32,767 characters
// (EM_SETLIMITTEXT changes that). It sends its parent, unasked, WM_COMMAND with EN_CHANGE when the person or a command
// changes the text, and EN_MAXTEXT when typing, pasting or EM_REPLACESEL meets the limit (what fits is inserted).
//
// Streams, EM_STREAMIN and EM_STREAMOUT with wParam = format and lParam = EDITSTREAM*:
//   2 (SF_RTF), rich text; 17 (SF_UTEXT), UTF-16 text.
//   The callback answers 0 and sets *pcb to the bytes it gave or took; *pcb = 0 ends the input. Another answer stops.
//   The message answers 0 when all went well, else the error, which EDITSTREAM::dwError holds as well.
//   Loading replaces the contents, puts the caret at the start, and is no change: no EN_CHANGE, not modified, nothing
//   to undo. A damaged rich text loads as far as it is sound; what is no rich text at all loads as nothing, with
//   ERROR_INVALID_DATA. An empty stream empties the control.
//   A rich text written carries its plain text once more (note_text.h). While nobody can see the control, such a stream
//   is only kept, and format 17 answered out of it; anything else that is asked of the control loads it.
//   Text written as format 17 has CR LF line ends and ends with a NUL character, which the bytes include.
//
// As everywhere: EM_GETSEL, EM_SETSEL, EM_REPLACESEL, EM_SCROLLCARET, EM_GETMODIFY, EM_SETMODIFY, EM_CANUNDO,
// EM_CANPASTE, EM_SETREADONLY, EM_SETLIMITTEXT, EM_GETLIMITTEXT, WM_GETTEXT, WM_SETTEXT, WM_CUT, WM_COPY, WM_PASTE,
// WM_CLEAR, and the rich edit's messages up to WM_USER+100.
enum : UINT {
    EM_UNDOEVENT = WM_USER + 234,          // undoes one step -> whether something was undone
    EM_REDOEVENT = WM_USER + 235,          // redoes one step -> whether something was redone
    EM_INKCANREDO = WM_USER + 246,         // -> whether there is something to redo. EM_CANREDO of a device, whose name
                                           //    the system's header has taken; that number works too.
    EM_GETVIEW = WM_USER + 254,            // -> VT_*
    EM_SETVIEW = WM_USER + 284,            // wParam VT_*; others are ignored. The contents stay as they are.
    EM_SETPAGESTYLE = WM_USER + 287,       // wParam PS_*: the page of the drawing view; ruled at first
    EM_SETINKLAYER = WM_USER + 288,        // wParam VL_*; kept -> the one before
    EM_GETZOOMPERCENT = WM_USER + 289,     // -> percent
    EM_SETZOOMPERCENT = WM_USER + 290,     // lParam percent, held to 75...300
    EM_GETPAGESTYLE = WM_USER + 323,       // -> PS_*
    EM_CLEARALL = WM_USER + 331,           // empties the control as loading does; wParam: repaint now
    EM_SETVIEWATTRIBUTES = WM_USER + 332,  // lParam VIEWATTRIBUTES*
};

enum : UINT { VT_TYPINGVIEW = 0, VT_WRITINGVIEW = 2, VT_DRAWINGVIEW = 3 };
enum : UINT { VL_SMARTINK = 0, VL_WRITINGINK = 1, VL_DRAWINGINK = 2 };
enum : UINT { PS_RULEDLINES = 2, PS_GRIDLINES = 4, PS_NONE = 0x10 };

enum : UINT {
    VIEWATTRIBUTES_ZOOM = 1,
    VIEWATTRIBUTES_PAGESTYLE = 2,
    VIEWATTRIBUTES_INKLAYER = 4,
    VIEWATTRIBUTES_VIEW = 8
};
struct VIEWATTRIBUTES {
    UINT mask;  // VIEWATTRIBUTES_*: which members count
    UINT uView;
    UINT uZoom;  // percent
    UINT uPageStyle;
    UINT uInkLayer;
    BOOL fReserved;
};
