#include "pickers/contact_picker.h"

#include <px.h>

#include <algorithm>
#include <map>
#include <utility>

#include "res/ids.h"
#include "ui/application.h"
#include "ui/picture_list.h"
#include "ui/resource_text.h"

namespace {

// Logical pixels.
constexpr int kFileAsWidth = 120;
constexpr int kCompanyWidth = 100;
constexpr int kScreenWidth = 240;  // the two columns and a scroll bar fill it
constexpr int kBoxWidth = 14;
constexpr int kNoneHeight = 60;

UINT StateImage(bool checked) {
    return static_cast<UINT>(INDEXTOSTATEIMAGEMASK(checked ? 2 : 1));
}

bool BeginsWith(const std::wstring& text, const std::wstring& start) {
    return text.size() >= start.size() &&
           CompareStringW(LOCALE_USER_DEFAULT, NORM_IGNORECASE, text.c_str(), static_cast<int>(start.size()),
                          start.c_str(), static_cast<int>(start.size())) == CSTR_EQUAL;
}

}  // namespace

ContactPicker::ContactPicker(const wchar_t* title, TSList<DbAItem>& contacts, ContactSource& source)
    : title_(title), contacts_(contacts), source_(source) {}

INT_PTR ContactPicker::Run(HWND owner, const wchar_t* title, TSList<DbAItem>& contacts, ContactSource& source) {
    ContactPicker picker(title, contacts, source);
    source.Open(owner);
    const INT_PTR result = picker.RunModal(owner);
    source.Close();
    return result;
}

bool ContactPicker::OnOpen() {
    SetText(title_);
    FindNotOffered();
    if (!MakeList()) return false;
    none_.CreateIn(GetHandle(), IDC_NO_CONTACTS, SS_CENTER | SS_NOPREFIX, {});
    none_.SetText(LoadText(IDS_NO_CONTACTS).c_str());
    if (CountRows()) {
        list_.Show();
        list_.SetFocus();
    } else {
        none_.Show();
        SetFocus();
    }
    return true;
}

bool ContactPicker::MakeList() {
    label_.CreateIn(GetHandle(), -1, 0, {});
    label_.SetText(title_);
    constexpr DWORD kStyle =
        WS_TABSTOP | LVS_REPORT | LVS_SINGLESEL | LVS_SHOWSELALWAYS | LVS_OWNERDATA | LVS_NOSORTHEADER;
    if (!list_.CreateIn(GetHandle(), IDC_CONTACT_LIST, kStyle, {})) return false;
    list_.SetExtendedStyle(LVS_EX_FULLROWSELECT);
    UniqueImageList boxes = LoadPictures(Application::Current()->GetInstance(), IDB_CONTACT_CHECKS, kBoxWidth);
    list_.SendMessage(LVM_SETIMAGELIST, LVSIL_STATE, reinterpret_cast<LPARAM>(boxes.release()));  // destroys it
    list_.SendMessage(LVM_SETCALLBACKMASK, LVIS_STATEIMAGEMASK);
    list_.InsertColumn(0, LoadText(IDS_COLUMN_FILE_AS).c_str(), Px(kFileAsWidth));
    list_.InsertColumn(1, LoadText(IDS_COLUMN_COMPANY).c_str(), Px(kCompanyWidth));
    list_.SetItemCount(CountRows());
    list_.SetItemState(0, LVIS_FOCUSED | LVIS_SELECTED, LVIS_FOCUSED | LVIS_SELECTED);
    return true;
}

void ContactPicker::FindNotOffered() {
    if (contacts_.IsEmpty()) return;
    std::set<std::pair<std::wstring, std::wstring>> missing;
    for (const DbAItem& contact : contacts_)
        missing.emplace(contact.GetStrValue(), contact.GetCompany());
    std::map<std::wstring, int> bare;  // how often each of these names is offered
    for (const DbAItem& contact : contacts_)
        if (!*contact.GetCompany()) bare.emplace(contact.GetStrValue(), 0);
    for (const DbAItem& contact : contacts_)
        if (*contact.GetCompany()) bare.erase(contact.GetStrValue());  // the entry tells them apart
    const int count = source_.GetCount();
    for (int i = 0; i < count; ++i) {
        OfferedContact contact = source_.Get(i);
        if (const auto name = bare.find(contact.fileAs); name != bare.end()) ++name->second;
        missing.erase({std::move(contact.fileAs), std::move(contact.company)});
    }
    for (const auto& [name, times] : bare)
        if (times == 1 && missing.erase({name, L""})) bareNames_.insert(name);
    for (const DbAItem& contact : contacts_) {
        if (missing.erase({contact.GetStrValue(), contact.GetCompany()})) {
            notOffered_.push_back({contact.GetStrValue(), contact.GetCompany()});
        }
    }
}

