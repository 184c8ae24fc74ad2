// The rows of what was found, and what a tap on one opens.
#include <px.h>

#include <algorithm>
#include <iterator>

#include "data/db_journal.h"
#include "data/field_ids.h"
#include "data/record_buffer.h"
#include "editor/entry_editor.h"
#include "find/found_dialog.h"
#include "list/detail_view.h"
#include "list/selection_memory.h"
#include "list/tap_guard.h"
#include "ui/resource_text.h"

namespace {

constexpr int kDateColumn = 0;
constexpr int kEntryColumn = 1;

// Logical pixels.
constexpr int kDateWidth = 60;
constexpr int kEntryWidth = 180;
constexpr int kCountHeight = 20;
constexpr int kRowHeight = 18;  // a stylus hits it

}  // namespace

void FoundDialog::MakeList() {
    list_.SetExtendedStyle(LVS_EX_FULLROWSELECT);
    list_.SetRowHeight(Px(kRowHeight));
    list_.InsertColumn(kDateColumn, LoadText(IDS_COLUMN_DATE).c_str(), Px(kDateWidth));
    list_.InsertColumn(kEntryColumn, LoadText(IDS_COLUMN_ENTRY).c_str(), Px(kEntryWidth));
    WatchKeys(list_.GetHandle(), *this);
}

// Reads a row for every entry found that is still there.
void FoundDialog::ShowResults() {
    searching_ = true;
    std::vector<Row> rows;  // the list asks for the old ones until it is told of these
    for (const CEOID entry : request_.results) {
        Row row;
        if (ReadRow(entry, row)) rows.push_back(std::move(row));
        if (!GoOn()) return;
    }
    searching_ = false;
    rows_ = std::move(rows);
    ShowRows();
}

bool FoundDialog::ReadRow(CEOID entry, Row& row) {
    CEPROPID ids[] = {kPropStart, kPropSubject};
    WORD count = static_cast<WORD>(std::size(ids));
    RecordBuffer props;
    if (journal_.SeekToOid(entry) == 0 || journal_.ReadRecordProps(&count, ids, props.Put()) != entry) return false;
    row.entry = entry;
    if (props.Has(0)) DateTime(props[0].val.filetime).ShortDate(row.date);
    if (props.Has(1)) row.subject = props[1].val.lpwstr;
    return true;
}

// The entry that was opened last stays selected, or else the row in its place.
void FoundDialog::ShowRows() {
    constexpr UINT kBoth = LVIS_SELECTED | LVIS_FOCUSED;
    ShowCount(static_cast<int>(rows_.size()));

    const int before = std::max(list_.GetNextItem(-1, LVNI_FOCUSED), 0);
    const int top = list_.GetTopIndex();
    list_.DeleteAllItems();
    list_.SetItemCount(static_cast<int>(rows_.size()));
    LayOut();
    if (rows_.empty()) return;
    const auto opened =
        std::find_if(rows_.begin(), rows_.end(), [this](const Row& row) { return row.entry == selection_.Current(); });
    const int last = static_cast<int>(rows_.size()) - 1;
    const int row = opened != rows_.end() ? static_cast<int>(opened - rows_.begin()) : std::min(before, last);
    list_.SetItemState(row, kBoth, kBoth);
    list_.EnsureVisible(std::min(top + list_.GetCountPerPage() - 1, last), false);
    list_.EnsureVisible(row, false);
}

void FoundDialog::OnGetDispInfo(LVITEMW& item) const {
    if (!(item.mask & LVIF_TEXT) || item.pszText == nullptr || item.cchTextMax <= 0) return;
    if (item.iItem < 0 || item.iItem >= std::ssize(rows_)) return;
    const Row& row = rows_[static_cast<size_t>(item.iItem)];
    lstrcpynW(item.pszText, (item.iSubItem == kDateColumn ? row.date : row.subject).c_str(), item.cchTextMax);
}

void FoundDialog::OnTap(int row) {
    if (searching_ || row < 0 || row >= std::ssize(rows_)) return;
    SwallowSecondTap([] {
        if (live_ != nullptr) live_->PostMessage(kSecondTap);
    });
    OpenEntry(rows_[static_cast<size_t>(row)].entry);
}

// The row behind the one that was opened last; the row of the focus when none was, or another was gone to since.
void FoundDialog::OpenNext() {
    constexpr UINT kBoth = LVIS_SELECTED | LVIS_FOCUSED;
    int row = list_.GetNextItem(-1, LVNI_FOCUSED);
    if (row < 0 || row >= std::ssize(rows_)) return;
    if (rows_[static_cast<size_t>(row)].entry == opened_ && ++row == std::ssize(rows_)) return;
    list_.SetItemState(row, kBoth, kBoth);
    list_.EnsureVisible(row, false);
    OpenEntry(rows_[static_cast<size_t>(row)].entry);
}

void FoundDialog::OpenEntry(CEOID entry) {
    if (journal_.SeekToOid(entry) == 0) return ShowResults();  // another program has deleted it
    opened_ = entry;
    selection_.Clear();
    selection_.Add(entry);
    selection_.SetCurrent(entry);
    const bool inNote = request_.searchBy == SearchBy::kEntry;
    const NoteMatch match = {inNote ? request_.text : std::wstring(), request_.matchCase != FALSE};
    const INT_PTR result = DetailView::Run(*this, selection_, match);
    if (IsOver() || result == DetailView::kClosed) return;
    EntryEditor::Run(*this, journal_, selection_, result > 0 ? static_cast<WORD>(result) : WORD{0});
    if (!IsOver()) Search();
}

void FoundDialog::LayOut() {
    RECT client;
    if (list_.GetHandle() == nullptr || !GetClientRect(&client)) return;  // sized while being created
    const int below = Px(kCountHeight);
    count_.MoveWindow(0, 0, client.right, below);
    list_.MoveWindow(0, below, client.right, std::max(client.bottom - below, 0L));
    // As on a device, where the two fill the screen; a wider one gives the entry more.
    list_.SetColumnWidth(kEntryColumn, std::max(Px(kEntryWidth), static_cast<int>(client.right) - Px(kDateWidth)));
}
