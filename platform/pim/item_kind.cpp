#include "platform/pim/item_kind.h"

#include <array>

#include "platform/pim/com_object.h"

namespace pim {
namespace {

#define PIM_CONTACT_NAME(type, name) PropertyName{L## #name, kContact##name},
#define PIM_APPOINTMENT_NAME(type, name) PropertyName{L## #name, kAppointment##name},
#define PIM_TASK_NAME(type, name) PropertyName{L## #name, kTask##name},

constexpr PropertyName kContactNames[] = {PIM_CONTACT_PROPERTIES(PIM_CONTACT_NAME)};
constexpr PropertyName kAppointmentNames[] = {PIM_APPOINTMENT_PROPERTIES(PIM_APPOINTMENT_NAME, PIM_APPOINTMENT_NAME, )};
constexpr PropertyName kTaskNames[] = {PIM_TASK_PROPERTIES(PIM_TASK_NAME, PIM_TASK_NAME)};

bool SameText(std::wstring_view a, std::wstring_view b) {
    return CompareStringOrdinal(a.data(), static_cast<int>(a.size()), b.data(), static_cast<int>(b.size()), TRUE) ==
           CSTR_EQUAL;
}

HANDLE Open(const ItemKind& kind, CEOID* oid) {
    HANDLE handle = CeOpenDatabase(oid, kind.database, 0, 0, nullptr);
    if (handle != INVALID_HANDLE_VALUE || GetLastError() != ERROR_FILE_NOT_FOUND) return handle;
    const bool isText = TypeFromPropID(kind.order) == CEVT_LPWSTR;
    const SORTORDERSPEC order = {kind.order, isText ? DWORD{CEDB_SORT_CASEINSENSITIVE} : 0};
    // Another process may have made it meanwhile.
    if (!CeCreateDatabase(kind.database, kind.databaseType, 1, &order) && GetLastError() != ERROR_DUP_NAME) {
        return INVALID_HANDLE_VALUE;
    }
    return CeOpenDatabase(oid, kind.database, 0, 0, nullptr);
}

}  // namespace

const ItemKind kContactKind = {olFolderContacts,      olContactItem,  kContactsDatabase,
                               kContactsDatabaseType, kContactFileAs, kContactNames};
const ItemKind kAppointmentKind = {olFolderCalendar,          olAppointmentItem, kAppointmentsDatabase,
                                   kAppointmentsDatabaseType, kAppointmentStart, kAppointmentNames};
const ItemKind kTaskKind = {olFolderTasks, olTaskItem, kTasksDatabase, kTasksDatabaseType, kTaskSubject, kTaskNames};

namespace {
const std::array kKinds = {&kContactKind, &kAppointmentKind, &kTaskKind};
}

CEPROPID ItemKind::FindProperty(std::wstring_view name) const {
    for (const PropertyName& property : properties)
        if (SameText(property.name, name)) return property.id;
    return 0;
}

const ItemKind* KindOfFolder(int folder) {
    for (const ItemKind* kind : kKinds)
        if (kind->folder == folder) return kind;
    return nullptr;
}

const ItemKind* KindOfType(int type) {
    for (const ItemKind* kind : kKinds)
        if (kind->type == type) return kind;
    return nullptr;
}

const ItemKind* KindOfDatabase(std::wstring_view name) {
    for (const ItemKind* kind : kKinds)
        if (SameText(kind->database, name)) return kind;
    return nullptr;
}

KindDatabase::KindDatabase(const ItemKind& kind) : handle_(Open(kind, &oid_)) {
    if (handle_ == INVALID_HANDLE_VALUE) FailWithLastError();
}

KindDatabase::~KindDatabase() {
    CloseHandle(handle_);
}

}  // namespace pim

HANDLE PimOpenDatabase(int folder) {
    const pim::ItemKind* kind = pim::KindOfFolder(folder);
    CEOID oid = 0;
    if (kind) return pim::Open(*kind, &oid);
    SetLastError(ERROR_INVALID_PARAMETER);
    return INVALID_HANDLE_VALUE;
}
