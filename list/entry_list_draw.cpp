// How the list draws what the control by itself would not: its selection while the keys go elsewhere, and an empty
// list.
#include "filter/filter_caption.h"
#include "filter/filter_settings.h"
#include "list/entry_list.h"
#include "res/ids.h"
#include "ui/gdi_scope.h"
#include "ui/resource_text.h"

namespace {

// A quarter of the way from `paper` to `ink`.
COLORREF Paler(COLORREF ink, COLORREF paper) {
    const auto mix = [](int a, int b) { return static_cast<BYTE>((a + 3 * b) / 4); };
    return RGB(mix(GetRValue(ink), GetRValue(paper)), mix(GetGValue(ink), GetGValue(paper)),
               mix(GetBValue(ink), GetBValue(paper)));
}

}  // namespace

LRESULT EntryList::OnCustomDraw(NMLVCUSTOMDRAW& draw) {
    switch (draw.nmcd.dwDrawStage) {
        case CDDS_PREPAINT:
            if (GetItemCount() == 0) return CDRF_NOTIFYPOSTPAINT;
            return ::GetFocus() == GetHandle() ? CDRF_DODEFAULT : CDRF_NOTIFYITEMDRAW;
        case CDDS_ITEMPREPAINT: return OnDrawRow(draw);
        case CDDS_POSTPAINT:
            if (GetItemCount() == 0) DrawEmpty(draw.nmcd.hdc);
            return CDRF_DODEFAULT;
        default: return CDRF_DODEFAULT;
    }
}

// Only in a list made with LVS_SHOWSELALWAYS, which this is not, does the control show a selection without the focus.
LRESULT EntryList::OnDrawRow(NMLVCUSTOMDRAW& draw) {
    if (GetItemState(static_cast<int>(draw.nmcd.dwItemSpec), LVIS_SELECTED) == 0) return CDRF_DODEFAULT;
    draw.clrText = GetSysColor(COLOR_WINDOWTEXT);
    draw.clrTextBk = Paler(GetSysColor(COLOR_HIGHLIGHT), GetSysColor(COLOR_WINDOW));
    return CDRF_NEWFONT;
}

void EntryList::DrawEmpty(HDC dc) const {
    RECT area;
    GetClientRect(&area);
    area.top += (area.bottom - area.top) / 4;
    const SelectedObject font(dc, reinterpret_cast<HFONT>(SendMessage(WM_GETFONT)));
    SetBkMode(dc, TRANSPARENT);
    SetTextColor(dc, GetSysColor(COLOR_GRAYTEXT));
    DrawTextW(dc, EmptyText().c_str(), -1, &area, DT_CENTER | DT_NOPREFIX | DT_WORDBREAK);
}

std::wstring EntryList::EmptyText() const {
    if (!isCounted_) return LoadText(IDS_NOT_COUNTED);
    if (!filter_.active) return LoadText(IDS_NO_ENTRIES);
    return LoadText(IDS_NONE_PASSES) + L" \"" + FilterCaption(filter_) + L"\".\n" + LoadText(IDS_SHOW_THEM_ALL);
}
