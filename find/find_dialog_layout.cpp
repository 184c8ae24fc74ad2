// Where the find dialog's controls stand.
//
//     -- Search by ------------------
//     | (o) Date ( ) Subject ( ) Entry |
//     -- Search from -----  -- Case --
//     | (o) Top ( ) Current |  | [x] Match |
//     -- Search for -----------------
//     | [ 5/7/2001                 v] |
#include <px.h>

#include <algorithm>
#include <initializer_list>

#include "editor/field_controls.h"
#include "find/find_dialog.h"

namespace {

// Logical pixels.
constexpr int kMargin = 6;
constexpr int kGroup = 46;
constexpr int kInset = 8;     // from a group's frame to what is in it
constexpr int kCaption = 18;  // from a group's top to what is in it
constexpr int kButtonRow = 20;
constexpr int kPicker = 22;
constexpr int kDropped = 70;  // how much higher than the picker the text box is with its list

RECT Inside(const RECT& group) {
    return {group.left + Px(kInset), group.top + Px(kCaption), group.right - Px(kInset), group.bottom};
}

}  // namespace

void FindDialog::LayOut() {
    RECT client;
    if (text_.GetHandle() == nullptr || !GetClientRect(&client)) return;  // sized while being created
    const int margin = Px(kMargin);
    const LONG right = client.right - margin;
    const auto put = [&](int item, const RECT& place) {
        ::MoveWindow(GetDlgItem(item), place.left, place.top, place.right - place.left, place.bottom - place.top, TRUE);
    };
    const auto putInRow = [&](const RECT& group, std::initializer_list<int> items) {
        const RECT row = Inside(group);
        const int width = static_cast<int>(row.right - row.left) / static_cast<int>(items.size());
        LONG x = row.left;
        for (const int item : items) {
            put(item, {x, row.top, x + width, row.top + Px(kButtonRow)});
            x += width;
        }
    };

    RECT group = {margin, margin, right, margin + Px(kGroup)};
    put(IDC_FIND_BY_GROUP, group);
    putInRow(group, {IDC_FIND_BY_DATE, IDC_FIND_BY_SUBJECT, IDC_FIND_BY_ENTRY});

    // Two of its three columns are for where from, the third is for the case.
    OffsetRect(&group, 0, Px(kGroup) + margin);
    const LONG third = (right - margin) / 3;
    const RECT from = {group.left, group.top, right - third - margin / 2, group.bottom};
    const RECT letterCase = {right - third + margin / 2, group.top, right, group.bottom};
    put(IDC_FIND_FROM_GROUP, from);
    putInRow(from, {IDC_FIND_FROM_TOP, IDC_FIND_FROM_CURRENT});
    put(IDC_FIND_CASE_GROUP, letterCase);
    putInRow(letterCase, {IDC_FIND_MATCH_CASE});

    OffsetRect(&group, 0, Px(kGroup) + margin);
    put(IDC_FIND_FOR_GROUP, group);
    RECT row = Inside(group);
    // No higher than a line needs: the text would not stand in the middle on every system.
    const int height = std::min(Px(kPicker), LineHeight(date_));
    row.top += (Px(kPicker) - height) / 2;
    row.bottom = row.top + height;
    put(IDC_FIND_DATE, row);
    PlaceText(row);
    Invalidate();
}

// The text box stands where the picker does, and opens its list below. What its own frame takes is the system's affair.
void FindDialog::PlaceText(const RECT& place) {
    const int height = static_cast<int>(place.bottom - place.top);
    text_.MoveWindow(place.left, place.top, place.right - place.left, height + Px(kDropped));
    text_.SetFieldHeight(height);
    RECT box;
    text_.GetWindowRect(&box);
    text_.SetFieldHeight(2 * height - static_cast<int>(box.bottom - box.top));
    text_.MakeRowsRoomy();
}
