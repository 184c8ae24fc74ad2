#include "list/button_bar.h"

#include <px.h>

#include <algorithm>

#include "list/transparent_bitmap.h"
#include "res/ids.h"
#include "ui/gdi_scope.h"
#include "ui/resource_text.h"

namespace {

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
    constexpr DWORD kStyle = TBSTYLE_FLAT | CCS_NODIVIDER | CCS_NORESIZE | CCS_NOPARENTALIGN;
    if (!Toolbar::CreateIn(parent, IDC_BUTTON_BAR, kStyle, {0, 0, width, Px(kHeight)})) return false;
    arrow_.reset(LoadBitmapW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(IDB_DROP_ARROW)));
    SetButtonSize(ButtonWidth(width), Px(kButtonHeight));
    return AddTextButton(IDM_SHOW, BTNS_DROPDOWN, LoadText(IDS_SHOW).c_str(), ButtonWidth(width)) &&
           AddSeparator(std::max(width - 2 * ButtonWidth(width), 0)) &&
           AddTextButton(IDM_SORT, BTNS_DROPDOWN, LoadText(IDS_SORT).c_str(), ButtonWidth(width));
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
        RECT area;
        GetClientRect(&area);
        FillRect(draw.nmcd.hdc, area, GetSysColorBrush(COLOR_BTNFACE));
        return CDRF_NOTIFYITEMDRAW;
    }
    if (draw.nmcd.dwDrawStage != CDDS_ITEMPREPAINT) return CDRF_DODEFAULT;
    const auto id = static_cast<int>(draw.nmcd.dwItemSpec);
    if (id == IDM_SHOW || id == IDM_SORT) DrawButton(draw);
    return CDRF_SKIPDEFAULT;
}

void ButtonBar::DrawButton(const NMTBCUSTOMDRAW& draw) {
    const HDC dc = draw.nmcd.hdc;
    const auto id = static_cast<int>(draw.nmcd.dwItemSpec);
    RECT button;
    if (!GetButtonRect(id, &button)) return;
    const std::wstring text = GetButtonText(id);
    const SelectedObject font(dc, GetFont());
    RECT area = button;
    int arrow;
    if (id == IDM_SHOW) {
        area.left += Px(kTextMargin);
        area.right = std::min(area.left + TextWidth(dc, text) + Px(kArrowRoom), button.right);
        arrow = area.right - Px(kShowArrowInset);
    } else {
        RECT bar;
        GetClientRect(&bar);
        area.right = bar.right;
        area.left = std::max(bar.right - TextWidth(dc, text) - Px(kArrowRoom), button.left);
        arrow = bar.right - Px(kSortArrowInset);
    }
    RECT letters = area;
    letters.right -= Px(kArrowRoom);
    SetBkMode(dc, TRANSPARENT);
    SetTextColor(dc, GetSysColor(COLOR_BTNTEXT));
    DrawTextW(dc, text.c_str(), -1, &letters, DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS);
    DrawTransparent(dc, arrow_.get(), arrow, (area.top + area.bottom - Px(kArrowSize)) / 2, kArrowSize);
    if (draw.nmcd.uItemState & CDIS_SELECTED) DrawEdge(dc, &button, BDR_SUNKENOUTER, BF_RECT | BF_FLAT);
}
