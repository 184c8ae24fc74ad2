#include "ui/check_list.h"

#include <px.h>

#include <algorithm>

#include "ui/gdi_scope.h"

namespace {

constexpr int kBoxSize = 13;
constexpr int kPictureSize = 16;  // the box with the space around it

// The control's own pictures follow the system's resolution, which need not be the screen's. State 1 is the empty box,
// state 2 the checked one.
UniqueImageList MakeBoxes() {
    constexpr COLORREF kAround = RGB(255, 0, 255);  // becomes transparent
    const int size = Px(kPictureSize);
    const HDC screen = GetDC(nullptr);
    UniqueImageList boxes(ImageList_Create(size, size, ILC_COLOR24 | ILC_MASK, 2, 0));
    const UniqueBrush around(CreateSolidBrush(kAround));
    for (const UINT state : {0u, UINT{DFCS_CHECKED}}) {
        const UniqueMemoryDc dc(CreateCompatibleDC(screen));
        const UniqueBitmap picture(CreateCompatibleBitmap(screen, size, size));
        {
            const SelectedObject selected(dc.get(), picture.get());
            const RECT all = {0, 0, size, size};
            FillRect(dc.get(), &all, around.get());
            const int edge = (size - Px(kBoxSize)) / 2;
            RECT box = {edge, edge, edge + Px(kBoxSize), edge + Px(kBoxSize)};
            DrawFrameControl(dc.get(), &box, DFC_BUTTON, DFCS_BUTTONCHECK | DFCS_FLAT | state);
        }
        ImageList_AddMasked(boxes.get(), picture.get(), kAround);
    }
    ReleaseDC(nullptr, screen);
    return boxes;
}

UINT StateImage(bool checked) {
    return static_cast<UINT>(INDEXTOSTATEIMAGEMASK(checked ? 2 : 1));
}

}  // namespace

void CheckList::Prepare(int width) {
    SetExtendedStyle(LVS_EX_CHECKBOXES | LVS_EX_FULLROWSELECT);
    // The control owns its state pictures, but not those it is given another list in place of.
    const UniqueImageList replaced(reinterpret_cast<HIMAGELIST>(
        SendMessage(LVM_SETIMAGELIST, LVSIL_STATE, reinterpret_cast<LPARAM>(MakeBoxes().release()))));
    InsertColumn(0, L"", width);
}

bool CheckList::Enable(bool enable) {
    const COLORREF text = GetSysColor(enable ? COLOR_WINDOWTEXT : COLOR_GRAYTEXT);
    SendMessage(LVM_SETTEXTCOLOR, 0, static_cast<LPARAM>(text));
    if (!enable) SetItemState(-1, 0, LVIS_SELECTED);  // a selected row would keep its own colours
    Invalidate();
    return ListView::Enable(enable);
}

int CheckList::Add(const wchar_t* text, bool checked, LPARAM data) {
    const int row = InsertItem(GetItemCount(), text, data);
    if (row != -1 && checked) SetChecked(row, true);
    return row;
}

bool CheckList::IsChecked(int row) const {
    return GetItemState(row, LVIS_STATEIMAGEMASK) == StateImage(true);
}

void CheckList::SetChecked(int row, bool checked) {
    if (checked != IsChecked(row)) SetItemState(row, StateImage(checked), LVIS_STATEIMAGEMASK);
}

void CheckList::UncheckAll() {
    const int rows = GetItemCount();
    for (int row = 0; row < rows; ++row)
        SetChecked(row, false);
}

bool CheckList::IsToggled(const NMLISTVIEW& change) {
    const UINT before = change.uOldState & LVIS_STATEIMAGEMASK;
    const UINT now = change.uNewState & LVIS_STATEIMAGEMASK;
    return change.iItem >= 0 && (change.uChanged & LVIF_STATE) != 0 && before != 0 && now != 0 && before != now;
}

// By place and not by what the hit test says was hit: left of a text it may name the whole row instead of the box.
void CheckList::OnTap(const NMITEMACTIVATE& tap) {
    const int row = HitTest(tap.ptAction);
    RECT label;
    if (row < 0 || !GetItemRect(row, &label, LVIR_LABEL) || tap.ptAction.x < label.left) return;
    SetChecked(row, !IsChecked(row));
}

void CheckList::OnFocus() {
    constexpr UINT kBoth = LVIS_SELECTED | LVIS_FOCUSED;
    if (GetItemCount() > 0) SetItemState(std::max(GetNextItem(-1, LVNI_FOCUSED), 0), kBoth, kBoth);
}

int CheckList::WidestRow() const {
    constexpr int kTextMargin = 12;  // what the control leaves free at both ends of a text
    int widest = 0;
    const int rows = GetItemCount();
    for (int row = 0; row < rows; ++row) {
        const auto width = SendMessage(LVM_GETSTRINGWIDTHW, 0, reinterpret_cast<LPARAM>(GetItemText(row, 0).c_str()));
        widest = std::max(widest, static_cast<int>(width));
    }
    return widest + Px(kPictureSize + kTextMargin);
}
