#include "outlook/outlook_contacts.h"

namespace {

// The collection answers these two of each contact without reading the contact.
bool AskForColumns(IPOutlookItemCollection& contacts) {
    IPOlItems* items = nullptr;
    if (FAILED(contacts.QueryInterface(IID_IPOlItems, reinterpret_cast<void**>(&items)))) return false;
    const UniqueCom<IPOlItems> owned(items);
    const BSTR columns = SysAllocString(L"FileAs, CompanyName");
    const HRESULT result = items->SetColumns(columns);
    SysFreeString(columns);
    return SUCCEEDED(result);
}

}  // namespace

void OutlookContacts::Open(HWND window) {
    if (!session_.Open(window)) return;
    IFolder* folder = nullptr;
    if (FAILED(session_.Application()->GetDefaultFolder(olFolderContacts, &folder))) return;
    const UniqueCom<IFolder> owned(folder);
    IPOutlookItemCollection* contacts = nullptr;
    if (FAILED(folder->get_Items(&contacts))) return;
    contacts_.reset(contacts);
    AskForColumns(*contacts);  // without them it is slower, and the same
    if (FAILED(contacts->get_Count(&count_))) count_ = 0;
}

void OutlookContacts::Close() {
    count_ = 0;
    contacts_.reset();
    session_.Close();
}

OfferedContact OutlookContacts::Get(int index) {
    IDispatch* item = nullptr;
    if (!contacts_ || FAILED(contacts_->Item(index + 1, &item))) return {};
    const UniqueCom<IDispatch> owned(item);
    auto& contact = static_cast<IContact&>(*item);
    return {OutlookText(contact, &IContact::get_FileAs), OutlookText(contact, &IContact::get_CompanyName)};
}
