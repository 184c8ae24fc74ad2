#include "list/date_column.h"

#include <dateformat.h>
#include <px.h>

#include <algorithm>
#include <iterator>

#include "ui/list_view.h"

namespace {

constexpr int kDateWidth = 60;  // logical pixels
constexpr int kDateSpace = 12;  // around the text

}  // namespace

int DateColumnWidth(const ListView& list) {
    const SYSTEMTIME wide = {2000, 12, 0, 28, 0, 0, 0, 0};
    wchar_t date[60] = L"";
    GetDateFormatW(LOCALE_USER_DEFAULT, DATE_SHORTDATE, &wide, nullptr, date, static_cast<int>(std::size(date)));
    const LRESULT text = list.SendMessage(LVM_GETSTRINGWIDTHW, 0, reinterpret_cast<LPARAM>(date));
    return std::max(Px(kDateWidth), static_cast<int>(text) + Px(kDateSpace));
}