void ContactPicker::LayOut(const RECT& client) {
    list_.MoveWindow(0, 0, client.right, client.bottom);
    // A screen that is wider than a device's gives them more, in the same proportion.
    const int more = std::max(static_cast<int>(client.right) - Px(kScreenWidth), 0);
    const int fileAs = Px(kFileAsWidth) + more * kFileAsWidth / (kFileAsWidth + kCompanyWidth);
    list_.SetColumnWidth(0, fileAs);
    list_.SetColumnWidth(1, Px(kFileAsWidth + kCompanyWidth) + more - fileAs);
    none_.MoveWindow(0, (client.bottom - Px(kNoneHeight)) / 3, client.right, Px(kNoneHeight));
}

OfferedContact ContactPicker::ContactOf(int row) const {
    const int offset = static_cast<int>(notOffered_.size());
    return row < offset ? notOffered_[static_cast<size_t>(row)] : source_.Get(row - offset);
}

// The item that the entry has, or would have, for a contact.
DbAItem ContactPicker::ItemOf(const OfferedContact& contact) const {
    const DbAItem bare(contact.fileAs.c_str(), L"");
    if (bareNames_.contains(contact.fileAs) && contacts_.Find(bare)) return bare;
    return {contact.fileAs.c_str(), contact.company.c_str()};
}

bool ContactPicker::IsHeld(int row) const {
    return contacts_.Find(ItemOf(ContactOf(row))) != nullptr;
}

void ContactPicker::Toggle(int row) {
    if (row < 0 || row >= CountRows()) return;
    const DbAItem contact = ItemOf(ContactOf(row));
    if (!contacts_.Find(contact)) {
        contacts_.Append(contact);
    } else {
        while (DbAItem* held = contacts_.Find(contact))  // stored entries may name it twice
            contacts_.Remove(held);
    }
    list_.Invalidate(nullptr, false);  // other rows may be the same contact
}

LRESULT ContactPicker::OnNotify(const NMHDR& header) {
    if (header.idFrom != IDC_CONTACT_LIST) return 0;
    switch (header.code) {
        case LVN_GETDISPINFOW: OnGetDispInfo(reinterpret_cast<NMLVDISPINFOW&>(const_cast<NMHDR&>(header)).item); break;
        case LVN_ODFINDITEMW: return FindRow(reinterpret_cast<const NMLVFINDITEMW&>(header));
        case NM_CLICK:
        case NM_DBLCLK: Toggle(list_.HitTest(reinterpret_cast<const NMITEMACTIVATE&>(header).ptAction)); break;
        case LVN_KEYDOWN:
            if (reinterpret_cast<const NMLVKEYDOWN&>(header).wVKey == VK_SPACE) {
                Toggle(list_.GetNextItem(-1, LVNI_FOCUSED));
            }
            break;
        default: break;
    }
    return 0;
}

void ContactPicker::OnGetDispInfo(LVITEMW& item) const {
    if (item.iItem < 0 || item.iItem >= CountRows()) return;
    if (item.mask & LVIF_TEXT) {
        const OfferedContact contact = ContactOf(item.iItem);
        lstrcpynW(item.pszText, (item.iSubItem == 0 ? contact.fileAs : contact.company).c_str(), item.cchTextMax);
    }
    if (item.mask & LVIF_STATE) {
        item.stateMask |= LVIS_STATEIMAGEMASK;
        item.state = (item.state & ~static_cast<UINT>(LVIS_STATEIMAGEMASK)) | StateImage(IsHeld(item.iItem));
    }
}

// Typing the beginning of a name goes to it. The search begins at the row given and goes round.
int ContactPicker::FindRow(const NMLVFINDITEMW& find) const {
    const int rows = CountRows();
    if (!(find.lvfi.flags & (LVFI_STRING | LVFI_PARTIAL)) || !find.lvfi.psz || rows == 0) return -1;
    const std::wstring start = find.lvfi.psz;
    for (int step = 0; step < rows; ++step) {
        const int row = (std::max(find.iStart, 0) + step) % rows;
        if (BeginsWith(ContactOf(row).fileAs, start)) return row;
    }
    return -1;
}
