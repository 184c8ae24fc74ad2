// Pocket Outlook: a person's contacts, appointments and tasks as COM objects, under the names a Pocket PC gives them.
//
// One object is made with CoCreateInstance, CLSID_Application; all others come from it. Every method answers an HRESULT
// and throws nothing:
//   S_OK, S_FALSE      done; S_FALSE where a method tells of it below
//   E_POINTER          a result has no place to go
//   E_INVALIDARG       no such item, folder or index; a date, number or text that cannot be
//   E_UNEXPECTED       the application object is not logged on
//   E_NOTIMPL          what only a device has: infrared, meeting requests, recurrence, cities, windows of its own
//   E_OUTOFMEMORY, and HRESULT_FROM_WIN32 of the object store's error (windbase.h)
//
// Texts that come out belong to the caller, who frees them with SysFreeString; an empty text may come as an empty
// string. Texts that go in are copied, null is the empty text. Dates are days since 30 December 1899, local time.
// Objects are used from the thread that made them.
#pragma once

#include <cehost.h>
#include <win.h>
#include <windbase.h>

// --- Ids ---

inline constexpr GUID CLSID_Application = {
    0x05058F23, 0x20BE, 0x11D2, {0x8F, 0x18, 0x00, 0x00, 0xF8, 0x7A, 0x43, 0x35}};
inline constexpr GUID IID_IPOutlookApp = {0x05058F22, 0x20BE, 0x11D2, {0x8F, 0x18, 0x00, 0x00, 0xF8, 0x7A, 0x43, 0x35}};
inline constexpr GUID IID_IFolder = {0x05058F20, 0x20BE, 0x11D2, {0x8F, 0x18, 0x00, 0x00, 0xF8, 0x7A, 0x43, 0x35}};
inline constexpr GUID IID_IPOutlookItemCollection = {
    0xF06748C0, 0x21A5, 0x11D2, {0x8F, 0x18, 0x00, 0x00, 0xF8, 0x7A, 0x43, 0x35}};
inline constexpr GUID IID_IPOlItems = {0x6E3DBE90, 0x5411, 0x11D3, {0x8F, 0x39, 0x00, 0x00, 0xF8, 0x7A, 0x43, 0x35}};
inline constexpr GUID IID_IContact = {0x7F804E40, 0x2010, 0x11D2, {0x8F, 0x18, 0x00, 0x00, 0xF8, 0x7A, 0x43, 0x35}};
inline constexpr GUID IID_ITask = {0x37C78CE0, 0x202C, 0x11D2, {0x8F, 0x18, 0x00, 0x00, 0xF8, 0x7A, 0x43, 0x35}};
inline constexpr GUID IID_IAppointment = {0x5B43F691, 0x202C, 0x11D2, {0x8F, 0x18, 0x00, 0x00, 0xF8, 0x7A, 0x43, 0x35}};

// --- Numbers (stored in items, and known to other programs: fixed) ---

enum OlDefaultFolders {
    olFolderCalendar = 9,
    olFolderContacts = 10,
    olFolderTasks = 13,
    olFolderCities = 101,
    olFolderInfrared = 102,
};
enum OlItemType { olAppointmentItem = 1, olContactItem = 2, olTaskItem = 3, olCityItem = 102 };
enum OlImportance { olImportanceLow = 0, olImportanceNormal = 1, olImportanceHigh = 2 };
enum OlSensitivity { olNormal = 0, olPersonal = 1, olPrivate = 2, olConfidential = 3 };
enum OlBusyStatus { olFree = 0, olTentative = 1, olBusy = 2, olOutOfOffice = 3 };
enum OlMeetingStatus { olNonMeeting = 0, olMeeting = 1 };

#define DATE_NONE 949998.0  // 1 January 4501: no date
#define CAL_MINDATE 0.0
#define CAL_MAXDATE 401768.0  // 31 December 2999

// --- Properties ---

