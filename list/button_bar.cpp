#include "list/button_bar.h"

#include <pictures.h>
#include <px.h>

#include <algorithm>

#include "res/ids.h"
#include "ui/gdi_scope.h"
#include "ui/resource_text.h"

namespace {

// The colours of the shell's menu bar at the other end of the window.
constexpr COLORREF kBack = RGB(0xF3, 0xF4, 0xF6);
constexpr COLORREF kLine = RGB(0xC4, 0xC9, 0xD1);
constexpr COLORREF kEdge = RGB(0x8F, 0xAF, 0xD6);
constexpr COLORREF kText = RGB(0x1E, 0x24, 0x2C);

constexpr int kButtonHeight = 22;
constexpr int kGap = 40;        // between the two buttons
constexpr int kTextMargin = 6;  // left of "Show"
constexpr int kArrowRoom = 20;  // what a button's text area is wider than its text
constexpr int kArrowSize = 12;
constexpr int kShowArrowInset = 13;  // from the right of the text area
constexpr int kSortArrowInset = 12;  // from the right of the bar

int ButtonWidth(int barWidth) {
    return (barWidth - Px(kGap)) / 2;
}

int TextWidth(HDC dc, const std::wstring& text) {
    SIZE size = {};
    GetTextExtentPoint32W(dc, text.c_str(), static_cast<int>(text.size()), &size);
    return size.cx;
}

}  // namespace

bool ButtonBar::CreateIn(HWND parent, int width) {
    constexpr DWORD kStyle = TBSTYLE_LIST | CCS_NODIVIDER | CCS_NORESIZE | CCS_NOPARENTALIGN;
    if (!Toolbar::CreateIn(parent, IDC_BUTTON_BAR, kStyle, {0, 0, width, Px(kHeight)})) return false;
    arrow_.reset(LoadPictureStrip(GetModuleHandleW(nullptr), IDB_DROP_ARROW, Px(kArrowSize)));
    // No pictures: without this the buttons are as high as a picture and a text together.
    SendMessage(TB_SETBITMAPSIZE, 0, 0);
    const bool added = AddTextButton(IDM_SHOW, BTNS_DROPDOWN, LoadText(IDS_SHOW).c_str(), ButtonWidth(width)) &&
                       AddSeparator(Px(kGap)) &&
                       AddTextButton(IDM_SORT, BTNS_DROPDOWN, LoadText(IDS_SORT).c_str(), ButtonWidth(width));
    // Texts have made the buttons as high as they need; the height meant comes after them, and the widths once more.
    SetButtonSize(ButtonWidth(width), Px(kButtonHeight));
    Fit(width);
    return added;
}

void ButtonBar::Fit(int width) {
    MoveWindow(0, 0, width, Px(kHeight));
    SetButtonWidth(IDM_SHOW, ButtonWidth(width));
    SetButtonWidth(IDM_SORT, ButtonWidth(width));
    Invalidate();
}

LRESULT ButtonBar::OnNotify(NMHDR* header) {
    switch (header->code) {
        case TBN_DROPDOWN: return OnDropDown(reinterpret_cast<NMTOOLBARW*>(header)->iItem);
        case NM_CUSTOMDRAW: return OnCustomDraw(*reinterpret_cast<NMTBCUSTOMDRAW*>(header));
        default: return 0;
    }
}

LRESULT ButtonBar::OnCustomDraw(const NMTBCUSTOMDRAW& draw) {
    if (draw.nmcd.dwDrawStage == CDDS_PREPAINT) {
        DrawBar(draw.nmcd.hdc);
        return CDRF_NOTIFYITEMDRAW | CDRF_NOTIFYPOSTPAINT;
    }
    if (draw.nmcd.dwDrawStage == CDDS_POSTPAINT) ClearGap(draw.nmcd.hdc);
    if (draw.nmcd.dwDrawStage != CDDS_ITEMPREPAINT) return CDRF_DODEFAULT;
    const auto id = static_cast<int>(draw.nmcd.dwItemSpec);
    if (id == IDM_SHOW || id == IDM_SORT) DrawButton(draw);
    return CDRF_SKIPDEFAULT;
}

void ButtonBar::DrawBar(HDC dc) {
    RECT area;
    GetClientRect(&area);
    const UniqueBrush back(CreateSolidBrush(kBack));
    FillRect(dc, area, back.get());
    const UniqueBrush line(CreateSolidBrush(kLine));
    FillRect(dc, {area.left, area.bottom - 1, area.right, area.bottom}, line.get());
}

// The bar has drawn a separator's line between the buttons.
void ButtonBar::ClearGap(HDC dc) {
    RECT show;
    RECT sort;
    if (!GetButtonRect(IDM_SHOW, &show) || !GetButtonRect(IDM_SORT, &sort)) return;
    const UniqueBrush back(CreateSolidBrush(kBack));
    FillRect(dc, {show.right, show.top, sort.left, show.bottom}, back.get());
}

void ButtonBar::DrawButton(const NMTBCUSTOMDRAW& draw) {
    const HDC dc = draw.nmcd.hdc;
    const auto id = static_cast<int>(draw.nmcd.dwItemSpec);
    RECT button;
    RECT bar;
    if (!GetButtonRect(id, &button) || !GetClientRect(&bar)) return;

    const SelectedObject font(dc, GetFont());
    const std::wstring text = GetButtonText(id);
    const int width = TextWidth(dc, text) + Px(kArrowRoom);
    RECT area = bar;  // text and arrow stand in the middle of the bar's height
    int arrow;
    if (id == IDM_SHOW) {
        area.left = button.left + Px(kTextMargin);
        area.right = std::min<LONG>(area.left + width, button.right);
        arrow = area.right - Px(kShowArrowInset);
    } else {
        area.left = std::max<LONG>(bar.right - width, button.left);
        arrow = bar.right - Px(kSortArrowInset);
    }
    DrawPicture(dc, arrow_.get(), 0, {arrow, (area.top + area.bottom - Px(kArrowSize)) / 2}, 255);
    area.right -= Px(kArrowRoom);
    SetBkMode(dc, TRANSPARENT);
    SetTextColor(dc, kText);
    DrawTextW(dc, text.c_str(), -1, &area, DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS);

    if (draw.nmcd.uItemState & CDIS_SELECTED) {
        const UniqueBrush edge(CreateSolidBrush(kEdge));
        FrameRect(dc, &button, edge.get());
    }
}
