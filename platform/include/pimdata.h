// Where Pocket Outlook keeps its items: three databases of the object store. For programs that read or fill them
// without the objects of pimstore.h, as the device's own do.
#pragma once

#include <pimstore.h>

// Names, types and property ids are stored: fixed.
inline constexpr wchar_t kContactsDatabase[] = L"\\Contacts Database";
inline constexpr wchar_t kAppointmentsDatabase[] = L"\\Appointments Database";
inline constexpr wchar_t kTasksDatabase[] = L"\\Tasks Database";
inline constexpr DWORD kContactsDatabaseType = 0x18;
inline constexpr DWORD kAppointmentsDatabaseType = 0x19;
inline constexpr DWORD kTasksDatabaseType = 0x1A;

namespace pim_properties {

// Texts are strings, dates CEVT_R8, numbers CEVT_I4, truth values CEVT_BOOL.
template <class T>
constexpr CEPROPID kType = CEVT_LPWSTR;
template <>
inline constexpr CEPROPID kType<DATE> = CEVT_R8;
template <>
inline constexpr CEPROPID kType<long> = CEVT_I4;
template <>
inline constexpr CEPROPID kType<VARIANT_BOOL> = CEVT_BOOL;

// Properties are numbered in the order of the lists in pimstore.h.
#define PIM_NUMBER(type, name) k##name,
struct Contact {
    enum : CEPROPID { kBefore = 0x0FF, PIM_CONTACT_PROPERTIES(PIM_NUMBER) };
};
struct Appointment {
    enum : CEPROPID { kBefore = 0x1FF, PIM_APPOINTMENT_PROPERTIES(PIM_NUMBER, PIM_NUMBER, ) };
};
struct Task {
    enum : CEPROPID { kBefore = 0x2FF, PIM_TASK_PROPERTIES(PIM_NUMBER, PIM_NUMBER) };
};
#undef PIM_NUMBER

}  // namespace pim_properties

// kContactFileAs, kAppointmentStart, kTaskDueDate... A property that a record lacks has a new item's value: an empty
// text, DATE_NONE, 0, false; importance normal, busy. An appointment's end is not stored: its start and duration are.
#define PIM_PROPERTY_ID(kind, type, name) \
    inline constexpr CEPROPID k##kind##name = pim_properties::kind::k##name << 16 | pim_properties::kType<type>;
#define PIM_CONTACT_ID(type, name) PIM_PROPERTY_ID(Contact, type, name)
#define PIM_APPOINTMENT_ID(type, name) PIM_PROPERTY_ID(Appointment, type, name)
#define PIM_TASK_ID(type, name) PIM_PROPERTY_ID(Task, type, name)
PIM_CONTACT_PROPERTIES(PIM_CONTACT_ID)
PIM_APPOINTMENT_PROPERTIES(PIM_APPOINTMENT_ID, PIM_APPOINTMENT_ID, )
PIM_TASK_PROPERTIES(PIM_TASK_ID, PIM_TASK_ID)
#undef PIM_PROPERTY_ID
#undef PIM_CONTACT_ID
#undef PIM_APPOINTMENT_ID
#undef PIM_TASK_ID

// Of every item. The uid is what a file called it from which it was imported.
inline constexpr CEPROPID kPimUid = 0x04000000 | CEVT_LPWSTR;
inline constexpr CEPROPID kPimBodyInk = 0x04010000 | CEVT_BLOB;

// Opens the database of a folder (olFolderContacts, olFolderCalendar or olFolderTasks) and makes it when there is none.
// Answers a handle for CloseHandle, INVALID_HANDLE_VALUE with the last error on failure: 87 for another folder, and
// those of windbase.h.
CEHOST_API HANDLE PimOpenDatabase(int folder);