// Each list names an item's properties in the order of its methods: first get_ for all, then put_ for all. R marks
// those that can only be read.
#define PIM_CONTACT_PROPERTIES(P)      \
    P(DATE, Birthday)                  \
    P(DATE, Anniversary)               \
    P(BSTR, BusinessFaxNumber)         \
    P(BSTR, CompanyName)               \
    P(BSTR, Department)                \
    P(BSTR, Email1Address)             \
    P(BSTR, MobileTelephoneNumber)     \
    P(BSTR, OfficeLocation)            \
    P(BSTR, PagerNumber)               \
    P(BSTR, BusinessTelephoneNumber)   \
    P(BSTR, JobTitle)                  \
    P(BSTR, HomeTelephoneNumber)       \
    P(BSTR, Email2Address)             \
    P(BSTR, Spouse)                    \
    P(BSTR, Email3Address)             \
    P(BSTR, Home2TelephoneNumber)      \
    P(BSTR, HomeFaxNumber)             \
    P(BSTR, CarTelephoneNumber)        \
    P(BSTR, AssistantName)             \
    P(BSTR, AssistantTelephoneNumber)  \
    P(BSTR, Children)                  \
    P(BSTR, Categories)                \
    P(BSTR, WebPage)                   \
    P(BSTR, Business2TelephoneNumber)  \
    P(BSTR, Title)                     \
    P(BSTR, FirstName)                 \
    P(BSTR, MiddleName)                \
    P(BSTR, LastName)                  \
    P(BSTR, Suffix)                    \
    P(BSTR, HomeAddressStreet)         \
    P(BSTR, HomeAddressCity)           \
    P(BSTR, HomeAddressState)          \
    P(BSTR, HomeAddressPostalCode)     \
    P(BSTR, HomeAddressCountry)        \
    P(BSTR, OtherAddressStreet)        \
    P(BSTR, OtherAddressCity)          \
    P(BSTR, OtherAddressState)         \
    P(BSTR, OtherAddressPostalCode)    \
    P(BSTR, OtherAddressCountry)       \
    P(BSTR, BusinessAddressStreet)     \
    P(BSTR, BusinessAddressCity)       \
    P(BSTR, BusinessAddressState)      \
    P(BSTR, BusinessAddressPostalCode) \
    P(BSTR, BusinessAddressCountry)    \
    P(BSTR, RadioTelephoneNumber)      \
    P(BSTR, FileAs)                    \
    P(BSTR, Body)                      \
    P(BSTR, YomiCompanyName)           \
    P(BSTR, YomiFirstName)             \
    P(BSTR, YomiLastName)

#define PIM_APPOINTMENT_PROPERTIES(P, R, recipients)                                          \
    P(BSTR, Subject)                                                                          \
    P(BSTR, Location)                                                                         \
    P(BSTR, Categories)                                                                       \
    P(DATE, Start)                                                                            \
    P(long, Duration)                                                                         \
    P(DATE, End)                                                                              \
    P(VARIANT_BOOL, AllDayEvent)                                                              \
    P(long, BusyStatus)                                                                       \
    P(long, Sensitivity)                                                                      \
    P(BSTR, Body)                                                                             \
    recipients R(long, MeetingStatus) P(VARIANT_BOOL, ReminderSet) P(BSTR, ReminderSoundFile) \
        P(long, ReminderMinutesBeforeStart) P(long, ReminderOptions)

#define PIM_TASK_PROPERTIES(P, R) \
    P(BSTR, Subject)              \
    P(BSTR, Categories)           \
    P(DATE, StartDate)            \
    P(DATE, DueDate)              \
    R(DATE, DateCompleted)        \
    P(long, Importance)           \
    P(VARIANT_BOOL, Complete)     \
    P(long, Sensitivity)          \
    P(VARIANT_BOOL, TeamTask)     \
    P(BSTR, Body)                 \
    P(VARIANT_BOOL, ReminderSet)  \
    P(BSTR, ReminderSoundFile)    \
    P(DATE, ReminderTime)         \
    P(long, ReminderOptions)

