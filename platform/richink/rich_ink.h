// One rich-ink control: the system's rich edit behind the device's messages.
//
// 1. Messages reach the rich edit through Base only, so that a number which means something else there cannot.
// 2. Loading and clearing leave the control unmodified, with nothing to undo, and tell nobody.
// 3. The rich edit itself has no text limit; the one that counts is limit_.
// 4. A stream loaded while nobody sees the control waits until somebody needs more of it than its text.
// 5. A note that would take too long to lay out is shown as plain text, read only; its stream stays what it was.
// 6. The rich edit holds no picture: characters stand for them (ink_book.h), and this control draws over these.
#pragma once

#include <win.h>

#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "platform/richink/ink_book.h"
#include "platform/richink/ink_canvas.h"
#include "platform/richink/long_words.h"
#include "richink.h"

class RichInkControl {
public:
    // The class's procedure; makes the object with the window and deletes it with it.
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam);
    static WNDPROC* BaseProcedure();

private:
    static constexpr LONG kFontTwips = 180;  // 9 points
    static constexpr wchar_t kFont[] = L"Tahoma";

    explicit RichInkControl(HWND window) : window_(window) {}

    LRESULT Base(UINT message, WPARAM wparam = 0, LPARAM lparam = 0) const;
    LRESULT OnMessage(UINT message, WPARAM wparam, LPARAM lparam);
    LRESULT OnInkMessage(UINT message, WPARAM wparam, LPARAM lparam);
    void OnCreated();
    void Release();

    LRESULT Step(UINT message);  // EM_UNDO or EM_REDO

    // rich_ink_streams.cpp
    LRESULT OnStreamIn(UINT format, EDITSTREAM* stream);
    LRESULT OnStreamOut(UINT format, EDITSTREAM* stream);
    DWORD Load(UINT format, std::string bytes);
    DWORD Show(UINT format, const std::string& bytes);
    bool LoadLater(UINT format, std::string& bytes);
    void Realise();
    static bool NeedsContents(UINT message);
    DWORD SaveRich(UINT scope, std::wstring_view text, std::string* rich, std::vector<bool>* isPicture) const;
    DWORD Contents(std::string* rich, std::wstring* text) const;
    void Clear();
    void SetDefaultFont();
    void SetFontOf(WPARAM range);  // SCF_*
    template <typename Act>
    void Quietly(Act act);

    // rich_ink_plain.cpp
    void LoadPlain(std::string stream, std::wstring text);
    void ShowPlain();
    void LeavePlain();
    bool OnPlain(UINT message, WPARAM wparam);

    // rich_ink_limit.cpp: each answers whether the message is dealt with.
    bool OnChar(wchar_t c);
    bool OnKeyDown(WPARAM key);
    bool OnReplace(bool undoable, const wchar_t* text);
    bool ReplaceWithin(bool undoable, const wchar_t* text);
    bool IsReadOnly() const;
    LONG Room() const;
    void TellFull();

    // rich_ink_wine.cpp: what Wine's rich edit needs; elsewhere nothing is done.
    void RefreshFonts();
    bool BeginLongWords(size_t characters, size_t size);
    void EndLongWords();
    template <typename Act>
    void Unnoticed(Act act);
    void SetWrapping(bool wraps);

    // rich_ink_places.cpp: where the pictures are.
    struct Place {
        LONG at = 0;  // the character
        int id = 0;
        double scale = 1;  // pixels a twip
        RECT area{};       // on the client area; as far as the picture reaches
    };
    // One unit for each character position, paragraphs end in CR.
    std::wstring RawText() const;
    std::wstring RawText(CHARRANGE range) const;
    CHARRANGE VisibleText() const;
    std::vector<Place> Places() const;  // those that can be seen
    int PictureAt(LONG at) const;
    POINT PointOfCharacter(LONG at) const;
    double Scale() const;  // pixels a twip
    double ScaleOf(const InkPicture& picture, LONG room) const;
    std::wstring WithoutPictures(const std::wstring& text, LONG first, const std::vector<bool>& isPicture) const;

    // rich_ink_drawing.cpp: the pen.
    bool OnPen(UINT message, LPARAM lparam);
    void PenDown(POINT point);
    void PenMove(POINT point);
    void FinishStroke();
    void KeepStroke(const std::vector<POINT>& points);
    bool ExtendPicture(const Place& place, const std::vector<POINT>& points);
    void AppendPicture(LONG at, const std::vector<POINT>& points);
    void InsertPicture(LONG at, POINT origin, const std::vector<POINT>& points, const char* before, const char* after);
    int AddPicture(POINT origin, const std::vector<POINT>& points);
    static InkPicture::Stroke StrokeFrom(POINT origin, double scale, const std::vector<POINT>& points);
    void InsertRtf(const std::string& rtf);
    template <typename Act>
    void AsOneChange(Act act);
    void TellChanged();
    void LeaveInkFormat();
    bool IsBehindPicture() const;

    // rich_ink_paint.cpp: what is drawn over the rich edit's text.
    LRESULT OnPaint(WPARAM wparam, LPARAM lparam);
    void DrawPage(HDC dc, const RECT& client) const;
    void DrawPicture(HDC dc, const Place& place);
    void DrawForeign(HDC dc, const Place& place, const InkPicture& picture);

    // rich_ink_clipboard.cpp
    bool OnCopy(bool cut);
    bool OnPaste();
    bool CanPaste() const;
    bool TakeClipboard(const wchar_t* otherwise) const;
    bool PasteInk(const std::string& clip);

    // The view.
    void SetZoom(UINT percent);
    void SetView(UINT view);
    void SetAttributes(const VIEWATTRIBUTES& attributes);

    HWND window_;
    LONG limit_ = 32'767;
    UINT zoom_ = 100;
    UINT laidOutZoom_ = 0;
    UINT view_ = VT_TYPINGVIEW;
    UINT pageStyle_ = PS_RULEDLINES;
    UINT inkLayer_ = VL_SMARTINK;
    SHORT fontRound_ = 0;       // see RefreshFonts
    std::string waiting_;       // a stream that the rich edit does not have yet
    std::wstring waitingText_;  // its text
    std::string spare_;         // memory for the next stream
    bool wraps_ = true;
    bool blank_ = false;  // the rich edit is empty and as new
    // A note that is shown as plain text: what it is, and how its lines are broken.
    struct Plain {
        std::string stream;
        std::wstring text;
        bool readOnly = false;  // the control would be without it
        LONG width = 0;
        UINT zoom = 0;
    };
    std::optional<Plain> plain_;
    InkBook book_;
    std::optional<InkCanvas> live_;  // the stroke being drawn
    std::vector<POINT> pen_;         // its points, on the client area
    ITextDocument* document_ = nullptr;
    struct Drawn {
        double scale = 0;
        InkCanvas canvas;
    };
    std::map<int, Drawn> drawn_;  // pictures as last drawn
    std::set<int> slow_;          // pictures from elsewhere that are only framed
    bool skipReturn_ = false;     // the character of a Return that was refused as a key
    bool skipSurrogate_ = false;  // the second half of a character whose first was refused
};
