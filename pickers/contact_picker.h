// The screen in which an entry's contacts are checked.
#pragma once

#include <set>
#include <string>
#include <vector>

#include "data/dba_item.h"
#include "data/ts_list.h"
#include "pickers/contact_source.h"
#include "pickers/picker_screen.h"
#include "ui/list_view.h"
#include "ui/static_text.h"

// The rows are not kept: each is asked of the source when it is drawn. First come those of the entry's contacts that
// the source does not offer, so that they can be seen and unchecked; then all that it offers. A contact of the entry's
// that has no company, and whose name the source offers once, is the one offered.
class ContactPicker : public PickerScreen {
public:
    // Runs the screen modally over `owner` on an entry's contacts, which are changed in place: unchecking a contact
    // removes it, checking puts it behind the others. Answers IDOK, or -1 when the screen cannot be made.
    static INT_PTR Run(HWND owner, const wchar_t* title, TSList<DbAItem>& contacts, ContactSource& source);

private:
    ContactPicker(const wchar_t* title, TSList<DbAItem>& contacts, ContactSource& source);

    bool OnOpen() override;
    void LayOut(const RECT& client) override;
    LRESULT OnNotify(const NMHDR& header) override;

    bool MakeList();
    void FindNotOffered();
    int CountRows() const { return static_cast<int>(notOffered_.size()) + source_.GetCount(); }
    OfferedContact ContactOf(int row) const;
    DbAItem ItemOf(const OfferedContact& contact) const;
    bool IsHeld(int row) const;
    void Toggle(int row);
    void OnGetDispInfo(LVITEMW& item) const;
    int FindRow(const NMLVFINDITEMW& find) const;

    const wchar_t* title_;
    TSList<DbAItem>& contacts_;
    ContactSource& source_;
    std::vector<OfferedContact> notOffered_;
    std::set<std::wstring> bareNames_;  // of the entry's contacts that are offered with a company which they lack
    StaticText label_;
    ListView list_;
    StaticText none_;
};