#define PIM_METHOD(...) virtual HRESULT STDMETHODCALLTYPE __VA_ARGS__ = 0;
#define PIM_GETTER(type, name) PIM_METHOD(get_##name(type* value))
#define PIM_SETTER(type, name) PIM_METHOD(put_##name(type value))
#define PIM_NOTHING(type, name)

// --- Interfaces ---

// The order of the methods is fixed: other programs call them through their slots.

struct ICity;
struct IExceptions;
struct IPOutlookApp;
struct IRecipients;
struct IRecurrencePattern;
struct ITimeZone;

// A view of a folder's items, which follows the folder as it changes. Items count from 1.
struct IPOutlookItemCollection : public IDispatch {
    // Makes a new item of the folder's kind; it is in the folder once it is saved.
    PIM_METHOD(Add(IDispatch** item))
    PIM_METHOD(get_Count(int* count))
    // The first item that fits a restriction such as [LastName] = "Lee" And [Birthday] > "1/1/1970", and then the next
    // ones; S_FALSE and null when there is none.
    PIM_METHOD(Find(BSTR restriction, IDispatch** item))
    PIM_METHOD(FindNext(IDispatch** item))
    PIM_METHOD(Item(int index, IDispatch** item))
    // Deletes an item for good.
    PIM_METHOD(Remove(int index))
    // A collection of those items that fit.
    PIM_METHOD(Restrict(BSTR restriction, IPOutlookItemCollection** items))
    // Orders the items by a property such as [FileAs].
    PIM_METHOD(Sort(BSTR property, VARIANT_BOOL descending))
    PIM_METHOD(get_IncludeRecurrences(VARIANT_BOOL* include))
    PIM_METHOD(put_IncludeRecurrences(VARIANT_BOOL include))
    PIM_METHOD(get__NewEnum(IUnknown** enumeration))
    PIM_METHOD(get_Application(IPOutlookApp** application))
};

struct IPOlItems : public IPOutlookItemCollection {
    // Names, with commas between them, the properties that are read for all items at once: reading those of one item
    // after another is quick then.
    PIM_METHOD(SetColumns(BSTR properties))
};

struct IFolder : public IDispatch {
    PIM_METHOD(get_Items(IPOutlookItemCollection** items))
    PIM_METHOD(get_DefaultItemType(int* type))  // OlItemType
    PIM_METHOD(get_Application(IPOutlookApp** application))
    PIM_METHOD(AddItemToInfraredFolder(int type, IDispatch* item))
    PIM_METHOD(SendToInfrared())
    PIM_METHOD(ReceiveFromInfrared(IPOutlookItemCollection** items))
};

struct IPOutlookApp : public IDispatch {
    // Comes before all else; the window may be 0. S_FALSE when logged on already.
    PIM_METHOD(Logon(long window))
    // S_FALSE when not logged on.
    PIM_METHOD(Logoff())
    PIM_METHOD(get_Version(BSTR* version))
    PIM_METHOD(GetDefaultFolder(int folder, IFolder** result))  // OlDefaultFolders
    PIM_METHOD(CreateItem(int type, IDispatch** item))          // OlItemType
    // The item of an object id, as IContact, IAppointment or ITask. E_INVALIDARG when the id is none of theirs.
    PIM_METHOD(GetItemFromOid(CEOID oid, IDispatch** item))
    PIM_METHOD(get_HomeCity(ICity** city))
    PIM_METHOD(put_HomeCity(ICity* city))
    PIM_METHOD(get_VisitingCity(ICity** city))
    PIM_METHOD(put_VisitingCity(ICity* city))
    PIM_METHOD(get_CurrentCityIndex(int* index))
    PIM_METHOD(put_CurrentCityIndex(int index))
    PIM_METHOD(ReceiveFromInfrared())
    PIM_METHOD(get_OutlookCompatible(VARIANT_BOOL* compatible))
    PIM_METHOD(GetTimeZoneFromIndex(int index, ITimeZone** zone))
    PIM_METHOD(GetTimeZoneInformationFromIndex(int index, TIME_ZONE_INFORMATION* zone))
    PIM_METHOD(get_Application(IPOutlookApp** application))
    PIM_METHOD(SysFreeString(BSTR text))
    PIM_METHOD(VariantTimeToSystemTime(DATE date, SYSTEMTIME* time))
    PIM_METHOD(SystemTimeToVariantTime(SYSTEMTIME* time, DATE* date))
};

