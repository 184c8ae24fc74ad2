// The header of the detail view: a drawn card of everything but the note.
#pragma once

#include <array>

#include "list/detail_field.h"
#include "list/detail_layout.h"
#include "list/detail_texts.h"
#include "ui/static_text.h"
#include "ui/window.h"

class DetailPanel : public Window {
public:
    // Registers the window class "ZC_DETAIL", and takes it back when no panel is left. Registering twice is harmless.
    static bool Register();
    static void Unregister();

    // Creates the panel (IDC_DETAIL_PANEL), hidden and empty, across the top of the parent's client area. It covers
    // one pixel beyond the left, upper and right edge, so that only its lower border is seen. The parent gets a
    // WM_COMMAND with the field's control id for each tap on a field. False when it cannot be made.
    bool CreateIn(HWND parent, int parentWidth);

    // Shows an entry; the panel's height follows what there is to show.
    void ShowTexts(DetailTexts texts);
    // Lays the panel out in a parent of another width.
    void Fit(int parentWidth);

private:
    static LRESULT CALLBACK Procedure(HWND hwnd, UINT message, WPARAM wparam, LPARAM lparam) noexcept;
    static DetailPanel* live_;

    LRESULT OnMessage(UINT message, WPARAM wparam, LPARAM lparam);
    bool OnCreate();
    LRESULT OnCommand(WORD code, WORD id);
    LRESULT OnColorStatic(HDC dc, HWND control);
    LRESULT OnDrawItem(const DRAWITEMSTRUCT& draw) const;
    std::wstring FittingSubject(int room) const;
    void FitDate(int room);

    struct Strip {
        UniqueBitmap images;
        int count = 0;  // of the pictures side by side
        int size = 0;   // width and height of each
    };
    static Strip LoadStrip(UINT id);

    UniqueFont bold_;
    UniqueFont normal_;
    UniqueFont narrow_;  // of a date line that is wider than its place, else null
    Strip priorities_;
    Strip sensitivities_;
    DetailField date_;
    DetailField priority_;
    DetailField sensitivity_;
    DetailField subject_;
    DetailField type_;
    DetailField duration_;
    std::array<StaticText, kDetailOptions> labels_;
    std::array<DetailField, kDetailOptions> values_;
    DetailTexts texts_;
    int parentWidth_ = 0;
};
