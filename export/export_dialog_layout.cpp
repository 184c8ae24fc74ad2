// Where the export dialog's controls stand.
//
//     Format
//     Comma Separated Value
//     (o) Export all Journal entries
//     ( ) Export only selected Journal entries
//     ( ) Export filtered journal entries
//     Fields to export
//     [ every field                         ]
//     [x] Write column header to file
//     [==========                           ]
#include <px.h>

#include <algorithm>

#include "export/export_dialog.h"
#include "res/ids.h"

namespace {

// Logical pixels.
constexpr int kMargin = 6;
constexpr int kButtonRow = 20;
constexpr int kLabel = 15;
constexpr int kFormat = 2 * 14;
constexpr int kProgress = 14;

}  // namespace

void ExportDialog::LayOut() {
    RECT client;
    if (!GetClientRect(&client)) return;
    const int margin = Px(kMargin);
    const int width = client.right - 2 * margin;
    const auto put = [&](int item, int top, int height) {
        ::MoveWindow(GetDlgItem(item), margin, top, width, std::max(height, 0), TRUE);
    };

    int y = margin;
    put(IDC_EXPORT_FORMAT, y, Px(kFormat));
    y += Px(kFormat) + margin;
    for (const int radio : {IDC_EXPORT_ALL, IDC_EXPORT_SELECTED, IDC_EXPORT_FILTERED}) {
        put(radio, y, Px(kButtonRow));
        y += Px(kButtonRow);
    }
    y += margin;
    put(IDC_EXPORT_FIELDS_LABEL, y, Px(kLabel));
    y += Px(kLabel);
    const int progress = client.bottom - margin - Px(kProgress);
    const int labels = progress - margin - Px(kButtonRow);
    put(IDC_EXPORT_FIELDS, y, labels - margin - y);
    put(IDC_EXPORT_LABELS, labels, Px(kButtonRow));
    put(IDC_EXPORT_PROGRESS, progress, Px(kProgress));
    Invalidate();
}