struct IContact : public IDispatch {
    PIM_CONTACT_PROPERTIES(PIM_GETTER)
    PIM_CONTACT_PROPERTIES(PIM_SETTER)
    // Stores the contact; one without FileAs is filed as "Last, First", else by its company.
    PIM_METHOD(Save())
    PIM_METHOD(Delete())
    // A new contact with the same properties, not saved yet.
    PIM_METHOD(Copy(IContact** copy))
    PIM_METHOD(Display())
    PIM_METHOD(get_Oid(long* oid))  // 0 until it is saved
    PIM_METHOD(put_BodyInk(CEBLOB* ink))
    // The bytes are the caller's, to be freed with LocalFree.
    PIM_METHOD(get_BodyInk(CEBLOB* ink))
    PIM_METHOD(get_Application(IPOutlookApp** application))
};

struct IAppointment : public IDispatch {
    PIM_METHOD(ClearRecurrencePattern())
    PIM_METHOD(GetRecurrencePattern(IRecurrencePattern** pattern))
    PIM_METHOD(get_IsRecurring(VARIANT_BOOL* recurring))
    PIM_APPOINTMENT_PROPERTIES(PIM_GETTER, PIM_GETTER, PIM_METHOD(get_Recipients(IRecipients** recipients)))
    PIM_APPOINTMENT_PROPERTIES(PIM_SETTER, PIM_NOTHING, )
    PIM_METHOD(Save())
    PIM_METHOD(Send())
    PIM_METHOD(Delete())
    PIM_METHOD(Cancel())
    PIM_METHOD(Copy(IAppointment** copy))
    PIM_METHOD(Display())
    PIM_METHOD(get_Oid(long* oid))
    PIM_METHOD(put_BodyInk(CEBLOB* ink))
    PIM_METHOD(get_BodyInk(CEBLOB* ink))
    PIM_METHOD(get_Application(IPOutlookApp** application))
};

struct ITask : public IDispatch {
    PIM_METHOD(ClearRecurrencePattern())
    PIM_METHOD(GetRecurrencePattern(IRecurrencePattern** pattern))
    PIM_METHOD(get_IsRecurring(VARIANT_BOOL* recurring))
    PIM_TASK_PROPERTIES(PIM_GETTER, PIM_GETTER)
    PIM_TASK_PROPERTIES(PIM_SETTER, PIM_NOTHING)
    PIM_METHOD(Save())
    PIM_METHOD(Delete())
    PIM_METHOD(SkipRecurrence())
    PIM_METHOD(Copy(ITask** copy))
    PIM_METHOD(Display())
    PIM_METHOD(get_Oid(long* oid))
    PIM_METHOD(put_BodyInk(CEBLOB* ink))
    PIM_METHOD(get_BodyInk(CEBLOB* ink))
    PIM_METHOD(get_Application(IPOutlookApp** application))
};

#undef PIM_METHOD
#undef PIM_GETTER
#undef PIM_SETTER
#undef PIM_NOTHING

// --- The server itself (ours; a device has it from the start) ---

// Makes CLSID_Application known to this user's programs, with this library as its server; quick when that has been
// done. What DllRegisterServer does, for programs that have the library loaded anyway.
CEHOST_API HRESULT WINAPI PimRegisterServer(void);
// Takes that back.
CEHOST_API HRESULT WINAPI PimUnregisterServer(void);
