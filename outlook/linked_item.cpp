#include "outlook/linked_item.h"

#include "data/link_message.h"
#include "res/ids.h"
#include "ui/resource_text.h"
#include "ui/window.h"

namespace {

// False when the item has no such date.
template <class Interface>
bool TakeDate(Interface& item, HRESULT (STDMETHODCALLTYPE Interface::*get)(DATE*), DateTime* time) {
    DATE date = DATE_NONE;
    if (FAILED((item.*get)(&date)) || date == DATE_NONE) return false;
    time->SetVariantTime(date);
    return true;
}

}  // namespace

bool LinkedItem::Read(Window& owner, WORD kind, CEOID oid, PimData* record) {
    if (!session_.Open(owner.GetHandle())) return false;
    record->itemId = oid;
    bool found = true;
    UINT failure = 0;
    switch (kind) {
        case kLinkContact:
            found = ReadContact(oid, record);
            failure = IDS_LINK_NO_CONTACT;
            break;
        case kLinkAppointment:
            found = ReadAppointment(oid, record);
            failure = IDS_LINK_NO_APPOINTMENT;
            break;
        case kLinkTask:
            found = ReadTask(oid, record);
            failure = IDS_LINK_NO_TASK;
            break;
        default: break;
    }
    if (!found) owner.MessageBox(LoadText(failure).c_str(), LoadText(IDS_LINK_ERROR).c_str(), MB_SETFOREGROUND);
    return found;
}

// The id of an item of another kind finds none.
template <class Interface>
Interface* LinkedItem::Find(CEOID oid, REFIID id) {
    IDispatch* found = nullptr;
    if (FAILED(session_.Application()->GetItemFromOid(oid, &found)) || !found) return nullptr;
    const UniqueCom<IDispatch> any(found);
    Interface* item = nullptr;
    if (FAILED(any->QueryInterface(id, reinterpret_cast<void**>(&item)))) return nullptr;
    item_.reset(item);
    return item;
}

bool LinkedItem::ReadContact(CEOID oid, PimData* record) {
    IContact* contact = Find<IContact>(oid, IID_IContact);
    if (!contact) return false;
    record->company = OutlookText(*contact, &IContact::get_CompanyName);
    record->subject = OutlookText(*contact, &IContact::get_FileAs);
    return true;
}

bool LinkedItem::ReadAppointment(CEOID oid, PimData* record) {
    IAppointment* appointment = Find<IAppointment>(oid, IID_IAppointment);
    if (!appointment) return false;
    record->subject = OutlookText(*appointment, &IAppointment::get_Subject);
    TakeDate(*appointment, &IAppointment::get_Start, &record->start);
    return true;
}

bool LinkedItem::ReadTask(CEOID oid, PimData* record) {
    ITask* task = Find<ITask>(oid, IID_ITask);
    if (!task) return false;
    record->subject = OutlookText(*task, &ITask::get_Subject);
    if (!TakeDate(*task, &ITask::get_StartDate, &record->start)) {
        TakeDate(*task, &ITask::get_DueDate, &record->start);
    }
    return true;
}
