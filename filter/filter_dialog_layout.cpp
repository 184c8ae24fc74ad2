// Where the filter dialog's controls stand.
//
//     (o) On Date Range     ( ) On Month(s)
//     Start:                [ ] January   ^
//     [ 5/7/2001      v]    [ ] February  |
//     End:                  [ ] March     |
//     [ 5/9/2001      v]    [ ] April     v
//     Categories            [ ] Categories Only
//     [ every category                        ]
//     12 of 300 entries pass
#include <px.h>

#include <algorithm>

#include "filter/filter_dialog.h"
#include "res/ids.h"
#include "ui/fonts.h"
#include "ui/gdi_scope.h"

namespace {

// Logical pixels.
constexpr int kMargin = 6;
constexpr int kButtonRow = 20;
constexpr int kLabel = 15;
constexpr int kPicker = 22;
constexpr int kDates = 2 * (kLabel + kPicker) + kMargin;  // both pickers under their labels
constexpr int kFlatDates = 2 * kPicker + kMargin;         // both pickers beside their labels
constexpr int kLabelWidth = 36;
constexpr int kPickerWidth = 100;  // the least in which a date can be read
constexpr int kStatus = 16;
constexpr int kLeastList = 40;

class Column {
public:
    Column(int left, int width) : left_(left), width_(width) {}
    void Put(HWND control, int top, int height) const {
        ::MoveWindow(control, left_, top, width_, std::max(height, 0), TRUE);
    }

private:
    int left_;
    int width_;
};

// The height in which a list shows all its rows, with a little to spare: the control has its own margins.
int FullHeight(const CheckList& list) {
    RECT row;
    if (!list.GetItemRect(0, &row)) return 0;
    return static_cast<int>(row.bottom - row.top) * list.GetItemCount() + Px(6);
}

}  // namespace

void FilterDialog::LayOut() {
    RECT client;
    if (!GetClientRect(&client)) return;
    const int margin = Px(kMargin);
    const int half = (client.right - 3 * margin) / 2;
    const Column left(margin, half);
    const Column right(2 * margin + half, client.right - 3 * margin - half);
    const Column whole(margin, client.right - 2 * margin);

    // What the rows of fixed height leave is shared by dates and months above and the categories below.
    const int rest = client.bottom - 2 * Px(kButtonRow) - Px(kStatus) - 4 * margin;
    // A low and wide screen has its labels beside the pickers.
    const bool flat = rest < Px(kDates + kLeastList) && half >= Px(kLabelWidth + kPickerWidth);
    const int least = Px(flat ? kFlatDates : kDates);
    const int upper =
        std::clamp(std::min(rest / 2, rest - Px(kLeastList)), least, std::max(least, FullHeight(months_)));

    int y = margin;
    left.Put(byRange_.GetHandle(), y, Px(kButtonRow));
    right.Put(byMonth_.GetHandle(), y, Px(kButtonRow));
    y += Px(kButtonRow);
    right.Put(months_.GetHandle(), y, upper);
    const int indent = flat ? Px(kLabelWidth) : 0;
    const int drop = flat ? 0 : Px(kLabel);
    const int text = flat ? Px(3) : 0;  // down to the line of the picker's text
    const Column label(margin, flat ? indent : half);
    const Column picker(margin + indent, half - indent);
    label.Put(GetDlgItem(IDC_FILTER_START_LABEL), y + text, Px(kLabel));
    picker.Put(start_.GetHandle(), y + drop, Px(kPicker));
    const int below = y + drop + Px(kPicker) + margin;
    label.Put(GetDlgItem(IDC_FILTER_END_LABEL), below + text, Px(kLabel));
    picker.Put(end_.GetHandle(), below + drop, Px(kPicker));
    y += upper + margin;
    left.Put(GetDlgItem(IDC_FILTER_CATEGORIES_LABEL), y + Px(3), Px(kButtonRow - 3));
    right.Put(categoriesOnly_.GetHandle(), y, Px(kButtonRow));
    y += Px(kButtonRow);
    const int list = client.bottom - y - Px(kStatus) - 2 * margin;
    whole.Put(categories_.GetHandle(), y, list);
    whole.Put(status_.GetHandle(), client.bottom - margin - Px(kStatus), Px(kStatus));

    FitStatus();

    categories_.FitLastColumn();
    Invalidate();
}

void FilterDialog::FitStatus() {
    const auto font = reinterpret_cast<HFONT>(SendMessage(WM_GETFONT));
    const WindowDc dc(GetHandle());
    RECT place;
    status_.GetClientRect(&place);
    std::wstring text;
    status_.GetText(text);
    UniqueFont narrow = MakeNarrowFont(dc.Dc(), font, text, place.right);
    status_.SetFont(narrow ? narrow.get() : font);
    narrow_ = std::move(narrow);
}
