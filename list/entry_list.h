// The main window's list of journal entries: a virtual view of the store in the store's own order.
//
// The control holds no rows. What each row stands for, ShownRows knows: what is drawn in a row is what a tap, a key or
// a command acts on. What is selected is remembered by object id, so that it survives every rebuild.
#pragma once

#include "list/selection_memory.h"
#include "list/shown_rows.h"
#include "list/store_rows.h"
#include "ui/list_view.h"

class DbJournal;
struct FilterSettings;

class EntryList : public ListView {
public:
    // All three must outlive the object. The filter's passed count is written by RefreshList.
    EntryList(DbJournal& journal, SelectionMemory& selection, FilterSettings& filter);

    // Creates the control (IDC_ENTRY_LIST), hidden and empty, in `place` of the parent's client area, with its columns.
    // The parent gets the commands that taps send. False when it cannot be made.
    bool CreateIn(HWND parent, const RECT& place);

    // Empties the list, counts the entries anew and selects what the selection memory holds; the current entry ends
    // focused and visible, and apart from that the list stays where it was scrolled to. Whoever changes the store or
    // the filter ends with this. Without a current entry nothing is selected at the end, whatever the memory held.
    //
    // A journal that a failed operation left closed is opened again. When the entries cannot be counted all the same,
    // the list stays as it is, and tries again by itself until they can.
    void RefreshList();
    // Selects, focuses and shows the row of that entry and makes it the current one. When it has no row, nothing is
    // selected afterwards and there is no current entry: 0 never has one, nor has an entry that the filter hides or
    // whose place in the store lies behind the last row.
    void SelectEntry(CEOID id);
    // Forgets what is selected; the control's own states stay.
    void ClearSelection();
    // The first row that is both focused and selected, or -1; `id` receives its entry, or 0.
    int GetFocusedEntry(CEOID* id);
    // Whether the last SelectEntry found its row, until this is taken back.
    bool HasCurrent() const { return hasCurrent_; }
    void ForgetHasCurrent() { hasCurrent_ = false; }

    // Scrolls to the first row, for what will show other rows or another order.
    void ShowTop();
    // The entry's row is drawn from the store again.
    void RefreshRow(CEOID id);

    // Lays the list out in its new place: columns fitted, the focused row in view.
    void Place(const RECT& place);

    // Answers WM_NOTIFY from the list and from its header; 0 for what it does not know.
    LRESULT OnNotify(NMHDR* header);

private:
    static LRESULT CALLBACK Procedure(HWND hwnd, UINT message, WPARAM wparam, LPARAM lparam) noexcept;
    LRESULT OnPress(UINT message, WPARAM wparam, LPARAM lparam);
    bool OnStylusDown(POINT point);

    // A row that is to be selected for an entry.
    struct EntryRow {
        int row = -1;
        CEOID id = 0;
    };

    bool Rebuild();
    void RetryCount();
    void Reselect(const std::vector<CEOID>& selected, CEOID current);
    bool IsRowOf(int row, CEOID id);
    void Mark(const EntryRow& row, UINT states);
    void FitColumns();
    void SelectRow(int row);
    void DeselectAll();
    void SendCommand(WORD id);

    // ---- What the rows stand for (entry_list_rows.cpp) ----
    void ShowRows();
    void BringUp(int row);
    void Hold(int row, CEOID id);
    void HoldScreen(int from, int to);
    bool IsMarked(int row) const;
    void ReleaseUnmarked();
    void OnItemChanged(const NMLISTVIEW& change);
    void OnRangeChanged(const NMLVODSTATECHANGE& change);
    void RememberRows(int from, int to, bool focused);

    // ---- Notifications (entry_list_notify.cpp) ----
    void OnGetDispInfo(NMLVDISPINFOW* info);
    void OnHeaderClick(int column);
    void OnTap();

    // ---- Drawing (entry_list_draw.cpp) ----
    LRESULT OnCustomDraw(NMLVCUSTOMDRAW& draw);
    LRESULT OnDrawRow(NMLVCUSTOMDRAW& draw);
    void DrawEmpty(HDC dc) const;
    std::wstring EmptyText() const;

    static EntryList* live_;

    DbJournal& journal_;
    SelectionMemory& selection_;
    FilterSettings& filter_;
    StoreRows rows_;
    ShownRows shown_;
    int pressed_ = -1;  // the row under the stylus, while the control acts on it
    bool hasCurrent_ = false;
    bool isCounted_ = true;  // the last count worked
};
