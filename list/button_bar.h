// The bar over the entry list: "Show" chooses what is listed, "Sort" in which order.
#pragma once

#include "ui/toolbar.h"

class DbJournal;
struct FilterSettings;

// What the bar tells its owner, as the high word of a WM_COMMAND.
enum BarNotification : WORD {
    kNotifyRefresh = 0x466,         // rebuild the list, then handle the low word as a command
    kNotifySortField = 0x467,       // low word: the field id to sort by
    kNotifySortDescending = 0x469,  // low word: 1 descending, 0 ascending
};

// "SortBy" when it was never stored, and the settings' name for it.
inline constexpr wchar_t kSortBy[] = L"SortBy";

class ButtonBar : public Toolbar {
public:
    static constexpr int kHeight = 26;  // logical pixels

    // Both must outlive the object.
    ButtonBar(DbJournal& journal, FilterSettings& filter) : journal_(journal), filter_(filter) {}

    // Creates the bar (IDC_BUTTON_BAR), hidden, across the top of the parent's client area, `width` device pixels. The
    // parent gets its commands and notifications.
    bool CreateIn(HWND parent, int width);
    // Fits bar and buttons to a new width.
    void Fit(int width);

    // The buttons' texts: "Show" names the filter, "Sort" the stored sort field.
    void SetShowText();
    void SetSortText();

    // Answers WM_NOTIFY from the bar; 0 for what it does not know.
    LRESULT OnNotify(NMHDR* header);

    // The menus as they open, for TrackPopupMenuEx, and what a choice in them does (0: nothing was chosen). "Show"
    // offers the categories that entries use, the first eight of them; their items' data is the category's record.
    UniqueMenu MakeShowMenu() const;
    UniqueMenu MakeSortMenu() const;
    void OnShowChoice(HMENU menu, int id);
    void OnSortChoice(int id);

private:
    LRESULT OnDropDown(int button);
    LRESULT OnCustomDraw(const NMTBCUSTOMDRAW& draw);
    void DrawBar(HDC dc);
    void ClearGap(HDC dc);
    void DrawButton(const NMTBCUSTOMDRAW& draw);
    int OpenMenu(HMENU menu, int button, UINT align);
    void SetSortTextTo(WORD field);
    bool AppendCategories(HMENU menu) const;
    bool IsDescending() const;
    void Tell(WORD id, WORD notification);

    DbJournal& journal_;
    FilterSettings& filter_;
    UniqueBitmap arrow_;
};
